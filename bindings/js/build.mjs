/*
 * Builds the package into dist: node build.mjs
 *
 * The modules are compiled by CMake, with Debian's clang, lld, wasi-libc, libc++ and binaryen. What
 * TypeScript has to know of their tables is asked of them.
 */
import { execFileSync } from "node:child_process";
import { copyFileSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, "../..");
const build = join(root, "build/js/wasm");
const generated = join(here, "src/generated");
const dist = join(here, "dist");

function run(command, ...parts) {
  execFileSync(command, parts, { stdio: ["ignore", "inherit", "inherit"], cwd: here });
}

run("cmake", "-G", "Ninja", "-S", here, "-B", build, "--log-level=WARNING");
run("ninja", "--quiet", "-C", build);

/** A table of a module, as JSON. */
function tableOf(name, give) {
  const module = new WebAssembly.Module(readFileSync(join(build, `${name}.wasm`)));
  const { exports } = new WebAssembly.Instance(module);
  exports.__wasm_call_ctors();
  exports[give]();
  const [address, length] = new Uint32Array(exports.memory.buffer, exports.rosetag_result(), 2);
  return JSON.parse(new TextDecoder().decode(new Uint8Array(exports.memory.buffer, address, length)));
}

/** A type that is one of these words, with the comment above it. */
function union(comment, name, words) {
  const rows = [...new Set(words)].map((word) => `  | ${JSON.stringify(word)}`);
  return `/** ${comment} */\nexport type ${name} =\n${rows.join("\n")};\n`;
}

const camelCase = (word) => word.replace(/_(.)/g, (_, letter) => letter.toUpperCase());
const names = tableOf("names", "rosetag_names");
names.forms = names.forms.map(camelCase);
names.texts = names.texts.map(camelCase);
names.statuses = names.statuses.map((name) => name.replace(/^EPC_(ERR_)?/, ""));
const { version, forms, texts, statuses, meanings, encodings, notes, titles, schemes } = names;

rmSync(generated, { recursive: true, force: true });
rmSync(dist, { recursive: true, force: true });
mkdirSync(generated, { recursive: true });
writeFileSync(
  join(generated, "names.ts"),
  [
    union("What a value can be given as.", "Form", names.given.map(camelCase)),
    union("A form that is one text.", "OutputForm", names.texts),
    union("The tag schemes.", "SchemeName", names.schemes.map((scheme) => scheme.name)),
    union(
      "The words of filter values; which of them a scheme has, it says itself.",
      "FilterWord",
      names.schemes.flatMap((scheme) => scheme.filters.map((row) => row.word)),
    ),
    union("The encodings of texts in plus schemes.", "Encoding", ["auto", ...names.encodings]),
    union("How a conversion ended.", "Status", names.statuses),
    union("What a note is about.", "NoteKind", names.notes),
    union("What GS1 demands of a value.", "Rule", names.rules),
    "/** What has a name and a number: the place of an element is its number. */",
    `export const names = ${JSON.stringify({ version, forms, texts, statuses, meanings, encodings, notes, titles, schemes }, null, 1)};`,
    "",
  ].join("\n"),
);
for (const name of ["core", "explain"]) {
  const text = readFileSync(join(build, `${name}.wasm`)).toString("base64");
  writeFileSync(join(generated, `${name}_wasm.ts`), `export default ${JSON.stringify(text)} as string;\n`);
}

const tsc = join(here, "node_modules/.bin/tsc");
run(tsc, "-p", here);
mkdirSync(join(dist, "cjs"), { recursive: true });
writeFileSync(join(dist, "cjs/package.json"), '{ "type": "commonjs" }\n');
run(tsc, "-p", here, "--outDir", "dist/cjs", "--module", "commonjs", "--moduleResolution", "node10");
for (const name of ["rosetag", "core", "explain"]) {
  copyFileSync(join(build, `${name}.wasm`), join(dist, `${name}.wasm`));
}
copyFileSync(join(root, "LICENSE"), join(here, "LICENSE"));
