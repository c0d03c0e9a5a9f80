"""Rosetag translates identifiers between the forms used in GS1 and RFID data capture.

Whatever a value is, :func:`decode` finds out and gives every form that it has:

>>> import rosetag
>>> item = rosetag.decode("3074257BF7194E4000001A85")
>>> item.scheme, item.filter
('sgtin-96', 3)
>>> item.element_string
'(01)80614141123458(21)6789'
>>> item.tag_uri
'urn:epc:tag:sgtin-96:3.0614141.812345.6789'

:func:`encode` makes the bits of a tag, :func:`convert` makes one form of a value,
:func:`check` finds what is wrong with it, :func:`explain` takes its bits apart, :func:`tid` reads
the TID memory of a tag.
:mod:`rosetag.columns` does the same to whole columns, :mod:`rosetag.spark` on a cluster.
"""

from rosetag import columns
from rosetag._api import (
    check,
    convert,
    decode,
    decode_ai,
    encode,
    encode_ai,
    explain,
    schemes,
    tid,
)
from rosetag._core import version as _version
from rosetag._errors import RosetagError, Status
from rosetag._gcp_lengths import GcpLengths
from rosetag._results import (
    Ai,
    AiBits,
    Explanation,
    Field,
    Finding,
    Identity,
    Note,
    Scheme,
    Tid,
)

__version__: str = _version()

__all__ = [
    "Ai",
    "AiBits",
    "Explanation",
    "Field",
    "Finding",
    "GcpLengths",
    "Identity",
    "Note",
    "RosetagError",
    "Scheme",
    "Status",
    "Tid",
    "check",
    "columns",
    "convert",
    "decode",
    "decode_ai",
    "encode",
    "encode_ai",
    "explain",
    "schemes",
    "tid",
]
