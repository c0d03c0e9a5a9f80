"""The shared rows, which every face of Rosetag must pass."""

import csv
import os
import re
from pathlib import Path

import pytest

VECTORS = Path(os.environ.get("ROSETAG_VECTORS", Path(__file__).parents[3] / "vectors"))


def _text(cell: str) -> str:
    """A cell without its escapes: backslash, t, n, and bytes as xHH."""
    named = {b"t": b"\t", b"n": b"\n", b"\\": b"\\"}
    raw = re.sub(
        rb"\\(x[0-9A-F]{2}|.)",
        lambda match: named.get(match[1]) or bytes([int(match[1][1:], 16)]),
        cell.encode(),
    )
    return raw.decode("utf-8", "surrogateescape")


@pytest.fixture(scope="session")
def vectors() -> list[dict[str, str]]:
    with (VECTORS / "rosetag.tsv").open(newline="") as file:
        rows = list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))
    assert len(rows) > 2000
    return [{name: _text(cell) for name, cell in row.items()} for row in rows]
