"""Columns of pyarrow, pandas, polars and DuckDB, and arrays that are unusual or wrong."""

import threading

import duckdb
import pandas as pd
import polars as pl
import pyarrow as pa
import pytest
import rosetag
from rosetag import columns

ROWS = 100_000
OUTPUTS = ["gtin", "serial", "status"]


@pytest.fixture(scope="module")
def reads() -> list[str | None]:
    """SGTIN-96 values; every thousandth is bad, every thousandth is missing."""
    values: list[str | None] = [f"3074257BF7194E40{number:08X}" for number in range(ROWS)]
    values[500::1000] = ["307C257BF7194E4000001A85"] * (ROWS // 1000)
    values[700::1000] = [None] * (ROWS // 1000)
    return values


def check(table: pa.Table) -> None:
    assert table.column_names == OUTPUTS
    assert table.num_rows == ROWS
    gtins, serials, statuses = (column.to_pylist() for column in table.columns)
    for number in range(ROWS):
        expected = {500: (None, None, 6), 700: (None, None, None)}.get(
            number % 1000, ("80614141123458", str(number), 0)
        )
        assert (gtins[number], serials[number], statuses[number]) == expected, number


def test_pyarrow(reads):
    check(pa.table(columns.decode(pa.array(reads), OUTPUTS)))
    chunks = pa.chunked_array([reads[:10], [], reads[10:70_001], reads[70_001:]])
    result = columns.decode(chunks, OUTPUTS)
    check(pa.table(result))
    check(pa.table(result))  # handed on as often as one likes
    with pytest.raises(ValueError, match="chunks"):
        result.__arrow_c_array__()


def test_pandas(reads):
    for series in (pd.Series(reads), pd.Series(reads, dtype=pd.ArrowDtype(pa.large_string()))):
        check(pa.table(columns.decode(series, OUTPUTS)))
    frame = pa.table(columns.decode(pd.Series(reads), OUTPUTS)).to_pandas()
    assert frame["gtin"].value_counts().to_dict() == {"80614141123458": ROWS - 2 * ROWS // 1000}


def test_polars(reads):
    series = pl.Series("epc", reads)
    frame = pl.DataFrame(columns.decode(series, OUTPUTS))
    check(frame.to_arrow())
    lazy = (
        pl.LazyFrame({"epc": reads})
        .select(
            pl.col("epc").map_batches(
                lambda column: pl.DataFrame(columns.decode(column, "gtin"))["gtin"],
                return_dtype=pl.String,
                is_elementwise=True,
            )
        )
        .group_by("epc")
        .len()
        .collect()
    )
    assert sorted(lazy["len"]) == [2 * ROWS // 1000, ROWS - 2 * ROWS // 1000]


def test_duckdb(reads):
    held = pa.table({"epc": reads})
    relation = duckdb.sql("SELECT epc FROM held")
    decoded = pa.table(columns.decode(pa.table(relation)["epc"], OUTPUTS))
    check(decoded)
    counts = duckdb.sql("SELECT status, count(*) FROM decoded GROUP BY 1 ORDER BY 1 NULLS LAST")
    hundredth = ROWS // 1000
    assert counts.fetchall() == [(0, ROWS - 2 * hundredth), (6, hundredth), (None, hundredth)]


@pytest.mark.parametrize(
    "kind",
    [
        pa.string(), pa.large_string(), pa.string_view(), pa.dictionary(pa.int32(), pa.string()),
        pa.binary(), pa.large_binary(), pa.binary_view(), pa.binary(12),
    ],
    ids=str,
)
def test_every_type_and_slice(kind):
    hexes = ["3074257BF7194E4000001A85", None, "307C257BF7194E4000001A85"] * 50
    is_binary = "binary" in str(kind)
    values = [text and bytes.fromhex(text) if is_binary else text for text in hexes]
    column = pa.array(values, type=kind)
    expected = ["80614141123458", None, None] * 50
    assert pa.record_batch(columns.decode(column, "gtin"))[0].to_pylist() == expected
    part = pa.record_batch(columns.decode(column[7:101], "gtin"))[0].to_pylist()
    assert part == expected[7:101]


@pytest.mark.parametrize(
    ("column", "expected"),
    [
        (pa.array([], pa.string()), []),
        (pa.array([None] * 9, pa.string()), [None] * 9),
        (pa.nulls(5), [None] * 5),
        (pa.chunked_array([], pa.string()), []),
        (pa.array([], pa.dictionary(pa.int8(), pa.string())), []),
    ],
    ids=["empty", "nulls", "null type", "no chunk", "empty dictionary"],
)
def test_nothing_to_decode(column, expected):
    result = pa.table(columns.decode(column, ["gtin", "status"]))
    assert result["gtin"].to_pylist() == result["status"].to_pylist() == expected


def test_encoding_with_columns():
    items = pa.table(
        {
            "text": ["(01)80614141123458(21)6789", "(00)106141412345678908", None, "nonsense"],
            "scheme": ["sgtin-96", "sscc-96", "sgtin-96", "sgtin-96"],
            "filter": pa.array([3, 0, 0, 0], pa.int8()),
            "length": [7, 7, 7, 7],
        }
    ).combine_chunks()
    result = columns.encode(
        items["text"].chunk(0), items["scheme"].chunk(0), filter=items["filter"].chunk(0),
        gcp_length=items["length"].chunk(0), to=["hex", "bytes", "status_name"],
    )
    hexes, values, statuses = (column.to_pylist() for column in pa.record_batch(result).columns)
    assert hexes == ["3074257BF7194E4000001A85", "3114257BF4499602D2000000", None, None]
    assert values == [text and bytes.fromhex(text) for text in hexes]
    assert statuses[:3] == ["EPC_OK", "EPC_OK", None] and statuses[3].startswith("EPC_ERR_")


def test_tids():
    result = columns.tid(pa.array(["E28011302000123456789ABC", "30"]), ["model", "xtid", "serial"])
    assert pa.record_batch(result).to_pylist() == [
        {"model": 304, "xtid": True, "serial": "123456789ABC"},
        {"model": None, "xtid": None, "serial": None},
    ]


@pytest.mark.parametrize(
    ("call", "kind", "words"),
    [
        (lambda: columns.decode(["a"], "gtin"), TypeError, "PyCapsule"),
        (lambda: columns.decode(pa.array([1]), "gtin"), TypeError, "strings"),
        (lambda: columns.decode(pa.array(["a"]), "colour"), ValueError, "colour"),
        (lambda: columns.decode(pa.array(["a"]), []), ValueError, "output"),
        (lambda: columns.decode(pa.array(["a"]), "ai_9999"), ValueError, "ai_9999"),
        (lambda: columns.decode(pa.array(["a"]), "gtin", gcp_length=pa.array([7, 7])), ValueError, "rows"),
        (lambda: columns.encode(pa.array(["a"]), "sgtin-97"), ValueError, "sgtin-97"),
        (lambda: columns.encode(pa.array(["a"]), pa.array([1])), TypeError, "texts"),
    ],
)
def test_what_is_refused(call, kind, words):
    with pytest.raises(kind, match=words):
        call()


def test_more_than_32_bits_of_text():
    """Results beyond 2^31 bytes need 64-bit offsets in, or are refused."""
    long_values = pa.array(["x" * 100_000])
    many = pa.concat_arrays([long_values] * 4)
    column = pa.DictionaryArray.from_arrays(pa.array([0, 1, 2, 3] * 10, pa.int32()), many)
    result = pa.record_batch(columns.decode(column, ["status"]))
    assert result[0].null_count == 0


def test_the_interpreter_is_released():
    """A thread goes on while a column is converted."""
    column = pa.array(["(01)80614141123458(21)6789(10)LOT7"] * 300_000)
    ticks = 0
    done = threading.Event()

    def count():
        nonlocal ticks
        while not done.is_set():
            ticks += 1

    thread = threading.Thread(target=count)
    thread.start()
    before = ticks
    columns.decode(column, ["digital_link", "tag_uri"])
    after = ticks
    done.set()
    thread.join()
    assert after > before
