-- Databases in other encodings. Texts of GS1 are ASCII for the most part; what is not is UTF-8 in
-- them, and must be written in the encoding of the database, or not at all.
\pset null NULL
SELECT epc_digital_link('(01)09506000134352(10)Größe') AS link,
       epc_element_string('/01/09506000134352/10/Gr%C3%B6%C3%9Fe') AS escaped,
       epc_element_string('/01/09506000134352/10/Gr%F6%DFe') AS not_utf8,
       epc_gtin('/01/09506000134352/10/Gr%F6%DFe') AS gtin,
       epc_status('/01/09506000134352/10/Gr%F6%DFe');

CREATE DATABASE rosetag_latin1 TEMPLATE template0 ENCODING 'LATIN1' LOCALE 'C';
CREATE DATABASE rosetag_euc_jp TEMPLATE template0 ENCODING 'EUC_JP' LOCALE 'C';
CREATE DATABASE rosetag_ascii TEMPLATE template0 ENCODING 'SQL_ASCII' LOCALE 'C';

\c rosetag_latin1
SET client_encoding = 'UTF8';
CREATE EXTENSION rosetag;
SELECT epc_element_string('/01/09506000134352/10/Gr%C3%B6%C3%9Fe') AS escaped,
       octet_length(epc_ai('/01/09506000134352/10/Gr%C3%B6%C3%9Fe', '10')) AS bytes,
       epc_ai('(01)09506000134352(10)Größe', '10') = 'Größe' AS same,
       epc_element_string('/01/09506000134352/10/%E6%97%A5') AS japanese,
       epc_gtin('/01/09506000134352/10/%E6%97%A5') AS gtin;
SELECT epc_digital_link('3074257BF7194E4000001A85'), epc_status('ö');
SELECT epc_check('(10)äöü(01)80614141123459');

\c rosetag_euc_jp
SET client_encoding = 'UTF8';
CREATE EXTENSION rosetag;
SELECT epc_ai('/01/09506000134352/10/%E6%97%A5', '10') AS japanese,
       epc_ai('(01)09506000134352(10)日本', '10') = '日本' AS same,
       octet_length(epc_ai('(01)09506000134352(10)日本', '10')) AS bytes,
       epc_element_string('/01/09506000134352/10/Gr%F6%DFe') AS not_utf8,
       (epc_decode('/01/09506000134352/10/%F0%9F%98%80')).*;
SELECT epc_check('日本');

\c rosetag_ascii
CREATE EXTENSION rosetag;
SELECT encode(epc_ai('/01/09506000134352/10/Gr%F6%DFe', '10')::bytea, 'escape') AS bytes,
       epc_status(convert_from('\xFF', 'SQL_ASCII'));
SELECT epc_tag_uri('3074257BF7194E4000001A85');

\c contrib_regression
DROP DATABASE rosetag_latin1;
DROP DATABASE rosetag_euc_jp;
DROP DATABASE rosetag_ascii;
