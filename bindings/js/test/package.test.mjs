/*
 * The package as its users get it: packed from a copy of the sources in another folder, installed in
 * an empty project, run both ways, and its types checked.
 */
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { before, test } from "node:test";
import { gzipSync } from "node:zlib";

const root = fileURLToPath(new URL("../../..", import.meta.url));
const clone = join(root, "build/js/clone");
const project = join(root, "build/js/project");

function run(directory, command, ...parts) {
  return execFileSync(command, parts, { cwd: directory, encoding: "utf8", stdio: ["ignore", "pipe", "pipe"] });
}

before(() => {
  for (const directory of [clone, project]) {
    rmSync(directory, { recursive: true, force: true });
    mkdirSync(directory, { recursive: true });
  }
  const parts = ["bindings/js", "include", "src", "toolkit", "LICENSE"];
  const files = run(root, "git", "ls-files", "-co", "--exclude-standard", "-z", "--deduplicate", ...parts);
  for (const file of files.split("\0").filter((name) => name !== "")) {
    mkdirSync(join(clone, dirname(file)), { recursive: true });
    cpSync(join(root, file), join(clone, file));
  }
  run(join(clone, "bindings/js"), "npm", "install", "--no-audit", "--no-fund");
  run(join(clone, "bindings/js"), "npm", "pack", "--pack-destination", project);
  writeFileSync(join(project, "package.json"), '{ "name": "empty", "version": "0.0.0" }\n');
  const [archive] = readdirSync(project).filter((name) => name.endsWith(".tgz"));
  run(project, "npm", "install", "--no-audit", "--no-fund", "--offline", join(project, archive));
});

test("two builds in two folders give the same bytes", () => {
  for (const name of ["rosetag.wasm", "core.wasm", "explain.wasm", "esm/calls.js", "cjs/node.js"]) {
    const [one, other] = [root, clone].map((folder) => readFileSync(join(folder, "bindings/js/dist", name)));
    assert.ok(one.length > 0 && one.equals(other), name);
  }
});

test("nothing else is installed with it", () => {
  const installed = readdirSync(join(project, "node_modules")).filter((name) => !name.startsWith("."));
  assert.deepEqual(installed, ["rosetag"]);
});

const call = 'console.log(decode("3074257BF7194E4000001A85").gtin, explain("E2003412").fields.length > 3);';
const scripts = {
  "module.mjs": `import { decode } from "rosetag";\nimport { explain } from "rosetag/explain";\n${call}\n`,
  "script.cjs": `const { decode } = require("rosetag");\nconst { explain } = require("rosetag/explain");\n${call}\n`,
};
for (const [name, text] of Object.entries(scripts)) {
  test(`runs in an empty project: ${name}`, () => {
    writeFileSync(join(project, name), text);
    assert.equal(run(project, "node", name), "80614141123458 true\n");
  });
}

test("types are right by tsc --strict, and wrong arguments are refused", () => {
  const tsc = join(root, "bindings/js/node_modules/.bin/tsc");
  cpSync(join(root, "bindings/js/test/types.ts"), join(project, "types.ts"));
  for (const [module, resolution] of [["nodenext", "nodenext"], ["esnext", "bundler"]]) {
    const options = ["--module", module, "--moduleResolution", resolution, "--target", "es2022"];
    try {
      run(project, tsc, "--strict", "--noEmit", ...options, "types.ts");
    } catch (error) {
      assert.fail(`${module}: ${error.stdout}`);
    }
  }
});

const modules = {
  // exports of the C library, and the most that the module may take, compressed
  "rosetag.wasm": { hasExports: true, largest: 40_250 },
  "core.wasm": { hasExports: false, largest: 47_850 },
  "explain.wasm": { hasExports: false, largest: 119_900 },
};
const header = readFileSync(join(root, "include/rosetag/rosetag.h"), "utf8");
const declared = Array.from(header.matchAll(/^ROSETAG_EXPORT EpcStatus (\w+)/gm), (match) => match[1]).sort();
for (const [name, { hasExports, largest }] of Object.entries(modules)) {
  test(`${name} needs nothing and is small`, () => {
    const file = readFileSync(join(project, "node_modules/rosetag/dist", name));
    const module = new WebAssembly.Module(file);
    assert.deepEqual(WebAssembly.Module.imports(module), []);
    const names = WebAssembly.Module.exports(module).map((row) => row.name);
    const library = names.filter((row) => /^(epc|tid)_/.test(row));
    assert.deepEqual(library.sort(), hasExports ? declared : []);
    assert.ok(gzipSync(file, { level: 9 }).length <= largest);
  });
}

test("the version is that of the library", async () => {
  const { version } = JSON.parse(readFileSync(join(root, "bindings/js/package.json"), "utf8"));
  assert.equal(version, (await import("rosetag")).version);
});
