"""What the functions on single values take, give and refuse."""

import array
import dataclasses
import doctest
import importlib
import inspect
import json
import pickle
import threading

import numpy as np
import pytest
import rosetag

HEX = "3074257BF7194E4000001A85"
WORDS = [int(HEX[i : i + 4], 16) for i in range(0, 24, 4)]


MODULES = ["rosetag", "rosetag._api", "rosetag._errors", "rosetag._gcp_lengths", "rosetag.columns"]


@pytest.mark.parametrize("name", MODULES)
def test_examples_of_the_docs(name):
    result = doctest.testmod(importlib.import_module(name), optionflags=doctest.ELLIPSIS)
    assert result.attempted > 0
    assert result.failed == 0


@pytest.mark.parametrize("function", [rosetag.convert, rosetag.encode])
def test_docs_of_the_quick_functions(function):
    """They are not Python, and have what a Python function has."""
    runner = doctest.DocTestRunner()
    for example in doctest.DocTestFinder().find(function, function.__name__):
        runner.run(example)
    assert runner.summarize().attempted > 1 and runner.failures == 0
    assert {"gcp_length", "bank", "separator"} <= set(inspect.signature(function).parameters)


@pytest.mark.parametrize(
    "value",
    [
        HEX, HEX.lower(), bytes.fromhex(HEX), bytearray.fromhex(HEX), memoryview(bytes.fromhex(HEX)),
        WORDS, tuple(WORDS), array.array("H", WORDS), np.array(WORDS, ">u2"), np.array(WORDS, "<u2"),
        memoryview(bytes.fromhex("".join(HEX[i : i + 2] + "FF" for i in range(0, 24, 2))))[::2],
        np.bytes_(bytes.fromhex(HEX)), np.str_(HEX), [np.uint16(word) for word in WORDS],
    ],
    ids=lambda value: type(value).__name__,
)
def test_a_tag_value_in_every_type(value):
    identity = rosetag.decode(value)
    assert identity.tag_uri == "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
    assert identity.value is value
    assert rosetag.convert(value, to="gtin") == "80614141123458"


def test_an_identity():
    identity = rosetag.decode("(01)80614141123458(21)6789(10)LOT7", gcp_length=7)
    assert identity.form == "element_string"
    assert identity.pure_identity == "urn:epc:id:sgtin:0614141.812345.6789"
    assert identity.hex is identity.scheme is identity.filter is identity.tag_uri is None
    assert [(ai, value) for ai, value, _ in identity.ais] == [
        ("01", "80614141123458"), ("21", "6789"), ("10", "LOT7"),
    ]
    assert identity["10"] == "LOT7" and "10" in identity and "17" not in identity
    assert identity.ais[2].title == "BATCH/LOT"
    with pytest.raises(KeyError):
        identity["17"]
    with pytest.raises(AttributeError):
        identity.gtin = "0"
    assert {field.name for field in dataclasses.fields(identity)} == set(vars(identity))
    assert pickle.loads(pickle.dumps(identity)) == identity
    assert repr(identity).startswith("Identity(value='(01)8061")
    assert "tag_uri" not in identity.as_dict()
    assert "<code>LOT7" not in identity._repr_html_() and "10 LOT7" in identity._repr_html_()


def test_encoding():
    text = "(01)80614141123458(21)6789"
    assert rosetag.encode(text, "sgtin-96", filter=3, gcp_length=7) == HEX
    assert rosetag.encode(text, "sgtin-96", filter=3, gcp_length=7, to="bytes") == bytes.fromhex(HEX)
    plus = rosetag.encode(text, "sgtin+", encoding="iso646")
    assert plus != rosetag.encode(text, "sgtin+")
    assert rosetag.convert(plus, "element_string") == text


@pytest.mark.parametrize(
    ("options", "value", "element_string"),
    [
        ({"as_barcode": True}, "0180614141123458", "(01)80614141123458"),
        ({"separator": "^"}, "018061414112345810LOT7^17251231", "(01)80614141123458(10)LOT7(17)251231"),
        ({"bank": "pc"}, "3000" + HEX, "(01)80614141123458(21)6789"),
        ({"bank": "epc", "separator": None}, HEX, "(01)80614141123458(21)6789"),
        ({"as_barcode": True}, bytes.fromhex(HEX), "(01)80614141123458(21)6789"),
    ],
)
def test_how_a_value_is_read(options, value, element_string):
    assert rosetag.decode(value, **options).element_string == element_string
    assert rosetag.convert(value, "element_string", **options) == element_string
    assert rosetag.check(value, **options) == ()
    plus = rosetag.encode(value, "sgtin+", **options) if "(21)" in element_string else None
    assert plus is None or rosetag.convert(plus, "element_string") == element_string


def test_options_that_do_not_fit_the_value():
    with pytest.raises(rosetag.RosetagError):
        rosetag.decode(HEX, bank="pc")
    with pytest.raises(rosetag.RosetagError):
        rosetag.explain(HEX, bank="crc-pc")
    with pytest.raises(rosetag.RosetagError):
        rosetag.decode("https://example.com/01/9506000134352", strict=True)


XML = """<?xml version="1.0" encoding="UTF-8"?>
<GCPPrefixFormatList date="2026-01-01">
    <entry prefix="0614141" gcpLength="7"/><entry prefix="020" gcpLength="0" further="x"/>
</GCPPrefixFormatList>"""
JSON = json.dumps(
    {"further": 1, "GCPPrefixFormatList": {"date": "2026-01-01", "entry": [
        {"prefix": "0614141", "gcpLength": 7}, {"prefix": "020", "gcpLength": 0, "further": [1]}]}}
)


@pytest.mark.parametrize("content", [XML, "\ufeff" + XML, JSON, "\ufeff" + JSON])
def test_lengths_of_company_prefixes(tmp_path, content):
    path = tmp_path / "list"
    path.write_text(content, "utf-8")
    lengths = pickle.loads(pickle.dumps(rosetag.GcpLengths.load(path)))
    assert dict(lengths) == {"0614141": 7, "020": 0} and len(lengths) == 2
    assert repr(lengths) == "<GcpLengths: 2 entries of 2026-01-01>"
    text, uri = "(01)80614141123458(21)6789", "urn:epc:id:sgtin:0614141.812345.6789"
    assert rosetag.decode(text, gcp_length=lengths).pure_identity == uri
    assert rosetag.convert(text, "pure_identity", gcp_length=lengths) == uri
    assert rosetag.encode(text, "sgtin-96", filter=3, gcp_length=lengths) == HEX
    found = rosetag.check("(01)00200000000004", gcp_length=lengths)
    assert [finding.rule for finding in found] == ["unassigned_prefix"]
    with pytest.raises(rosetag.RosetagError, match="2026-01-01"):
        rosetag.encode("(01)09506000134352(21)1", "sgtin-96", gcp_length=lengths)


@pytest.mark.parametrize(
    ("content", "words"),
    [
        ("", "JSON|Expecting"), ("<GCP", "list"), ("<other/>", "no entry"), ("[]", "list"),
        ('{"GCPPrefixFormatList": {"entry": []}}', "no entry"), ("{}", "GCPPrefixFormatList"),
        (XML.replace("020", "02"), '"02"'), (XML.replace('"0"', '"13"'), '"13"'),
        (XML.replace('"020" gcpLength="0"', '"0614141" gcpLength="8"'), "0614141 has two"),
        (JSON.replace("7}", "7.5}"), "7.5"),
    ],
)
def test_lists_that_are_none(tmp_path, content, words):
    path = tmp_path / "list"
    path.write_text(content)
    with pytest.raises(ValueError, match=words) as caught:
        rosetag.GcpLengths.load(path)
    assert str(path) in str(caught.value)
    with pytest.raises(FileNotFoundError):
        rosetag.GcpLengths.load(tmp_path / "nothing")


def test_an_explanation():
    explanation = rosetag.explain(HEX)
    assert [field.name for field in explanation.fields][:4] == [
        "header", "filter", "partition", "company prefix",
    ]
    assert "".join(field.bits for field in explanation.fields) == explanation.bits
    assert "company prefix" in explanation._repr_html_()
    broken = rosetag.explain("307C257BF7194E4000001A85")
    assert not broken.fields[-1].is_good and broken.fields[-1].name == "partition"
    assert "partition" in broken.failure


def test_statuses():
    """They are written out for those who write programs, and are those of the library."""
    names = []
    while (name := rosetag._core.status_name(len(names))) is not None:
        names.append(name.removeprefix("EPC_").removeprefix("ERR_"))
    assert [(status.name, status.value) for status in rosetag.Status] == [
        (name, number) for number, name in enumerate(names)
    ]


def test_failures():
    with pytest.raises(rosetag.RosetagError) as caught:
        rosetag.decode("(01)80614141123459")
    error = caught.value
    assert isinstance(error, ValueError)
    assert error.status is rosetag.Status.CHECK_DIGIT
    assert error.value == "(01)80614141123459"
    assert error.value[error.position : error.position + error.length] == error.culprit != ""
    copy = pickle.loads(pickle.dumps(error))
    assert (str(copy), copy.status, copy.position) == (str(error), error.status, error.position)


@pytest.mark.parametrize(
    ("call", "kind", "words"),
    [
        (lambda: rosetag.decode(42), TypeError, "16-bit words"),
        (lambda: rosetag.decode(None), TypeError, "16-bit words"),
        (lambda: rosetag.decode([65536]), ValueError, "word 0"),
        (lambda: rosetag.decode([-1]), ValueError, "word 0"),
        (lambda: rosetag.decode(array.array("I", [1])), TypeError, "16-bit words"),
        (lambda: rosetag.decode(np.int64(3)), TypeError, "numpy.int64"),
        (lambda: rosetag.decode(np.float16(3)), TypeError, "numpy.float16"),
        (lambda: rosetag.decode(np.array(5)), TypeError, "16-bit words"),
        (lambda: rosetag.decode([HEX]), TypeError, "rosetag.columns"),
        (lambda: rosetag.decode(rosetag.decode(HEX)), TypeError, "Identity"),
        (lambda: rosetag.decode(HEX.encode()), rosetag.RosetagError, r"value\.decode\(\)"),
        (lambda: rosetag.decode("\ud800"), ValueError, "surrogates"),
        (lambda: rosetag.decode([1, "2"]), TypeError, "item 1"),
        (lambda: rosetag.decode([1 << 80]), ValueError, "word 0"),
        (lambda: rosetag.decode({1}), TypeError, "16-bit words"),
        (lambda: rosetag.tid(1.5), TypeError, "16-bit words"),
        (lambda: rosetag.decode(HEX, gcp_length="7"), TypeError, "GcpLengths"),
        (lambda: rosetag.decode(HEX, gcp_length=7.5), TypeError, "GcpLengths"),
        (lambda: rosetag.decode(HEX, bank=1), TypeError, "bank"),
        (lambda: rosetag.decode(HEX, bank="tid"), ValueError, "crc-pc"),
        (lambda: rosetag.check(HEX, separator=b"^"), TypeError, "separator"),
        (lambda: rosetag.convert(HEX, "hex", separator="\u00e9"), ValueError, "ASCII"),
        (lambda: rosetag.convert(HEX, "hex", separator=""), ValueError, "ASCII"),
        (lambda: rosetag.convert(HEX, 7), TypeError, "to must be"),
        (lambda: rosetag.convert(HEX, "hex", to="hex"), TypeError, "multiple"),
        (lambda: rosetag.convert(HEX, "hex", None), TypeError, "positional"),
        (lambda: rosetag.encode(), TypeError, "text"),
        (lambda: rosetag.encode(HEX, 96), TypeError, "scheme"),
        (lambda: rosetag.encode(HEX, filter="3"), TypeError, "filter"),
        (lambda: rosetag.encode(HEX, filter=1 << 80), rosetag.RosetagError, None),
        (lambda: rosetag.encode(HEX, encoding=None), TypeError, "encoding"),
        (lambda: rosetag.encode_ai(21, "A"), TypeError, "ai must be"),
        (lambda: rosetag.GcpLengths([("0614141", 13)]), ValueError, "13"),
        (lambda: rosetag.GcpLengths([("06\u00e9", 7)]), ValueError, "3 to 12 digits"),
        (lambda: rosetag.convert(HEX, "colour"), ValueError, "tag_uri"),
        (lambda: rosetag.convert(HEX), TypeError, "'to'"),
        (lambda: rosetag.convert(HEX, "hex", nonsense=1), TypeError, "nonsense"),
        (lambda: rosetag.encode(HEX, "sgtin-97"), ValueError, "sgtin-97"),
        (lambda: rosetag.encode(HEX, encoding="ascii"), ValueError, "iso646"),
        (lambda: rosetag.encode(HEX, to="words"), ValueError, "bytes"),
        (lambda: rosetag.decode("a\0b"), rosetag.RosetagError, None),
        (lambda: rosetag.decode("x" * 2_000_000), rosetag.RosetagError, None),
        (lambda: rosetag.decode(b""), rosetag.RosetagError, None),
        (lambda: rosetag.decode(bytes.fromhex("30506000134352")), rosetag.RosetagError, "bits"),
        (lambda: rosetag.decode(bytes(1 << 31)), rosetag.RosetagError, "2147483648"),
    ],
)
def test_what_is_refused(call, kind, words):
    with pytest.raises(kind, match=words):
        call()


def test_threads_at_once():
    failures = []

    def work():
        for number in range(2000):
            value = f"3074257BF7194E40{number:08X}"
            if rosetag.convert(value, "serial") != str(number):
                failures.append(value)
            if rosetag.decode(value).hex != value:
                failures.append(value)
            try:
                rosetag.encode(f"(01)80614141123459(21){number}", "sgtin-96", gcp_length=7)
            except rosetag.RosetagError as error:
                if error.culprit != "9":
                    failures.append(value)

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert failures == []
