"""The examples of the pages on Python run as they are."""

import doctest
from pathlib import Path

import pytest

ROOT = Path(__file__).parents[3]


@pytest.mark.parametrize("page", ["docs/python.md", "bindings/python/README.md"])
def test_examples_of_a_page(page):
    result = doctest.testfile(str(ROOT / page), module_relative=False)
    assert result.attempted > 1
    assert result.failed == 0
