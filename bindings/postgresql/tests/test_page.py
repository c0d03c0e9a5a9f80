"""Runs what docs/sql.md shows of PostgreSQL: test_page.py SOURCE_DIR, with a server to talk to."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = sys.argv[1]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import counted
import pages


class Page(unittest.TestCase):
    def run_block(self, sql, folder):
        psql = ["psql", "-Xq", "-v", "VERBOSITY=default"]
        return subprocess.run(psql, input=sql, text=True, cwd=folder, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False).stdout

    def test_page(self):
        page = Path(ROOT) / "docs/sql.md"
        reads = dict(pages.blocks_of(page, "The reads of the examples"))["csv"]
        blocks = pages.blocks_of(page, "PostgreSQL")
        ran = 0
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "reads.csv").write_text(reads)
            for (language, sql), (_, shown) in zip(blocks, blocks[1:] + [("", "")]):
                if language != "sql":
                    continue
                ran += 1
                found = self.run_block(sql, folder)
                with self.subTest(block=sql):
                    self.assertEqual(shown.split(), found.split(), found)
        self.assertEqual(6, ran)


if __name__ == "__main__":
    counted.main(sys.argv[2:])
