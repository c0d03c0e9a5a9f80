/*
 * One call of a module: its value goes in, its status is checked, its result is read. Nothing
 * about values is decided here.
 */
import { RosetagError, camelCase, inCodeUnits } from "./errors.js";
import type { RawFailure } from "./errors.js";
import coreWasm from "./generated/core_wasm.js";
import { names as generated } from "./generated/names.js";
import type { Encoding, Form, NoteKind, OutputForm, SchemeName, Status } from "./generated/names.js";
import type { Ai, Identity, Note, ReadOptions, Scheme, Value } from "./results.js";
import { RecordReader, Wasm } from "./wasm.js";

/** An option that was left out, for the module. */
export const NOT_GIVEN = -1;

export const core = new Wasm(coreWasm);

/** The larger module, once it is registered: it says where and why a value is wrong. */
let reasons: (() => Wasm) | undefined;

export function useReasons(give: () => Wasm): void {
  reasons = give;
}

// ---- Names ----

const names = generated as {
  forms: (Form | OutputForm)[];
  texts: OutputForm[];
  statuses: Status[];
  meanings: string[];
  encodings: Encoding[];
  notes: NoteKind[];
  titles: string[][];
  schemes: Scheme[];
};
export const { schemes } = names;
export const { version } = generated;

function numbers<Name extends string>(list: readonly string[]): Map<Name, number> {
  return new Map(list.map((name, number) => [name as Name, number]));
}

/** Forms that are one text. */
export const formNumbers = new Map(names.texts.map((name) => [name, names.forms.indexOf(name)]));
export const schemeNumbers = numbers<SchemeName>(schemes.map((scheme) => scheme.name));
const encodingNumbers = numbers<Encoding | "auto">(names.encodings).set("auto", -1);

export const statuses: readonly Status[] = Object.freeze(names.statuses);

export function numberOf<Name extends string>(
  what: string,
  name: Name,
  all: Map<Name, number>,
): number {
  const number = all.get(name);
  if (number === undefined) {
    throw new TypeError(
      `there is no ${what} ${JSON.stringify(name) ?? String(name)}; there are ${[...all.keys()].join(", ")}`,
    );
  }
  return number;
}

export function encodingNumber(encoding: Encoding | undefined): number {
  return encoding === undefined ? -1 : numberOf("encoding", encoding, encodingNumbers);
}

/** The titles of the AIs. A row has one code, or the first and the last: "3100-3105". */
const titles = new Map(
  names.titles.flatMap(([codes, title]) => {
    const [first, last = first] = (codes as string).split("-") as [string, string?];
    return Array.from({ length: Number(last) - Number(first) + 1 }, (_, at): [string, string] => [
      String(Number(first) + at).padStart(first.length, "0"),
      title as string,
    ]);
  }),
);

/** What a value is, by its number. */
export function formName(number: number): Form {
  return names.forms[number] as Form;
}

// ---- Values and options ----

const HEX_DIGITS = Array.from("0123456789ABCDEF", (digit) => digit.charCodeAt(0));

function putDigits(wasm: Wasm, value: Uint8Array | Uint16Array, offset: number): number {
  const digits = 2 * value.BYTES_PER_ELEMENT;
  wasm.reserve(offset + digits * value.length);
  let at = wasm.input + offset;
  for (let i = 0; i < value.length; ++i) {
    for (let shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
      wasm.bytes[at++] = HEX_DIGITS[((value[i] as number) >> shift) & 15] as number;
    }
  }
  return digits * value.length;
}

/** The bytes of a text in UTF-8. */
function utf8Length(text: string): number {
  let length = text.length;
  for (let at = 0; at < text.length; ++at) {
    const code = text.charCodeAt(at);
    length += code < 0x80 ? 0 : code < 0x800 || (code & 0xf800) === 0xd800 ? 1 : 2;
  }
  return length;
}

/** Half of a pair, which no encoding of Unicode can hold. */
const LONE_SURROGATE = /\p{Surrogate}/u;

function refuseLoneSurrogate(text: string): void {
  const position = text.search(LONE_SURROGATE);
  if (position >= 0) {
    const message = "half of a surrogate pair is not a character";
    throw new RosetagError(text, {
      status: "BAD_CHARACTER",
      text: `character ${position + 1}: ${message}; leave it out`,
      message,
      remedy: "leave it out",
      position,
      length: 1,
      culprit: text.charAt(position),
      option: "",
    });
  }
}

/**
 * Writes a value to the input; returns its length in bytes. One that is too long for the library is
 * not written: it looks at the length first.
 */
export function put(wasm: Wasm, value: Value, offset = 0): number {
  if (typeof value === "string") {
    if (value.length > wasm.largestValue) {
      return utf8Length(value);
    }
    const length = wasm.putText(value, offset);
    if (length !== value.length) {
      refuseLoneSurrogate(value);
    }
    return length;
  }
  if (value instanceof Uint8Array || value instanceof Uint16Array) {
    const digits = 2 * value.byteLength;
    return digits > wasm.largestValue ? digits : putDigits(wasm, value, offset);
  }
  throw new TypeError("a value must be a string, a Uint8Array or a Uint16Array");
}

export function flagsOf(options: ReadOptions | undefined): number {
  return options === undefined ? 0 : (options.asBarcode ? 1 : 0) | (options.strict ? 2 : 0);
}

export function gcpLengthOf(options: ReadOptions | undefined): number {
  return integerOf("gcpLength", options?.gcpLength);
}

/** An optional number. Beyond the limits here every one is equally wrong. */
export function integerOf(what: string, given: number | undefined): number {
  if (given === undefined || given === null) {
    return NOT_GIVEN;
  }
  if (!Number.isInteger(given)) {
    throw new TypeError(`${what} must be an integer`);
  }
  return given < 0 ? -2 : Math.min(given, 1000);
}

// ---- Calls ----

/** After a call that could not end: a module that ran out of memory begins anew. */
export function recover(wasm: Wasm, error: unknown): never {
  if (error instanceof WebAssembly.RuntimeError) {
    wasm.begin();
    throw new RangeError("not enough memory for this value", { cause: error });
  }
  throw error;
}

export function attempt<Result>(wasm: Wasm, call: (wasm: Wasm) => Result): Result {
  try {
    return call(wasm);
  } catch (error) {
    return recover(wasm, error);
  }
}

/** Runs a call that gives a status; throws unless that is OK. */
export function run(value: Value, call: (wasm: Wasm) => number, wasm: Wasm = core): void {
  if (attempt(wasm, call) !== 0) {
    throw errorOf(value, call, wasm);
  }
}

/** The error of a call that has just failed. */
export function errorOf(value: Value, call: (wasm: Wasm) => number, wasm: Wasm): RosetagError {
  const teller = reasons?.() ?? wasm;
  if (teller !== wasm) {
    attempt(teller, call);
  }
  teller.exports.rosetag_failure();
  return new RosetagError(value, inCodeUnits(value, failureOf(teller.record())));
}

function failureOf(record: RecordReader): RawFailure {
  const number = record.number();
  const failure = {
    status: statuses[number] as Status,
    text: record.text(),
    message: record.text(),
    remedy: record.text(),
    position: record.number(),
    length: record.number(),
    culprit: record.text(),
    option: record.text(),
  };
  return failure.message === "" ? withMeaning(failure, names.meanings[number] as string) : failure;
}

/** The core does not know what of the value is at fault. */
function withMeaning(failure: RawFailure, meaning: string): RawFailure {
  const remedy = 'import "rosetag/explain" to learn where and why';
  return {
    ...failure,
    text: `${failure.status}: ${meaning}; ${remedy}`,
    message: meaning,
    remedy,
  };
}

/** A value that is too long is refused by the conversion, whatever was asked for. */
export function refuseTooLong(value: Value): void {
  const length = typeof value === "string" ? value.length : 2 * (value?.byteLength ?? 0);
  if (length > core.largestValue) {
    run(value, (wasm) => wasm.exports.rosetag_convert(put(wasm, value), 0, 0, NOT_GIVEN));
  }
}

// ---- Results ----

interface RawNote {
  kind: string;
  severity: string;
  text: string;
  position: number;
  length: number;
  option?: string;
}

export function notesOf(value: Value, notes: readonly RawNote[] | undefined): Note[] {
  return (notes ?? []).map(
    (note) =>
      inCodeUnits(value, {
        ...note,
        option: note.option === undefined ? null : camelCase(note.option),
      }) as unknown as Note,
  );
}

function notesIn(value: Value, record: RecordReader): Note[] {
  return Array.from({ length: record.number() }, () =>
    inCodeUnits(value, {
      kind: names.notes[record.number()] as NoteKind,
      severity: record.text() as Note["severity"],
      text: record.text(),
      position: record.number(),
      length: record.number(),
      option: camelCase(record.text()) || null,
    }),
  );
}

function aisIn(record: RecordReader): Ai[] {
  const ais: Ai[] = [];
  for (let count = record.number(); count > 0; --count) {
    const ai = record.text();
    ais.push({ ai, title: titles.get(ai) ?? "", value: record.text() });
  }
  return ais;
}

function fitsIn(record: RecordReader): SchemeName[] {
  const fits: SchemeName[] = [];
  for (let count = record.number(); count > 0; --count) {
    fits.push(schemeName(record.number()) as SchemeName);
  }
  return fits;
}

/** The name of a scheme, null if there is none. */
export function schemeName(number: number): SchemeName | null {
  return number < 0 ? null : (schemes[number] as Scheme).name;
}

/** The record of a translation. */
export function identityOf(value: Value, record: RecordReader): Identity {
  const form = formName(record.number());
  const scheme = schemeName(record.number());
  const filter = record.number();
  return {
    value,
    form,
    scheme,
    filter: filter < 0 ? null : filter,
    bits: record.number() || null,
    hex: record.textOrNull(),
    tagUri: record.textOrNull(),
    pureIdentity: record.textOrNull(),
    elementString: record.textOrNull(),
    barcodeString: record.textOrNull(),
    digitalLink: record.textOrNull(),
    gtin: record.textOrNull(),
    serial: record.textOrNull(),
    ais: aisIn(record),
    fitsSchemes: fitsIn(record),
    notes: notesIn(value, record),
  };
}
