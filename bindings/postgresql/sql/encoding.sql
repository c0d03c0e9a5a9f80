-- Tag values out of texts.
\pset null NULL
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-96', 3, 7),
       epc_encode('(01)80614141123458(21)6789', 'sgtin-96', gcp_length => 7) AS filter_0,
       epc_encode_bytes('(01)80614141123458(21)6789', 'sgtin-96', 3, 7);
SELECT epc_encode('https://example.com/01/9506000134352/21/7?linkType=all', 'sgtin+'),
       epc_encode('(00)106141412345678908', 'sscc-96', gcp_length => 7),
       epc_encode('urn:epc:id:gid:1.2.3', 'gid-96');
-- A tag value keeps its filter if none is given.
SELECT epc_encode('urn:epc:tag:sgtin-96:3.0614141.812345.6789', 'sgtin-96', NULL) AS own,
       epc_encode('urn:epc:tag:sgtin-96:3.0614141.812345.6789', 'sgtin-96', 1) AS other;
-- What cannot be encoded is NULL.
SELECT x, scheme, gcp_length, epc_encode(x, scheme, 0, gcp_length)
  FROM (VALUES ('(01)80614141123459(21)1', 'sgtin-96', 7), ('(01)80614141123458(21)x', 'sgtin-96', 7),
               ('(01)80614141123458', 'sgtin-96', 7), ('(01)80614141123458(21)1', 'sgtin-96', NULL),
               ('(01)80614141123458(21)1', 'sscc-96', 7), ('nonsense', 'sgtin+', NULL),
               ('', 'sgtin+', NULL))
       t(x, scheme, gcp_length);
-- Arguments that make no sense.
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-97', 0, 7);
\echo :LAST_ERROR_SQLSTATE
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-96', 8, 7);
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-96', -1, 7);
SELECT epc_encode('(01)80614141123458(21)6789', 'sgtin-96', 0, 13);
SELECT epc_encode_bytes('(01)80614141123458(21)6789', 'sgtin-96', 0, 2147483647);
SELECT epc_encode('(01)80614141123458(21)6789', repeat('é', 1000));
SELECT epc_ai('3074257BF7194E4000001A85', '05');
\echo :LAST_ERROR_SQLSTATE
SELECT epc_ai('3074257BF7194E4000001A85', '');
