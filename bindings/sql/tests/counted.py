"""Runs the tests of a script and says on the last line how many passed."""

import sys
import unittest


def main(arguments):
    program = unittest.main("__main__", argv=[sys.argv[0], *arguments], exit=False)
    result = program.result
    # Cases within a test count as that test.
    failed = len({getattr(test, "test_case", test).id()
                  for test, _ in result.failures + result.errors})
    print(f"{result.testsRun - failed - len(result.skipped)} passed, {failed} failed", flush=True)
    sys.exit(not result.wasSuccessful())
