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
    "explain": "there is no SQL function for the bits of each field",
    "encode_ai": "there is no SQL function for the bits of a single AI",
    "decode_ai": "there is no SQL function for the bits of a single AI",
    "encode with an encoding": "epc_encode has no argument for it",
    "not UTF-8": "a text of SQL is UTF-8",
}
# Of arguments that make no sense, and of what epc_check refuses: what has an error by one of the
# rules without which there is no decoding.
RAISES = object()
DECODING_RULES = re.compile("error (tag_value|unknown_form|unknown_ai|check_digit|too_long)")


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


def calls(root, ais):
    """(id, SQL expression, its arguments, result) for each row that SQL can run; None is NULL.

    ais is the expression for all AIs of a value. The second result counts the rows that it cannot, by what they are.
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
            found += _calls_of(row, ais)
    assert len(found) > 3000, len(found)
    return found, {reason: count for reason, count in skipped.items() if count}


def _calls_of(row, ais):
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
        return [(row["id"], ais, [value], output)]
    if op == "check":
        refused = DECODING_RULES.search(output or "")
        return [(row["id"], "epc_check(?)", [value], RAISES if refused else value)]
    assert op in FORMS, f"nothing is known of the op {op}"
    found = []
    if op == "tag_uri":
        checked = value if status == "EPC_OK" else RAISES
        found = [(row["id"], "epc_status(?)", [value], status),
                 (row["id"], "epc_check(?)", [value], checked)]
    if op == "filter":
        output = _number(output)
    return [*found, (row["id"], f"epc_{op}(?)", [value], output)]


def calls_of_bytes(found):
    """The calls whose argument is hex, with its bytes."""
    for name, expression, arguments, expected in found:
        if len(arguments) == 1 and re.fullmatch("([0-9A-F]{2})+", arguments[0]):
            data = bytes.fromhex(arguments[0])
            is_kept = expression == "epc_check(?)" and expected is not RAISES
            yield name, expression, [data], data if is_kept else expected


def check(test, calls, one, error):
    """one(expression, arguments...) gives a value; error is the class that it raises."""
    for name, expression, arguments, expected in calls:
        with test.subTest(name, call=expression, arguments=arguments):
            if expected is RAISES:
                with test.assertRaises(error):
                    one(expression, *arguments)
            else:
                test.assertEqual(expected, one(expression, *arguments))
