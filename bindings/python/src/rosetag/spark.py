"""The functions on columns of Apache Spark.

:func:`decode`, :func:`encode` and :func:`check` are column functions; :func:`register` gives them
to SQL. Batches go to them as Arrow arrays, so that a row costs little more than the library itself. The executors
need the wheel of this package, see ``docs/spark.md``.

    import rosetag.spark as rs
    reads.select("epc", rs.decode("epc", to="gtin").alias("gtin"))
"""

from __future__ import annotations

from collections.abc import Callable, Iterable
from typing import Any

import pyarrow as pa
from pyspark.sql import Column, SparkSession
from pyspark.sql import functions as F
from pyspark.sql.types import BinaryType, BooleanType, ByteType, DataType, IntegerType, ShortType
from pyspark.sql.types import StringType, StructField, StructType

from rosetag import columns
from rosetag._api import Bank, Encoding
from rosetag._gcp_lengths import GcpLengths

__all__ = ["SQL_FUNCTIONS", "check", "decode", "encode", "register"]

# Spark has no unsigned bytes.
_TYPES: dict[str, DataType] = {
    "bytes": BinaryType(),
    "filter": ByteType(),
    "status": ShortType(),
    "is_valid": BooleanType(),
    "errors": IntegerType(),
    "warnings": IntegerType(),
}
_ARROW_TYPES = {"status": pa.int16()}


def _type_of(output: str) -> DataType:
    return _TYPES.get(output, StringType())


def _arrays(rows: columns.Columns) -> list[pa.Array]:
    batch = pa.record_batch(rows)
    return [
        array.cast(_ARROW_TYPES[name]) if name in _ARROW_TYPES else array
        for name, array in zip(batch.schema.names, batch.columns)
    ]


def _function(to: str | Iterable[str], call: Callable[..., columns.Columns]) -> Any:
    """An Arrow function: one column for one output, a struct for several."""
    if isinstance(to, str):
        return _named(to, lambda *arrays: _arrays(call(*arrays))[0], _type_of(to))
    outputs = list(to)
    struct = StructType([StructField(name, _type_of(name)) for name in outputs])

    def rows(*arrays: pa.Array) -> pa.Array:
        return pa.StructArray.from_arrays(_arrays(call(*arrays)), names=outputs)

    return _named("item", rows, struct)


def _named(name: str, function: Callable[..., pa.Array], result: DataType) -> Any:
    """Spark calls a column after the function that it comes from."""
    function.__name__ = name
    return F.arrow_udf(function, result)


def _column(option: Any) -> Column:
    """A column as it is, a name as the column of that name."""
    return F.col(option) if isinstance(option, str) else option


def decode(
    values: Column | str,
    to: str | Iterable[str],
    *,
    gcp_length: Column | int | GcpLengths | None = None,
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
) -> Column:
    """Translates a column of values.

    Args:
        values: a column, or its name: texts in any form, or the bytes of tag values as binary.
        to: an output of :func:`rosetag.columns.decode`; several become a struct.
        gcp_length: digits of the company prefix, 6 to 12, a column of them, or a
            :class:`rosetag.GcpLengths`.
        as_barcode, strict, bank, separator: as for :func:`rosetag.decode`.

    Returns:
        A column. A row that fails is null, and so is a null; "status" and "status_name" say why.
    """
    outputs = to if isinstance(to, str) else tuple(to)
    options: dict[str, Any] = {
        "as_barcode": as_barcode, "strict": strict, "bank": bank, "separator": separator
    }
    if isinstance(gcp_length, Column):
        return _function(
            outputs,
            lambda array, lengths: columns.decode(
                array, outputs, gcp_length=lengths, **options
            ),
        )(_column(values), gcp_length)
    return _function(
        outputs, lambda array: columns.decode(array, outputs, gcp_length=gcp_length, **options)
    )(_column(values))


def encode(
    values: Column | str,
    scheme: Column | str,
    *,
    filter: Column | int = 0,
    gcp_length: Column | int | GcpLengths | None = None,
    encoding: Encoding = "auto",
    to: str | Iterable[str] = "hex",
) -> Column:
    """Makes tag values of a column.

    Args:
        values: a column, or its name.
        scheme: the name of a scheme, or a column of names.
        filter, gcp_length: numbers, or columns of them; gcp_length may be a
            :class:`rosetag.GcpLengths`.
        encoding: how texts are encoded in the bits of a plus scheme.
        to: an output of :func:`rosetag.columns.encode`; several become a struct.
    """
    outputs = to if isinstance(to, str) else tuple(to)
    given = {"scheme": scheme, "filter": filter, "gcp_length": gcp_length}
    of_rows = {name: option for name, option in given.items() if isinstance(option, Column)}
    constants = {name: option for name, option in given.items() if name not in of_rows}
    names = tuple(of_rows)  # the function goes to the workers, which have no columns

    def call(array: pa.Array, *others: pa.Array) -> columns.Columns:
        options: dict[str, Any] = {**constants, **dict(zip(names, others))}
        return columns.encode(array, encoding=encoding, to=outputs, **options)

    return _function(outputs, call)(_column(values), *of_rows.values())


def check(
    values: Column | str,
    to: str | Iterable[str] = "is_valid",
    *,
    gcp_length: GcpLengths | None = None,
) -> Column:
    """Finds what is not as GS1 demands.

    Args:
        values: a column, or its name: texts in any form, or the bytes of tag values as binary.
        to: an output of :func:`rosetag.columns.check`; several become a struct.
        gcp_length: with it, keys whose digits no company prefix begins with are found too.
    """
    outputs = to if isinstance(to, str) else tuple(to)
    return _function(
        outputs, lambda array: columns.check(array, outputs, gcp_length=gcp_length)
    )(_column(values))


SQL_FUNCTIONS = {
    "epc_scheme": "scheme",
    "epc_tag_uri": "tag_uri",
    "epc_pure_identity": "pure_identity",
    "epc_element_string": "element_string",
    "epc_barcode_string": "barcode_string",
    "epc_digital_link": "digital_link",
    "epc_hex": "hex",
    "epc_gtin": "gtin",
    "epc_serial": "serial",
    "epc_filter": "filter",
    "epc_status": "status_name",
}
"""The functions of one value that :func:`register` gives to SQL, and the output of each."""


def register(spark: SparkSession) -> None:
    """Gives the functions to SQL: ``SELECT epc_gtin(epc), count(*) FROM reads GROUP BY 1``.

    The names are those of :data:`SQL_FUNCTIONS`, and
    ``epc_encode(text, scheme, filter, gcp_length)``, whose gcp_length may be null.
    """
    for name, output in SQL_FUNCTIONS.items():
        spark.udf.register(
            name, _function(output, lambda array, output=output: columns.decode(array, output))
        )
    spark.udf.register(
        "epc_encode",
        _function(
            "hex",
            lambda array, schemes, filters, lengths: columns.encode(
                array, schemes, filter=filters, gcp_length=lengths, to="hex"
            ),
        ),
    )
