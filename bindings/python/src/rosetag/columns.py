"""Whole columns of values, at the speed of the library.

The functions take any column that speaks the Arrow PyCapsule interface (pyarrow, polars, pandas),
or a table of one column (a DuckDB relation, a frame), and give a :class:`Columns`, which speaks it
too:

>>> import pyarrow
>>> reads = pyarrow.array(["3074257BF7194E4000001A85", None, "nonsense"])
>>> rows = decode(reads, to=["element_string", "status"])
>>> pyarrow.table(rows).to_pydict()
{'element_string': ['(01)80614141123458(21)6789', None, None], 'status': [0, None, 7]}

A row that fails is null in every column but its status; a null stays null. One bad row never ends
a call.

The options are those of :func:`rosetag.decode` and :func:`rosetag.encode`. ``scheme``, ``filter``
and ``gcp_length`` may be columns, with a value for each row.
"""

from __future__ import annotations

from collections.abc import Callable, Iterable, Sequence
from typing import Any

from rosetag import _core
from rosetag._api import Bank, Encoding
from rosetag._gcp_lengths import GcpLengths

__all__ = ["Columns", "check", "decode", "encode", "tid"]


class Columns:
    """The result of a call: a column for each output, in the order in which they were asked for.

    It is handed on without a copy: ``pyarrow.table(rows)``, ``polars.DataFrame(rows)``,
    ``pandas.DataFrame.from_arrow(rows)``.
    """

    def __init__(self, batches: Sequence[object]) -> None:
        self._batches = list(batches)

    def __arrow_c_array__(self, requested_schema: object = None) -> tuple[object, object]:
        """The result as one struct array. Can be called once; use the stream for chunks."""
        if len(self._batches) != 1:
            raise ValueError(f"the result has {len(self._batches)} chunks: use its stream")
        return _core.columns_share(self._batches[0])

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        """The result as a stream of struct arrays, one for each chunk that was given."""
        return _core.columns_stream(self._batches)


def _speaks_arrow(column: Any) -> bool:
    return hasattr(column, "__arrow_c_array__") or hasattr(column, "__arrow_c_stream__")


def _batches(column: Any, name: str = "a column") -> list[tuple[object, object]]:
    """The chunks of a column as pairs of capsules."""
    if getattr(column, "ndim", 1) == 2 and hasattr(column, "iloc") and column.shape[1] == 1:
        column = column.iloc[:, 0]  # a frame of pandas would give its index, too
    if not _speaks_arrow(column) and hasattr(column, "to_frame"):
        column = column.to_frame("value").reset_index(drop=True)  # a series of pandas before 3.0
    if hasattr(column, "__arrow_c_array__"):
        return [column.__arrow_c_array__()]
    if hasattr(column, "__arrow_c_stream__"):
        return _core.columns_of_stream(column.__arrow_c_stream__())
    raise TypeError(
        f"{name} must speak the Arrow PyCapsule interface (pyarrow, polars, pandas, DuckDB), "
        f"not {type(column)}; for a list or an array of numpy: pyarrow.array(values)"
    )


def _per_chunk(option: Any, name: str, count: int) -> list[Any]:
    """The option for each chunk of the values: the same for all, or its own chunks."""
    is_constant = isinstance(option, (str, GcpLengths)) or not hasattr(option, "__iter__")
    if is_constant and not _speaks_arrow(option):
        return [option] * count
    batches = _batches(option, name)
    if len(batches) != count:
        raise ValueError(
            f"the values have {count} chunks and the column {name} has {len(batches)}: make them "
            f"alike, with combine_chunks() for example"
        )
    return batches


def _call(
    function: Callable[..., object],
    values: Any,
    to: str | Iterable[str],
    constants: dict[str, Any],
    columns: dict[str, Any],
) -> Columns:
    """Calls a function for each chunk; an option of columns may be one."""
    outputs = [to] if isinstance(to, str) else list(to)
    batches = _batches(values)
    options = [_per_chunk(option, name, len(batches)) for name, option in columns.items()]
    return Columns(
        [
            function(batch, outputs, **constants, **dict(zip(columns, chunk)))
            for batch, *chunk in zip(batches, *options)
        ]
    )


def decode(
    values: Any,
    to: str | Iterable[str],
    *,
    gcp_length: Any = None,
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
) -> Columns:
    """Translates a column of values.

    Args:
        values: texts in any form, or the bytes of tag values as binary.
        to: the outputs: "hex", "tag_uri", "pure_identity", "element_string", "barcode_string",
            "digital_link", "gtin", "serial", "scheme", "filter", "bytes", "ai_" and the code of an
            AI ("ai_10"), "status", "status_name", "message".

    >>> import pyarrow
    >>> reads = pyarrow.array(["3074257BF7194E4000001A85"])
    >>> pyarrow.table(decode(reads, ["gtin", "serial"])).to_pydict()
    {'gtin': ['80614141123458'], 'serial': ['6789']}
    """
    reading = {"as_barcode": as_barcode, "strict": strict, "bank": bank, "separator": separator}
    return _call(_core.columns_decode, values, to, reading, {"gcp_length": gcp_length})


def encode(
    values: Any,
    scheme: Any = None,
    *,
    filter: Any = None,
    gcp_length: Any = None,
    encoding: Encoding = "auto",
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
    to: str | Iterable[str] = ("hex", "status"),
) -> Columns:
    """Makes tag values of a column.

    Args:
        values: as for :func:`decode`.
        to: the outputs: "hex" or "bytes", and all others of :func:`decode`.

    >>> import pyarrow
    >>> items = pyarrow.array(["(01)80614141123458(21)6789"])
    >>> pyarrow.table(encode(items, "sgtin-96", filter=3, gcp_length=7)).to_pydict()
    {'hex': ['3074257BF7194E4000001A85'], 'status': [0]}
    """
    constants = {
        "encoding": encoding,
        "as_barcode": as_barcode,
        "strict": strict,
        "bank": bank,
        "separator": separator,
    }
    columns = {"scheme": scheme, "filter": filter, "gcp_length": gcp_length}
    return _call(_core.columns_encode, values, to, constants, columns)


def check(
    values: Any,
    to: str | Iterable[str] = ("is_valid", "rule", "message"),
    *,
    gcp_length: Any = None,
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
) -> Columns:
    """Finds what breaks a rule of GS1 in each row of a column.

    Args:
        values: as for :func:`decode`.
        to: the outputs: "is_valid" (no error), "severity" ("error" or "warning", that of the worst
            finding), "errors" and "warnings" (how many), "rule" and "message" (of the first finding
            of that severity), "findings" (all of them as JSON), "status" and "status_name" (of the
            first error, otherwise 0 and "EPC_OK").

    >>> import pyarrow
    >>> labels = pyarrow.array(["(01)80614141123458", "(01)80614141123459(17)261301"])
    >>> pyarrow.table(check(labels, ["is_valid", "errors", "rule"])).to_pylist()[1]
    {'is_valid': False, 'errors': 2, 'rule': 'check_digit'}
    """
    reading = {"as_barcode": as_barcode, "strict": strict, "bank": bank, "separator": separator}
    return _call(_core.columns_check, values, to, reading, {"gcp_length": gcp_length})


def tid(values: Any, to: str | Iterable[str]) -> Columns:
    """Reads a column of TID memories.

    Args:
        values: hex texts or bytes.
        to: "designer", "model", "xtid", "security", "file", "serial", "serial_bits", "status",
            "status_name", "message".
    """
    return _call(_core.columns_tid, values, to, {}, {})
