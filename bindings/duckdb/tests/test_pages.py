"""Looks at the extension as a file, and runs what the pages show in DuckDB's shell.

usage: test_pages.py SOURCE_DIR EXTENSION SHELL
"""

import sys
import unittest
from pathlib import Path

ROOT, EXTENSION, SHELL = sys.argv[1:4]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import binary
import counted
import pages


class Pages(unittest.TestCase):
    def test_binary(self):
        binary.check(self, EXTENSION, "rosetag_init_c_api")

    def test_pages(self):
        for page, section, blocks in [("docs/sql.md", "DuckDB", 6),
                                      ("bindings/duckdb/README.md", None, 1)]:
            self.assertEqual(blocks, pages.check(
                self, ROOT, page, section, EXTENSION, [SHELL, "-unsigned"],
                "LOAD './rosetag.duckdb_extension';"))


if __name__ == "__main__":
    counted.main(sys.argv[4:])
