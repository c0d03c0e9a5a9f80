-- Why a value cannot be decoded.
\set SHOW_CONTEXT never
SELECT x, epc_status(x) FROM (VALUES
    ('3074257BF7194E4000001A85'), ('307C257BF7194E4000001A85'), ('3074257BF7194E4000001A'),
    ('FF74257BF7194E4000001A85'), ('(01)80614141123459(21)6789'), ('(01)80614141123458(99'),
    ('urn:epc:tag:sgtin-96:9.0614141.812345.6789'), ('urn:epc:tag:sgtin-97:3.1.2.3'),
    ('/01/80614141123459'), (''), (' '), ('it is raining')) t(x);
SELECT epc_check('3074257BF7194E4000001A85'), epc_check(' 3074257BF7194E4000001A85 ');
SELECT epc_check('(01)80614141123459(21)6789');
\echo :LAST_ERROR_SQLSTATE
SELECT epc_check('FF74257BF7194E4000001A85');
SELECT epc_check('\x3074257BF7194E'::bytea);
\echo :LAST_ERROR_SQLSTATE
SELECT epc_check('\x'::bytea);
-- Positions count characters.
SELECT epc_check('(10)äöü(01)80614141123459');
-- A message is text, whatever the value holds.
SELECT epc_check('ä');

-- One bad row does not end a query, and does not get into a strict table.
CREATE TABLE reads (epc text CHECK (epc_status(epc) = 'EPC_OK'));
INSERT INTO reads VALUES ('3074257BF7194E4000001A85'), (NULL);
INSERT INTO reads VALUES ('307C257BF7194E4000001A85');
\echo :LAST_ERROR_SQLSTATE
DROP TABLE reads;
CREATE DOMAIN epc AS text CHECK (VALUE IS NULL OR epc_check(VALUE) IS NOT NULL);
CREATE TABLE reads (epc epc);
COPY reads FROM STDIN;
3074257BF7194E4000001A85
3074257BF7194E400000
\.
SELECT count(*) FROM reads;
COPY reads FROM STDIN;
3074257BF7194E4000001A85
\N
\.
SELECT count(*), count(epc_gtin(epc)) FROM reads;
DROP TABLE reads;
DROP DOMAIN epc;
