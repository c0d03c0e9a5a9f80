"""Whole columns of values, at the speed of the library.

The functions take any column that speaks the Arrow PyCapsule interface (pyarrow, polars, pandas,
DuckDB results), and give a :class:`Columns`, which speaks it too:

>>> import pyarrow
>>> reads = pyarrow.array(["3074257BF7194E4000001A85", None, "nonsense"])
>>> rows = decode(reads, to=["element_string", "status"])
>>> pyarrow.table(rows).to_pydict()
{'element_string': ['(01)80614141123458(21)6789', None, None], 'status': [0, None, 7]}

A row that fails is null in every column but its status; a null stays null. One bad row never ends
a call.
"""

from __future__ import annotations

from collections.abc import Iterable, Sequence
from typing import Any

from rosetag import _core
from rosetag._api import Encoding, encoding_number

__all__ = ["Columns", "decode", "encode", "tid"]


class Columns:
    """The result of a call: a column for each output, in the order in which they were asked for.

    It is handed on without a copy: ``pyarrow.table(rows)``, ``polars.DataFrame(rows)``,
    ``pandas.DataFrame.from_arrow(rows)``.
    """

    def __init__(self, batches: Sequence[tuple[object, object]]) -> None:
        self._batches = batches

    def __arrow_c_array__(self, requested_schema: object = None) -> tuple[object, object]:
        """The result as one struct array. Can be called once; use the stream for chunks."""
        if len(self._batches) != 1:
            raise ValueError(f"the result has {len(self._batches)} chunks: use its stream")
        return _core.columns_share(self._batches[0])

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        """The result as a stream of struct arrays, one for each chunk that was given."""
        return _core.columns_stream(self._batches)


def _batches(column: Any) -> list[tuple[object, object]]:
    """The chunks of a column as pairs of capsules."""
    if hasattr(column, "__arrow_c_array__"):
        return [column.__arrow_c_array__()]
    if hasattr(column, "__arrow_c_stream__"):
        return _core.columns_of_stream(column.__arrow_c_stream__())
    raise TypeError(
        f"a column must speak the Arrow PyCapsule interface (pyarrow, polars, pandas, DuckDB), "
        f"not {type(column)}; for a list: pyarrow.array(list)"
    )


def _is_column(option: Any) -> bool:
    return hasattr(option, "__arrow_c_array__") or hasattr(option, "__arrow_c_stream__")


def _one_batch(option: Any, name: str, count: int) -> tuple[object, object] | None:
    if not _is_column(option):
        return None
    batches = _batches(option)
    if len(batches) != 1 or count != 1:
        raise ValueError(f"the values and the column {name} must each be of one chunk")
    return batches[0]


def _words(to: str | Iterable[str]) -> list[str]:
    return [to] if isinstance(to, str) else list(to)


def decode(
    values: Any,
    to: str | Iterable[str],
    *,
    gcp_length: Any = None,
    as_barcode: bool = False,
    strict: bool = False,
) -> Columns:
    """Translates a column of values.

    Args:
        values: texts in any form, or the bytes of tag values as binary.
        to: the outputs: "hex", "tag_uri", "pure_identity", "element_string", "barcode_string",
            "digital_link", "gtin", "serial", "scheme", "filter", "bytes", "ai_" and the code of an
            AI ("ai_10"), "status", "status_name", "message".
        gcp_length: digits of the company prefix, 6 to 12; or a column of them.
        as_barcode, strict: as for :func:`rosetag.decode`.
    """
    outputs = _words(to)
    batches = _batches(values)
    lengths = _one_batch(gcp_length, "gcp_length", len(batches))
    constant = 0 if lengths is not None or gcp_length is None else gcp_length
    return Columns(
        [
            _core.columns_decode(batch, outputs, as_barcode, strict, constant, lengths)
            for batch in batches
        ]
    )


def encode(
    values: Any,
    scheme: Any = None,
    *,
    filter: Any = None,
    gcp_length: Any = None,
    encoding: Encoding = "auto",
    as_barcode: bool = False,
    strict: bool = False,
    to: str | Iterable[str] = ("hex", "status"),
) -> Columns:
    """Makes tag values of a column. scheme, filter and gcp_length are constants or columns.

    >>> import pyarrow
    >>> items = pyarrow.array(["(01)80614141123458(21)6789"])
    >>> pyarrow.table(encode(items, "sgtin-96", filter=3, gcp_length=7)).to_pydict()
    {'hex': ['3074257BF7194E4000001A85'], 'status': [0]}
    """
    outputs = _words(to)
    batches = _batches(values)
    lengths = _one_batch(gcp_length, "gcp_length", len(batches))
    schemes = _one_batch(scheme, "scheme", len(batches))
    filters = _one_batch(filter, "filter", len(batches))
    return Columns(
        [
            _core.columns_encode(
                batch,
                outputs,
                as_barcode,
                strict,
                0 if lengths is not None or gcp_length is None else gcp_length,
                lengths,
                None if schemes is not None else scheme,
                schemes,
                -1 if filters is not None or filter is None else filter,
                filters,
                encoding_number(encoding),
            )
            for batch in batches
        ]
    )


def tid(values: Any, to: str | Iterable[str]) -> Columns:
    """Reads a column of TID memories.

    Args:
        values: hex texts or bytes.
        to: "designer", "model", "xtid", "security", "file", "serial", "serial_bits", "status",
            "status_name", "message".
    """
    outputs = _words(to)
    return Columns([_core.columns_tid(batch, outputs) for batch in _batches(values)])
