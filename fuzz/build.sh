#!/usr/bin/env bash
#
# Builds the fuzzers as OSS-Fuzz does: with its compilers, flags and engine, into $OUT, each with its
# corpus as an archive and with the dictionary. The packages nlohmann-json3-dev, libcsv-dev and
# libpugixml-dev are needed.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${WORK:-$(mktemp -d)}/rosetag

cmake -G Ninja -S "$root" -B "$build" -DCMAKE_C_COMPILER="$CC" -DCMAKE_CXX_COMPILER="$CXX" \
    -DCMAKE_C_FLAGS="${CFLAGS-}" -DCMAKE_CXX_FLAGS="${CXXFLAGS-}" -DBUILD_SHARED_LIBS=OFF \
    -DCMAKE_BUILD_TYPE=Debug -DROSETAG_BUILD_FUZZ=ON -DROSETAG_BUILD_TESTS=OFF \
    -DROSETAG_BUILD_TOOLS=OFF -DROSETAG_FUZZING_ENGINE="$LIB_FUZZING_ENGINE"
cmake --build "$build"
python3 "$root/scripts/fuzz_seeds.py" "$build/seeds"
for program in "$build"/fuzz/*_fuzz; do
    name=$(basename "$program")
    target=${name%_fuzz}
    cp "$program" "$OUT/$name"
    cp "$root/fuzz/rosetag.dict" "$OUT/$name.dict"
    # The archive has its files begin in 1970, where zip knows no time yet.
    tar -xmf "$root/fuzz/corpus/$target.tar.xz" -C "$build/seeds/$target"
    (cd "$build/seeds/$target" && python3 -m zipfile -c "$OUT/${name}_seed_corpus.zip" *)
done
