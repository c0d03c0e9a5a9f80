"""The extension module. Use the package instead: this has no defaults and no docs."""

from typing import Any

def convert(
    value: Any,
    to: str,
    *,
    gcp_length: int | None = None,
    as_barcode: bool = False,
    strict: bool = False,
) -> str | None:
    """Gives one form of a value, None where the value does not have it."""

def decode(
    value: Any, /, *, as_barcode: bool, strict: bool, gcp_length: int | None
) -> dict[str, Any]: ...
def encode(
    value: Any,
    /,
    scheme: str | None,
    filter: int | None,
    gcp_length: int | None,
    encoding: int,
    strict: bool,
    as_barcode: bool,
) -> str: ...
def explain(
    value: Any, /, *, as_barcode: bool, strict: bool, gcp_length: int | None
) -> dict[str, Any]: ...
def tid(value: Any, /) -> str: ...
def encode_ai(ai: str, value: str, /, *, with_code: bool, encoding: int) -> tuple[str, int]: ...
def decode_ai(bits: Any, /, ai: str) -> tuple[str, str, str]: ...
def schemes() -> list[tuple[Any, ...]]: ...
def encodings() -> list[str]: ...
def check(
    value: Any, /, *, as_barcode: bool, strict: bool, gcp_length: int | None
) -> list[tuple[Any, ...]]: ...
def version() -> str: ...
def status_words(status: int, /) -> tuple[str, str] | None: ...
def set_error_class(error: type[ValueError], /) -> None: ...
def columns_decode(
    values: tuple[object, object],
    to: list[str],
    as_barcode: bool,
    strict: bool,
    gcp_length: int,
    gcp_lengths: tuple[object, object] | None,
    /,
) -> object: ...
def columns_encode(
    values: tuple[object, object],
    to: list[str],
    as_barcode: bool,
    strict: bool,
    gcp_length: int,
    gcp_lengths: tuple[object, object] | None,
    scheme: str | None,
    schemes: tuple[object, object] | None,
    filter: int,
    filters: tuple[object, object] | None,
    encoding: int,
    /,
) -> object: ...
def columns_tid(values: tuple[object, object], to: list[str], /) -> object: ...
def columns_share(rows: object, /) -> tuple[object, object]: ...
def columns_stream(rows: list[object], /) -> object: ...
def columns_of_stream(stream: object, /) -> list[tuple[object, object]]: ...
