"""All shared rows, through the functions on single values and on columns."""

import json
from collections import defaultdict

import pyarrow as pa
import rosetag

TEXT_FORMS = {
    "hex", "tag_uri", "pure_identity", "element_string", "barcode_string", "digital_link", "gtin",
    "serial",
}


def number(cell: str) -> int | None:
    return int(cell) if cell else None


def split_ai(text: str) -> tuple[str, str]:
    code, value = text.removeprefix("(").split(")", 1)
    return code, value


def outcome(row: dict[str, str]) -> str | None:
    op, value = row["op"], row["input"]
    encoding = row["encoding"] or "auto"
    if op in TEXT_FORMS:
        return rosetag.convert(value, op)
    if op == "encode":
        return rosetag.encode(
            value,
            row["scheme"] or None,
            filter=number(row["filter"]),
            gcp_length=number(row["gcp_length"]),
            encoding=encoding,
        )
    if op == "encode_ai":
        return rosetag.encode_ai(*split_ai(value), with_code=True, encoding=encoding).hex
    if op == "decode_ai":
        ai, text, _ = rosetag.decode_ai(value)
        return f"({ai}){text}"
    if op == "tid":
        tid = rosetag.tid(value)
        return f"{tid.designer} {tid.model} {tid.serial or ''}".rstrip()
    if op == "check":
        found = rosetag.check(value)
        return ", ".join(f"{row.severity} {row.rule} {row.ai}".rstrip() for row in found)
    if op == "explain":
        return ", ".join(f"{row.name}={row.bits}" for row in rosetag.explain(value).fields)
    identity = rosetag.decode(value)
    if op == "ais":
        return "".join(f"({ai}){text}" for ai, text, _ in identity.ais)
    return {"scheme": identity.scheme, "filter": identity.filter}[op]


def status_name(status: rosetag.Status) -> str:
    return "EPC_OK" if status == 0 else f"EPC_ERR_{status.name}"


def test_single_values(vectors):
    for row in vectors:
        try:
            output, status = outcome(row), "EPC_OK"
        except rosetag.RosetagError as error:
            output, status = None, status_name(error.status)
        assert (status, "" if output is None else str(output)) == (row["status"], row["output"]), row


def column_outcomes(op: str, rows: list[dict[str, str]]) -> list[tuple[str, str]]:
    values = pa.array([row["input"] for row in rows])
    if op == "encode":
        result = rosetag.columns.encode(
            values,
            pa.array([row["scheme"] or None for row in rows]),
            filter=pa.array([number(row["filter"]) for row in rows], pa.int8()),
            gcp_length=pa.array([number(row["gcp_length"]) for row in rows], pa.int8()),
            encoding=rows[0]["encoding"] or "auto",
            to=["hex", "status_name"],
        )
    elif op == "check":
        table = pa.record_batch(rosetag.columns.check(values, "findings"))
        return [
            (
                "EPC_OK",
                ", ".join(
                    " ".join(found[key] for key in ("severity", "rule", "ai") if key in found)
                    for found in json.loads(findings)
                ),
            )
            for findings in table[0].to_pylist()
        ]
    else:
        result = rosetag.columns.decode(values, [op, "status_name"])
    outputs, statuses = pa.record_batch(result).columns
    return [
        (status.as_py(), "" if output.as_py() is None else str(output.as_py()))
        for output, status in zip(outputs, statuses)
    ]


def test_columns(vectors):
    groups = defaultdict(list)
    for row in vectors:
        if row["op"] in TEXT_FORMS | {"scheme", "filter", "encode", "check"}:
            groups[row["op"], row["encoding"]].append(row)
    assert len(groups) >= len(TEXT_FORMS) + 4
    for (op, _), rows in groups.items():
        for row, found in zip(rows, column_outcomes(op, rows), strict=True):
            assert found == (row["status"], row["output"]), row
