#!/usr/bin/env python3
"""Makes the fuzzers' inputs of the values in fuzz/seeds.txt: fuzz_seeds.py OUTPUT_FOLDER

Each fuzzer says in its source what its input is.
"""

import json
import pathlib
import sys

GCP_LENGTH = 7
FILTER = 3
ENOUGH_ROOM = 0xFF
SOME_ROOM = 40
AUTO = 0xFF
SEPARATOR = 0x1D
NO_SCHEME = 0xFF


def text_input(scheme, text):
    return bytes([scheme, FILTER, GCP_LENGTH, AUTO, SEPARATOR, ENOUGH_ROOM]) + text


def chain_input(kind, scheme, rest):
    return kind.encode() + bytes([scheme, FILTER, GCP_LENGTH]) + rest


def toolkit_inputs(scheme, text):
    """A value into the toolkit, with and without a company prefix length, and for a scheme."""
    for gcp_length in (0, GCP_LENGTH):
        read = bytes([0, gcp_length])
        yield "recognise", read + bytes([scheme, FILTER, AUTO]) + text
        yield "check", read + text
        yield "columns", read + text + b"\n\n" + text
    yield "explain", bytes([0, 0]) + text


def inputs(kind, argument, rest):
    """The (fuzzer, input) pairs of one line."""
    text = rest.replace("\\x1D", "\x1d").encode("latin-1")
    if kind == "hex":
        value = bytes.fromhex(argument)
        yield "binary", bytes([ENOUGH_ROOM, 0]) + value
        yield "binary", bytes([SOME_ROOM, 1]) + value
        yield "text", text_input(0, argument.encode())
        yield "chain", chain_input("b", 0, value)
        yield from toolkit_inputs(NO_SCHEME, argument.encode())
    elif kind == "tid":
        yield "tid", bytes([ENOUGH_ROOM, 0]) + bytes.fromhex(argument)
        yield "explain", bytes([0, 0]) + argument.encode()
    elif kind == "tag":
        yield "text", text_input(0, argument.encode())
        yield "chain", chain_input("t", 0, argument.encode())
        yield from toolkit_inputs(NO_SCHEME, argument.encode())
    elif kind == "id":
        yield "text", text_input(int(argument), text)
        yield from toolkit_inputs(int(argument), text)
    elif kind in ("element", "barcode", "link"):
        yield "text", text_input(int(argument), text)
        letter = {"element": "e", "barcode": "c", "link": "l"}[kind]
        yield "chain", chain_input(letter, int(argument), text)
        yield from toolkit_inputs(int(argument), text)
    elif kind == "ai":
        for with_code in (0, 1):
            yield "value", bytes([with_code, AUTO, ENOUGH_ROOM]) + argument.encode() + b"|" + text
        yield "chain", chain_input("v", 0, argument.encode() + b"|" + text)
        yield "explain", bytes([0, 0]) + argument.encode() + b"|" + text
        yield "check", bytes([0, 0]) + b"(" + argument.encode() + b")" + text
    elif kind == "bits":
        value = bytes.fromhex(rest)
        yield "value", bytes([0, 0, ENOUGH_ROOM]) + argument.encode() + b"|" + value
    elif kind == "table":
        line = f"{argument} {rest}".replace("\\n", "\n").encode()
        for delimiter in range(4):
            yield "tables", bytes([delimiter]) + line
    else:
        raise ValueError(f"fuzz/seeds.txt: unknown kind {kind!r}")


def check_inputs(root):
    """The texts of the tables that the tests of checking read, and a small list of each kind."""
    for name in ("check_right.tsv", "check_wrong.tsv"):
        table = (root / "tests" / "toolkit" / name).read_text(encoding="utf-8")
        for row in table.splitlines():
            if row and not row.startswith("#"):
                fields = row.split("\t")
                text = fields[1] if name == "check_right.tsv" else fields[0]
                code = fields[0].partition("-")[0]
                text = text.replace("(%)", f"({code})").replace("{GS}", "\x1d")
                is_barcode = text.startswith("!")
                yield "check", bytes([is_barcode, 0]) + text.removeprefix("!").encode()
    prefixes = {"GCPPrefixFormatList": {"date": "x", "entry": [{"prefix": "9506", "gcpLength": 7}]}}
    designers = {"version": "x", "registeredMaskDesigners": [
        {"mdid": "000000001", "manufacturer": "A", "chips": [
            {"tmnBinary": "000100000101", "modelName": "B"}]}]}
    xml = '<GCPPrefixFormatList date="x"><entry prefix="9506" gcpLength="7"/></GCPPrefixFormatList>'
    yield "lists", b"\x00" + json.dumps(prefixes).encode()
    yield "lists", b"\x00" + xml.encode()
    yield "lists", b"\x01" + json.dumps(designers).encode()


def main():
    seeds = pathlib.Path(__file__).resolve().parent.parent / "fuzz" / "seeds.txt"
    output = pathlib.Path(sys.argv[1])
    for number, (fuzzer, data) in enumerate(check_inputs(seeds.parent.parent)):
        folder = output / fuzzer
        folder.mkdir(parents=True, exist_ok=True)
        (folder / f"{number:03}").write_bytes(data)
    for number, line in enumerate(seeds.read_text(encoding="ascii").splitlines()):
        if not line or line.startswith("#"):
            continue
        kind, _, rest = line.partition(" ")
        argument, _, rest = rest.partition(" ")
        for count, (fuzzer, data) in enumerate(inputs(kind, argument, rest)):
            folder = output / fuzzer
            folder.mkdir(parents=True, exist_ok=True)
            (folder / f"{number:03}-{kind}-{count}").write_bytes(data)


if len(sys.argv) != 2:
    sys.exit(__doc__)
main()
