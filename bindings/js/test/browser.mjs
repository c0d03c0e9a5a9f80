/* Runs in a browser: the shared rows in the page and in a worker, and what each came to. */
import * as rosetag from "../dist/esm/index.js";

import { differencesOfMany, differencesOfSingles, rowsOf } from "./vectors.mjs";

// Without the larger module an error has its status and what that means.
const before = rosetag.tryDecode("(01)80614141123459").error;
const explain = await import("../dist/esm/explain.js");
const after = rosetag.tryDecode("(01)80614141123459").error;

function outcome(rows) {
  const many = differencesOfMany(rows, rosetag);
  return {
    rows: rows.length,
    many: many.count,
    wrong: [...differencesOfSingles(rows, rosetag, explain), ...many.wrong].map((row) => row.id),
    errors: [before, after].map(({ status, position, message }) => ({ status, position, message })),
  };
}

const rows = rowsOf(await (await fetch("/vectors/rosetag.tsv")).text());
if (typeof document === "undefined") {
  postMessage(outcome(rows));
} else {
  const worker = new Worker(import.meta.url, { type: "module" });
  const inWorker = await new Promise((resolve, reject) => {
    worker.onmessage = ({ data }) => resolve(data);
    worker.onerror = reject;
  });
  const output = document.createElement("output");
  output.textContent = JSON.stringify({ page: outcome(rows), worker: inWorker });
  document.body.append(output);
}
