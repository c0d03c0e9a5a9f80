-- complain if script is sourced in psql, rather than via CREATE EXTENSION
\echo Use "CREATE EXTENSION rosetag" to load this file. \quit

-- Costs are in proportion to the times that bench.sh measures.

--
-- One form of a value, NULL for one that cannot be decoded
--

CREATE FUNCTION epc_scheme(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_scheme_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_scheme(text) IS 'the tag scheme of a tag value: sgtin-96';

CREATE FUNCTION epc_scheme(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_scheme_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_scheme(bytea) IS 'the tag scheme of a tag value: sgtin-96';

CREATE FUNCTION epc_tag_uri(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_tag_uri_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_tag_uri(text) IS 'the EPC tag URI';

CREATE FUNCTION epc_tag_uri(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_tag_uri_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_tag_uri(bytea) IS 'the EPC tag URI';

CREATE FUNCTION epc_pure_identity(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_pure_identity_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_pure_identity(text) IS 'the EPC pure identity URI';

CREATE FUNCTION epc_pure_identity(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_pure_identity_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_pure_identity(bytea) IS 'the EPC pure identity URI';

CREATE FUNCTION epc_element_string(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_element_string_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_element_string(text) IS 'the GS1 element string, with brackets';

CREATE FUNCTION epc_element_string(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_element_string_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_element_string(bytea) IS 'the GS1 element string, with brackets';

CREATE FUNCTION epc_barcode_string(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_barcode_string_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_barcode_string(text) IS 'what a scanner delivers';

CREATE FUNCTION epc_barcode_string(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_barcode_string_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_barcode_string(bytea) IS 'what a scanner delivers';

CREATE FUNCTION epc_digital_link(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_digital_link_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_digital_link(text) IS 'path and query of the GS1 Digital Link';

CREATE FUNCTION epc_digital_link(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_digital_link_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_digital_link(bytea) IS 'path and query of the GS1 Digital Link';

CREATE FUNCTION epc_hex(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_hex_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_hex(text) IS 'the tag value in hex';

CREATE FUNCTION epc_hex(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_hex_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_hex(bytea) IS 'the tag value in hex';

CREATE FUNCTION epc_gtin(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_gtin_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_gtin(text) IS 'the GTIN, 14 digits';

CREATE FUNCTION epc_gtin(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_gtin_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_gtin(bytea) IS 'the GTIN, 14 digits';

CREATE FUNCTION epc_sscc(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_sscc_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_sscc(text) IS 'the SSCC, 18 digits';

CREATE FUNCTION epc_sscc(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_sscc_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_sscc(bytea) IS 'the SSCC, 18 digits';

CREATE FUNCTION epc_gln(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_gln_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_gln(text) IS 'the GLN, 13 digits';

CREATE FUNCTION epc_gln(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_gln_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_gln(bytea) IS 'the GLN, 13 digits';

CREATE FUNCTION epc_serial(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_serial_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_serial(text) IS 'what distinguishes one object from the others of its key';

CREATE FUNCTION epc_serial(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_serial_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_serial(bytea) IS 'what distinguishes one object from the others of its key';

CREATE FUNCTION epc_filter(x text)
    RETURNS integer AS 'MODULE_PATHNAME', 'epc_filter_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_filter(text) IS 'the filter of a tag value';

CREATE FUNCTION epc_filter(x bytea)
    RETURNS integer AS 'MODULE_PATHNAME', 'epc_filter_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_filter(bytea) IS 'the filter of a tag value';

CREATE FUNCTION epc_ai(x text, ai text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_ai_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_ai(text, text) IS 'the value of an AI';

CREATE FUNCTION epc_ai(x bytea, ai text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_ai_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_ai(bytea, text) IS 'the value of an AI';

--
-- Whether a value can be decoded
--

CREATE FUNCTION epc_status(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_status_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_status(text) IS 'EPC_OK, or why the value cannot be decoded';

CREATE FUNCTION epc_status(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_status_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_status(bytea) IS 'EPC_OK, or why the value cannot be decoded';

CREATE FUNCTION epc_check(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_check_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_check(text) IS 'the value itself; an error if it cannot be decoded';

CREATE FUNCTION epc_check(x bytea)
    RETURNS bytea AS 'MODULE_PATHNAME', 'epc_check_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_check(bytea) IS 'the value itself; an error if it cannot be decoded';

--
-- All forms
--

CREATE TYPE epc_forms AS (
    scheme text,
    filter integer,
    tag_uri text,
    pure_identity text,
    element_string text,
    barcode_string text,
    digital_link text,
    hex text,
    gtin text,
    serial text
);

CREATE FUNCTION epc_decode(x text)
    RETURNS epc_forms AS 'MODULE_PATHNAME', 'epc_decode_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 40;
COMMENT ON FUNCTION epc_decode(text) IS 'all forms of a value';

CREATE FUNCTION epc_decode(x bytea)
    RETURNS epc_forms AS 'MODULE_PATHNAME', 'epc_decode_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 40;
COMMENT ON FUNCTION epc_decode(bytea) IS 'all forms of a value';

CREATE FUNCTION epc_ais(x text)
    RETURNS TABLE (ai text, value text, title text) AS 'MODULE_PATHNAME', 'epc_ais_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20 ROWS 2;
COMMENT ON FUNCTION epc_ais(text) IS 'the AIs of a value, in its order';

CREATE FUNCTION epc_ais(x bytea)
    RETURNS TABLE (ai text, value text, title text) AS 'MODULE_PATHNAME', 'epc_ais_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20 ROWS 2;
COMMENT ON FUNCTION epc_ais(bytea) IS 'the AIs of a value, in its order';

--
-- Tag values out of texts. NULL for filter and gcp_length means that they are not given.
--

CREATE FUNCTION epc_encode(x text, scheme text, filter integer DEFAULT 0, gcp_length integer DEFAULT NULL)
    RETURNS text AS 'MODULE_PATHNAME', 'epc_encode'
    LANGUAGE C IMMUTABLE PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_encode(text, text, integer, integer) IS 'the tag value in hex';

CREATE FUNCTION epc_encode_bytes(x text, scheme text, filter integer DEFAULT 0, gcp_length integer DEFAULT NULL)
    RETURNS bytea AS 'MODULE_PATHNAME', 'epc_encode_bytes'
    LANGUAGE C IMMUTABLE PARALLEL SAFE COST 5;
COMMENT ON FUNCTION epc_encode_bytes(text, text, integer, integer) IS 'the tag value in bytes';

--
-- TID memories
--

CREATE FUNCTION tid_designer(x text)
    RETURNS integer AS 'MODULE_PATHNAME', 'tid_designer_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_designer(text) IS 'the mask designer identifier (MDID)';

CREATE FUNCTION tid_designer(x bytea)
    RETURNS integer AS 'MODULE_PATHNAME', 'tid_designer_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_designer(bytea) IS 'the mask designer identifier (MDID)';

CREATE FUNCTION tid_model(x text)
    RETURNS integer AS 'MODULE_PATHNAME', 'tid_model_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_model(text) IS 'the tag model number (TMN)';

CREATE FUNCTION tid_model(x bytea)
    RETURNS integer AS 'MODULE_PATHNAME', 'tid_model_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_model(bytea) IS 'the tag model number (TMN)';

CREATE FUNCTION tid_serial(x text)
    RETURNS text AS 'MODULE_PATHNAME', 'tid_serial_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_serial(text) IS 'the serial number of the chip, in hex';

CREATE FUNCTION tid_serial(x bytea)
    RETURNS text AS 'MODULE_PATHNAME', 'tid_serial_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
COMMENT ON FUNCTION tid_serial(bytea) IS 'the serial number of the chip, in hex';

CREATE TYPE tid_forms AS (
    designer integer,
    model integer,
    xtid boolean,
    security boolean,
    file boolean,
    serial text,
    serial_bits integer
);

CREATE FUNCTION tid_decode(x text)
    RETURNS tid_forms AS 'MODULE_PATHNAME', 'tid_decode_of_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
COMMENT ON FUNCTION tid_decode(text) IS 'what the TID memory of a tag says';

CREATE FUNCTION tid_decode(x bytea)
    RETURNS tid_forms AS 'MODULE_PATHNAME', 'tid_decode_of_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
COMMENT ON FUNCTION tid_decode(bytea) IS 'what the TID memory of a tag says';

CREATE FUNCTION rosetag_version()
    RETURNS text AS 'MODULE_PATHNAME', 'rosetag_version'
    LANGUAGE C STABLE STRICT PARALLEL SAFE COST 1;
COMMENT ON FUNCTION rosetag_version() IS 'the version of the library';
