import type { Status } from "./generated/names.js";
import type { Value } from "./results.js";

/** A failure as the module tells it, position and length in code units of the value. */
export interface RawFailure {
  status: Status;
  text: string;
  message: string;
  remedy: string;
  position: number;
  length: number;
  culprit: string;
  option: string;
}

/**
 * A value that cannot be converted. Its message says what is wrong, where, and what to do.
 *
 * Without `rosetag/explain`, browsers get the status and what it means; where the value is wrong is
 * only told if that was found before the library was asked. In Node.js every error has all of it.
 */
export class RosetagError extends Error {
  /** What was wrong: "CHECK_DIGIT". */
  readonly status: Status;
  /** The value as it was given. */
  readonly value: unknown;
  /** Where in the value, in UTF-16 code units from 0; in hexadecimal digits if it was bytes or words. */
  readonly position: number;
  /** How much of the value is at fault; 0: between two characters, or at the end. */
  readonly length: number;
  /** The characters there; may be empty. */
  readonly culprit: string;
  /** What is wrong, without the place. */
  readonly reason: string;
  /** What to do about it; may be empty. */
  readonly remedy: string;
  /** The option that helps, "gcpLength" for example; may be empty. */
  readonly option: string;

  constructor(value: unknown, failure: RawFailure) {
    super(failure.text);
    this.status = failure.status;
    this.value = value;
    this.position = failure.position;
    this.length = failure.length;
    this.culprit =
      typeof value === "string"
        ? value.slice(failure.position, failure.position + failure.length)
        : failure.culprit;
    this.reason = failure.message;
    this.remedy = failure.remedy;
    this.option = camelCase(failure.option);
  }

  static {
    this.prototype.name = "RosetagError";
  }
}

/** "tag_uri" is "tagUri" here. */
export function camelCase(word: string): string {
  return word.replace(/_(.)/g, (_, letter: string) => letter.toUpperCase());
}

/** Bytes of a text as UTF-8, to code units of the text. */
export function codeUnitsBefore(text: string, bytes: number): number {
  let at = 0;
  for (let count = 0; count < bytes && at < text.length; ) {
    const code = text.codePointAt(at) as number;
    count += code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    at += code < 0x10000 ? 1 : 2;
  }
  return at;
}

/** A position and a length in bytes, converted to code units if the value is a text. */
export function inCodeUnits<Place extends { position: number; length: number }>(
  value: Value,
  place: Place,
): Place {
  if (typeof value === "string") {
    const end = codeUnitsBefore(value, place.position + place.length);
    place.position = codeUnitsBefore(value, place.position);
    place.length = end - place.position;
  }
  return place;
}
