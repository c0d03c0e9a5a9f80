#!/usr/bin/env bash
#
# Looks for faults by other means than the tests' own, and says what each finds:
# analyze.sh [CHECK...]
#
# CHECK is one of
#   cppcheck    the library, the command, fuzzers, benchmarks and examples
#   fanalyzer   g++ -fanalyzer over the library
#   clang-tidy  the library, the command and the tests, by the checks of .clang-tidy
#   frames      the stack frames of the library's functions, which must all be of a known size
#   integers    the tests on a library in which no number may wrap or be cut unasked
#   threads     the library and the command on many threads, with ThreadSanitizer
# or all of them. What a check finds is a failure.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
checks=("$@")
if [[ $# -eq 0 ]]; then
    checks=(cppcheck fanalyzer clang-tidy frames integers threads)
fi
mkdir -p build

check_cppcheck() {
    cppcheck --std=c++20 --language=c++ --enable=warning,performance,portability --inline-suppr \
        --error-exitcode=1 --quiet --suppressions-list=cmake/cppcheck-suppressions.txt \
        -I include -I src -I toolkit -I command src toolkit command fuzz bench examples
}

check_fanalyzer() {
    local file
    for file in src/*/*.cpp; do
        g++ -std=c++20 -O1 -fno-exceptions -fno-rtti -fanalyzer -Werror -I include -I src \
            -c "$file" -o /dev/null || return 1
    done
}

# The preset of the sanitizers compiles with clang-tidy, and a finding is an error.
check_clang-tidy() {
    cmake --preset asan && cmake --build --preset asan --clean-first
}

# What -fstack-usage says of a function: its place, its frame in bytes, and of what kind it is.
check_frames() {
    local file usage=build/analyze-frames
    rm -rf "$usage" && mkdir -p "$usage"
    for file in src/*/*.cpp; do
        g++ -std=c++20 -O3 -fPIC -fno-exceptions -fno-rtti -fstack-usage -I include -I src \
            -c "$file" -o "$usage/$(basename "$file" .cpp).o" || return 1
    done
    sort -t $'\t' -k 2,2nr "$usage"/*.su >"$usage/all" && [[ -s $usage/all ]] || return 1
    head -n 1 "$usage/all"
    ! grep $'\tdynamic$' "$usage/all" # "dynamic,bounded" is of a known size
}

run_tests() {
    cmake --preset "$1" && cmake --build --preset "$1" && ctest --preset "$1" "${@:2}"
}

check_integers() {
    run_tests integer -R '^(unit|contract)\.'
}

check_threads() {
    run_tests tsan -R '^contract\.State|^command\.streams$'
}

status=0
for check in "${checks[@]}"; do
    log=build/analyze-$check.log
    if ! declare -F "check_$check" >/dev/null; then
        echo "There is no check $check. Take of: cppcheck, fanalyzer, clang-tidy," \
            "frames, integers, threads." >&2
        exit 2
    fi
    if "check_$check" >"$log" 2>&1; then
        echo "$check: nothing found"
        if [[ $check == frames ]]; then
            sed 's/^/    the largest: /' "$log"
        fi
    else
        tail -n 20 "$log"
        echo "$check: FAILS, see $log"
        status=1
    fi
done
exit $status
