// Loads the extension in DuckDB for Node: test_node.mjs SOURCE_DIR NODE_DIR EXTENSION

import assert from "node:assert";
import { createRequire } from "node:module";
import { join } from "node:path";

const [, , root, nodeDir, extension] = process.argv;
const { DuckDBInstance } = createRequire(join(nodeDir, "x.js"))("@duckdb/node-api");

const instance = await DuckDBInstance.create(":memory:", { allow_unsigned_extensions: "true" });
const connection = await instance.connect();
await connection.run(`LOAD '${extension}'`);

async function rows(sql) {
  return (await connection.runAndReadAll(sql)).getRowsJson();
}

const tests = {
  async sharedRows() {
    const path = join(root, "vectors/rosetag.tsv");
    const forms = ["hex", "tag_uri", "element_string", "digital_link", "gtin", "serial", "scheme"];
    let compared = 0;
    for (const form of forms) {
      const wrong = await rows(
        `WITH rows AS (SELECT * FROM read_csv('${path}', delim='\t', quote='', escape='',
                                              header=true, all_varchar=true)
                       WHERE op = '${form}' AND NOT contains(concat(input, output), '\\'))
         SELECT count(*), count(*) FILTER (coalesce(epc_${form}(coalesce(input, '')), '')
                                           <> coalesce(output, ''))
         FROM rows`);
      compared += Number(wrong[0][0]);
      assert.deepEqual([form, wrong[0][1]], [form, "0"]);
    }
    assert(compared > 1500, `${compared} rows`);
  },
  async nestedResults() {
    assert.deepEqual(
      await rows(`SELECT epc_decode(x).gtin, epc_ais(x)['21'] FROM
                  (VALUES ('3074257BF7194E4000001A85'), ('none'), (NULL)) rows(x)`),
      [["80614141123458", "6789"], [null, null], [null, null]]);
  },
  async errors() {
    await assert.rejects(rows("SELECT epc_check('none')"), /EPC_ERR_BAD_FORMAT/);
  },
};

let failed = 0;
for (const [name, test] of Object.entries(tests)) {
  try {
    await test();
  } catch (error) {
    ++failed;
    console.error(`${name}: ${error.stack}`);
  }
}
console.log(`${Object.keys(tests).length - failed} passed, ${failed} failed`);
process.exitCode = failed === 0 ? 0 : 1;
