"""Measures the functions beside the engine's own upper(), over a column of hex.

usage: speed.py sqlite|duckdb EXTENSION [ROWS]

Prints the processor time for each row in nanoseconds, the median of five runs, with that of the same
query without a function taken off.
"""

import statistics
import sys
import time

FUNCTIONS = [
    "upper(x)", "epc_tag_uri(x)", "epc_element_string(x)", "epc_status(x)", "epc_gtin(x)",
    "epc_serial(x)", "epc_check(x)",
]
READ = "printf('3074257BF7194E4%09X', i)"


def connect(engine, extension, rows):
    if engine == "sqlite":
        import sqlite3

        connection = sqlite3.connect(":memory:")
        connection.enable_load_extension(True)
        connection.load_extension(extension)
        numbers = f"(WITH RECURSIVE r(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM r LIMIT {rows}) SELECT i FROM r)"
    else:
        import duckdb

        connection = duckdb.connect(config={"allow_unsigned_extensions": "true", "threads": 1})
        connection.execute(f"LOAD '{extension}'")
        numbers = f"range({rows}) r(i)"
    connection.execute(f"CREATE TABLE reads AS SELECT {READ} AS x FROM {numbers}")
    return connection


def nanoseconds(connection, expression, rows):
    times = []
    for _ in range(5):
        start = time.process_time_ns()
        connection.execute(f"SELECT sum(length({expression})) FROM reads").fetchall()
        times.append(time.process_time_ns() - start)
    return statistics.median(times) / rows


def main(engine, extension, rows="1000000"):
    rows = int(rows)
    connection = connect(engine, extension, rows)
    scan = nanoseconds(connection, "x", rows)
    for function in FUNCTIONS:
        print(f"{function:22} {nanoseconds(connection, function, rows) - scan:6.0f}")


main(*sys.argv[1:])
