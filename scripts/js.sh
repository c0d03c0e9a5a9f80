#!/usr/bin/env bash
#
# Builds and tests the package for JavaScript, and the page on top of it: js.sh build|test|bench
#
# build leaves the package in bindings/js/dist; bench measures it beside native calls, for which the
# toolkit must stand in build/release.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root part=${1-test}
cd "$root/bindings/js"

build() {
    if [[ ! -e node_modules/.installed || package.json -nt node_modules/.installed ]]; then
        npm install --loglevel=error >&2
        touch node_modules/.installed
    fi
    node build.mjs >&2
}

tests() {
    local log=$root/build/js/test.log status=0
    node --test --test-reporter=spec test/*.test.mjs | tee "$log" || status=$?
    awk '$2 == "pass" { passed = $3 } $2 == "fail" { failed = $3 }
        END { printf "package: %d passed, %d failed\n", passed, failed }' "$log"
    return "$status"
}

bench() {
    g++ -std=c++20 -O2 -I"$root/include" bench/native.cpp \
        "$root/build/release/toolkit/librosetag_toolkit.a" -o "$root/build/js/native"
    node bench/bench.mjs "$root/build/js/native"
}

case $part in
build) build ;;
test)
    build
    tests
    bash "$root/scripts/page.sh" test
    ;;
bench)
    build
    bench
    ;;
*)
    sed -n 's/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
    ;;
esac
