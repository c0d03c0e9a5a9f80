/*
 * What calls take, in processor time, beside the native calls that do the same:
 *
 *     bash scripts/js.sh bench
 *
 * The first argument is bench/native.cpp, compiled. Each number is the median of several runs, and
 * native and JavaScript take turns, so a busy machine disturbs both.
 */
import { execFileSync } from "node:child_process";

import { convert, decode, decodeMany } from "rosetag";

import { core } from "../dist/esm/calls.js";

const CALLS = 200_000;
const BATCH = 10_000;
const RUNS = 9;
const MANY_CALLS = 10_000_000;

// The same values as in native.cpp.
const values = Array.from(
  { length: 4096 },
  (_, serial) => `3074257BF7194E4000${(7 * serial).toString(16).toUpperCase().padStart(6, "0")}`,
);
const rows = Array.from({ length: CALLS }, (_, row) => values[row % values.length]);
const batches = Array.from({ length: CALLS / BATCH }, (_, batch) => rows.slice(BATCH * batch, BATCH * (batch + 1)));

function median(list) {
  return list.sort((one, other) => one - other)[list.length >> 1];
}

function nanoseconds(run) {
  const start = process.cpuUsage();
  run();
  const { user, system } = process.cpuUsage(start);
  return (1000 * (user + system)) / CALLS;
}

/** So that no call can be left out. */
let sum = 0;
const calls = {
  "convert(value, form)": ["convert", () => rows.forEach((value) => (sum += convert(value, "tagUri").length))],
  "decode(value)": ["decode", () => rows.forEach((value) => (sum += decode(value).serial.length))],
  [`decodeMany(values, form), ${BATCH} rows`]: [
    "convert",
    () => batches.forEach((batch) => (sum += decodeMany(batch, "tagUri").status.length)),
  ],
  [`decodeMany(values, form), ${CALLS} rows`]: ["convert", () => (sum += decodeMany(rows, "tagUri").status.length)],
};

const natives = Array.from({ length: 5 }, () => JSON.parse(execFileSync(process.argv[2], { encoding: "utf8" })));
for (const [name, [native, run]] of Object.entries(calls)) {
  const ours = median(Array.from({ length: RUNS }, () => nanoseconds(run)));
  const theirs = median(natives.map((row) => row[native]));
  console.log(`${name}: ${ours.toFixed(0)} ns, native ${theirs.toFixed(0)} ns, ${(ours / theirs).toFixed(1)} times`);
}

const before = core.exports.memory.buffer.byteLength;
for (let call = 0; call < MANY_CALLS; ++call) {
  sum += convert(values[call % values.length], "elementString").length;
}
const after = core.exports.memory.buffer.byteLength;
console.log(`memory before and after ${MANY_CALLS} calls: ${before} and ${after} bytes`);
