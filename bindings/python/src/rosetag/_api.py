"""The functions on single values."""

from __future__ import annotations

import json
from collections.abc import Sequence
from typing import Literal, TypeAlias, Union

from rosetag import _core
from rosetag import _errors as _errors  # registers the class that failures are raised as
from rosetag._results import Ai, AiBits, Explanation, Field, Finding, Identity, Note, Scheme, Tid

Value: TypeAlias = Union[str, bytes, bytearray, memoryview, Sequence[int]]
"""A text in any form, or the bits of a tag: bytes, or 16-bit words as a sequence of int."""

TextForm: TypeAlias = Literal[
    "hex",
    "tag_uri",
    "pure_identity",
    "element_string",
    "barcode_string",
    "digital_link",
    "gtin",
    "serial",
]
Encoding: TypeAlias = Literal[
    "auto", "integer", "hex-upper", "hex-lower", "base64url", "iso646", "code40"
]

# As the AI_ENC_... of the library.
ENCODINGS: dict[str, int] = {"auto": -1} | {
    word: number for number, word in enumerate(_core.encodings())
}


def encoding_number(encoding: str) -> int:
    try:
        return ENCODINGS[encoding]
    except KeyError:
        names = ", ".join(ENCODINGS)
        raise ValueError(f"there is no encoding {encoding!r}; there are {names}") from None


def decode(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | None = None,
) -> Identity:
    """Finds out what a value is and gives every form that it has.

    Args:
        value: a text in any form, or the bits of a tag as bytes or 16-bit words.
        as_barcode: digits without any mark are a barcode string, not hex.
        strict: links are taken as they are; nothing is left out or padded.
        gcp_length: digits of the GS1 company prefix, 6 to 12; GS1 texts need it for their
            pure identity URI.

    Raises:
        RosetagError: the value cannot be read; the error says where and why.

    >>> decode("https://example.com/01/9506000134352/10/LOT7?utm=box")["10"]
    'LOT7'
    >>> decode(bytes.fromhex("3074257BF7194E4000001A85")).gtin
    '80614141123458'
    """
    result = _core.decode(value, as_barcode=as_barcode, strict=strict, gcp_length=gcp_length)
    result["ais"] = tuple(map(Ai._make, result["ais"]))
    result["notes"] = tuple(map(Note._make, result["notes"]))
    result["fits_schemes"] = tuple(result["fits_schemes"])
    return Identity(**result)


convert = _core.convert


def encode(
    text: Value,
    scheme: str | None = None,
    *,
    filter: int | None = None,
    gcp_length: int | None = None,
    encoding: Encoding = "auto",
    strict: bool = False,
    as_barcode: bool = False,
    to: Literal["hex", "bytes"] = "hex",
) -> str | bytes:
    """Makes the bits of a tag.

    Args:
        text: a value in any form.
        scheme: the tag scheme, "sgtin-96" for example; a tag value may keep its own.
        filter: the filter value; None for that of a tag value, otherwise 0.
        gcp_length: digits of the GS1 company prefix, 6 to 12; the plain schemes need it for GS1
            texts.
        encoding: how texts stand in the bits of a plus scheme.
        to: "hex" for upper-case digits, "bytes" for bytes.

    Raises:
        RosetagError: the value cannot be encoded so.

    >>> encode("(01)80614141123458(21)6789", "sgtin-96", filter=3, gcp_length=7)
    '3074257BF7194E4000001A85'
    """
    if to not in ("hex", "bytes"):
        raise ValueError(f'to must be "hex" or "bytes", not {to!r}')
    hexadecimal = _core.encode(
        text, scheme, filter, gcp_length, encoding_number(encoding), strict, as_barcode
    )
    return hexadecimal if to == "hex" else bytes.fromhex(hexadecimal)


def explain(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | None = None,
) -> Explanation:
    """Takes the bits of a tag value or of a TID apart, field by field.

    A field that is wrong does not raise: it is the last one, and says what is wrong.

    Raises:
        RosetagError: the value has no bits.

    >>> explain("3074257BF7194E4000001A85").fields[3]
    Field(first=14, width=24, name='company prefix', bits='000010010101111011111101', \
meaning='0614141', value='0614141', ai='', is_good=True)
    """
    result = _core.explain(value, as_barcode=as_barcode, strict=strict, gcp_length=gcp_length)
    result["fields"] = tuple(map(Field._make, result["fields"]))
    result["notes"] = tuple(map(Note._make, result["notes"]))
    return Explanation(**result)


def check(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | None = None,
) -> tuple[Finding, ...]:
    """Finds every place where a value breaks a rule of GS1. Nothing found: it is right.

    >>> for finding in check("(01)80614141123459(17)261301"):
    ...     print(finding.severity, finding.rule, finding.ai, finding.culprit)
    error check_digit 01 9
    error date 17 13
    """
    found = _core.check(value, as_barcode=as_barcode, strict=strict, gcp_length=gcp_length)
    return tuple(map(Finding._make, found))


def tid(value: Value) -> Tid:
    """Reads the TID memory of a tag, from its first word on.

    Raises:
        RosetagError: this is not the layout of a TID.

    >>> memory = tid("E28011302000123456789ABC")
    >>> memory.designer, memory.model, memory.serial
    (1, 304, '123456789ABC')
    """
    details = json.loads(_core.tid(value))
    mdid = details["mdid"]
    return Tid(
        value=value,
        designer=mdid & 0x1FF,
        model=details["tmid"],
        xtid=bool(mdid & 0x800),
        serial=details.get("serial") or None,
        details=details,
    )


def encode_ai(
    ai: str, value: str, *, with_code: bool = False, encoding: Encoding = "auto"
) -> AiBits:
    """Makes the bits of a single AI value, as the plus schemes carry it.

    >>> encode_ai("21", "ABCG")
    AiBits(hex='64001086', bits=32)
    """
    return AiBits(
        *_core.encode_ai(ai, value, with_code=with_code, encoding=encoding_number(encoding))
    )


def decode_ai(bits: Value, ai: str = "") -> Ai:
    """Reads the bits of a single AI value; without ``ai`` they begin with its code.

    >>> decode_ai("2164001086")
    Ai(ai='21', value='ABCG', title='SERIAL')
    """
    return Ai._make(_core.decode_ai(bits, ai))


def schemes() -> tuple[Scheme, ...]:
    """All tag schemes.

    >>> schemes()[0].name
    'sgtin-96'
    """
    return tuple(map(Scheme._make, _core.schemes()))
