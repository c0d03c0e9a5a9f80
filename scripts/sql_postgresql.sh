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

# Counts the outcome of the command before.
count() {
    local status=$?
    if [[ $status -eq 0 ]]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
    fi
    say "$([[ $status -eq 0 ]] && echo ok || echo FAILED): $1"
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
    as_server "$bindir/postgres" -D "$server/data" -k "$server" -c listen_addresses= \
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
    bash "$source/bench.sh" "$server" "$prefix"
    exit
fi

start_server
test_regress
stop_server
echo "$passed passed, $failed failed"
[[ $failed -eq 0 && $passed -gt 0 ]]
