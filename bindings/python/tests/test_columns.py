"""Columns of pyarrow, pandas, polars and DuckDB, and arrays that are unusual or wrong."""

import mmap
import threading
from concurrent.futures import ThreadPoolExecutor

import duckdb
import numpy as np
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
    decoded = pa.table(columns.decode(relation, OUTPUTS))
    check(decoded)
    counts = duckdb.sql("SELECT status, count(*) FROM decoded GROUP BY 1 ORDER BY 1 NULLS LAST")
    hundredth = ROWS // 1000
    assert counts.fetchall() == [(0, ROWS - 2 * hundredth), (6, hundredth), (None, hundredth)]


def test_tables_of_one_column(reads):
    frame = pd.DataFrame({"epc": reads})
    for table in (pa.table({"epc": reads}), pa.record_batch({"epc": reads}), pl.DataFrame({"epc": reads}),
                  frame, frame.set_index(frame.index * 2), pa.table({"epc": reads}).to_reader()):
        check(pa.table(columns.decode(table, OUTPUTS)))
    rows = pa.array([{"epc": reads[1]}, None, {"epc": None}, {"epc": reads[2]}, {"epc": reads[3]}])
    part = pa.record_batch(columns.decode(rows[1:4], "serial"))[0]
    assert part.to_pylist() == [None, None, "2"]
    items = pl.DataFrame({"text": ["(01)80614141123458(21)6789"]})
    scheme, filters = pl.DataFrame({"scheme": ["sgtin-96"]}), pl.DataFrame({"filter": [3]})
    hexes = pl.DataFrame(columns.encode(items, scheme, filter=filters, gcp_length=7, to="hex"))
    assert hexes["hex"].to_list() == ["3074257BF7194E4000001A85"]


def test_categories():
    """Texts as numbers and a dictionary, as pandas, polars and Parquet have them."""
    hexes = ["3074257BF7194E4000001A85", None, "nonsense", "3074257BF7194E4000001A85"]
    for column in (pd.Series(hexes, dtype="category"), pl.Series(hexes, dtype=pl.Categorical),
                   pa.chunked_array([pa.array(hexes[:2]).dictionary_encode(),
                                     pa.array(hexes[2:]).dictionary_encode()])):
        table = pa.table(columns.decode(column, ["serial", "status"]))
        assert table["serial"].to_pylist() == ["6789", None, None, "6789"]
        assert table["status"].to_pylist() == [0, None, 7, 0]


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
        (duckdb.sql("SELECT 'a' AS epc WHERE false"), []),
        (pa.table({"epc": pa.array([], pa.string())}).to_reader(), []),
        (pd.DataFrame({"epc": [None, None]}), [None, None]),
    ],
    ids=["empty", "nulls", "null type", "no chunk", "empty dictionary", "relation", "stream", "frame"],
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
        (lambda: columns.decode(pa.array(["a"]), "gtin", gcp_length="7"), TypeError, "GcpLengths"),
        (lambda: columns.decode(pa.array(["a"]), "gtin", bank="tid"), ValueError, "bank"),
        (lambda: columns.decode(pa.array(["a"]), [1]), TypeError, "str"),
        (lambda: columns.decode(pa.array(["a"]), 1), TypeError, "iterable"),
        (lambda: columns.decode(pa.table({"a": ["a"], "b": ["b"]}), "gtin"), TypeError, "a, b"),
        (lambda: columns.decode(pd.DataFrame({"a": ["a"], "b": [1]}), "gtin"), TypeError, "a, b"),
        (lambda: columns.decode(pl.DataFrame(), "gtin"), TypeError, "has none"),
        (lambda: columns.decode(pl.DataFrame({"a": [1.5]}), "gtin"), TypeError, '"g"'),
        (lambda: columns.decode(pl.Series([[{"a": "a"}]]), "gtin"), TypeError, "strings"),
        (lambda: columns.decode(pa.array([{"a": {"a": "a"}}]), "gtin"), TypeError, "strings"),
        (lambda: columns.decode(np.array(["a"]), "gtin"), TypeError, r"pyarrow\.array"),
        (lambda: columns.decode(pa.array(["a"]), "gtin\0"), ValueError, "gtin"),
        (lambda: columns.encode(pa.array(["a"]), filter=[3]), TypeError, r"pyarrow\.array"),
        (lambda: columns.encode(pa.array(["a"]), filter=pd.Series([3, None])), TypeError, "filter"),
        (lambda: columns.decode(pa.array([["a"]]), "gtin"), TypeError, r"\+l"),
        (lambda: columns.decode(pa.array([1.5]), "gtin"), TypeError, '"g"'),
        (lambda: columns.decode(pa.schema([]), "gtin"), TypeError, "PyCapsule"),
        (lambda: columns.check(pa.array(["a"]), "gtin"), ValueError, "gtin"),
        (lambda: columns.tid(pa.array(["a"]), "gtin"), ValueError, "gtin"),
        (lambda: columns.encode(pa.array(["a"]), 96), TypeError, "scheme"),
        (lambda: columns.encode(pa.array(["a"]), filter="3"), TypeError, "filter"),
        (lambda: columns.encode(pa.array(["a"]), "sgtin-97"), ValueError, "sgtin-97"),
        (lambda: columns.encode(pa.array(["a"]), pa.array([1])), TypeError, "texts"),
    ],
)
def test_what_is_refused(call, kind, words):
    with pytest.raises(kind, match=words):
        call()


def test_input_of_more_than_32_bits():
    """A value of 2^31 bytes, and one after it. Memory that nobody touches costs nothing."""
    hexadecimal = b"3074257BF7194E4000001A85"
    data = mmap.mmap(-1, (1 << 31) + len(hexadecimal))
    data[1 << 31 :] = hexadecimal
    offsets = pa.array([0, 1 << 31, len(data)], pa.int64())
    for kind in (pa.large_string(), pa.large_binary()):
        column = pa.Array.from_buffers(kind, 2, [None, offsets.buffers()[1], pa.py_buffer(data)])
        table = pa.record_batch(columns.decode(column, ["status"]))
        assert table["status"].to_pylist()[0] == rosetag.Status.TOO_LONG
        if kind == pa.large_string():
            assert table["status"].to_pylist()[1] == 0


def test_output_of_more_than_32_bits():
    """Results beyond 2^31 bytes need 64-bit offsets in, or are refused."""
    value = "3074257BF7194E7FFFFFFFFF"
    rows = (1 << 31) // len(rosetag.convert(value, "tag_uri")) + 1
    keys = pa.Array.from_buffers(pa.int8(), rows, [None, pa.py_buffer(bytes(rows))])
    column = pa.DictionaryArray.from_arrays(keys, pa.array([value]))
    with pytest.raises(ValueError, match="large_utf8"):
        columns.decode(column, "tag_uri")


def test_output_of_a_large_dictionary():
    column = pa.array(["3074257BF7194E4000001A85"], pa.dictionary(pa.int8(), pa.large_string()))
    assert pa.record_batch(columns.decode(column, "gtin")).schema.types == [pa.large_string()]


def test_checking():
    labels = pa.array(["(01)80614141123458", "(01)80614141123459(17)261301", None, "(10)LOT7"])
    outputs = ["is_valid", "severity", "errors", "warnings", "rule", "status"]
    table = pa.record_batch(columns.check(labels, outputs))
    assert [tuple(row.values()) for row in table.to_pylist()] == [
        (True, None, 0, 0, None, 0), (False, "error", 2, 0, "check_digit", 23), (None,) * 6,
        (True, "warning", 0, 1, "needs", 0),
    ]
    assert pa.record_batch(columns.check(labels)).schema.names == ["is_valid", "rule", "message"]


def test_how_rows_are_read():
    lengths = rosetag.GcpLengths([("0614141", 7)])
    texts = pa.array(["(01)80614141123458(21)6789", "(01)09506000134352(21)1"])
    found = pa.table(columns.decode(texts, ["pure_identity"], gcp_length=lengths))[0].to_pylist()
    assert found == ["urn:epc:id:sgtin:0614141.812345.6789", None]
    hexes = pa.table(columns.encode(texts, "sgtin-96", filter=3, gcp_length=lengths))["hex"]
    assert hexes.to_pylist() == ["3074257BF7194E4000001A85", None]
    scans = pa.array(["018061414112345810LOT7^17251231"])
    found = pa.table(columns.decode(scans, "ai_17", separator="^", as_barcode=True))[0]
    assert found.to_pylist() == ["251231"]
    reads = pa.array(["3074257BF7194E4000001A85"])
    assert pa.table(columns.decode(reads, "gtin", bank="pc"))[0].to_pylist() == [None]


def test_options_in_chunks():
    texts = pa.chunked_array([["(01)80614141123458(21)1"], ["(01)80614141123458(21)2"] * 2])
    lengths = pa.chunked_array([pa.array([7]), pa.array([8, None])])
    found = pa.table(columns.decode(texts, "pure_identity", gcp_length=lengths))[0].to_pylist()
    assert found == [
        "urn:epc:id:sgtin:0614141.812345.1", "urn:epc:id:sgtin:06141411.82345.2", None,
    ]
    with pytest.raises(ValueError, match="combine_chunks"):
        columns.decode(texts, "gtin", gcp_length=pa.array([7, 7, 7]))


def test_threads_at_once():
    """Each has its own result, also while they share the column."""
    column = pa.array([f"3074257BF7194E40{number:08X}" for number in range(20_000)])
    outputs = ["serial", "ai_21", "tag_uri"]
    expected = pa.record_batch(columns.decode(column, outputs))
    with ThreadPoolExecutor(4) as pool:
        results = list(pool.map(lambda _: pa.record_batch(columns.decode(column, outputs)), range(16)))
    assert all(result.equals(expected) for result in results)


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
