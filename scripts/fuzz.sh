#!/usr/bin/env bash
#
# Builds the fuzzers and runs them: fuzz.sh [SECONDS] [TARGET]
#
# SECONDS is for each target, 60 if not given; TARGET is one of binary, text, tid, value, chain, check
# and lists, or all of them. What a run learns is kept in build/fuzz/corpus and serves the next one. An input that
# fails stays in build/fuzz/failures: run build/fuzz/fuzz/TARGET_fuzz FILE to see it fail again.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
seconds=${1-60}
targets=(binary text tid value chain check lists)
if [[ $# -ge 2 ]]; then
    targets=("$2")
fi
build=$root/build/fuzz

if [[ ! -e $build/build.ninja ]]; then
    (cd "$root" && cmake --preset fuzz) >&2
fi
ninja -C "$build" --quiet >&2
rm -rf "$build/seeds"
python3 "$root/scripts/fuzz_seeds.py" "$build/seeds"

# The library allocates nothing: what the sanitizer would keep of freed memory is the fuzzers' own.
export ASAN_OPTIONS=quarantine_size_mb=1:malloc_context_size=0

run() {
    local target=$1 log=$build/$1.log
    local program=$build/fuzz/${target}_fuzz
    if [[ ! -x $program ]]; then
        echo "There is no target $target. Take one of: binary, text, tid, value, chain, check, lists." >&2
        return 2
    fi
    mkdir -p "$build/corpus/$target" "$build/failures"
    if ! "$program" -max_total_time="$seconds" -max_len=2000 -timeout=10 -print_final_stats=1 \
        -dict="$root/fuzz/rosetag.dict" -artifact_prefix="$build/failures/$target-" \
        "$build/corpus/$target" "$build/seeds/$target" >"$log" 2>&1; then
        grep -E -m 3 'does not hold|ERROR|runtime error' "$log" || tail -n 5 "$log"
        printf '%-7s FAILED: see %s\n' "$target" "$log"
        return 1
    fi
    local executions edges
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    edges=$(sed -n 's/.*DONE *cov: \([0-9]*\).*/\1/p' "$log")
    printf '%-7s %10d executions, %5d edges covered\n' "$target" "$executions" "$edges"
}

status=0
for target in "${targets[@]}"; do
    run "$target" || status=1
done
exit $status
