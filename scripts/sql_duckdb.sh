#!/usr/bin/env bash
#
# Builds the extension for DuckDB, once, and tests it in the oldest and the newest DuckDB that it is
# for, from PyPI, and in that of npm.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root folder=$root/build/sql
# The header comes with the package of this version; later versions of DuckDB take what it makes.
readonly header_version=1.4.4
readonly python_versions=(1.3.2 2.0.0) node_version=1.5.6-r.1 shell_version=1.5.6
mkdir -p "$folder"
cd "$root"

if [[ ! -f $folder/include/duckdb_extension.h ]]; then
    (cd "$folder" && npm pack --silent "duckdb@$header_version" >/dev/null &&
        tar -xzf "duckdb-$header_version.tgz" --strip-components=4 \
            package/src/duckdb/src/include/duckdb.h \
            package/src/duckdb/src/include/duckdb_extension.h)
fi
# fetched FOLDER PACKAGE: an environment of Python that has a package of PyPI.
fetched() {
    [[ -f $folder/$1/done ]] || {
        python3 -m venv --clear "$folder/$1"
        "$folder/$1/bin/pip" install --quiet --disable-pip-version-check "$2"
        touch "$folder/$1/done"
    }
}
for version in "${python_versions[@]}"; do
    fetched "duckdb-$version" "duckdb==$version"
done
fetched duckdb-shell "duckdb-cli==$shell_version"
if [[ ! -f $folder/node/package.json ]]; then
    npm install --silent --prefix "$folder/node" "@duckdb/node-api@$node_version" >&2
fi

cmake --preset release -B build/extensions -DROSETAG_BUILD_SQLITE=ON -DROSETAG_BUILD_DUCKDB=ON \
    -DDUCKDB_EXTENSION_INCLUDE_DIR="$folder/include" -DROSETAG_BUILD_TESTS=OFF \
    -DROSETAG_BUILD_TOOLS=OFF -DROSETAG_INSTALL=OFF >"$folder/configure.log"
ninja -C build/extensions rosetag_duckdb rosetag_duckdb_asan >&2
readonly extension=build/extensions/bindings/duckdb/rosetag.duckdb_extension
readonly extension_asan=build/extensions/bindings/duckdb/asan/rosetag.duckdb_extension

passed=0 failed=0 status=0
# counted COMMAND...: runs it and adds what its last line says.
counted() {
    "$@" | tee "$folder/part.count" || status=1
    if [[ $(tail -n 1 "$folder/part.count") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=$((passed + BASH_REMATCH[1])) failed=$((failed + BASH_REMATCH[2]))
    else
        status=1
    fi
}
for version in "${python_versions[@]}"; do
    echo "DuckDB $version of PyPI" >&2
    counted "$folder/duckdb-$version/bin/python" bindings/duckdb/tests/test_duckdb.py "$root" \
        "$extension"
done
echo "DuckDB $node_version of npm" >&2
counted node bindings/duckdb/tests/test_node.mjs "$root" "$folder/node" \
    "$extension"
echo "DuckDB's shell $shell_version" >&2
counted python3 bindings/duckdb/tests/test_pages.py "$root" "$extension" \
    "$folder/duckdb-shell/bin/duckdb"

# Python and DuckDB have leaks of their own, which are not counted. DuckDB throws exceptions, for
# which the sanitizer wants to find the C++ runtime from the start.
echo "DuckDB ${python_versions[1]} of PyPI, the extension with AddressSanitizer" >&2
readonly leaks=$folder/leaks
rm -f "$leaks".*
counted env LD_PRELOAD="$(g++ -print-file-name=libasan.so) $(g++ -print-file-name=libstdc++.so.6)" \
    ASAN_OPTIONS="detect_leaks=1:exitcode=0:log_path=$leaks" \
    "$folder/duckdb-${python_versions[1]}/bin/python" bindings/duckdb/tests/test_duckdb.py "$root" \
    "$extension_asan" DuckDb.test_shared_rows_as_columns DuckDb.test_rules \
    DuckDb.test_nested_results DuckDb.test_one_connection_for_each_thread
if grep -s -e 'AddressSanitizer: [a-z]' -e ' \(bindings\|toolkit\|src\)/' "$leaks".* >&2; then
    echo "the extension leaks memory, or goes beyond its own" >&2
    failed=$((failed + 1))
else
    passed=$((passed + 1))
fi
echo "$passed passed, $failed failed"
[[ $status -eq 0 && $failed -eq 0 ]]
