/* The list of company prefixes that the user brings. */
import assert from "node:assert/strict";
import { test } from "node:test";
import { convert } from "rosetag";
import { GcpList } from "rosetag/explain";

const list = new GcpList([
  ["950600", 6],
  ["0614141", 7],
  ["020", 0],
  ["9506000", 9],
]);

test("the longest entry tells the length of the company prefix in a key", () => {
  for (const [value, length] of [
    ["(01)80614141123458(21)6789", 7],
    ["https://example.com/01/80614141123458", 7],
    ["(00)106141412345678908", 7],
    ["(01)09506000134352", 9],
    ["(01)02012345678909", undefined],
    ["(01)12345678901231", undefined],
    ["(10)LOT", undefined],
    ["nonsense", undefined],
    ["", undefined],
  ]) {
    assert.equal(list.lengthFor(value), length, value);
  }
  const text = "(01)80614141123458(21)6789";
  assert.equal(
    convert(text, "pureIdentity", { gcpLength: list.lengthFor(text) }),
    "urn:epc:id:sgtin:0614141.812345.6789",
  );
});

test("several lists do not mix", () => {
  const other = new GcpList([["0614141", 8]]);
  const text = "(01)80614141123458(21)6789";
  assert.deepEqual([list, other, list].map((one) => one.lengthFor(text)), [7, 8, 7]);
});

test("a wrong entry is refused, and what was there stays", () => {
  for (const entries of [[["95", 7]], [["0614141", 13]], [["0614141", Number.NaN]], [["06x4141", 7]], [["0614141", 7], ["0614141", 8]]]) {
    assert.throws(() => new GcpList(entries), RangeError, JSON.stringify(entries));
  }
  assert.equal(list.lengthFor("(01)80614141123458(21)6789"), 7);
});
