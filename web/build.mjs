/*
 * Puts the page together in build/web: static files for any web server.
 *
 * usage: node build.mjs [DIRECTORY]
 *
 * The package in bindings/js has to be built.
 */
import { createHash } from "node:crypto";
import { copyFileSync, mkdirSync, readdirSync, readFileSync, rmSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";
import { build } from "esbuild";

const here = dirname(fileURLToPath(import.meta.url));
const target = process.argv[2] ?? join(here, "../build/web");
const library = join(here, "../bindings/js/dist");

const common = {
    bundle: true,
    minify: true,
    format: "iife", // also runs from disk, where modules do not
    target: "es2022",
    charset: "utf8",
    legalComments: "none",
    logLevel: "warning",
};

// The package has two modules in base64. The larger can do everything; the page has it alone, and
// compressed.
const oneModule = {
    name: "one-module",
    setup({ onResolve, onLoad }) {
        onResolve({ filter: /generated\/(core|explain)_wasm\.js$/ }, () => ({ path: "wasm", namespace: "unpacked" }));
        onLoad({ filter: /.*/, namespace: "unpacked" }, () => ({ contents: "export default libraryWasm;" }));
        onResolve({ filter: /^library\.wasm\.gz$/ }, () => ({ path: "wasm", namespace: "packed" }));
        onLoad({ filter: /.*/, namespace: "packed" }, () => ({
            contents: gzipSync(readFileSync(join(library, "explain.wasm")), { level: 9 }).toString("base64"),
            loader: "text",
        }));
    },
};

rmSync(target, { recursive: true, force: true });
mkdirSync(target, { recursive: true });
await build({
    ...common,
    entryPoints: { page: join(here, "src/boot.ts") },
    outdir: target,
    plugins: [oneModule],
    alias: {
        rosetag: join(library, "esm/index.js"),
        "rosetag/explain": join(library, "esm/explain.js"),
    },
});
await build({ ...common, entryPoints: [join(here, "src/page.css")], outdir: target });
for (const file of ["index.html", "icon.svg"]) {
    copyFileSync(join(here, "src", file), join(target, file));
}

const files = readdirSync(target).sort();
const hash = createHash("sha256");
for (const file of files) {
    hash.update(readFileSync(join(target, file)));
}
await build({
    ...common,
    entryPoints: { "service-worker": join(here, "src/service_worker.ts") },
    outdir: target,
    define: {
        FILES: JSON.stringify(["./", ...files]),
        VERSION: JSON.stringify(hash.digest("hex").slice(0, 16)),
    },
});
