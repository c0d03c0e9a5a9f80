#!/usr/bin/env bash
#
# Builds and tests the package for JavaScript, and the page on top of it: js.sh build|test
#
# build leaves the package in bindings/js/dist.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root part=${1-test}
cd "$root/bindings/js"

build() {
    if [[ package.json -nt node_modules/.installed ]]; then
        npm install --loglevel=error >&2
        touch node_modules/.installed
    fi
    node build.mjs >&2
}

case $part in
build) build ;;
test)
    build
    node --test --test-reporter=spec test/*.test.mjs
    bash "$root/scripts/page.sh" test
    ;;
*)
    sed -n 's/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
    ;;
esac
