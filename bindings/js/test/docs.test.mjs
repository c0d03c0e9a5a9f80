/* The examples of the README and of docs/javascript.md, run as they are. */
import assert from "node:assert/strict";
import { readFileSync, rmSync, writeFileSync } from "node:fs";
import { test } from "node:test";

const pages = {
  "README.md": new URL("../README.md", import.meta.url),
  "docs/javascript.md": new URL("../../../docs/javascript.md", import.meta.url),
};

/** A statement whose value is in the comment after it becomes an assertion. */
function asserted(line) {
  const parts = /^(?!import)(?:const \w+ = )?(.+); \/\/ (["'\d[{]|null|true|false)(.*)$/.exec(line);
  if (parts === null || line.includes("…")) {
    return { line, isAsserted: false };
  }
  const [, expression, first, rest] = parts;
  return { line: `${line}\nassert.deepEqual(${expression}, ${first}${rest});`, isAsserted: true };
}

for (const [name, page] of Object.entries(pages)) {
  test(`examples of ${name}`, async () => {
    const blocks = [...readFileSync(page, "utf8").matchAll(/^```js\n(.*?)^```$/gms)];
    const lines = blocks.flatMap(([, code]) => code.split("\n")).map(asserted);
    assert.ok(lines.filter((row) => row.isAsserted).length >= 5);
    const file = new URL(`./.${name.replace("/", "-")}.mjs`, import.meta.url);
    const body = lines.map((row) => row.line).join("\n");
    writeFileSync(file, `import assert from "node:assert/strict";\n${body}`);
    try {
      await import(file.href);
    } finally {
      rmSync(file);
    }
  });
}
