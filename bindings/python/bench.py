#!/usr/bin/env python3
"""What a call costs: python bindings/python/bench.py

Nanoseconds of processor time, the median of five runs, over a million different values.
"""

import statistics
import time
from collections.abc import Callable

import pyarrow as pa
import rosetag
from rosetag import columns

ROWS = 1_000_000
VALUES = [f"3074257BF7194E40{number:08X}" for number in range(ROWS)]
COLUMN = pa.array(VALUES)


def measure(work: Callable[[], object], rows: int) -> float:
    times = []
    for _ in range(5):
        start = time.process_time_ns()
        work()
        times.append((time.process_time_ns() - start) / rows)
    return statistics.median(times)


def each(function: Callable[[str], object], rows: int) -> Callable[[], object]:
    def work() -> None:
        for value in VALUES[:rows]:
            function(value)

    return work


ROADS: list[tuple[str, Callable[[], object], int]] = [
    ("len(value), for comparison", each(len, ROWS), ROWS),
    ("convert(value, 'tag_uri')", each(lambda value: rosetag.convert(value, "tag_uri"), ROWS), ROWS),
    ("decode(value)", each(rosetag.decode, 100_000), 100_000),
    ("columns, tag_uri", lambda: columns.decode(COLUMN, "tag_uri"), ROWS),
    ("columns, element_string", lambda: columns.decode(COLUMN, "element_string"), ROWS),
    ("columns, gtin and serial", lambda: columns.decode(COLUMN, ["gtin", "serial"]), ROWS),
]

if __name__ == "__main__":
    for name, work, rows in ROADS:
        print(f"{name:32} {measure(work, rows):8.0f} ns")
