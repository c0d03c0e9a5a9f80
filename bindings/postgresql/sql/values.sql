-- One value of each form, and what the functions give for it.
CREATE TABLE given (n serial, x text);
INSERT INTO given (x) VALUES
    ('3074257BF7194E4000001A85'),
    ('3074 257b f719 4e40 0000 1a85'),
    ('urn:epc:tag:sgtin-96:3.0614141.812345.6789'),
    ('urn:epc:id:sgtin:0614141.812345.6789'),
    ('(01)80614141123458(21)6789'),
    ('https://example.com/01/80614141123458/21/6789?utm_source=box'),
    (E'010950600013435210LOT7\x1d17251231'),
    ('9506000134352'),
    ('(00)106141412345678908'),
    ('(414)0614141123452(254)32a/b'),
    ('F7F8061414112345883C2BF1083216727D8B99CF8000'),
    ('350000000000000000000000'),
    (''),
    ('nonsense'),
    (NULL);
\x on
\pset null NULL
SELECT x, epc_status(x) AS status, epc_scheme(x) AS scheme, epc_filter(x) AS filter,
       epc_hex(x) AS hex, epc_tag_uri(x) AS tag_uri, epc_pure_identity(x) AS pure_identity,
       epc_element_string(x) AS element_string, epc_barcode_string(x) AS barcode_string,
       epc_digital_link(x) AS digital_link, epc_gtin(x) AS gtin, epc_sscc(x) AS sscc,
       epc_gln(x) AS gln, epc_serial(x) AS serial, epc_ai(x, '10') AS lot
  FROM given ORDER BY n;
\x off
-- All at once is the same as each alone.
SELECT n, x FROM given
 WHERE epc_decode(x) IS DISTINCT FROM CASE WHEN epc_status(x) = 'EPC_OK' THEN
       ROW(epc_scheme(x), epc_filter(x), epc_tag_uri(x), epc_pure_identity(x),
           epc_element_string(x), epc_barcode_string(x), epc_digital_link(x), epc_hex(x),
           epc_gtin(x), epc_serial(x))::epc_forms END;
SELECT (epc_decode('3074257BF7194E4000001A85')).*;
SELECT n, ai, value, title FROM given, epc_ais(x) WITH ORDINALITY AS t(ai, value, title, place)
 ORDER BY n, place;
SELECT count(*) AS rows_of_what_cannot_be_decoded FROM epc_ais('nonsense');

-- Bits as bytes.
SELECT epc_tag_uri('\x3074257BF7194E4000001A85'::bytea), epc_scheme('\x30'::bytea),
       epc_status('\x30'::bytea), epc_gtin('\x3074257BF7194E4000001A85'::bytea),
       epc_check('\x3074257BF7194E4000001A85'::bytea);
SELECT epc_status(''::bytea), epc_status('\x00'::bytea), epc_status('\x3074257BF700000000000000'),
       epc_status('\x30506000134352'::bytea), epc_gtin('\x30506000134352'::bytea);
SELECT ai, value FROM epc_ais('\x3074257BF7194E4000001A85'::bytea);
SELECT n, x FROM given WHERE epc_hex(x) IS NOT NULL AND
       epc_decode(decode(epc_hex(x), 'hex')) IS DISTINCT FROM epc_decode(upper(epc_hex(x)));

-- TID memories.
SELECT x, tid_designer(x), tid_model(x), tid_serial(x), tid_decode(x)
  FROM (VALUES ('E2806894200050012345678F'), ('e200 3412'), ('3074257BF7194E4000001A85'), (NULL))
       t(x);
SELECT tid_serial('\xE2806894200050012345678F'::bytea), tid_designer('\xE2'::bytea),
       tid_decode('\xE2003412'::bytea), tid_model('\xE2003412'::bytea);

-- NULL in, NULL out, even where other arguments make no sense.
SELECT num_nulls(epc_ai(NULL::text, '10'), epc_ai('3074257BF7194E4000001A85', NULL),
                 epc_encode(NULL, 'sgtin-96'), epc_encode('(01)80614141123458(21)6789', NULL),
                 epc_encode_bytes(NULL, 'no scheme'), epc_check(NULL::text),
                 epc_status(NULL::bytea), tid_serial(NULL::text)) AS nulls_of_8;
DROP TABLE given;
