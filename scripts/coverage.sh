#!/usr/bin/env bash
#
# Prints the lines and branches of the library that the unit tests run, file by file, and what is
# missing: coverage.sh
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/coverage

(cd "$root" && cmake --preset coverage &&
    cmake --build --preset coverage --target unit_tests -- --quiet) >&2
find "$build" -name '*.gcda' -delete
"$build/tests/unit_tests" --gtest_brief=1 >&2

# Branches that the compiler makes for exceptions are not in the sources.
report() {
    gcovr --root "$root" --filter "$root/src/" --exclude-throw-branches \
        --exclude-unreachable-branches --sort-percentage "$@" \
        "$build/CMakeFiles/rosetag_objects.dir" "$build/tests"
}
echo "Lines:"
report
echo
echo "Branches:"
report --branches
