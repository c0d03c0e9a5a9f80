"""What PostgreSQL has in common with the other engines, and what docs/sql.md shows of it:
test_postgresql.py SOURCE_DIR, with a server to talk to, in which no extension is yet."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = sys.argv[1]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import counted
import pages
import rules


class Error(Exception):
    pass


def psql(sql, *options, **more):
    return subprocess.run(["psql", "-Xq", *options], input=sql, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, check=False, **more)


def literal(value):
    if value is None:
        return "NULL::text"
    if isinstance(value, bytes):
        return f"'\\x{value.hex()}'::bytea"
    return "'" + value.replace("'", "''") + "'"


def one(expression, *arguments):
    for argument in arguments:
        expression = expression.replace("?", literal(argument), 1)
    found = psql(f"SELECT coalesce(to_json({expression}), 'null')", "-At", "-v", "ON_ERROR_STOP=1",
                 "-d", "common")
    if found.returncode != 0:
        raise Error(found.stdout.replace(" at character", ": character"))
    value = json.loads(found.stdout)
    is_bytes = isinstance(value, str) and value.startswith("\\x")
    return bytes.fromhex(value[2:]) if is_bytes else value


class Common(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        psql("CREATE DATABASE common")
        psql("CREATE EXTENSION rosetag", "-d", "common")

    def test_names(self):
        found = psql("""
            SELECT DISTINCT proname, generate_series(pronargs - pronargdefaults, pronargs::int)
              FROM pg_proc JOIN pg_depend ON objid = pg_proc.oid
              JOIN pg_extension e ON refobjid = e.oid WHERE extname = 'rosetag'""",
                     "-At", "-d", "common").stdout.split()
        rules.check_names(self, [(name, int(count)) for name, count in
                                 (line.split("|") for line in found)])

    def test_rules(self):
        rules.check(self, one, Error, too_large="does not exist")


class Page(unittest.TestCase):
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
                found = psql(sql, "-v", "VERBOSITY=default", cwd=folder).stdout
                with self.subTest(block=sql):
                    self.assertEqual(shown.split(), found.split(), found)
        self.assertEqual(6, ran)


if __name__ == "__main__":
    counted.main(sys.argv[2:])
