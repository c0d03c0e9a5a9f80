"""The shared rows as calls of SQL functions, for the tests of every engine."""

import csv
import re
from pathlib import Path

# The function of each has its name after epc_.
FORMS = {
    "hex", "tag_uri", "pure_identity", "element_string", "barcode_string", "digital_link", "gtin",
    "serial", "scheme", "filter",
}
SKIPPED = {
    "check": "there is no SQL function for findings; epc_check asks whether a value can be decoded",
    "explain": "there is no SQL function for the bits of each field",
    "encode_ai": "there is no SQL function for the bits of a single AI",
    "decode_ai": "there is no SQL function for the bits of a single AI",
    "encode with an encoding": "epc_encode has no argument for it",
    "not UTF-8": "a text of SQL is UTF-8",
}
# Of arguments that make no sense.
RAISES = object()


def _text(cell):
    """A cell without its escapes: backslash, t, n, and bytes as xHH."""
    named = {b"t": b"\t", b"n": b"\n", b"\\": b"\\"}
    raw = re.sub(
        rb"\\(x[0-9A-F]{2}|.)",
        lambda match: named.get(match[1]) or bytes([int(match[1][1:], 16)]),
        cell.encode(),
    )
    return raw.decode("utf-8", "surrogateescape")


def _number(cell):
    return int(cell) if cell else None


def _reason(row):
    if not row["input"].isascii() and "\udc80" <= max(row["input"]):
        return "not UTF-8"
    if row["op"] == "encode" and row["encoding"]:
        return "encode with an encoding"
    return row["op"] if row["op"] in SKIPPED else None


def calls(root):
    """(id, SQL expression, its arguments, result) for each row that SQL can run; None is NULL.

    The second result counts the rows that it cannot, by what they are.
    """
    with (Path(root) / "vectors/rosetag.tsv").open(newline="") as file:
        rows = [
            {name: _text(cell) for name, cell in row.items()}
            for row in csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE)
        ]
    found, skipped = [], dict.fromkeys(SKIPPED, 0)
    for row in rows:
        if reason := _reason(row):
            skipped[reason] += 1
        else:
            found += _calls_of(row)
    assert len(found) > 3000, len(found)
    return found, {reason: count for reason, count in skipped.items() if count}


def _calls_of(row):
    op, value, status = row["op"], row["input"], row["status"]
    output = row["output"] or None
    if op == "encode":
        filter, gcp_length = _number(row["filter"]), _number(row["gcp_length"])
        is_nonsense = (filter or 0) > 7 or (gcp_length or 7) not in range(6, 13)
        return [(
            row["id"], "epc_encode(?, ?, ?, ?)", [value, row["scheme"], filter, gcp_length],
            RAISES if is_nonsense else output,
        )]
    if op == "tid":
        designer, model, serial = [*(output or "").split(" "), None, None, None][:3]
        return [
            (row["id"], "tid_designer(?)", [value], _number(designer)),
            (row["id"], "tid_model(?)", [value], _number(model)),
            (row["id"], "tid_serial(?)", [value], serial),
        ]
    if op == "ais":
        return [(row["id"], "AIS", [value], output)]
    assert op in FORMS, f"nothing is known of the op {op}"
    found = [(row["id"], "epc_status(?)", [value], status)] if op == "tag_uri" else []
    if op == "filter":
        output = _number(output)
    return [*found, (row["id"], f"epc_{op}(?)", [value], output)]


def hexadecimal(value):
    """The bytes of a text of hexadecimal digits; None for any other."""
    return bytes.fromhex(value) if re.fullmatch("([0-9A-F]{2})+", value) else None
