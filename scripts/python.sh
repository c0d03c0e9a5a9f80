#!/usr/bin/env bash
#
# Tests the Python package as its users get it: python.sh values|spark
#
# Builds the sdist, the wheel from it, and installs that into an environment of its own under
# build/python. A run whose sources have not changed since they were last found good says so and
# ends.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root part=$1
readonly folder=$root/build/python
mkdir -p "$folder"
cd "$root"

digest=$(find CMakeLists.txt pyproject.toml bindings/python cmake docs/python.md docs/spark.md \
    include src toolkit vectors scripts/python.sh -type f -not -path '*/__pycache__/*' -print0 |
    sort -z | xargs -0 sha256sum | sha256sum | cut -d ' ' -f 1)
readonly digest good=$folder/$part.good
if [[ -z ${CI-} && -f $good && $(head -n 1 "$good") == "$digest" ]]; then
    echo "Nothing has changed since this was found good." >&2
    tail -n 1 "$good"
    exit
fi

if [[ ! -f $folder/wheel.digest || $(<"$folder/wheel.digest") != "$digest" ]]; then
    rm -rf "$folder/environment" "$folder/dist"
    python3 -m venv "$folder/environment"
    "$folder/environment/bin/pip" install --quiet --disable-pip-version-check build
    "$folder/environment/bin/python" -m build --outdir "$folder/dist" . >"$folder/build.log" 2>&1 || {
        tail -n 40 "$folder/build.log" >&2
        echo "The wheel could not be built: $folder/build.log" >&2
        exit 1
    }
    wheel=("$folder"/dist/*.whl)
    "$folder/environment/bin/pip" install --quiet --disable-pip-version-check "${wheel[0]}[test]"
    echo "$digest" >"$folder/wheel.digest"
fi

tests=(--ignore=bindings/python/tests/test_spark.py)
if [[ $part == spark ]]; then
    wheel=("$folder"/dist/*.whl)
    "$folder/environment/bin/pip" install --quiet --disable-pip-version-check "${wheel[0]}[spark]"
    # Spark wants an older pandas, whose columns are others.
    tests=(bindings/python/tests/test_spark.py bindings/python/tests/test_columns.py)
fi
status=0
"$folder/environment/bin/pytest" --junitxml="$folder/$part.xml" "${tests[@]}" || status=$?
"$folder/environment/bin/python" - "$folder/$part.xml" >"$folder/$part.count" <<'COUNT'
import sys
import xml.etree.ElementTree as tree

suite = tree.parse(sys.argv[1]).getroot()[0]
failed = int(suite.get("failures")) + int(suite.get("errors"))
print(f"{int(suite.get('tests')) - failed - int(suite.get('skipped'))} passed, {failed} failed")
COUNT
cat "$folder/$part.count"
if [[ $status -eq 0 ]]; then
    cat - "$folder/$part.count" <<<"$digest" >"$good"
fi
exit "$status"
