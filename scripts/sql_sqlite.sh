#!/usr/bin/env bash
#
# Builds the extension for SQLite and tests it in Debian's shell and in Python's module.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
cd "$root"
cmake --preset release -B build/extensions -DROSETAG_BUILD_SQLITE=ON -DROSETAG_BUILD_TESTS=OFF \
    -DROSETAG_BUILD_TOOLS=OFF -DROSETAG_INSTALL=OFF >build/sql/configure.log
ninja -C build/extensions rosetag_sqlite >&2
exec /usr/bin/python3 bindings/sqlite/tests/test_sqlite.py "$root" \
    build/extensions/bindings/sqlite/mod_rosetag.so
