-- Indexes on what the functions give, and workers that run them.
CREATE TABLE reads (
    id integer PRIMARY KEY,
    epc text,
    bits bytea,
    serial text GENERATED ALWAYS AS (epc_serial(epc)) STORED
);
INSERT INTO reads
  SELECT n, epc, decode(epc, 'hex')
    FROM (SELECT n, CASE WHEN n % 1000 = 0 THEN '307C257BF7194E4000000001'
                    ELSE epc_encode('urn:epc:id:sgtin:0614141.' || lpad((n % 50)::text, 6, '0') || '.' || n,
                                    'sgtin-96') END AS epc
            FROM generate_series(1, 20000) n) t;
CREATE INDEX reads_gtin ON reads (epc_gtin(epc));
CREATE UNIQUE INDEX reads_identity ON reads (epc_pure_identity(bits));
CREATE INDEX reads_bad ON reads (id) WHERE epc_status(epc) <> 'EPC_OK';
ANALYZE reads;
EXPLAIN (COSTS OFF) SELECT id FROM reads WHERE epc_gtin(epc) = '00614141000012';
SELECT count(*), min(id), max(id) FROM reads WHERE epc_gtin(epc) = '00614141000012';
EXPLAIN (COSTS OFF) SELECT id FROM reads WHERE epc_pure_identity(bits) = 'urn:epc:id:sgtin:0614141.000001.1';
SELECT id, serial FROM reads WHERE epc_pure_identity(bits) = 'urn:epc:id:sgtin:0614141.000001.1';
EXPLAIN (COSTS OFF) SELECT id FROM reads WHERE epc_status(epc) <> 'EPC_OK' ORDER BY id;
SELECT count(*) FROM reads WHERE epc_status(epc) <> 'EPC_OK';
-- A constant is worked out once.
EXPLAIN (COSTS OFF, VERBOSE) SELECT id FROM reads WHERE serial = epc_serial('3074257BF7194E4000001A85');
-- The statistics of the index tell how many rows there are.
SELECT n_distinct FROM pg_stats WHERE tablename = 'reads_gtin';

SET min_parallel_table_scan_size = 0;
SET parallel_setup_cost = 0;
SET parallel_tuple_cost = 0;
SET max_parallel_workers_per_gather = 2;
SET enable_indexonlyscan = off;
PREPARE digest AS
  SELECT sum(hashtextextended(concat_ws('|', id, epc_element_string(epc), epc_tag_uri(bits),
                                        epc_decode(epc), epc_status(bits)), 0)) AS digest
    FROM reads;
EXPLAIN (ANALYZE, COSTS OFF, TIMING OFF, SUMMARY OFF) EXECUTE digest;
EXECUTE digest \gset parallel_
SET max_parallel_workers_per_gather = 0;
EXECUTE digest \gset serial_
SELECT :parallel_digest = :serial_digest AS same, :serial_digest <> 0 AS is_digest;
DEALLOCATE digest;
RESET ALL;
DROP TABLE reads;
