#!/usr/bin/env bash
#
# Builds and tests the SQL functions in all three engines: sql.sh [postgresql|duckdb|sqlite]...
#
# Each engine has a script of its own, whose last line is "N passed, N failed".
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
mkdir -p "$root/build/sql"

engines=("$@")
[[ $# -gt 0 ]] || engines=(sqlite duckdb postgresql)

passed=0 failed=0 status=0
for engine in "${engines[@]}"; do
    script=$root/scripts/sql_$engine.sh
    printf '\n== %s\n' "$engine" >&2
    count=$root/build/sql/$engine.count
    bash "$script" | tee "$count" || status=1
    if [[ $(tail -n 1 "$count") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=$((passed + BASH_REMATCH[1])) failed=$((failed + BASH_REMATCH[2]))
    else
        echo "$engine did not say how many tests ran" >&2
        status=1
    fi
done
echo "$passed passed, $failed failed"
[[ $status -eq 0 && $failed -eq 0 && $passed -gt 0 ]]
