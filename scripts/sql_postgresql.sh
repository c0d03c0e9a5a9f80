#!/usr/bin/env bash
#
# Builds the extension for PostgreSQL, and tests it in a server of its own: sql_postgresql.sh [bench]
#
# The server stands in a folder of its own, listens on a socket there, and is gone at the end. The
# extension is not installed into the system: Debian's server also looks for extensions below
# extension_destdir. The last line is "N passed, N failed".
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
readonly folder=$root/build/sql/postgresql source=$root/bindings/postgresql
# Where the toolkit is installed; it is built there if nothing is said.
readonly prefix=${ROSETAG_PREFIX-$root/build/sql/prefix}
readonly pg_config=${PG_CONFIG-/usr/lib/postgresql/15/bin/pg_config}
bindir=$("$pg_config" --bindir)
readonly bindir
passed=0 failed=0

say() {
    printf '%s\n' "$*" >&2
}

# counted NAME COMMAND...: runs the command in a shell that stops at an error.
counted() {
    local name=$1 log=$folder/$1.log
    shift
    if (set -e; "$@") >"$log" 2>&1; then
        passed=$((passed + 1))
        say "ok: $name"
    else
        failed=$((failed + 1))
        tail -n 30 "$log" >&2
        say "FAILED: $name"
    fi
}

# PostgreSQL does not run as root.
as_server() {
    if [[ $EUID -eq 0 ]]; then
        runuser -u postgres -- "$@"
    else
        "$@"
    fi
}

# In the folder where the other extensions are built, too.
build_toolkit() {
    local component
    (cd "$root" && cmake --preset release -B build/extensions -DROSETAG_BUILD_TESTS=OFF \
        -DROSETAG_BUILD_TOOLS=OFF -DROSETAG_INSTALL=ON) &&
        ninja -C "$root/build/extensions" rosetag rosetag_toolkit rosetag_lists &&
        for component in development toolkit; do
            cmake --install "$root/build/extensions" --component "$component" --prefix "$prefix"
        done
}

in_build() {
    mkdir -p "$folder/build"
    make -C "$folder/build" -f "$source/Makefile" --no-print-directory PG_CONFIG="$pg_config" \
        ROSETAG_PREFIX="$prefix" "$@"
}

logged() {
    local log=$folder/$1.log
    shift
    "$@" >"$log" 2>&1 || {
        tail -n 40 "$log" >&2
        say "This failed: $*. All of its output is in $log"
        return 1
    }
}

mkdir -p "$folder"
[[ -n ${ROSETAG_PREFIX-} ]] || logged toolkit build_toolkit
logged build in_build

# The server, and what it reads, where its user may read them.
server=$(mktemp -d /tmp/rosetag-postgresql.XXXXXX)
stop_server() {
    if [[ -n ${starter-} ]]; then
        # The server's own process: what started it does not pass signals on.
        kill -INT "$(head -n 1 "$server/data/postmaster.pid")" 2>/dev/null || kill "$starter" || true
        wait "$starter" || true
        starter=
    fi
}
trap 'stop_server; rm -rf -- "$server"' EXIT
chmod 755 "$server"
logged install in_build install DESTDIR="$server/root"
cp "$root/vectors/rosetag.tsv" "$server/"
chmod -R a+rX "$server"
mkdir "$server/data"
[[ $EUID -ne 0 ]] || chown postgres "$server" "$server/data"
logged initdb as_server "$bindir/initdb" -D "$server/data" -A trust -U postgres -E UTF8 \
    --locale=C.UTF-8 --no-sync

readonly settings=(-c fsync=off -c autovacuum=off -c log_min_duration_statement=300 -c "extension_destdir=$server/root")
export PGHOST=$server PGUSER=postgres PGDATABASE=postgres PGPORT=5432

start_server() {
    as_server env LD_PRELOAD="${preload-}" "$bindir/postgres" -D "$server/data" -k "$server" -c listen_addresses= \
        "${settings[@]}" >"$folder/server.log" 2>&1 &
    starter=$!
    for _ in {1..100}; do
        "$bindir/pg_isready" -q && return
        sleep 0.1
    done
    tail -n 20 "$folder/server.log" >&2
    say "The server does not start: $folder/server.log"
    return 1
}

# The files below sql/, each compared with its output below expected/.
test_regress() {
    in_build installcheck ROSETAG_VECTORS="$server/rosetag.tsv" >"$folder/regress.log" 2>&1 || true
    cat "$folder/regress.log" >&2
    local good bad
    good=$(grep -cE '^test .* \.\.\. ok|^ok ' "$folder/regress.log" || true)
    bad=$(grep -cE '^test .* \.\.\. FAILED|^not ok ' "$folder/regress.log" || true)
    [[ ! -s $folder/build/regression.diffs || $bad -eq 0 ]] ||
        cat "$folder/build/regression.diffs" >&2
    passed=$((passed + good)) failed=$((failed + bad))
    [[ $((good + bad)) -gt 0 ]] || { failed=$((failed + 1)); say "No regression test ran."; }
}

if [[ ${1-} == bench ]]; then
    start_server
    bash "$source/bench.sh" "$prefix"
    exit
fi

expect() {
    local expected=$1 found
    shift
    found=$(psql -XAtq "$@" 2>&1) || true
    [[ $found == "$expected" ]] || {
        printf 'expected: %s\nfound:    %s\n' "$expected" "$found"
        return 1
    }
}

# A version that does not exist yet: what stands on the functions outlasts the way to it.
test_update() {
    local scripts
    scripts=$server/root$("$pg_config" --sharedir)/extension
    echo "COMMENT ON FUNCTION epc_gtin(text) IS 'the GTIN of the next version';" \
        >"$scripts/rosetag--1.0--next.sql"
    expect '' -c 'CREATE DATABASE updated'
    expect '' -d updated -c 'CREATE EXTENSION rosetag' \
        -c "CREATE TABLE reads AS SELECT '3074257BF7194E4000001A85' AS epc" \
        -c 'CREATE INDEX ON reads (epc_gtin(epc))' -c "ALTER EXTENSION rosetag UPDATE TO 'next'"
    expect 'next|80614141123458|the GTIN of the next version' -d updated -c \
        "SET enable_seqscan = off" -c "SELECT extversion, epc_gtin(epc),
             obj_description('epc_gtin(text)'::regprocedure, 'pg_proc')
           FROM pg_extension, reads WHERE extname = 'rosetag' AND epc_gtin(epc) = '80614141123458'"
    rm "$scripts/rosetag--1.0--next.sql"
    # A dump brings tables, indexes and the extension to another database.
    expect '' -c 'CREATE DATABASE restored'
    echo "CREATE EXTENSION rosetag; $(pg_dump updated | grep -v '^CREATE EXTENSION')" |
        psql -Xq -v ON_ERROR_STOP=1 -d restored
    expect 1 -d restored -c "SELECT count(*) FROM reads WHERE epc_gtin(epc) = '80614141123458'"
}

# Allocations of C++ that fail are errors of PostgreSQL, and the session goes on.
test_no_memory() {
    expect $'ERROR:  out of memory\nERROR:  out of memory\n80614141123458' -d contrib_regression \
        -c "SELECT epc_status('(01)80614141123458(21)' || repeat('9', 300000))" \
        -c "SELECT epc_decode(repeat('30', 150000)::bytea)" \
        -c "SELECT epc_gtin('3074257BF7194E4000001A85')"
}

# One session in one process: nothing of the extension reads or writes what it may not, or is lost.
test_valgrind() {
    local report=$server/valgrind.report
    sed "s|:file|'$server/rosetag.tsv'|" "$source/tests/valgrind.sql" |
        as_server valgrind --leak-check=full --show-leak-kinds=definite,possible --num-callers=40 \
            --log-file="$report" "$bindir/postgres" --single -D "$server/data" -c jit=off \
            "${settings[@]}" contrib_regression
    grep -q 'ERROR SUMMARY' "$report"
    ! awk -v RS='==[0-9]+== *\n' '/rosetag\.(so|c:)|rosetag_core|sql_functions/ && !/Command:/' \
        "$report" | grep .
}

start_server
test_regress
counted update test_update
counted python python3 "$source/tests/test_postgresql.py" "$root"
stop_server
c++ -std=c++20 -O1 -fPIC -shared "$source/tests/no_memory.cpp" -o "$server/no_memory.so"
chmod a+r "$server/no_memory.so"
preload=$server/no_memory.so
start_server
counted no-memory test_no_memory
stop_server
counted valgrind test_valgrind
grep -q 'the end of the run' "$folder/valgrind.log" || {
    failed=$((failed + 1))
    say "FAILED: the run below valgrind did not come to its end: $folder/valgrind.log"
}
echo "$passed passed, $failed failed"
[[ $failed -eq 0 && $passed -gt 0 ]]
