"""The list of the lengths of GS1 company prefixes, which GS1 publishes."""

from __future__ import annotations

import json
import os
import xml.etree.ElementTree as ElementTree
from collections.abc import Iterable, Iterator
from pathlib import Path

from rosetag import _core


class GcpLengths:
    """The lengths of GS1 company prefixes, to be given as ``gcp_length``.

    The list is published by GS1 as "GCP Length Table"; it is not part of this package.

    Args:
        entries: pairs of the digits that company prefixes begin with (3 to 12), and the length of
            those prefixes; 0 where no company prefix begins so. The longest that fits counts.
        date: of the edition.

    Raises:
        ValueError: an entry cannot be one, or two contradict each other.

    >>> import rosetag
    >>> lengths = rosetag.GcpLengths([("0614141", 7), ("9506", 7)])
    >>> rosetag.encode("(01)80614141123458(21)6789", "sgtin-96", gcp_length=lengths)
    '3014257BF7194E4000001A85'
    """

    __slots__ = ("_capsule", "_entries", "date")

    def __init__(self, entries: Iterable[tuple[str, int | str]], date: str = "") -> None:
        self._entries = tuple((prefix, str(length)) for prefix, length in entries)
        self._capsule = _core.gcp_list(date, self._entries)
        self.date = date

    @classmethod
    def load(cls, path: str | os.PathLike[str]) -> GcpLengths:
        """Reads the list from the file of GS1, XML or JSON as it is published.

        Raises:
            OSError: the file cannot be read.
            ValueError: it is not such a list.
        """
        content = Path(path).read_bytes()
        try:
            is_xml = content.lstrip(b"\xef\xbb\xbf \t\r\n").startswith(b"<")
            lengths = cls._of_xml(content) if is_xml else cls._of_json(content)
            if not lengths:
                raise ValueError("there is no entry of a GCPPrefixFormatList in it")
        except (ElementTree.ParseError, AttributeError, LookupError, TypeError, ValueError) as error:
            raise ValueError(f"{os.fspath(path)} is not a list of GCP lengths: {error}") from error
        return lengths

    @classmethod
    def _of_xml(cls, content: bytes) -> GcpLengths:
        root = ElementTree.fromstring(content)
        entries = root.iter("entry") if root.tag == "GCPPrefixFormatList" else ()
        pairs = [(entry.get("prefix", ""), entry.get("gcpLength", "")) for entry in entries]
        return cls(pairs, root.get("date", ""))

    @classmethod
    def _of_json(cls, content: bytes) -> GcpLengths:
        table = json.loads(content.decode("utf-8-sig"))["GCPPrefixFormatList"]
        pairs = [
            (str(entry.get("prefix", "")), str(entry.get("gcpLength", "")))
            for entry in table["entry"]
        ]
        return cls(pairs, str(table.get("date", "")))

    def __len__(self) -> int:
        return len(self._entries)

    def __iter__(self) -> Iterator[tuple[str, int]]:
        return ((prefix, int(length)) for prefix, length in self._entries)

    def __repr__(self) -> str:
        return f"<GcpLengths: {len(self)} entries{self.date and f' of {self.date}'}>"

    def __reduce__(self) -> tuple[type[GcpLengths], tuple[object, ...]]:
        return GcpLengths, (self._entries, self.date)
