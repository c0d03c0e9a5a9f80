#!/usr/bin/env bash
#
# Holds the library against an earlier one: witness.sh [REVISION] [CALLS] [SEED]
#
# Builds the library as it was at REVISION (the last release if not given; or the path of a shared
# library), and calls all exports of both with the same random inputs, 10 million times if not said
# otherwise. Every status and every byte of the caller's storage must be the same.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
release=$root/build/release
before=${1-}

if [[ ! -f $before ]]; then
    if [[ -z $before ]]; then
        before=$(git -C "$root" describe --tags --abbrev=0 2>/dev/null) || {
            echo "There is no release yet: name a revision." >&2
            exit 2
        }
    fi
    commit=$(git -C "$root" rev-parse --short=12 "$before^{commit}")
    folder=$root/build/witness/$commit
    if [[ ! -e $folder/build/librosetag.so ]]; then
        mkdir -p "$folder/source"
        git -C "$root" archive "$commit" | tar -x -C "$folder/source"
        cmake -S "$folder/source" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
            -DROSETAG_BUILD_TESTS=OFF -DROSETAG_BUILD_TOOLS=OFF -DROSETAG_INSTALL=OFF >&2
        ninja -C "$folder/build" --quiet rosetag >&2
    fi
    before=$folder/build/librosetag.so
fi
echo "before: $(realpath "$before")"
exec "$release/tests/witness/rosetag_witness" "$before" "$release/librosetag.so" "${@:2}"
