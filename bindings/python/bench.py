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


def each(
    function: Callable[..., object], values: list[str], argument: str | None = None
) -> Callable[[], object]:
    def work() -> None:
        if argument is None:
            for value in values:
                function(value)
        else:
            for value in values:
                function(value, argument)

    return work


SOME = VALUES[:100_000]
TEXTS = [f"(01)80614141123458(21){number}" for number in range(len(SOME))]
CALLS: list[tuple[str, Callable[[], object], int]] = [
    ("len(value)", each(len, VALUES), ROWS),
    ("convert(value, 'tag_uri')", each(rosetag.convert, VALUES, "tag_uri"), ROWS),
    ("convert(value, 'element_string')", each(rosetag.convert, VALUES, "element_string"), ROWS),
    ("encode(text, 'sgtin+')", each(rosetag.encode, TEXTS, "sgtin+"), len(TEXTS)),
    ("check(text)", each(rosetag.check, TEXTS), len(TEXTS)),
    ("decode(value)", each(rosetag.decode, SOME), len(SOME)),
    ("columns.decode, tag_uri", lambda: columns.decode(COLUMN, "tag_uri"), ROWS),
    ("columns.decode, element_string", lambda: columns.decode(COLUMN, "element_string"), ROWS),
    ("columns.decode, gtin and serial", lambda: columns.decode(COLUMN, ["gtin", "serial"]), ROWS),
    ("columns.check, is_valid", lambda: columns.check(COLUMN, "is_valid"), ROWS),
]

if __name__ == "__main__":
    print("| Call, or row of a column | Time |\n|---|---:|")
    for name, work, rows in CALLS:
        print(f"| `{name}` | {measure(work, rows):.0f} ns |")
