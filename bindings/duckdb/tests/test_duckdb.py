"""Tests the extension in DuckDB's Python package: test_duckdb.py SOURCE_DIR EXTENSION"""

import collections
import sys
import tempfile
import threading
import unittest
from pathlib import Path

import duckdb

ROOT, EXTENSION = sys.argv[1:3]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import counted
import rules
import vectors

# Of a number: a read of SGTIN-96 whose serial is that number.
READ = "printf('3074257BF7194E4%09X', i)"
AIS = "list_aggregate([concat('(', e.key, ')', e.value) FOR e IN map_entries(epc_ais(?))], 'string_agg', '')"


def connect(path=":memory:", **config):
    connection = duckdb.connect(path, config={"allow_unsigned_extensions": "true", **config})
    connection.execute(f"LOAD '{EXTENSION}'")
    return connection


class DuckDb(unittest.TestCase):
    def setUp(self):
        self.connection = connect(threads=2)
        self.addCleanup(self.connection.close)

    def one(self, expression, *arguments):
        return self.connection.execute(f"SELECT {expression}", arguments).fetchone()[0]

    def test_shared_rows_one_by_one(self):
        calls, skipped = vectors.calls(ROOT, AIS)
        vectors.check(self, calls, self.one, duckdb.InvalidInputException)
        for what, count in skipped.items():
            print(f"skipped: {count} rows {what}: {vectors.SKIPPED[what]}", file=sys.stderr)

    def test_shared_rows_as_columns(self):
        columns = collections.defaultdict(list)
        for _, expression, arguments, expected in vectors.calls(ROOT, AIS)[0]:
            if expected is not vectors.RAISES:
                rows = columns[expression]
                rows.append((arguments, expected))
                if len(rows) % 4 == 0:
                    rows.append(([None, *arguments[1:]], None))
        self.assertGreater(len(columns), 12)
        for expression, rows in columns.items():
            with self.subTest(expression):
                names = ["text", "scheme", "filter", "gcp_length"][: len(rows[0][0])]
                types = ["VARCHAR", "VARCHAR", "INTEGER", "INTEGER"][: len(names)]
                listed = [list(column) for column in zip(*(arguments for arguments, _ in rows))]
                fields = ", ".join(f"unnest(?::{type}[]) AS {n}" for n, type in zip(names, types))
                for name in names:
                    expression = expression.replace("?", name, 1)
                found = self.connection.execute(
                    f"SELECT {expression} FROM (SELECT {fields})", listed
                ).fetchall()
                self.assertEqual([expected for _, expected in rows], [row[0] for row in found])

    def test_installed(self):
        """Copied into DuckDB's own folder of extensions, it is found by its name."""
        with tempfile.TemporaryDirectory() as folder, duckdb.connect(config={
                "allow_unsigned_extensions": "true", "extension_directory": folder}) as connection:
            connection.execute(f"INSTALL '{EXTENSION}'")
            connection.execute("LOAD rosetag")
            self.assertEqual(("6789",), connection.execute(
                "SELECT epc_serial(?)", [rules.ITEM]).fetchone())

    def test_names(self):
        found = self.connection.execute(
            "SELECT function_name, len(parameters) FROM duckdb_functions() "
            "WHERE regexp_matches(function_name, '^(epc|tid|rosetag)_')").fetchall()
        rules.check_names(self, found)

    def test_rules(self):
        rules.check(self, self.one, duckdb.InvalidInputException)

    def test_bytes(self):
        calls = list(vectors.calls_of_bytes(vectors.calls(ROOT, AIS)[0]))
        self.assertGreater(len(calls), 500)
        vectors.check(self, calls, self.one, duckdb.InvalidInputException)

    def test_nested_results(self):
        rows = self.connection.execute(
            "SELECT epc_decode(x), epc_ais(x), tid_decode(x) FROM (VALUES (?), (?), (NULL), ('x')) t(x)",
            ["3074257BF7194E4000001A85", "E280113020001234567890AB"],
        ).fetchall()
        item, ais, _ = rows[0]
        for name, value in item.items():
            self.assertEqual(value, self.one(f"epc_{name}(?)", "3074257BF7194E4000001A85"), name)
        self.assertEqual({"01": "80614141123458", "21": "6789"}, ais)
        self.assertEqual(
            {"designer": 1, "model": 304, "xtid": True, "security": False, "file": False,
             "serial": "1234567890AB", "serial_bits": 48},
            rows[1][2],
        )
        self.assertEqual([(None, None, None)] * 2, rows[2:])
        # A map for each row, whatever stands before it; more entries than a chunk has rows.
        wrong = self.connection.execute(f"""
            SELECT count(*), count(*) FILTER (epc_ais(x)['21'] IS DISTINCT FROM serial
                OR epc_decode(x).serial IS DISTINCT FROM serial)
            FROM (SELECT CASE i % 3 WHEN 0 THEN NULL WHEN 1 THEN 'x' ELSE {READ} END AS x,
                         CASE WHEN i % 3 = 2 THEN i::VARCHAR END AS serial
                  FROM range(100000) r(i))""").fetchone()
        self.assertEqual((100000, 0), wrong)

    def test_workers(self):
        """No row of many threads gets the result of another, whatever kind of vector it comes in."""
        self.connection.execute("SET threads = 4")
        self.connection.execute(f"""
            CREATE TABLE reads AS SELECT i,
                CASE WHEN i % 7 = 0 THEN NULL WHEN i % 11 = 0 THEN 'bad' || i ELSE {READ} END AS x,
                CASE WHEN i % 7 <> 0 AND i % 11 <> 0 THEN i::VARCHAR END AS serial
            FROM range(1000000) r(i)""")
        for condition in ["true", "i % 5 = 0"]:
            wrong = self.connection.execute(f"""
                SELECT count(*) FILTER (epc_serial(x) IS DISTINCT FROM serial),
                       count(*) FILTER (epc_tag_uri(x) IS DISTINCT FROM
                                        'urn:epc:tag:sgtin-96:3.0614141.812345.' || serial),
                       count(*) FILTER ((epc_status(x) = 'EPC_OK') <> (serial IS NOT NULL))
                FROM reads WHERE {condition}""").fetchone()
            self.assertEqual((0, 0, 0), wrong)
        # A dictionary, as a join makes them, and a constant.
        self.assertEqual(
            [("80614141123458", 1000000)],
            self.connection.execute(
                "SELECT epc_gtin(v), count(*) FROM reads, (VALUES ('3074257BF7194E4000001A85')) t(v) "
                "GROUP BY 1").fetchall())

    def test_one_connection_for_each_thread(self):
        found = []

        def run():
            with self.connection.cursor() as cursor:
                found.append(cursor.execute(
                    f"SELECT count(DISTINCT epc_serial({READ})) FROM range(50000) r(i)"
                ).fetchone()[0])

        threads = [threading.Thread(target=run) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual([50000] * 4, found)

    def test_a_query_that_is_cancelled(self):
        timer = threading.Timer(0.3, self.connection.interrupt)
        timer.start()
        with self.assertRaises(duckdb.InterruptException):
            self.connection.execute(
                f"SELECT max(epc_gtin({READ})) FROM range(100000000000) r(i)").fetchone()
        timer.join()
        self.assertEqual("6789", self.one("epc_serial('3074257BF7194E4000001A85')"))

    def test_texts_without_end(self):
        for length in [2**20 + 2, 1_000_000_000]:
            self.assertEqual(
                ("EPC_ERR_TOO_LONG", None),
                self.connection.execute(
                    "SELECT epc_status(x), epc_gtin(x) FROM (SELECT repeat('30', ?) AS x)",
                    [length // 2]).fetchone())

    def test_out_of_memory(self):
        with tempfile.TemporaryDirectory() as folder:
            connection = connect(memory_limit="20MB", temp_directory=folder,
                                 max_temp_directory_size="0KB")
            with connection, self.assertRaises(duckdb.OutOfMemoryException):
                connection.execute(
                    f"SELECT list(epc_decode({READ})) FROM range(10000000) r(i)").fetchall()
            with connect() as connection:
                self.assertIsNotNone(connection.execute("SELECT rosetag_version()").fetchone())

    def test_constraints_and_indexes(self):
        with tempfile.TemporaryDirectory() as folder:
            path = str(Path(folder) / "reads.db")
            with connect(path) as connection:
                connection.execute(
                    "CREATE TABLE reads(epc VARCHAR CHECK (epc_status(epc) = 'EPC_OK'))")
                connection.execute("CREATE INDEX by_serial ON reads (epc_serial(epc))")
                connection.execute(f"INSERT INTO reads SELECT {READ} FROM range(1000) r(i)")
                with self.assertRaises(duckdb.ConstraintException):
                    connection.execute("INSERT INTO reads VALUES ('307C257BF7194E4000001A85')")
            with connect(path) as connection:
                self.assertEqual([("3074257BF7194E4000000029",)], connection.execute(
                    "SELECT epc FROM reads WHERE epc_serial(epc) = '41'").fetchall())


if __name__ == "__main__":
    counted.main(sys.argv[3:])
