/**
 * Rosetag translates identifiers between the forms used in GS1 and RFID data capture.
 *
 * The library is WebAssembly inside this file: there is nothing to load and nothing to wait
 * for. `rosetag/explain` adds what takes more room.
 */
import {
  NOT_GIVEN,
  core,
  encodingNumber,
  errorOf,
  flagsOf,
  formNumbers,
  gcpLengthOf,
  identityOf,
  integerOf,
  numberOf,
  put,
  recover,
  run,
  schemeNumbers,
  schemes as allSchemes,
  version as libraryVersion,
} from "./calls.js";
import { RosetagError } from "./errors.js";
import type { FilterWord, OutputForm } from "./generated/names.js";
import type { Ai, EncodeOptions, Identity, ReadOptions, Scheme, Value } from "./results.js";

export { statuses } from "./calls.js";
export { decodeMany } from "./many.js";
export { RosetagError } from "./errors.js";
export type * from "./generated/names.js";
export type {
  Ai,
  AiBits,
  EncodeOptions,
  Explanation,
  Field,
  FieldPlace,
  Finding,
  Identity,
  Note,
  Output,
  ReadOptions,
  Rows,
  Scheme,
  Tid,
  Value,
} from "./results.js";

/** The version of the library. */
export const version: string = libraryVersion;

/**
 * Finds out what a value is and gives every form that it has.
 *
 * @throws RosetagError if the value cannot be read; the error says where and why.
 */
export function decode(value: Value, options?: ReadOptions): Identity {
  const flags = flagsOf(options);
  const gcpLength = gcpLengthOf(options);
  run(value, (wasm) => wasm.exports.rosetag_decode(put(wasm, value), flags, gcpLength));
  return identityOf(value, core.record());
}

/** What tryDecode gives: an identity, or the error that decode would throw. */
export type Decoded =
  | { readonly ok: true; readonly identity: Identity; readonly error: null }
  | { readonly ok: false; readonly identity: null; readonly error: RosetagError };

/** Like decode, but a value that cannot be read is a result, not an exception. */
export function tryDecode(value: Value, options?: ReadOptions): Decoded {
  try {
    return { ok: true, identity: decode(value, options), error: null };
  } catch (error) {
    if (error instanceof RosetagError) {
      return { ok: false, identity: null, error };
    }
    throw error;
  }
}

/**
 * Gives one form of a value, null if the value does not have it.
 *
 * @throws RosetagError if the value cannot be read.
 */
export function convert(value: Value, to: OutputForm, options?: ReadOptions): string | null {
  const form = numberOf("form", to, formNumbers);
  const flags = flagsOf(options);
  const gcpLength = gcpLengthOf(options);
  let status: number;
  try {
    status = core.exports.rosetag_convert(put(core, value), form, flags, gcpLength);
  } catch (error) {
    recover(core, error);
  }
  if (status !== 0) {
    throw convertError(value, form, flags, gcpLength);
  }
  return core.result() || null;
}

/** Apart from convert, which is the quicker for it. */
function convertError(value: Value, form: number, flags: number, gcpLength: number): RosetagError {
  return errorOf(
    value,
    (wasm) => wasm.exports.rosetag_convert(put(wasm, value), form, flags, gcpLength),
    core,
  );
}

/** The AIs of a value in their order, with titles. */
export function parse(value: Value, options?: ReadOptions): readonly Ai[] {
  return decode(value, options).ais;
}

function filterOf(options: EncodeOptions): number {
  if (typeof options.filter !== "string") {
    return integerOf("filter", options.filter);
  }
  const scheme = allSchemes.find((row) => row.name === options.scheme);
  const words = new Map(
    (scheme?.filters ?? []).map((row): [FilterWord, number] => [row.word, row.filter]),
  );
  return numberOf("filter", options.filter, words);
}

/**
 * Makes the bits of a tag, as upper-case hexadecimal digits.
 *
 * @throws RosetagError if the value cannot be encoded for the scheme.
 */
export function encode(value: Value, options: EncodeOptions = {}): string {
  const scheme =
    options.scheme === undefined ? NOT_GIVEN : numberOf("scheme", options.scheme, schemeNumbers);
  const filter = filterOf(options);
  const encoding = encodingNumber(options.encoding);
  const flags = flagsOf(options);
  const gcpLength = gcpLengthOf(options);
  run(value, (wasm) =>
    wasm.exports.rosetag_encode(put(wasm, value), scheme, filter, gcpLength, encoding, flags),
  );
  return core.result();
}

/** The same as bytes. */
export function encodeBytes(value: Value, options?: EncodeOptions): Uint8Array {
  const hex = encode(value, options);
  return Uint8Array.from({ length: hex.length / 2 }, (_, at) =>
    Number.parseInt(hex.slice(2 * at, 2 * at + 2), 16),
  );
}

/** All tag schemes. */
export function schemes(): readonly Scheme[] {
  return allSchemes;
}
