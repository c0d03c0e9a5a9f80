"""The functions on single values."""

from __future__ import annotations

import json
from collections.abc import Sequence
from typing import Literal, TypeAlias, Union

from rosetag import _core
from rosetag import _errors as _errors  # registers the class that failures are raised as
from rosetag._gcp_lengths import GcpLengths
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

Bank: TypeAlias = Literal["auto", "epc", "pc", "crc-pc"]


def decode(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | GcpLengths | None = None,
    bank: Bank = "auto",
    separator: str | None = None,
) -> Identity:
    """Finds out what a value is and gives every form that it has.

    Args:
        value: a text in any form, or the bits of a tag as bytes or 16-bit words.
        as_barcode: digits without any mark are a barcode string, not hex.
        strict: links are taken as they are; nothing is left out or padded.
        gcp_length: digits of the GS1 company prefix, 6 to 12, or a :class:`GcpLengths`; GS1
            texts need it for their pure identity URI.
        bank: which words of the EPC memory bank hex begins with: "epc", "pc" for the PC word,
            "crc-pc" for the CRC and the PC word; "auto" finds out.
        separator: an ASCII character that stands for character 29, GS, in barcode strings.

    Raises:
        RosetagError: the value cannot be read; the error says where and why.

    >>> decode("https://example.com/01/9506000134352/10/LOT7?utm=box")["10"]
    'LOT7'
    >>> decode(bytes.fromhex("3074257BF7194E4000001A85")).gtin
    '80614141123458'
    """
    result = _core.decode(
        value,
        as_barcode=as_barcode,
        strict=strict,
        gcp_length=gcp_length,
        bank=bank,
        separator=separator,
    )
    result["ais"] = tuple(map(Ai._make, result["ais"]))
    result["notes"] = tuple(map(Note._make, result["notes"]))
    return Identity._of(result)


convert = _core.convert


encode = _core.encode


def explain(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | GcpLengths | None = None,
    bank: Bank = "auto",
    separator: str | None = None,
) -> Explanation:
    """Takes the bits of a tag value or of a TID apart, field by field.

    The options are those of :func:`decode`. A field that is wrong does not raise: it is the last one, and says what is wrong.

    Raises:
        RosetagError: the value has no bits.

    >>> explain("3074257BF7194E4000001A85").fields[3]
    Field(first=14, width=24, name='company prefix', bits='000010010101111011111101', \
meaning='0614141', value='0614141', ai='', is_good=True)
    """
    result = _core.explain(
        value,
        as_barcode=as_barcode,
        strict=strict,
        gcp_length=gcp_length,
        bank=bank,
        separator=separator,
    )
    result["fields"] = tuple(map(Field._make, result["fields"]))
    result["notes"] = tuple(map(Note._make, result["notes"]))
    return Explanation(**result)


def check(
    value: Value,
    *,
    as_barcode: bool = False,
    strict: bool = False,
    gcp_length: int | GcpLengths | None = None,
    bank: Bank = "auto",
    separator: str | None = None,
) -> tuple[Finding, ...]:
    """Finds every place where a value breaks a rule of GS1. Nothing found: it is right.

    The options are those of :func:`decode`. With a :class:`GcpLengths` a key whose digits no company
    prefix begins with is found too.

    >>> for finding in check("(01)80614141123459(17)261301"):
    ...     print(finding.severity, finding.rule, finding.ai, finding.culprit)
    error check_digit 01 9
    error date 17 13
    """
    found = _core.check(
        value,
        as_barcode=as_barcode,
        strict=strict,
        gcp_length=gcp_length,
        bank=bank,
        separator=separator,
    )
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
    return AiBits(*_core.encode_ai(ai, value, with_code=with_code, encoding=encoding))


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
