/* All shared rows in Node.js, as ES module and as CommonJS. */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { test } from "node:test";

import { differencesOfMany, differencesOfSingles, rowsOf, skipped } from "./vectors.mjs";

const rows = rowsOf(readFileSync(new URL("../../../vectors/rosetag.tsv", import.meta.url), "utf8"));
const require = createRequire(import.meta.url);

const kinds = {
  "ES module": [await import("rosetag"), await import("rosetag/explain")],
  CommonJS: [require("rosetag"), require("rosetag/explain")],
};

for (const [kind, [rosetag, explain]] of Object.entries(kinds)) {
  test(`shared rows through single calls, ${kind}`, () => {
    assert.ok(rows.length > 3000);
    assert.deepEqual(differencesOfSingles(rows, rosetag, explain), []);
  });

  test(`shared rows through decodeMany, ${kind}`, () => {
    const { wrong, count } = differencesOfMany(rows, rosetag);
    assert.ok(count > 2000);
    assert.deepEqual(wrong, []);
  });
}

test("every skipped row exists", () => {
  const ids = new Set(rows.map((row) => row.id));
  assert.deepEqual([...skipped.keys()].filter((id) => !ids.has(id)), []);
});
