-- The extension as a whole.
SELECT rosetag_version() LIKE extversion || '.%' AS agrees
  FROM pg_extension WHERE extname = 'rosetag';

CREATE VIEW functions AS
  SELECT p.* FROM pg_proc p JOIN pg_depend d ON d.objid = p.oid AND d.classid = 'pg_proc'::regclass
    JOIN pg_extension e ON e.oid = d.refobjid AND d.refclassid = 'pg_extension'::regclass
   WHERE e.extname = 'rosetag';

-- Indexes and parallel workers may use all of them.
SELECT count(*) > 40 AS there, bool_and(proparallel = 's') AS parallel,
       bool_and(obj_description(oid, 'pg_proc') IS NOT NULL) AS described
  FROM functions;
SELECT oid::regprocedure AS not_immutable FROM functions WHERE provolatile <> 'i';
SELECT oid::regprocedure AS not_strict FROM functions WHERE NOT proisstrict ORDER BY 1;
-- A function of text is one of bytea, too.
SELECT proname AS not_of_both FROM functions WHERE pronargs > 0
 GROUP BY 1 HAVING count(*) <> 2 ORDER BY 1;
DROP VIEW functions;

-- It can be moved, dropped, and made anew by somebody who owns the database alone.
CREATE SCHEMA tags;
ALTER EXTENSION rosetag SET SCHEMA tags;
SELECT tags.epc_gtin('3074257BF7194E4000001A85');
SELECT (tags.epc_decode('3074257BF7194E4000001A85')).gtin;
DROP EXTENSION rosetag;
SELECT tags.epc_gtin('3074257BF7194E4000001A85');
DROP SCHEMA tags;
SELECT current_user AS before \gset
CREATE ROLE rosetag_owner;
SELECT format('GRANT CREATE ON DATABASE %I TO rosetag_owner', current_database()) \gexec
GRANT CREATE ON SCHEMA public TO rosetag_owner;
SET ROLE rosetag_owner;
CREATE EXTENSION rosetag;
SELECT epc_serial('3074257BF7194E4000001A85');
DROP EXTENSION rosetag;
RESET ROLE;
DROP OWNED BY rosetag_owner;
DROP ROLE rosetag_owner;
CREATE EXTENSION rosetag;
