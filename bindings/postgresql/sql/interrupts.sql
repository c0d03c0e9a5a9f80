-- A query can be cancelled while it is at work here.
SET statement_timeout = '200ms';
SELECT count(epc_decode('3074257BF7194E' || lpad(n::text, 10, '0'))) FROM generate_series(1, 1000000000) n;
\echo :LAST_ERROR_SQLSTATE
SELECT count(*) FROM generate_series(1, 1000000000) n, epc_ais('3074257BF7194E4000001A85') WHERE n < 0;
SELECT count(ai) FROM generate_series(1, 1000000000) n, epc_ais('3074257BF7194E' || lpad(n::text, 10, '0'));
SELECT count(epc_status(repeat('(10)1', 200000) || n)) FROM generate_series(1, 1000000) n;
RESET statement_timeout;
-- No single value takes long enough to need that.
SELECT epc_status('https://example.com' || repeat('/01/09506000134352', 50000)),
       epc_status('https://example.com' || repeat('/01/1', 100000) || repeat('/', 500000)), epc_status(repeat('(', 1000000)),
       epc_status(']d2' || repeat(E'10A\x1d', 250000));
-- The next query works as if nothing had been.
SELECT epc_gtin('3074257BF7194E4000001A85');
