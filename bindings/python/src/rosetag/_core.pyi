"""The extension module. Use the package instead: most of this has no defaults and no docs."""

from collections.abc import Iterable
from typing import Any, Literal, TypedDict, Unpack, overload

from rosetag._api import Bank, Encoding, TextForm, Value
from rosetag._gcp_lengths import GcpLengths

class _Reading(TypedDict, total=False):
    as_barcode: bool
    strict: bool
    gcp_length: Any  # int | GcpLengths | None; of columns also a column
    bank: Bank
    separator: str | None

def convert(
    value: Value,
    to: TextForm,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | GcpLengths | None = None,
    bank: Bank = "auto",
    separator: str | None = None,
) -> str | None:
    """Gives one form of a value, None where the value does not have it."""

@overload
def encode(
    text: Value,
    scheme: str | None = None,
    *,
    filter: int | None = None,
    gcp_length: int | GcpLengths | None = None,
    encoding: Encoding = "auto",
    to: Literal["hex"] = "hex",
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
) -> str: ...
@overload
def encode(
    text: Value,
    scheme: str | None = None,
    *,
    filter: int | None = None,
    gcp_length: int | GcpLengths | None = None,
    encoding: Encoding = "auto",
    to: Literal["bytes"],
    as_barcode: bool = False,
    strict: bool = False,
    bank: Bank = "auto",
    separator: str | None = None,
) -> bytes:
    """Makes the bits of a tag."""

def decode(value: Any, **reading: Unpack[_Reading]) -> dict[str, Any]: ...
def explain(value: Any, **reading: Unpack[_Reading]) -> dict[str, Any]: ...
def check(value: Any, **reading: Unpack[_Reading]) -> tuple[tuple[Any, ...], ...]: ...
def tid(value: Any, /) -> str: ...
def encode_ai(ai: str, value: str, *, with_code: bool, encoding: str) -> tuple[str, int]: ...
def decode_ai(bits: Any, ai: str) -> tuple[str, str, str]: ...
def schemes() -> tuple[tuple[Any, ...], ...]: ...
def gcp_list(date: str, entries: Iterable[tuple[str, str]], /) -> object: ...
def version() -> str: ...
def status_name(status: int, /) -> str | None: ...
def set_error_class(error: type[ValueError], /) -> None: ...
def columns_decode(
    value: tuple[object, object], to: list[str], **reading: Unpack[_Reading]
) -> object: ...
def columns_check(
    value: tuple[object, object], to: list[str], **reading: Unpack[_Reading]
) -> object: ...
def columns_encode(
    value: tuple[object, object],
    to: list[str],
    *,
    scheme: Any = None,
    filter: Any = None,
    encoding: str = "auto",
    **reading: Unpack[_Reading],
) -> object: ...
def columns_tid(value: tuple[object, object], to: list[str]) -> object: ...
def columns_share(rows: object, /) -> tuple[object, object]: ...
def columns_stream(rows: list[object], /) -> object: ...
def columns_of_stream(stream: object, /) -> list[tuple[object, object]]: ...
