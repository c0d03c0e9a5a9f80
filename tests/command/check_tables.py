"""Reads random tables, and compares every cell and every row that is kept with what Python's csv
makes of them.

usage: check_tables.py ROSETAG
"""
import csv
import io
import json
import os
import random
import subprocess
import sys
import tempfile
import unittest

ROSETAG = os.path.abspath(sys.argv[1])
ROUNDS = 40
ROWS = 3000
PIECES = ["", "", "x", '"', '""', ",", ";", "\t", "|", "\n", "\r\n", " ", "3074257BF7194E4000001A85",
          "ü", "{", "a b" * 30]


def run(options):
    return subprocess.run([ROSETAG, "decode", "--quiet", *options], stdout=subprocess.PIPE,
                          check=False)


class Tables(unittest.TestCase):
    def random_rows(self, chance, delimiter, end):
        """The cells of each row, and its text without its end."""
        width = chance.randint(2, 5)
        rows = [[f"c{i}" + chance.choice(["", " ", '"', "\n"]) for i in range(width)]]
        rows += [["".join(chance.choices(PIECES, k=chance.randint(0, 4))) for _ in range(width)]
                 for _ in range(ROWS)]
        texts = []
        for row in rows:
            text = io.StringIO(newline="")
            csv.writer(text, delimiter=delimiter, lineterminator=end).writerow(row)
            texts.append(text.getvalue().removesuffix(end))
        return rows, texts

    def test_cells_and_rows(self):
        with tempfile.TemporaryDirectory() as folder:
            name = os.path.join(folder, "table")
            for seed in range(ROUNDS):
                chance = random.Random(seed)
                delimiter, end = chance.choice(",;|"), chance.choice(["\n", "\r\n"])
                rows, texts = self.random_rows(chance, delimiter, end)
                last_end = chance.choice(["", end])
                with open(name, "wb") as file:
                    file.write((end.join(texts) + last_end).encode())
                column = chance.randrange(len(rows[0]))
                options = ["--column", str(column + 1), "--delimiter", delimiter, "--jobs",
                           chance.choice("12"), "--input", name]
                with self.subTest(seed=seed, column=column):
                    out = run(["--json", *options]).stdout.splitlines()
                    cells = [json.loads(line)["value"] for line in out]
                    self.assertEqual(cells, [row[column] for row in rows[1:]])
                    line = 1
                    for number, row in enumerate(rows):
                        lines = texts[number].count("\n") + 1
                        added = str(line) if row[column] else ""
                        texts[number] += delimiter + ("line" if number == 0 else added)
                        line += lines
                    kept = run(["--fields", "line", "--errors", os.devnull, *options]).stdout
                    self.assertEqual(kept, (end.join(texts) + last_end).encode())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
