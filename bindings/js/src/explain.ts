/**
 * What takes more room: explaining bits, checking values, TIDs, single AI values. With it, errors of
 * `rosetag` say where a value is wrong and what to do.
 */
import {
  attempt,
  encodingNumber,
  errorOf,
  flagsOf,
  gcpLengthOf,
  notesOf,
  put,
  refuseTooLong,
  run,
} from "./calls.js";
import { camelCase, inCodeUnits } from "./errors.js";
import type { Encoding, Form } from "./generated/names.js";
import { reasons } from "./reasons.js";
import type { Ai, AiBits, Explanation, Field, Finding, ReadOptions, Tid, Value } from "./results.js";

export { GcpList } from "./gcp_list.js";
export type { Ai, AiBits, Explanation, Field, FieldPlace, Finding, Tid } from "./results.js";

/**
 * Takes the bits of a tag value or of a TID apart, field by field.
 *
 * A field that is wrong does not throw: it is the last one, and says what is wrong.
 *
 * @throws RosetagError if the value has no bits.
 */
export function explain(value: Value, options?: ReadOptions): Explanation {
  const wasm = reasons();
  const flags = flagsOf(options);
  const gcpLength = gcpLengthOf(options);
  const call = (): number => wasm.exports.rosetag_explain(put(wasm, value), flags, gcpLength);
  const status = attempt(wasm, call);
  const raw = JSON.parse(wasm.result());
  const failure = status === 0 ? null : errorOf(value, call, wasm);
  if (failure !== null && raw.fields.length === 0) {
    throw failure;
  }
  wasm.exports.rosetag_bits();
  return {
    value,
    form: camelCase(raw.form) as Form,
    scheme: raw.scheme ?? null,
    hex: raw.hex ?? "",
    bits: wasm.result(),
    bankAddress: raw.bank_address,
    fields: raw.fields.map(fieldOf),
    places: (raw.places ?? []).map((place: { form: string }) => ({
      ...place,
      form: camelCase(place.form),
    })),
    failure,
    notes: notesOf(value, raw.notes),
  };
}

function fieldOf(raw: Record<string, unknown>): Field {
  return {
    first: raw["first"] as number,
    width: raw["width"] as number,
    name: raw["name"] as string,
    bits: raw["bits"] as string,
    meaning: raw["meaning"] as string,
    value: (raw["value"] as string | undefined) ?? null,
    ai: (raw["ai"] as string | undefined) ?? null,
    isGood: raw["good"] as boolean,
  };
}

/**
 * Finds every place where a value breaks a rule of GS1. Nothing found: it is right.
 *
 * @throws RosetagError only if the value is too long or not well-formed Unicode.
 */
export function check(value: Value, options?: ReadOptions): readonly Finding[] {
  refuseTooLong(value);
  const wasm = reasons();
  const flags = flagsOf(options);
  const gcpLength = gcpLengthOf(options);
  attempt(wasm, () => wasm.exports.rosetag_check(put(wasm, value), flags, gcpLength));
  const { findings } = JSON.parse(wasm.result());
  return findings.map((raw: Record<string, unknown>) => {
    const finding = {
      severity: raw["severity"],
      rule: raw["rule"],
      ai: raw["ai"] ?? null,
      position: raw["position"],
      length: raw["length"],
      culprit: raw["culprit"] ?? "",
      message: raw["message"],
      option: raw["option"] === undefined ? null : camelCase(raw["option"] as string),
    } as { position: number; length: number };
    return inCodeUnits(value, finding);
  });
}

function withCamelCaseKeys(value: unknown): unknown {
  return value !== null && typeof value === "object"
    ? Object.fromEntries(
        Object.entries(value).map(([key, member]) => [camelCase(key), withCamelCaseKeys(member)]),
      )
    : value;
}

// TID_DESIGNER_MASK of the toolkit.
const DESIGNER_MASK = 0x1ff;

/**
 * Reads the TID memory of a tag, from its first word on.
 *
 * @throws RosetagError if this is not the layout of a TID.
 */
export function tid(value: Value): Tid {
  refuseTooLong(value);
  const wasm = reasons();
  run(value, () => wasm.exports.rosetag_tid(put(wasm, value)), wasm);
  const details = withCamelCaseKeys(JSON.parse(wasm.result())) as Record<string, unknown>;
  delete details["value"];
  return {
    value,
    designer: (details["mdid"] as number) & DESIGNER_MASK,
    model: details["tmid"] as number,
    xtid: details["xtid"] as boolean,
    serial: (details["serial"] as string) || null,
    details,
  };
}

/** How the bits of a single AI value are made. */
export interface EncodeAiOptions {
  /** The bits begin with the digits of the code. */
  readonly withCode?: boolean | undefined;
  readonly encoding?: Encoding | undefined;
}

/**
 * Makes the bits of a single AI value, as the plus schemes carry it.
 *
 * @throws RosetagError if the value is not one of the AI.
 */
export function encodeAi(ai: string, value: string, options: EncodeAiOptions = {}): AiBits {
  refuseTooLong(ai + value);
  const encoding = encodingNumber(options.encoding);
  const wasm = reasons();
  run(
    value,
    () => {
      const length = put(wasm, ai + value);
      const codeLength = length - new TextEncoder().encode(value).length;
      return wasm.exports.rosetag_encodeAi(codeLength, length, options.withCode ? 1 : 0, encoding);
    },
    wasm,
  );
  const { hex, bits } = JSON.parse(wasm.result());
  return { hex, bits };
}

/**
 * Reads the bits of a single AI value; without `ai` they begin with its code.
 *
 * @throws RosetagError if these are not the bits of one.
 */
export function decodeAi(bits: Value, ai = ""): Ai {
  refuseTooLong(bits);
  refuseTooLong(ai);
  const wasm = reasons();
  run(
    bits,
    () => {
      const codeLength = put(wasm, ai);
      const length = put(wasm, bits, codeLength);
      return wasm.exports.rosetag_decodeAi(codeLength, codeLength + length);
    },
    wasm,
  );
  const { ai: code, value, title } = JSON.parse(wasm.result());
  return { ai: code, value, title };
}
