"""What the functions on single values take, give and refuse."""

import array
import doctest
import importlib
import pickle
import threading

import pytest
import rosetag

HEX = "3074257BF7194E4000001A85"
WORDS = [int(HEX[i : i + 4], 16) for i in range(0, 24, 4)]


@pytest.mark.parametrize("name", ["rosetag", "rosetag._api", "rosetag._errors", "rosetag.columns"])
def test_examples_of_the_docs(name):
    result = doctest.testmod(importlib.import_module(name), optionflags=doctest.ELLIPSIS)
    assert result.attempted > 0
    assert result.failed == 0


@pytest.mark.parametrize(
    "value",
    [
        HEX, HEX.lower(), bytes.fromhex(HEX), bytearray.fromhex(HEX), memoryview(bytes.fromhex(HEX)),
        WORDS, tuple(WORDS), array.array("H", WORDS),
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
    assert "tag_uri" not in identity.as_dict()
    assert "<code>LOT7" not in identity._repr_html_() and "10 LOT7" in identity._repr_html_()


def test_encoding():
    text = "(01)80614141123458(21)6789"
    assert rosetag.encode(text, "sgtin-96", filter=3, gcp_length=7) == HEX
    assert rosetag.encode(text, "sgtin-96", filter=3, gcp_length=7, to="bytes") == bytes.fromhex(HEX)
    plus = rosetag.encode(text, "sgtin+", encoding="iso646")
    assert plus != rosetag.encode(text, "sgtin+")
    assert rosetag.convert(plus, "element_string") == text


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
        (lambda: rosetag.decode("\ud800"), ValueError, "surrogates"),
        (lambda: rosetag.decode(HEX, gcp_length="7"), TypeError, "gcp_length"),
        (lambda: rosetag.convert(HEX, "colour"), ValueError, "tag_uri"),
        (lambda: rosetag.convert(HEX), TypeError, "form"),
        (lambda: rosetag.convert(HEX, "hex", nonsense=1), TypeError, "nonsense"),
        (lambda: rosetag.encode(HEX, "sgtin-97"), ValueError, "sgtin-97"),
        (lambda: rosetag.encode(HEX, encoding="ascii"), ValueError, "iso646"),
        (lambda: rosetag.encode(HEX, to="words"), ValueError, "bytes"),
        (lambda: rosetag.decode("a\0b"), rosetag.RosetagError, None),
        (lambda: rosetag.decode("x" * 2_000_000), rosetag.RosetagError, None),
        (lambda: rosetag.decode(b""), rosetag.RosetagError, None),
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

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert failures == []
