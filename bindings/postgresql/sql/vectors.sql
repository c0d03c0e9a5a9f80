-- The rows that every face of the library passes.
\set QUIET on
\pset null NULL
CREATE TABLE vectors (
    id text PRIMARY KEY, op text, input text, scheme text, filter text, gcp_length text,
    encoding text, status text, output text
);
\getenv file ROSETAG_VECTORS
\if :{?file}
\else
  \getenv abs_srcdir PG_ABS_SRCDIR
  \set file :abs_srcdir '/../../vectors/rosetag.tsv'
\endif
COPY vectors FROM :'file' WITH (HEADER);

-- Left out, with the reason.
CREATE TABLE left_out AS
  SELECT id, CASE WHEN op IN ('encode_ai', 'decode_ai')
                  THEN 'SQL has no function for the bits of a single AI'
                  WHEN op = 'explain' THEN 'SQL has no function for the fields of bits'
                  WHEN encoding <> '' THEN 'SQL leaves the choice of an encoding to the library'
             END AS reason
    FROM vectors WHERE op IN ('encode_ai', 'decode_ai', 'explain') OR encoding <> '';
SELECT reason, op, count(*) > 10 AS are_some
  FROM left_out JOIN vectors USING (id) GROUP BY 1, 2 ORDER BY 1, 2;

-- An argument that makes no sense is an error and not a NULL.
CREATE FUNCTION encoded(v vectors) RETURNS text LANGUAGE plpgsql AS $$
BEGIN
    RETURN epc_encode(v.input, v.scheme, nullif(v.filter, '')::integer,
                      nullif(v.gcp_length, '')::integer);
EXCEPTION WHEN invalid_parameter_value THEN
    RETURN 'refused';
END $$;

-- Whether epc_check gives a value back.
CREATE FUNCTION checked(x text) RETURNS boolean LANGUAGE plpgsql AS $$
BEGIN
    RETURN epc_check(x) = x;
EXCEPTION WHEN invalid_text_representation THEN
    RETURN false;
END $$;

CREATE FUNCTION outcome(v vectors) RETURNS text LANGUAGE sql AS $$
    SELECT CASE v.op
        WHEN 'hex' THEN epc_hex(v.input)
        WHEN 'tag_uri' THEN epc_tag_uri(v.input)
        WHEN 'pure_identity' THEN epc_pure_identity(v.input)
        WHEN 'element_string' THEN epc_element_string(v.input)
        WHEN 'barcode_string' THEN epc_barcode_string(v.input)
        WHEN 'digital_link' THEN epc_digital_link(v.input)
        WHEN 'gtin' THEN epc_gtin(v.input)
        WHEN 'serial' THEN epc_serial(v.input)
        WHEN 'scheme' THEN epc_scheme(v.input)
        WHEN 'filter' THEN epc_filter(v.input)::text
        WHEN 'ais' THEN (SELECT string_agg(format('(%s)%s', ai, value), '' ORDER BY n)
                           FROM epc_ais(v.input) WITH ORDINALITY AS t(ai, value, title, n))
        WHEN 'encode' THEN encoded(v)
        WHEN 'tid' THEN (SELECT concat_ws(' ', designer, model, serial) FROM tid_decode(v.input)
                          WHERE designer IS NOT NULL)
        ELSE 'no such operation'
    END
$$;
CREATE TABLE outcomes AS
  SELECT v.*, outcome(v) AS found,
         CASE WHEN op NOT IN ('encode', 'tid') THEN epc_status(input) ELSE status END AS found_status
    FROM vectors v WHERE id NOT IN (SELECT id FROM left_out) AND op <> 'check';

SELECT count(*) = regexp_count(pg_read_file(:'file'), '\n') - 1 AS are_all FROM vectors;
SELECT count(*) > 2500 AS are_many, count(DISTINCT op) AS operations FROM outcomes;
SELECT id, input, status, output, found, found_status FROM outcomes
 WHERE (coalesce(found, ''), found_status) <> (output, status) AND found IS DISTINCT FROM 'refused';
SELECT input, scheme, filter, gcp_length, status FROM outcomes WHERE found = 'refused' ORDER BY id;

-- epc_check refuses what cannot be decoded: in the rows of findings, an error by one of the rules
-- without which there is no decoding.
SELECT input, found_status FROM outcomes
 WHERE op NOT IN ('encode', 'tid') AND checked(input) <> (found_status = 'EPC_OK');
SELECT count(*) > 10 AS are_some, count(*) FILTER (WHERE checked(input) <> (output !~
       'error (tag_value|unknown_form|unknown_ai|check_digit|too_long)')) AS different
  FROM vectors WHERE op = 'check';

-- The same as bytes, where a tag value is given in hex.
SELECT count(*) > 1000 AS are_many, count(*) FILTER (WHERE
       epc_decode(decode(input, 'hex')) IS DISTINCT FROM epc_decode(input) OR
       epc_status(decode(input, 'hex')) IS DISTINCT FROM epc_status(input)) AS different
  FROM vectors WHERE input ~ '^([0-9A-F]{2})+$' AND length(input) > 14;
SELECT count(*) > 100 AS are_many,
       count(*) FILTER (WHERE encode(epc_encode_bytes(input, scheme, nullif(filter, '')::integer,
           nullif(gcp_length, '')::integer), 'hex') IS DISTINCT FROM lower(output)) AS different
  FROM outcomes WHERE op = 'encode' AND status = 'EPC_OK';
DROP TABLE outcomes, left_out;
DROP FUNCTION outcome, checked, encoded;
DROP TABLE vectors;
