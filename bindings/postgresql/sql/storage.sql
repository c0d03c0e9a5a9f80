-- Values as they are stored: compressed, in another file, with NUL bytes, and far too long.
CREATE TABLE plain (kind text, x text);
CREATE TABLE packed (kind text, x text);
CREATE TABLE apart (kind text, x text);
ALTER TABLE plain ALTER x SET STORAGE PLAIN;
ALTER TABLE apart ALTER x SET STORAGE EXTERNAL;
INSERT INTO plain VALUES ('short', '3074257BF7194E4000001A85');
INSERT INTO packed VALUES ('compressed', repeat(' ', 5000) || '3074257BF7194E4000001A85'),
                          ('too long', '3074257BF7194E4000001A85' || repeat(' ', 30000000));
INSERT INTO apart SELECT * FROM packed WHERE kind = 'compressed';
UPDATE apart SET kind = 'in another file', x = x || ' ';
SELECT kind, pg_column_size(x) < 1000 AS is_small, epc_tag_uri(x), epc_status(x)
  FROM (TABLE plain UNION ALL TABLE packed UNION ALL TABLE apart) t;
SELECT kind, length(epc_check(x)) FROM packed WHERE kind = 'compressed';
SELECT epc_check(x) FROM packed WHERE kind = 'too long';

-- As long as a value of PostgreSQL can be.
SELECT epc_status(repeat(repeat('3', 1000000), 1000));
SELECT epc_status(repeat(' ', 1048552) || '3074257BF7194E4000001A85') AS longest,
       epc_status(repeat(' ', 1048553) || '3074257BF7194E4000001A85') AS longer;
SELECT epc_status(repeat(repeat('0', 1000000), 100)::bytea), epc_status(decode(repeat('30', 600), 'hex'));

-- Bytes are bits of a tag, whatever they would be as text.
SELECT x, epc_status(x), epc_tag_uri(x) FROM (VALUES
    ('\x300000000000000000000000'::bytea), ('\x00'), ('\x0000000000'), ('\x2000'), ('\x3030'),
    (convert_to('urn:epc:id:gid:1.2.3', 'UTF8'))) t(x);
DROP TABLE plain, packed, apart;

-- A session keeps no memory, neither of many values nor of long ones.
CREATE FUNCTION resident() RETURNS bigint LANGUAGE sql AS $$
    SELECT split_part(pg_read_file('/proc/self/statm', 0, 200), ' ', 2)::bigint * 4096
$$;
CREATE PROCEDURE work(calls integer) LANGUAGE plpgsql AS $$
BEGIN
    PERFORM count(epc_gtin(upper(to_hex(805306368 + n)) || '57BF7194E4000001')),
            count(epc_decode(n::text)), count(epc_encode('(00)' || n, 'sscc-96', 0, 7))
       FROM generate_series(1, calls) n;
    PERFORM epc_status('(01)80614141123458(21)' || repeat('9', 1000000)), epc_status(repeat('3', 1000000))
       FROM generate_series(1, calls / 2000) n;
END $$;
CALL work(20000);
SELECT resident() AS before \gset
CALL work(200000);
SELECT resident() - :before < 4000000 AS no_growth;
DROP PROCEDURE work;
DROP FUNCTION resident;
