"""The types of the package, and those that a program sees."""

import subprocess
import sys
from pathlib import Path
from typing import get_args

import pytest
import rosetag
from rosetag import _api

ROOT = Path(__file__).parents[3]
CONFIGURATION = ["--config-file", str(ROOT / "pyproject.toml")]

PROGRAM = """
from typing import assert_type
import rosetag

item = rosetag.decode(b"0", gcp_length=rosetag.GcpLengths([]), bank="pc")
assert_type(item.filter, int | None)
assert_type([ai.value for ai in item.ais], list[str])
assert_type(rosetag.convert([1, 2], to="gtin"), str | None)
assert_type(rosetag.encode("", "sgtin-96", filter=3), str)
assert_type(rosetag.encode("", to="bytes"), bytes)
assert_type(rosetag.columns.check(item, "status"), rosetag.columns.Columns)
rosetag.convert("", to="colour")
rosetag.decode("", bank=1)
rosetag.encode(7)
"""


def run(tool: str, *arguments: str) -> tuple[int, str]:
    command = [sys.executable, "-m", tool, *arguments]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.returncode, done.stdout


def test_the_package(tmp_path):
    cache = ["--cache-dir", str(tmp_path)]
    assert run("mypy", *CONFIGURATION, *cache, "-p", "rosetag") == (
        0, "Success: no issues found in 8 source files\n"
    )


def test_the_stubs_of_the_extension():
    status, said = run("mypy.stubtest", "rosetag._core", "--mypy-config-file", CONFIGURATION[1])
    assert status == 0, said


def test_a_program(tmp_path):
    program = tmp_path / "program.py"
    program.write_text(PROGRAM)
    status, said = run("mypy", *CONFIGURATION, "--cache-dir", str(tmp_path), str(program))
    first_wrong = PROGRAM.splitlines().index('rosetag.convert("", to="colour")') + 1
    lines = [int(line.split(":")[-3]) for line in said.splitlines() if ": error:" in line]
    assert status == 1 and set(lines) == {first_wrong, first_wrong + 1, first_wrong + 2}, said


@pytest.mark.parametrize(
    "words, call",
    [
        (_api.TextForm, lambda: rosetag.convert("30", "colour")),
        (_api.Encoding, lambda: rosetag.encode("(00)1", encoding="colour")),
        (_api.Bank, lambda: rosetag.decode("30", bank="colour")),
    ],
    ids=["forms", "encodings", "banks"],
)
def test_the_words_are_those_of_the_library(words, call):
    with pytest.raises(ValueError, match="there is no .* 'colour'") as refusal:
        call()
    assert str(refusal.value).partition("; there are ")[2].split(", ") == list(get_args(words))
