#!/usr/bin/env python3
"""Makes rosetag.tsv: python3 vectors/make.py > vectors/rosetag.tsv

The inputs are made here: every scheme at the borders of its fields, every AI, texts that fail. What
becomes of them is asked of the library, through its Python package. What comes back is held to the
values that were published with the EPC Tag Data Standard, to what was put in, and by model.py to
the standards. A row that is left out keeps
its number, so that the others keep theirs.
"""

import itertools
import random
import sys

import model
import rosetag

COLUMNS = ["id", "op", "input", "scheme", "filter", "gcp_length", "encoding", "status", "output"]

FORMS = [
    "hex", "tag_uri", "pure_identity", "element_string", "barcode_string", "digital_link",
    "gtin", "serial",
]

GROUP_SEPARATOR = "\x1d"

generator = random.Random(1)
count = 0
rows: dict[tuple[str, ...], str] = {}
"""The id of each row, in the order of the file."""


def escaped(text: str) -> str:
    """A cell: backslash, tab, line feed and whatever is not printable ASCII as escapes."""
    named = {"\\": "\\\\", "\t": "\\t", "\n": "\\n"}
    return "".join(
        named.get(chr(byte), chr(byte) if 0x20 <= byte < 0x7F else f"\\x{byte:02X}")
        for byte in text.encode("utf-8", "surrogateescape")
    )


def add(
    kind: str, op: str, value: str, result, scheme="", filter="", gcp_length="", encoding="",
    is_kept=True,
):
    """Runs result() and adds its row. Returns the output, None after a failure."""
    global count
    try:
        output, status = result(), "EPC_OK"
        output = "" if output is None else str(output)
    except rosetag.RosetagError as error:
        name = error.status.name
        output, status = None, name if name == "OK" else f"EPC_ERR_{name}"
    count += 1
    given = [value, scheme, filter, gcp_length, encoding, status, output or ""]
    cells = (op, *(escaped(str(cell)) for cell in given))
    if is_kept:
        rows.setdefault(cells, f"{kind}-{count:04}")
    return output


def expect(expected: str, found: str | None, what: str) -> None:
    if expected != found:
        sys.exit(f"{what}: worked out {expected!r}, the library says {found!r}")


def decode_rows(
    kind: str, value: str, forms=FORMS, also=("scheme", "filter", "ais"), kept=None
) -> dict[str, str | None]:
    def is_kept(op: str) -> bool:
        return kept is None or op in kept

    found = {
        form: add(kind, form, value, lambda: rosetag.convert(value, form), is_kept=is_kept(form))
        for form in forms
    }

    details = {
        "scheme": lambda: rosetag.decode(value).scheme,
        "filter": lambda: rosetag.decode(value).filter,
        "ais": lambda: "".join(f"({ai}){text}" for ai, text, _ in rosetag.decode(value).ais),
    }
    for op, result in details.items():
        found[op] = add(kind, op, value, result, is_kept=is_kept(op)) if op in also else None
    return found


def encode_row(kind, value, scheme, filter="", gcp_length="", encoding="auto", is_kept=True):
    return add(
        kind, "encode", value,
        lambda: rosetag.encode(
            value, scheme or None, filter=None if filter == "" else filter,
            gcp_length=None if gcp_length == "" else gcp_length, encoding=encoding,
        ),
        scheme, filter, gcp_length, "" if encoding == "auto" else encoding, is_kept,
    )


def element_string(scheme: str, prefix: str, reference: str, serial: str) -> str:
    family = scheme.split("-")[0]
    pieces = ["01", "02"] if family == "itip" else []
    ais = model.keyed_ais(family, [prefix, reference, *pieces, serial])
    return model.Item(ais).form("element_string")


# ---- Plain schemes ----


def digits_in(bits: int) -> int:
    """How many nines a field of bits holds."""
    return len(str(2**bits)) - 1


def samples(what: str) -> list[str]:
    """Values at the borders of what a row of the model says to follow, or to be the reference."""
    kind, _, size = what.partition(" ")
    size = int(size or 0)
    return {
        "": lambda: [""],
        "number": lambda: ["0", "5678", str(2**size - 1)],
        "open": lambda: ["0", "123", "9" * digits_in(size)],
        "one": lambda: ["0", "006789", "9" * digits_in(size - 1)],
        "text": lambda: ["A", "%/&'", "Z" * size],
        "six": lambda: ["1", "123", "5PQ7/Z43"],
    }[kind]()


def number(digits: int) -> str:
    return "".join(generator.choice("0123456789") for _ in range(digits))


def plain_keys(scheme: str, prefix_length: int):
    """(prefix, reference, serial) at the borders of a scheme and at random."""
    if scheme in model.OPEN:
        _, _, reference, rest = model.OPEN[scheme]
        keys = zip(samples(reference), samples(rest) * 3)
    else:
        _, digits, _, rest = model.KEYED[scheme]
        size = digits - prefix_length
        references = ["9" * size, number(size), "0" * size]
        keys = zip(references, samples(rest))
    prefixes = ["0" * prefix_length, "9" * prefix_length, number(prefix_length)]
    for prefix, (reference, serial) in zip(prefixes, keys):
        yield prefix, reference, serial


def plain_rows() -> None:
    details = itertools.cycle(["scheme", "filter", "ais"])
    for scheme, prefix_length in itertools.product(model.KEYED | model.OPEN, range(6, 13)):
        for position, (prefix, reference, serial) in enumerate(plain_keys(scheme, prefix_length)):
            is_kept = (position + prefix_length) % 3 == 0
            filter = generator.randrange(8)
            text = element_string(scheme, prefix, reference, serial)
            value = encode_row("plain", text, scheme, filter, prefix_length)
            if value is None:
                continue
            also = next(details)
            found = decode_rows("plain", value, generator.sample(FORMS, 2), [also])
            expect({"scheme": scheme, "filter": str(filter), "ais": text}[also], found[also], value)
            expect(text, rosetag.convert(value, "element_string"), value)
            uri = rosetag.convert(value, "tag_uri")
            expect(value, add("uri", "hex", uri, lambda: rosetag.convert(uri, "hex")), uri)
            link = add(
                "text", "digital_link", text, lambda: rosetag.convert(text, "digital_link"),
                is_kept=is_kept,
            )
            again = encode_row("link", link, scheme, filter, prefix_length, is_kept=is_kept)
            expect(value, again, link)


def uri_rows() -> None:
    """The schemes that have no GS1 form."""
    for scheme, (_, filters, texts) in model.NO_KEY.items():
        for text, filter in itertools.product(texts, filters):
            head = "" if filter is None else f"{filter}."
            uri = f"urn:epc:tag:{scheme}:{head}{text}"
            value = add("uri", "hex", uri, lambda: rosetag.convert(uri, "hex"))
            if value is not None:
                found = decode_rows("uri", value)
                expect(uri, found["tag_uri"], value)


# ---- Plus schemes ----

ENCODINGS = ["auto", "integer", "hex-upper", "hex-lower", "base64url", "iso646", "code40"]


def plus_rows() -> None:
    for scheme, (_, _, texts) in model.PLUS.items():
        for text, filter in itertools.product(texts, [0, 7]):
            value = encode_row("plus", text, scheme, filter)
            if value is None:
                sys.exit(f"{text} does not go into {scheme}")
            kept = None if filter == 0 else {"tag_uri", "element_string", "scheme", "filter"}
            found = decode_rows("plus", value, kept=kept)
            expect(scheme, found["scheme"], value)
            expect(str(filter), found["filter"], value)
            link = found["digital_link"]
            expect(value, encode_row("link", link, scheme, filter), link)
            barcode = found["barcode_string"]
            expect(value, encode_row("barcode", "]C1" + barcode, scheme, filter), barcode)
    for serial, encoding in itertools.product(["123", "0123", "AB", "ab", "a-B", "A/B"], ENCODINGS):
        encode_row("encoding", f"(01)80614141123458(21){serial}", "sgtin+", 0, "", encoding)


# ---- Single AI values ----

AI_VALUES = {
    "00": "106141412345678908", "01": "80614141123458", "02": "80614141123458",
    "10": "LOT7", "11": "240229", "17": "260400", "20": "07", "21": "ABCG", "22": "2A",
    "235": "X0g,Bz0", "240": "A-1", "242": "000123", "253": "0614141123452ABC",
    "254": "32a/b", "255": "061414112345204711", "30": "12", "3103": "001250", "3202": "999999",
    "37": "20", "3902": "1250", "3912": "9781250", "3922": "1", "3932": "9781", "3941": "0250",
    "3953": "000100", "400": "PO-1", "401": "0614141ABC", "402": "06141411234567894",
    "410": "0614141123452", "414": "0614141123452", "417": "0614141123452", "420": "12345",
    "421": "276AB12", "422": "276", "423": "276250", "426": "840", "427": "NY", "4300": "A%20B",
    "4307": "DE", "4309": "02790858483015297971", "4321": "1", "4324": "2601010830",
    "4326": "260101", "4330": "000123", "4331": "000123-", "7001": "1234567890123",
    "7003": "2601010830", "7004": "1234", "7005": "12.3", "7006": "260101", "7007": "260101260131",
    "7008": "COD", "7011": "2601010830", "7020": "R1", "7023": "0614141ABC", "7030": "276AB12",
    "7040": "1ABC", "710": "PZN1", "7230": "EM123", "7240": "P1", "7241": "10", "7242": "V1",
    "8001": "12345678901234", "8002": "CMT", "8003": "00614141123452A1", "8004": "0614141ABC",
    "8005": "001250", "8006": "806141411234580102", "8007": "DE89370400440532013000",
    "8008": "260101083015", "8009": "OPT", "8010": "0614141ABC", "8011": "12345", "8012": "1.0",
    "8013": "1987654Ad4X4bL5ttr2310c2K", "8017": "061414112345678902", "8018": "061414112345678902",
    "8019": "123", "8020": "REF", "8026": "806141411234580102", "8030": "abc-_", "8110": "123",
    "8111": "0100", "8112": "123", "8200": "https://example.com", "90": "X", "99": "a b"[:1],
}


def ai_rows() -> None:
    for ai, value in AI_VALUES.items():
        for encoding in ["auto", *generator.sample(ENCODINGS[1:], 1)]:
            bits = add(
                "ai", "encode_ai", f"({ai}){value}",
                lambda: rosetag.encode_ai(ai, value, with_code=True, encoding=encoding).hex,
                encoding="" if encoding == "auto" else encoding,
            )
            if bits is None:
                continue
            found = add("ai", "decode_ai", bits, lambda: "({0}){1}".format(*rosetag.decode_ai(bits)))
            if encoding == "auto":
                expect(f"({ai}){value}", found, bits)
    for ai, value in [
        ("01", "80614141123459"), ("17", "261301"), ("17", "26010"), ("10", "A" * 21), ("20", "X1"),
        ("9999", "1"), ("21", "ä"), ("4321", "2"), ("8011", "1234567890123"), ("7003", "2601012530"),
    ]:
        add("ai", "encode_ai", f"({ai}){value}",
            lambda: rosetag.encode_ai(ai, value, with_code=True).hex)


# ---- TIDs ----


def tid_rows() -> None:
    for value in [
        "E2003412", "E280113020001234567890AB", "E2801130200012345678 9ABC".replace(" ", ""),
        "E2806894200050012345678F", "E20034120000000000000000", "E2C0110120000123456789AB",
        "E28011052000", "E2801105", "E0040100", "E2", "", "3074257BF7194E4000001A85", "E28011302001",
    ]:
        def text():
            memory = rosetag.tid(value)
            return f"{memory.designer} {memory.model} {memory.serial or ''}".rstrip()
        add("tid", "tid", value, text)


# ---- What fails, and what people really paste ----

FAILURES = [
    "", " ", "0", "30", "307", "FF74257BF7194E4000001A85", "307C257BF7194E4000001A85",
    "3074257BF7194E40000", "3074257BF7194E4000001A8G", "30FFFFFFFFFFFFFFFFFFFFFF",
    "3174257BF4499602D2000001", "F7", "F70", "E2003412", "hello", "urn:", "urn:epc:",
    "urn:epc:tag:sgtin-96", "urn:epc:tag:sgtin-97:3.0614141.812345.6789",
    "urn:epc:tag:sgtin-96:8.0614141.812345.6789", "urn:epc:tag:sgtin-96:3.0614141.812345",
    "urn:epc:tag:sgtin-96:3.0614141.812345.06789", "urn:epc:tag:sgtin-96:3.0614141.812345.6789x",
    "urn:epc:tag:sgtin-96:3.06141.41812345.6789", "urn:epc:tag:sgtin-96:3.0614141.812345.274877906944",
    "urn:epc:tag:sgtin-198:3.0614141.812345.A%2", "urn:epc:tag:sgtin-198:3.0614141.812345.A B",
    "urn:epc:tag:gid-96:268435456.1.1", "urn:epc:tag:usdod-96:15.CAGEY.1",
    "urn:epc:tag:adi-var:1.IOIOI..A", "urn:epc:id:sgtin:0614141.812345", "urn:epc:id:none:1.2.3",
    "(01)80614141123459", "(01)8061414112345", "(01)80614141123458(21)", "(01)80614141123458(21",
    "(9999)1", "(04)1", "(01)80614141123458(17)261301", "(01)80614141123458(10)ABC(",
    "(01)80614141123458(00)106141412345678908", "()", "(0", "0180614141123459", "]C10180614141123459",
    "]X90180614141123458", "https://example.com/01/80614141123459", "https://example.com/",
    "https://example.com/01/80614141123458/10/%", "https://example.com/01/80614141123458?17=1",
    "(10)LOT7", "(21)A", "]E09506000134352", "]E09506000134353", "9506000134352", "95060001343520",
    "(01)80614141123458(21)" + "A" * 21, "(8008)26010199",
    "(01)80614141123458(01)80614141123458", "".join(f"(91){n}" for n in range(21)), "(4321)2", "(3103)12345",
    "(01)80614141123458(21)\u00e4", "3074257BF7194E4000001A85\t", "0x3074257BF7194E4000001A85",
    "30 74 25 7B F7 19 4E 40 00 00 1A 85", "3074-257B-F719-4E40-0000-1A85",
]
ENCODE_FAILURES = [
    ("(01)80614141123458(21)6789", "sgtin-96", 8, 7), ("(01)80614141123458(21)6789", "sgtin-96", 0, ""),
    ("(01)80614141123458(21)6789", "sgtin-96", 0, 5), ("(01)80614141123458(21)6789", "sgtin-96", 0, 13),
    ("(01)80614141123458(21)A", "sgtin-96", 0, 7), ("(01)80614141123458(21)0123", "sgtin-96", 0, 7),
    ("(01)80614141123458(21)274877906944", "sgtin-96", 0, 7), ("(01)80614141123458", "sgtin-96", 0, 7),
    ("(00)106141412345678908", "sgtin-96", 0, 7), ("(01)80614141123459(21)1", "sgtin-96", 0, 7),
    ("(8003)00614141123452A", "grai-96", 0, 7), ("(8004)0614141ABC", "giai-96", 0, 7),
    ("(01)80614141123458(21)1", "dsgtin+", 0, ""), ("(01)80614141123458", "sgtin+", 0, ""),
    ("(01)80614141123458(21)1(17)261301", "sgtin+", 0, ""), ("(00)106141412345678908", "gid-96", "", 7),
    ("urn:epc:id:sgtin:0614141.812345.6789", "sscc-96", 0, ""),
    ("urn:epc:tag:sgtin-96:3.0614141.812345.6789", "sgtin-198", 3, ""),
    ("(01)80614141123458(21)1(8112)" + "9" * 70 + "(8110)" + "9" * 70, "sgtin+", 0, ""),
    ("(01)80614141123458(21)1(7007)240101241231", "dsgtin+", 0, ""), ("nothing", "sgtin-96", 0, 7), ("", "sgtin-96", 0, 7),
]


def failure_rows() -> None:
    for value in FAILURES:
        decode_rows("odd", value, ["hex", "tag_uri", "element_string", "digital_link", "gtin"])
    for value, scheme, filter, gcp_length in ENCODE_FAILURES:
        encode_row("odd", value, scheme, filter, gcp_length)


    encode_row("odd", "(01)80614141123458(21)1(00)106141412345678908", "sgtin-96", 0, 7)


# ---- Published values ----

# Source: EPC Tag Data Standard, appendix E (examples): tag value, tag URI, element string.
PUBLISHED = [
    ("3074257BF7194E4000001A85", "sgtin-96:3.0614141.812345.6789", "(01)80614141123458(21)6789"),
    ("3174257BF4499602D2000000", "sscc-96:3.0614141.1234567890", "(00)106141412345678908"),
    ("3374257BF40C0E400000162E", "grai-96:3.0614141.12345.5678", "(8003)006141411234525678"),
    ("3874257BF59B2C2BF10000000000000000000000000000000000", "giai-202:3.0614141.32a%2Fb",
     "(8004)061414132a/b"),
    ("3E74F4E4E7039B061438997367D0C18B266D1AB66EE0", "gdti-174:3.4012345.98765.ABCDefgh012345678",
     "(253)4012345987652ABCDefgh012345678"),
    ("3D74257BF75411DEF6B4CC00000003039000", "cpi-var:3.0614141.5PQ7%2FZ43.12345",
     "(8010)06141415PQ7/Z43(8011)12345"),
    ("350007AB70425D4000000586", "gid-96:31415.271828.1414", ""),
    ("2F320434147455900000162E", "usdod-96:3.CAGEY.5678", ""),
    ("4074F4E4E40C0E40820000000F54", "itip-110:3.4012345.012345.01.02.981",
     "(8006)040123451234560102(21)981"),
]


def published_rows() -> None:
    for value, uri, text in PUBLISHED:
        found = decode_rows("published", value, ["tag_uri", "element_string"], [])
        expect("urn:epc:tag:" + uri, found["tag_uri"], value)
        expect(text, found["element_string"], value)
        again = add(
            "published", "hex", "urn:epc:tag:" + uri,
            lambda: rosetag.convert("urn:epc:tag:" + uri, "hex"),
        )
        expect(value, again, uri)
        if text:
            scheme, filter = uri.split(".")[0].split(":")
            expect(value, encode_row("published", text, scheme, int(filter), 7), text)


# ---- Pure identities, rules, and bits field by field ----


def identity_rows() -> None:
    """Each scheme once more, from its pure identity."""
    for scheme in model.KEYED | model.OPEN:
        for prefix_length in (6, 9, 12):
            prefix, reference, serial = next(plain_keys(scheme, prefix_length))
            text = element_string(scheme, prefix, reference, serial)
            value = rosetag.encode(text, scheme, filter=1, gcp_length=prefix_length)
            identity = add(
                "identity", "pure_identity", value,
                lambda: rosetag.convert(value, "pure_identity"),
            )
            expect(value, encode_row("identity", identity, scheme, 1), identity)
            found = add(
                "identity", "element_string", identity,
                lambda: rosetag.convert(identity, "element_string"),
            )
            expect(text, found, identity)


# Values, and what is wrong with them: severity, rule and AI of each finding.
CHECKED = [
    ("(01)80614141123458(21)6789", ""),
    ("(01)80614141123459(21)6789", "error check_digit 01"),
    ("(01)80614141123459(17)261301", "error check_digit 01, error date 17"),
    ("(01)80614141123458(10)A(10)A", "warning repeated_ai 10"),
    ("(01)80614141123458(10)A(10)B", "error repeated_ai 10"),
    ("(9999)1", "error unknown_ai 9999"),
    ("(10)LOT7", "warning needs 10"),
    ("(01)80614141123458(10)", "error empty_value 10"),
    ("(01)80614141123458(10)" + "A" * 21, "error too_long 10"),
    ("(01)80614141123458(4321)2", "error flag 4321, warning needs 4321"),
    ("(01)80614141123458(422)000", "error country_number 422"),
    ("]C10180614141123459", "error check_digit 01"),
    ("https://example.com/01/80614141123458/10/LOT7?17=261301", "error date 17"),
    ("3074257BF7194E4000001A85", ""),
    ("307C257BF7194E4000001A85", "error tag_value"),
    ("urn:epc:tag:sgtin-96:3.0614141.812345.6789", ""),
    ("95060001343520", "error tag_value"),
    ("]E09506000134353", "error check_digit 01"),
    ("hello", "error unknown_form"),
    ("", "error unknown_form"),
]


def check_rows() -> None:
    for value, expected in CHECKED:
        def findings():
            found = rosetag.check(value)
            return ", ".join(f"{row.severity} {row.rule} {row.ai}".rstrip() for row in found)
        expect(expected, add("check", "check", value, findings), value)


EXPLAINED = [
    "3074257BF7194E4000001A85", "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
    "3114257BF4499602D2000000", "350007AB70425D4000000586", "2F320434147455900000162E",
    "4074F4E4E40C0E40820000000F54", "3D74257BF75411DEF6B4CC00000003039000",
    "E28011302000123456789ABC", "(01)80614141123458(21)6789", "hello", "",
]


def explain_rows() -> None:
    for value in EXPLAINED:
        def fields():
            return ", ".join(f"{row.name}={row.bits}" for row in rosetag.explain(value).fields)
        add("explain", "explain", value, fields)


# What no value of a caller leads to, by docs/statuses.md and the toolkit.
UNREACHED = {"NO_KEY_FOR_SCHEME", "KEY_CONFLICT"}


def everything_is_there() -> None:
    statuses = {cells[6].removeprefix("EPC_").removeprefix("ERR_") for cells in rows}
    expect("", " ".join({status.name for status in rosetag.Status} - statuses - UNREACHED), "status")
    schemes = {cells[7] for cells in rows if cells[0] == "scheme"}
    expect("", " ".join({scheme.name for scheme in rosetag.schemes()} - schemes), "scheme")


plain_rows()
uri_rows()
plus_rows()
ai_rows()
tid_rows()
failure_rows()
published_rows()
identity_rows()
check_rows()
explain_rows()
everything_is_there()
lines = ["\t".join(COLUMNS), *("\t".join([number, *cells]) for cells, number in rows.items())]
print(model.check(lines), file=sys.stderr)
print("\n".join(lines))
