#!/usr/bin/env bash
#
# The page in web/: page.sh build|serve|test|picture
#
# build leaves it in build/web, serve [PORT] shows it, test drives it in Chromium and leaves pictures
# in build/pictures, picture takes the one for the README anew.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root part=${1-test}
cd "$root/web"

build() {
    bash "$root/scripts/js.sh" build
    if [[ ! -e node_modules/.installed || package.json -nt node_modules/.installed ]]; then
        npm install --loglevel=error >&2
        touch node_modules/.installed
    fi
    npm run --silent build >&2
}

tests() {
    local log=$root/build/page-test.log status=0
    node --test --test-concurrency=2 --test-reporter=spec "$@" | tee "$log" || status=$?
    awk '$2 == "pass" { passed = $3 } $2 == "fail" { failed = $3 }
        END { printf "page: %d passed, %d failed\n", passed, failed }' "$log"
    return "$status"
}

case $part in
build) build ;;
serve)
    build
    exec node serve.mjs "${@:2}"
    ;;
test)
    build
    tests tests/*.test.mjs
    ;;
picture)
    build
    tests tests/pictures.test.mjs
    cp "$root/build/pictures/page.png" "$root/docs/page.png"
    ;;
*)
    sed -n 's/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
    ;;
esac
