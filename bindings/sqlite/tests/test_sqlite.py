"""Tests the extension in Python's module and in the shell: test_sqlite.py SOURCE_DIR EXTENSION"""

import contextlib
import json
import sqlite3
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

ROOT, EXTENSION = sys.argv[1:3]
sys.path.insert(0, str(Path(ROOT) / "bindings/sql/tests"))

import binary
import counted
import pages
import rules
import vectors

READ = "printf('3074257BF7194E4%09X', i)"
NUMBERS = "WITH RECURSIVE r(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM r LIMIT %d)"
AIS = "(SELECT group_concat('(' || ai || ')' || value, '') FROM epc_ais(?))"


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
        calls, skipped = vectors.calls(ROOT, AIS)
        vectors.check(self, calls, self.one, sqlite3.OperationalError)
        of_bytes = list(vectors.calls_of_bytes(calls))
        self.assertGreater(len(of_bytes), 500)
        vectors.check(self, of_bytes, self.one, sqlite3.OperationalError)
        for what, count in skipped.items():
            print(f"skipped: {count} rows {what}: {vectors.SKIPPED[what]}", file=sys.stderr)

    def test_names(self):
        found = self.connection.execute(
            "SELECT name, narg FROM pragma_function_list UNION ALL "
            "SELECT name, 1 FROM pragma_module_list").fetchall()
        rules.check_names(self, [row for row in found
                                 if row[0].split("_")[0] in ("epc", "tid", "rosetag")])

    def test_rules(self):
        rules.check(self, self.one, sqlite3.OperationalError)
        with self.assertRaisesRegex(sqlite3.OperationalError, "filter must be an integer"):
            self.one("epc_encode('(00)106141412345678908', 'sscc-96', 'three')")
        # A GTIN that an import has made a number.
        self.assertEqual("09506000134352", self.one("epc_gtin(9506000134352)"))

    def test_json(self):
        item = json.loads(self.one("epc_decode(?)", rules.ITEM))
        for name in ["scheme", "filter", "tag_uri", "pure_identity", "element_string",
                     "barcode_string", "digital_link", "hex", "gtin", "serial"]:
            self.assertEqual(self.one(f"epc_{name}(?)", rules.ITEM), item[name], name)
        self.assertEqual(
            item, json.loads(self.one("epc_decode(?)", bytes.fromhex(rules.ITEM))))
        self.assertEqual(
            {"designer": 1, "model": 304, "xtid": True, "security": False, "file": False,
             "serial": "1234567890AB", "serial_bits": 48},
            json.loads(self.one("tid_decode('E280113020001234567890AB')")))
        self.assertEqual(
            {"designer": 3, "model": 1042, "xtid": False, "security": False, "file": False,
             "serial_bits": 0}, json.loads(self.one("tid_decode('E2003412')")))

    def test_table_of_ais(self):
        def rows(sql, *arguments):
            return self.connection.execute(sql, arguments).fetchall()

        self.assertEqual(
            [("01", "80614141123458", "GTIN"), ("21", "6789", "SERIAL")],
            rows("SELECT * FROM epc_ais(?)", rules.ITEM))
        self.assertEqual([], rows("SELECT * FROM epc_ais(NULL)"))
        self.assertEqual([], rows("SELECT * FROM epc_ais('none')"))
        # Joined with another table, on either side, and twice with itself.
        self.connection.execute("CREATE TABLE reads(epc)")
        self.connection.executemany(
            "INSERT INTO reads VALUES (?)",
            [(rules.ITEM,), (None,), ("none",), (bytes.fromhex(rules.ITEM),)])
        for tables in ["reads, epc_ais(reads.epc) a", "reads JOIN epc_ais a ON a.x = reads.epc"]:
            self.assertEqual([("6789", "text"), ("6789", "blob")], rows(
                f"SELECT a.value, typeof(epc) FROM {tables} WHERE ai = '21' ORDER BY 2 DESC"))
        self.assertEqual([(2, 2, 2)], rows(
            "SELECT count(*), count(DISTINCT a.value), max(b.rowid) "
            "FROM epc_ais(?1) a JOIN epc_ais(?1) b USING (ai, value)", rules.ITEM))
        with self.assertRaisesRegex(sqlite3.OperationalError, "needs a value"):
            rows("SELECT * FROM epc_ais")

    def test_indexes_constraints_and_generated_columns(self):
        """In a file that is read by a connection that trusts no schema."""
        with tempfile.TemporaryDirectory() as folder:
            path = str(Path(folder) / "reads.db")
            with contextlib.closing(connect(path)) as connection, connection:
                connection.execute(
                    "CREATE TABLE reads(epc TEXT CHECK (epc_check(epc) IS epc), "
                    "gtin AS (epc_gtin(epc)) STORED)")
                connection.execute("CREATE INDEX by_serial ON reads(epc_serial(epc))")
                connection.execute(
                    f"{NUMBERS % 1000} INSERT INTO reads SELECT {READ} FROM r")
                with self.assertRaisesRegex(sqlite3.OperationalError, "EPC_ERR_TRUNCATED"):
                    connection.execute("INSERT INTO reads VALUES (?)", [rules.ITEM[:20]])
            with contextlib.closing(connect(path)) as connection:
                connection.execute("PRAGMA trusted_schema = off")
                found = "SELECT epc, gtin FROM reads WHERE epc_serial(epc) = '41'"
                plan = connection.execute(f"EXPLAIN QUERY PLAN {found}").fetchall()
                self.assertIn("USING INDEX by_serial", plan[0][3])
                self.assertEqual([("3074257BF7194E4000000029", "80614141123458")],
                                 connection.execute(found).fetchall())
                self.assertEqual([("ok",)], connection.execute("PRAGMA integrity_check").fetchall())

    def test_texts_without_end(self):
        for size in [2**20 + 2, 999_999_990]:
            self.assertEqual("EPC_ERR_TOO_LONG", self.one("epc_status(zeroblob(?))", size))
        long = "CAST(zeroblob(?) AS TEXT)"
        self.assertEqual("EPC_ERR_TOO_LONG", self.one(f"epc_status({long})", 999_999_990))
        self.assertIsNone(self.one("(SELECT ai FROM epc_ais(zeroblob(?)))", 999_999_990))

    def test_a_query_that_is_cancelled(self):
        connection = connect(check_same_thread=False)
        with contextlib.closing(connection):
            timer = threading.Timer(0.3, connection.interrupt)
            timer.start()
            with self.assertRaisesRegex(sqlite3.OperationalError, "interrupted"):
                connection.execute(
                    f"{NUMBERS % 10**12} SELECT max(epc_gtin({READ})) FROM r").fetchall()
            timer.join()
            self.assertEqual(
                ("6789",), connection.execute("SELECT epc_serial(?)", [rules.ITEM]).fetchone())

    def test_one_connection_for_each_thread(self):
        found = []

        def run():
            with contextlib.closing(connect()) as connection:
                found.append(connection.execute(
                    f"{NUMBERS % 20000} SELECT count(*), sum(epc_serial({READ}) = CAST(i AS TEXT)) FROM r"
                ).fetchone())

        threads = [threading.Thread(target=run) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual([(20000, 20000)] * 4, found)

    def test_out_of_memory(self):
        """Whatever allocation fails, there is a result or an error, and the connection goes on."""
        program = """
import resource, sqlite3, sys
connection = sqlite3.connect(":memory:")
connection.enable_load_extension(True)
connection.load_extension(sys.argv[1])
digits = "30" * 500000
sql = "SELECT length(epc_hex(?1)), length(epc_decode(?1)), (SELECT count(*) FROM epc_ais(?1))"
sql = sql.replace("?1", "?1 || ''")
expected = connection.execute(sql, [digits]).fetchone()
none, most = [resource.getrlimit(resource.RLIMIT_AS)[1]] * 2
failed = 0
for spare in range(0, 16 << 20, 128 << 10):
    fresh = sqlite3.connect(":memory:")
    fresh.enable_load_extension(True)
    fresh.load_extension(sys.argv[1])
    used = int(open("/proc/self/statm").read().split()[0]) * resource.getpagesize()
    resource.setrlimit(resource.RLIMIT_AS, (used + spare, most))
    try:
        found = fresh.execute(sql, [digits]).fetchone()
        assert found == expected, found
    except (MemoryError, sqlite3.Error):
        failed += 1
    resource.setrlimit(resource.RLIMIT_AS, (none, most))
    assert fresh.execute(sql, [digits]).fetchone() == expected
print(failed)
"""
        result = subprocess.run([sys.executable, "-c", program, EXTENSION], check=True, text=True,
                                capture_output=True)
        self.assertGreater(int(result.stdout), 3)

    def test_without_leaks(self):
        """The shell under valgrind: no leak, and no byte that was not written is looked at."""
        script = f""".load {EXTENSION}
CREATE TABLE reads(epc, gtin AS (epc_gtin(epc)));
CREATE INDEX i ON reads(epc_serial(epc));
{NUMBERS % 300} INSERT INTO reads SELECT {READ} FROM r;
INSERT INTO reads VALUES (NULL), ('none'), (x'00'), (zeroblob(2000000));
SELECT count(gtin), count(epc_decode(epc)), count(epc_status(epc)), count(epc_filter(epc)),
       count(epc_ai(epc, '21')), count(tid_decode(epc)), count(epc_scheme(epc)) FROM reads;
SELECT count(*) FROM reads, epc_ais(epc);
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-96', 3, 7);
SELECT epc_check('none');
SELECT epc_encode('', 'none');
SELECT * FROM epc_ais;
"""
        result = subprocess.run(
            ["valgrind", "--quiet", "--error-exitcode=99", "--leak-check=full",
             "--errors-for-leak-kinds=definite,indirect,possible", "sqlite3", ":memory:"],
            input=script, text=True, capture_output=True, check=False)
        self.assertEqual("300|300|303|300|300|0|300\n600\n3074257BF7194E4000001A85\n",
                         result.stdout, result.stderr)
        self.assertEqual(1, result.returncode, result.stderr)
        self.assertIn("EPC_ERR_BAD_FORMAT", result.stderr)

    def test_binary(self):
        binary.check(self, EXTENSION, "sqlite3_modrosetag_init")

    def test_pages(self):
        for page, section, blocks in [("docs/sql.md", "SQLite", 6),
                                      ("bindings/sqlite/README.md", None, 1)]:
            self.assertEqual(blocks, pages.check(
                self, ROOT, page, section, EXTENSION, ["sqlite3", "-box"], ".load ./mod_rosetag"))


if __name__ == "__main__":
    counted.main(sys.argv[3:])
