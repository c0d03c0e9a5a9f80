#!/usr/bin/env bash
#
# What a call costs over a million rows: bench.sh PREFIX, with a server to talk to (PGHOST, PGUSER)
#
# Each line is the median of several runs: the processor time of a query less that of the scan, for
# each row, and its ratio to the call of the library over the same values in a loop, which runs in
# between. Nothing runs in parallel.
set -euo pipefail

readonly prefix=$1 rows=1000000 runs=5
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
pc=$(find "$prefix" -name rosetag-toolkit.pc -printf '%h')
read -ra flags < <(PKG_CONFIG_PATH=$pc pkg-config --cflags --libs rosetag-toolkit)
c++ -std=c++20 -O2 "$here/bench.cpp" -o "$work/loop" "${flags[@]}"

psql -Xq -v ON_ERROR_STOP=1 <<SQL 2>/dev/null
CREATE EXTENSION IF NOT EXISTS rosetag;
DROP TABLE IF EXISTS bench;
CREATE UNLOGGED TABLE bench AS
  SELECT epc, decode(epc, 'hex') AS bits
    FROM (SELECT '3074257BF7' || upper(lpad(to_hex(n * 7919::bigint % 1048576), 6, '0')) ||
                 upper(lpad(to_hex(n), 8, '0')) AS epc FROM generate_series(1, $rows) n) t;
VACUUM (FREEZE, ANALYZE) bench;
SQL
[[ $(psql -XAtc "SELECT count(*) FROM bench WHERE epc_status(epc) = 'EPC_OK'") -eq $rows ]]

# The values as they come out of the table, for the loop.
psql -XAtc 'SELECT epc FROM bench' >"$work/values"

# Milliseconds of processor time of a query, as the server counts them.
query() {
    PGOPTIONS='-c max_parallel_workers_per_gather=0 -c jit=off -c log_statement_stats=on
        -c client_min_messages=log' psql -XAtqc "SELECT count($1) FROM bench" 2>&1 |
        awk '/ s user, / { print 1000 * ($2 + $5); exit }'
}

readonly calls=(epc bits 'upper(epc)' 'epc_tag_uri(epc)' 'epc_tag_uri(bits)'
    'epc_element_string(epc)' 'epc_element_string(bits)' 'epc_digital_link(epc)' 'epc_gtin(epc)'
    'epc_serial(epc)' 'epc_scheme(epc)' 'epc_ai(epc, '"'21'"')' 'epc_status(epc)' 'epc_check(epc)' 'epc_hex(epc)' 'epc_decode(epc)')
for ((run = 0; run < runs; ++run)); do
    for call in "${calls[@]}"; do
        printf '%s\t%s\n' "$call" "$(query "$call")"
    done
    "$work/loop" "$work/values"
done >"$work/times"
python3 "$here/bench.py" "$rows" <"$work/times"
