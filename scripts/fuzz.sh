#!/usr/bin/env bash
#
# Builds the fuzzers and runs them:
#
#   fuzz.sh [SECONDS] [TARGET]   each target, or this one, for that many seconds (60)
#   fuzz.sh minimise [TARGET]    packs what the runs have found, as far as it reaches something of its
#                                own, into fuzz/corpus
#
# A run begins with the inputs of fuzz/corpus. What it learns is kept in build/fuzz/corpus and serves
# the next one. An input that fails stays in build/fuzz/failures: run build/fuzz/fuzz/TARGET_fuzz FILE
# to see it fail again; with the fix, move it to build/fuzz/corpus/TARGET and minimise.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/fuzz
work=${1-60}
targets=(binary text tid value chain recognise explain check lists tables columns)
if [[ $# -ge 2 ]]; then
    if [[ " ${targets[*]} " != *" $2 "* ]]; then
        echo "There is no target $2. Take one of: ${targets[*]}." >&2
        exit 2
    fi
    targets=("$2")
fi

if [[ ! -e $build/build.ninja ]]; then
    (cd "$root" && cmake --preset fuzz) >&2
fi
ninja -C "$build" --quiet >&2
rm -rf "$build/seeds" "$build/kept"
python3 "$root/scripts/fuzz_seeds.py" "$build/seeds"
for target in "${targets[@]}"; do
    mkdir -p "$build/kept/$target" "$build/corpus/$target" "$build/failures"
    tar -xf "$root/fuzz/corpus/$target.tar.xz" -C "$build/kept/$target"
done

# The library allocates nothing: what the sanitizer would keep of freed memory is the fuzzers' own.
export ASAN_OPTIONS=quarantine_size_mb=1:malloc_context_size=0

# Longer inputs of most targets show nothing new.
max_len() {
    case $1 in
    lists | tables) echo 1000 ;;
    *) echo 400 ;;
    esac
}

run() {
    local target=$1 log=$build/$1.log
    if ! "$build/fuzz/${target}_fuzz" -max_total_time="$work" -max_len=2000 -timeout=10 \
        -print_final_stats=1 -dict="$root/fuzz/rosetag.dict" \
        -artifact_prefix="$build/failures/$target-" \
        "$build/corpus/$target" "$build/seeds/$target" "$build/kept/$target" >"$log" 2>&1; then
        grep -E -m 3 'does not hold|ERROR|runtime error' "$log" || tail -n 5 "$log"
        printf '%-9s FAILED: see %s\n' "$target" "$log"
        return 1
    fi
    local executions edges
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    edges=$(sed -n 's/.*DONE *cov: \([0-9]*\).*/\1/p' "$log")
    printf '%-9s %10d executions, %5d edges covered\n' "$target" "$executions" "$edges"
}

# The smallest inputs that reach what all of them reach.
minimise() {
    local target=$1 kept=$build/minimised/$1 archive=$root/fuzz/corpus/$1.tar.xz
    rm -rf "$kept" && mkdir -p "$kept"
    "$build/fuzz/${target}_fuzz" -merge=1 -max_len="$(max_len "$target")" "$kept" \
        "$build/kept/$target" "$build/corpus/$target" "$build/seeds/$target" >"$build/$target.log" 2>&1
    # The same inputs are the same file.
    tar --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner -cJf "$archive" -C "$kept" .
    printf '%-9s %5d inputs\n' "$target" "$(find "$kept" -type f | wc -l)"
}

status=0
for target in "${targets[@]}"; do
    if [[ $work == minimise ]]; then
        minimise "$target" || status=1
    else
        run "$target" || status=1
    fi
done
exit $status
