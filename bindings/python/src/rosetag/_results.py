"""What the functions give back."""

from __future__ import annotations

from dataclasses import dataclass, fields
from html import escape
from typing import NamedTuple

# Okabe and Ito: colours that all eyes can tell apart. Fields also differ by their name.
_COLOURS = ("#E69F00", "#56B4E9", "#009E73", "#F0E442", "#0072B2", "#D55E00", "#CC79A7")


class Ai(NamedTuple):
    """A GS1 Application Identifier and its value."""

    ai: str
    value: str
    title: str


class AiBits(NamedTuple):
    """The bits of a single AI value: ``hex``, of which the first ``bits`` bits count."""

    hex: str
    bits: int


class Note(NamedTuple):
    """What a result does not show: what was left out, padded or looks wrong."""

    kind: str
    severity: str
    text: str


class Finding(NamedTuple):
    """A place where a value breaks a rule; ``severity`` is "error" or "warning"."""

    severity: str
    rule: str
    ai: str
    position: int
    length: int
    culprit: str
    message: str


class Scheme(NamedTuple):
    """A tag scheme."""

    name: str
    family: str
    header: int
    filter_limit: int
    has_uris: bool
    has_gs1_texts: bool
    is_plus: bool


class Field(NamedTuple):
    """A field of a tag value: ``width`` bits from bit ``first`` on."""

    first: int
    width: int
    name: str
    bits: str
    meaning: str
    value: str
    ai: str
    is_good: bool


@dataclass(frozen=True, kw_only=True)
class Identity:
    """A value in all the forms that it has; one that it does not have is None.

    Attributes:
        value: the value as it was given.
        form: what it is: "hex", "tag_uri", "pure_identity", "element_string",
            "barcode_string", "digital_link", "gtin".
        scheme, filter, bits: of a tag value.
        tag_uri, pure_identity, element_string, barcode_string, digital_link, hex: the forms.
            Values of variable length in a barcode string end with character 29, GS.
        gtin: 14 digits.
        serial: what distinguishes one object from the others of its key.
        ais: the AIs in their order. ``identity["10"]`` is the value of AI 10.
        fits_schemes: the schemes that can hold the identity.
        notes: what was left out, padded or looks wrong.
    """

    value: object
    form: str
    scheme: str | None
    filter: int | None
    bits: int | None
    tag_uri: str | None
    pure_identity: str | None
    element_string: str | None
    barcode_string: str | None
    digital_link: str | None
    hex: str | None
    gtin: str | None
    serial: str | None
    ais: tuple[Ai, ...]
    fits_schemes: tuple[str, ...]
    notes: tuple[Note, ...]

    @classmethod
    def _of(cls, members: dict[str, object]) -> Identity:
        """Takes the members as they are, in a third of the time of the constructor."""
        identity = object.__new__(cls)
        object.__setattr__(identity, "__dict__", members)
        return identity

    def __getitem__(self, ai: str) -> str:
        """The value of an AI. KeyError where the identity does not have it."""
        for row in self.ais:
            if row.ai == ai:
                return row.value
        raise KeyError(ai)

    def __contains__(self, ai: object) -> bool:
        return any(row.ai == ai for row in self.ais)

    def as_dict(self) -> dict[str, object]:
        """The forms that the value has, by name."""
        given = {field.name: getattr(self, field.name) for field in fields(self)}
        return {name: value for name, value in given.items() if value not in (None, ())}

    def _repr_html_(self) -> str:
        """A table for notebooks, with the bits where the value has some."""
        rows = "".join(
            f"<tr><th style='text-align:left'>{escape(name.replace('_', ' '))}</th>"
            f"<td style='text-align:left'><code>{escape(_shown(value))}</code></td></tr>"
            for name, value in self.as_dict().items()
        )
        return f"<table>{rows}</table>"


def _shown(value: object) -> str:
    if isinstance(value, tuple):
        return ", ".join(" ".join(map(str, row)) if isinstance(row, tuple) else row for row in value)
    return str(value).replace("\x1d", "{GS}")


@dataclass(frozen=True, slots=True, kw_only=True)
class Explanation:
    """The bits of a tag value or of a TID, field by field.

    Where a field is wrong it is the last, its ``is_good`` is False, and ``failure`` says why.
    """

    value: object
    form: str
    scheme: str | None
    hex: str
    bits: str
    failure: str | None
    fields: tuple[Field, ...]
    notes: tuple[Note, ...]

    def __str__(self) -> str:
        width = max((len(field.name) for field in self.fields), default=0)
        return "\n".join(
            f"{field.first:4} {field.name:{width}}  {field.bits}  {field.meaning}"
            for field in self.fields
        )

    def _repr_html_(self) -> str:
        """The bits as a coloured strip, and a table of the fields below it."""
        strip = []
        rows = []
        for index, field in enumerate(self.fields):
            colour = "#B00020" if not field.is_good else _COLOURS[index % len(_COLOURS)]
            name = escape(field.name)
            strip.append(
                f"<span title='{name}' style='border-bottom:3px solid {colour};"
                f"background:{colour}33;margin-right:2px'>{field.bits}</span>"
            )
            rows.append(
                f"<tr><td style='text-align:right'>{field.first}</td>"
                f"<td style='text-align:left;border-left:4px solid {colour}'>{name}</td>"
                f"<td style='text-align:left'><code>{field.bits}</code></td>"
                f"<td style='text-align:left'>{escape(field.meaning)}</td></tr>"
            )
        return (
            "<div style='font-family:monospace;overflow-wrap:anywhere;max-width:64em'>"
            f"{''.join(strip)}</div><table><tr><th>bit</th><th>field</th><th>bits</th>"
            f"<th>meaning</th></tr>{''.join(rows)}</table>"
        )


@dataclass(frozen=True, slots=True, kw_only=True)
class Tid:
    """What the TID memory of a tag says."""

    value: object
    designer: int
    model: int
    xtid: bool
    serial: str | None
    details: dict[str, object]
