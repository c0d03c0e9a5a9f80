/* What the functions take, give and refuse. */
import assert from "node:assert/strict";
import { test } from "node:test";

import * as rosetag from "rosetag";
import { check, decodeAi, encodeAi, explain, tid } from "rosetag/explain";

// The modules themselves, which the package does not show.
import { core } from "../dist/esm/calls.js";
import { reasons } from "../dist/esm/reasons.js";

const HEX = "3074257BF7194E4000001A85";
const TEXT = "(01)80614141123458(21)6789";
const URI = "urn:epc:tag:sgtin-96:3.0614141.812345.6789";
const BYTES = Uint8Array.from(HEX.match(/../g), (digits) => Number.parseInt(digits, 16));
const WORDS = Uint16Array.from(HEX.match(/..../g), (digits) => Number.parseInt(digits, 16));

test("a tag value in every type", () => {
  const values = [HEX, HEX.toLowerCase(), BYTES, Buffer.from(BYTES), WORDS, BYTES.subarray(0, 12)];
  for (const value of values) {
    const item = rosetag.decode(value);
    assert.equal(item.tagUri, URI);
    assert.equal(item.value, value);
    assert.equal(rosetag.convert(value, "gtin"), "80614141123458");
    assert.deepEqual(rosetag.decodeMany([value], "tagUri").tagUri, [URI]);
    assert.equal(explain(value).fields.length, 6);
  }
  const shared = new Uint8Array(new SharedArrayBuffer(12));
  shared.set(BYTES);
  assert.equal(rosetag.convert(shared, "tagUri"), URI);
});

test("forms that a value does not have are null, options are heeded", () => {
  const item = rosetag.decode(`${TEXT}(10)LOT7`, { gcpLength: 7 });
  assert.equal(item.pureIdentity, "urn:epc:id:sgtin:0614141.812345.6789");
  for (const name of ["hex", "scheme", "filter", "bits", "tagUri"]) {
    assert.equal(item[name], null, name);
  }
  assert.ok(item.fitsSchemes.includes("sgtin-96"));
  assert.deepEqual(rosetag.parse(`${TEXT}(10)LOT7`)[2], {
    ai: "10",
    title: "BATCH/LOT",
    value: "LOT7",
  });
  assert.equal(rosetag.convert(TEXT, "tagUri"), null);
  const link = "https://example.com/01/9506000134352?utm=box";
  assert.deepEqual(
    rosetag.decode(link).notes.map((note) => note.kind),
    ["left_out", "padded", "left_out"],
  );
  assert.equal(rosetag.tryDecode(link, { strict: true }).ok, false);
  const digits = "0180614141123458216789";
  assert.equal(rosetag.convert(digits, "elementString", { asBarcode: true }), TEXT);
  const note = rosetag.decode(TEXT).notes[0];
  assert.equal(note.option, "gcpLength");
});

test("encoding", () => {
  const options = { scheme: "sgtin-96", filter: 3, gcpLength: 7 };
  assert.equal(rosetag.encode(TEXT, options), HEX);
  assert.deepEqual(rosetag.encodeBytes(TEXT, options), BYTES);
  const byWord = rosetag.encode(TEXT, { ...options, filter: "unit_load" });
  assert.equal(rosetag.decode(byWord).filter, 6);
  assert.equal(rosetag.encode(HEX), HEX);
  const plus = rosetag.encode(TEXT, { scheme: "sgtin+", encoding: "iso646" });
  assert.notEqual(plus, rosetag.encode(TEXT, { scheme: "sgtin+" }));
  assert.deepEqual(encodeAi("21", "ABCG"), { hex: "64001086", bits: 32 });
  assert.equal(decodeAi("64001086", "21").value, "ABCG");
});

test("explaining a wrong value ends at the wrong field", () => {
  const good = explain(HEX);
  assert.equal(good.fields.map((field) => field.bits).join(""), good.bits);
  assert.equal(good.failure, null);
  const place = good.places.find((row) => row.field === 3 && row.form === "tagUri");
  assert.equal(URI.slice(place.position, place.position + place.length), "0614141");
  const broken = explain("307C257BF7194E4000001A85");
  assert.equal(broken.fields.at(-1).isGood, false);
  assert.equal(broken.failure.status, "BAD_PARTITION");
  assert.throws(() => explain(TEXT), { name: "RosetagError" });
});

test("an error says where, in code units of the text", () => {
  for (const before of ["", "  ", "https://exämple.com/😀"]) {
    const path = before.startsWith("http") ? "/01/80614141123459" : "(01)80614141123459";
    const value = before + path;
    const { error } = rosetag.tryDecode(value);
    assert.ok(error instanceof rosetag.RosetagError && error instanceof Error);
    assert.equal(error.status, "CHECK_DIGIT");
    assert.equal(error.value, value);
    assert.equal(value.slice(error.position, error.position + error.length), "9");
    assert.equal(error.culprit, "9");
    assert.match(error.message, /check digit/);
    const [finding] = check(value).filter((row) => row.rule === "check_digit");
    assert.equal(finding.position, value.length - 1);
  }
});

test("many values: a status a row, one bad row ends nothing", () => {
  const values = [HEX, "nonsense", null, TEXT, "x".repeat(2_000_000), "\ud800", undefined, "é", BYTES];
  const rows = rosetag.decodeMany(values, ["elementString", "scheme", "filter"]);
  assert.deepEqual(rows.elementString, [TEXT, null, null, TEXT, null, null, null, null, TEXT]);
  assert.deepEqual(rows.scheme, ["sgtin-96", ...Array(7).fill(null), "sgtin-96"]);
  assert.deepEqual(rows.filter, [3, ...Array(7).fill(null), 3]);
  assert.deepEqual(
    Array.from(rows.status, (status) => rosetag.statuses[status] === "OK"),
    rows.elementString.map((text) => text !== null),
  );
  assert.equal(rosetag.statuses[rows.status[4]], "TOO_LONG");
  assert.equal(rows.status[2], rows.status[6]);
  assert.deepEqual(rosetag.decodeMany([], "hex"), { status: new Uint8Array(0), hex: [] });
});

test("many values over several blocks are those of single calls", () => {
  const values = Array.from({ length: 10_000 }, (_, serial) =>
    serial % 7 === 0
      ? `https://exämple.com/01/80614141123458/21/${serial}`
      : `3074257BF7194E4000${serial.toString(16).padStart(6, "0")}`,
  );
  const { serial, status } = rosetag.decodeMany(new Set(values), "serial");
  assert.ok(serial.every((text, row) => text === String(row)));
  assert.ok(status.every((number) => number === 0));
});

test("a finding names the option that helps", () => {
  const [separator] = check("]C10195060001343521021|17261231").filter((row) => row.option !== null);
  assert.equal(separator?.option, "separator");
  assert.equal(check(`${TEXT}(10)`)[0].option, null);
});

test("tables of the library", () => {
  const [first] = rosetag.schemes();
  assert.equal(first.name, "sgtin-96");
  assert.equal(first.header, 0x30);
  assert.equal(first.filters.find((row) => row.word === "pos").filter, 1);
  assert.equal(rosetag.statuses[0], "OK");
  assert.match(rosetag.version, /^\d+\.\d+\.\d+$/);
});

const refused = [
  ["a number", () => rosetag.decode(42), TypeError],
  ["null", () => rosetag.decode(null), TypeError],
  ["a list", () => rosetag.convert([0x30], "hex"), TypeError],
  ["32-bit words", () => rosetag.decode(new Uint32Array(3)), TypeError],
  ["a row that is no value", () => rosetag.decodeMany([HEX, 42], "hex"), TypeError],
  ["a form that does not exist", () => rosetag.convert(HEX, "colour"), /tagUri/],
  ["a form that is not one text", () => rosetag.convert(HEX, "ais"), /tagUri/],
  ["a scheme that does not exist", () => rosetag.encode(TEXT, { scheme: "sgtin-97" }), /sgtin-96/],
  ["a filter that does not exist", () => rosetag.encode(TEXT, { scheme: "sgtin-96", filter: "a" }), /pos/],
  ["an encoding", () => rosetag.encode(TEXT, { encoding: "ascii" }), /iso646/],
  ["a fraction", () => rosetag.decode(TEXT, { gcpLength: 7.5 }), TypeError],
  ["a prefix length", () => rosetag.encode(TEXT, { scheme: "sgtin-96", gcpLength: 13 }), rosetag.RosetagError],
  ["a negative filter", () => rosetag.encode(TEXT, { scheme: "sgtin-96", gcpLength: 7, filter: -1 }), rosetag.RosetagError],
  ["nothing", () => rosetag.decode(""), rosetag.RosetagError],
  ["no bytes", () => rosetag.decode(new Uint8Array(0)), rosetag.RosetagError],
  ["a NUL", () => rosetag.decode(`${TEXT}\0`), rosetag.RosetagError],
  ["half of a surrogate pair", () => rosetag.decode("https://a\ud800/01/80614141123458"), rosetag.RosetagError],
  ["the other half", () => check("\udc00"), rosetag.RosetagError],
  ["100 MB", () => rosetag.decode("3".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB of two bytes", () => rosetag.convert("é".repeat(50_000_000), "hex"), rosetag.RosetagError],
  ["100 MB of bytes", () => rosetag.decode(new Uint8Array(100_000_000)), rosetag.RosetagError],
  ["100 MB of a TID", () => tid("E".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB to check", () => check("3".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB to explain", () => explain("3".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB to encode", () => rosetag.encode("3".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB of an AI", () => encodeAi("10", "3".repeat(100_000_000)), rosetag.RosetagError],
  ["100 MB of AI bits", () => decodeAi("3".repeat(100_000_000)), rosetag.RosetagError],
  ["a detached buffer", () => {
    const bytes = BYTES.slice();
    structuredClone(bytes.buffer, { transfer: [bytes.buffer] });
    return rosetag.decode(bytes);
  }, rosetag.RosetagError],
];

for (const [name, call, expected] of refused) {
  test(`refused: ${name}; later calls are as before`, () => {
    assert.throws(call, expected);
    assert.equal(rosetag.convert(HEX, "tagUri"), URI);
    assert.equal(explain(HEX).fields.length, 6);
  });
}

test("the largest value is looked at", () => {
  const largest = `(01)80614141123458(10)${"A".repeat(core.largestValue - 22)}`;
  assert.throws(() => rosetag.decode(largest), rosetag.RosetagError);
  assert.ok(check(largest).length > 0);
});

test("a module that runs out of memory begins anew", () => {
  const before = core.exports;
  const { largestValue } = core;
  core.largestValue = 2 ** 31; // lets through what the module cannot hold
  assert.throws(() => rosetag.decode("3".repeat(90_000_000)), RangeError);
  core.largestValue = largestValue;
  assert.notEqual(core.exports, before);
  assert.equal(rosetag.convert(HEX, "tagUri"), URI);
});

test("memory does not grow", () => {
  const values = [HEX, TEXT, "(01)80614141123459", "https://example.com/01/9506000134352/10/LOT7?17=261231"];
  function work(rounds) {
    for (let round = 0; round < rounds; ++round) {
      for (const value of values) {
        const { ok } = rosetag.tryDecode(value);
        rosetag.convert(HEX, "tagUri");
        if (ok) {
          check(value);
        }
      }
      explain(HEX);
      rosetag.decodeMany(values, ["hex", "gtin"]);
    }
    return [core, reasons()].map((wasm) => wasm.exports.memory.buffer.byteLength);
  }
  const before = work(100);
  assert.deepEqual(work(3000), before);
});
