"""Tests the extension in Python's module and in the shell: test_sqlite.py SOURCE_DIR EXTENSION"""

import sqlite3
import subprocess
import sys
import threading
import unittest
from pathlib import Path

ROOT, EXTENSION = sys.argv[1:3]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import counted
import vectors

ITEM = "3074257BF7194E4000001A85"


def connect(path=":memory:", **options):
    connection = sqlite3.connect(path, **options)
    connection.enable_load_extension(True)
    connection.load_extension(EXTENSION)
    return connection


class Sqlite(unittest.TestCase):
    def setUp(self):
        self.connection = connect()
        self.addCleanup(self.connection.close)

    def one(self, expression, *arguments):
        return self.connection.execute(f"SELECT {expression}", arguments).fetchone()[0]

    def test_shared_rows(self):
        calls, skipped = vectors.calls(ROOT)
        for name, expression, arguments, expected in calls:
            if expression == "AIS":
                expression = "(SELECT group_concat('('||ai||')'||value, '') FROM epc_ais(?))"
            with self.subTest(name, call=expression, arguments=arguments):
                if expected is vectors.RAISES:
                    with self.assertRaises(sqlite3.OperationalError):
                        self.one(expression, *arguments)
                    continue
                self.assertEqual(expected, self.one(expression, *arguments))
                data = vectors.hexadecimal(arguments[0])
                if data is not None and expected is not None and "encode" not in expression:
                    self.assertEqual(expected, self.one(expression, data))
        for what, count in skipped.items():
            print(f"skipped: {count} rows {what}: {vectors.SKIPPED[what]}", file=sys.stderr)


if __name__ == "__main__":
    counted.main(sys.argv[3:])
