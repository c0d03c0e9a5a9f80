/* What the functions take and give back. */
import type { Encoding, FilterWord, Form, NoteKind, OutputForm, Rule, SchemeName } from "./generated/names.js";

/** A text in any form, or the bits of a tag as bytes or 16-bit words. */
export type Value = string | Uint8Array | Uint16Array;

/** How a value is to be read. */
export interface ReadOptions {
  /** Digits without any mark are a barcode string, not hex. */
  readonly asBarcode?: boolean | undefined;
  /** Links are taken as they are; nothing is left out or padded. */
  readonly strict?: boolean | undefined;
  /** Digits of the GS1 company prefix, 6 to 12; GS1 texts need it for their pure identity URI. */
  readonly gcpLength?: number | undefined;
}

export interface EncodeOptions extends ReadOptions {
  /** The tag scheme; a tag value may keep its own. */
  readonly scheme?: SchemeName | undefined;
  /** The filter value, or its word. Left out: that of a tag value, otherwise 0. */
  readonly filter?: number | FilterWord | undefined;
  /** How texts are encoded in the bits of a plus scheme. */
  readonly encoding?: Encoding | undefined;
}

/** A GS1 Application Identifier and its value. */
export interface Ai {
  readonly ai: string;
  readonly value: string;
  /** The short title of the AI, "SERIAL" for "21". */
  readonly title: string;
}

/** What a result does not show: what was left out, padded, or looks wrong. */
export interface Note {
  readonly kind: NoteKind;
  readonly severity: "note" | "warning";
  readonly text: string;
  readonly position: number;
  readonly length: number;
  /** The option that it names, null if none. */
  readonly option: string | null;
}

/** A value in all the forms that it has; one that it does not have is null. */
export interface Identity {
  /** The value as it was given. */
  readonly value: Value;
  /** What it is. */
  readonly form: Form;
  /** Of a tag value. */
  readonly scheme: SchemeName | null;
  readonly filter: number | null;
  /** The length of a tag value. */
  readonly bits: number | null;
  readonly hex: string | null;
  readonly tagUri: string | null;
  readonly pureIdentity: string | null;
  readonly elementString: string | null;
  /** Values of variable length end with character 29, GS. */
  readonly barcodeString: string | null;
  /** Path and query of a GS1 Digital Link. */
  readonly digitalLink: string | null;
  /** 14 digits. */
  readonly gtin: string | null;
  /** What tells one object from the others of its key. */
  readonly serial: string | null;
  readonly ais: readonly Ai[];
  /** The schemes that can hold the identity. */
  readonly fitsSchemes: readonly SchemeName[];
  readonly notes: readonly Note[];
}

/** What many values become, row by row: an array for each output, and how each row ended. */
export type Rows<Output extends string> = {
  /** 0, or the place of the status in `statuses`. */
  readonly status: Uint8Array;
} & {
  readonly [Name in Output]: Name extends "filter"
    ? (number | null)[]
    : Name extends "scheme"
      ? (SchemeName | null)[]
      : Name extends "form"
        ? Form[]
        : (string | null)[];
};

/** What decodeMany can make of each row. */
export type Output = OutputForm | "scheme" | "filter" | "form";

/** A tag scheme. */
export interface Scheme {
  readonly name: SchemeName;
  /** The word of the pure identity URI: "sgtin". */
  readonly family: string;
  /** What it identifies: "a trade item with a serial number". */
  readonly thing: string;
  /** The first eight bits of a value. */
  readonly header: number;
  /** Filters are below it; 0: the scheme has no filter. */
  readonly filterLimit: number;
  /** The filters that have a meaning. */
  readonly filters: readonly { readonly filter: number; readonly word: FilterWord; readonly name: string }[];
  /** It converts to and from EPC URIs. */
  readonly hasUris: boolean;
  /** It converts to and from the GS1 texts. */
  readonly hasGs1Texts: boolean;
  /** It can hold further AIs, and no URI. */
  readonly isPlus: boolean;
}

/** What the TID memory of a tag says. */
export interface Tid {
  readonly value: Value;
  /** The mask designer identifier, 9 bits. */
  readonly designer: number;
  /** The tag model number, 12 bits. */
  readonly model: number;
  readonly xtid: boolean;
  readonly serial: string | null;
  /** All that the library read, by the names of its JSON in camelCase. */
  readonly details: Readonly<Record<string, unknown>>;
}

/** A field of a tag value, of a TID or of an AI value: `width` bits from bit `first` on. */
export interface Field {
  readonly first: number;
  readonly width: number;
  readonly name: string;
  /** The characters 0 and 1. */
  readonly bits: string;
  /** In words; what is wrong if isGood is false. */
  readonly meaning: string;
  /** What the field adds to a text form, null if nothing. */
  readonly value: string | null;
  /** The AI whose value that is part of, null if none. */
  readonly ai: string | null;
  readonly isGood: boolean;
}

/** Where a field of a tag value is in a text form of the value, as decode gives it. */
export interface FieldPlace {
  /** The place of the field in `fields`. */
  readonly field: number;
  readonly form: OutputForm;
  readonly position: number;
  readonly length: number;
}

/** The bits of a tag value or of a TID. Where a field is wrong it is the last, and failure says why. */
export interface Explanation {
  readonly value: Value;
  readonly form: Form;
  readonly scheme: SchemeName | null;
  /** With the words before the EPC. */
  readonly hex: string;
  /** The bits of all fields, as the characters 0 and 1. */
  readonly bits: string;
  /** Where the first bit is in its memory bank. */
  readonly bankAddress: number;
  readonly fields: readonly Field[];
  /** A field may have several in a form, or none. */
  readonly places: readonly FieldPlace[];
  readonly failure: import("./errors.js").RosetagError | null;
  readonly notes: readonly Note[];
}

/** A place where a value breaks a rule of GS1. */
export interface Finding {
  readonly severity: "error" | "warning";
  readonly rule: Rule;
  /** The AI, null where the rule is about the text as a whole. */
  readonly ai: string | null;
  readonly position: number;
  readonly length: number;
  readonly culprit: string;
  readonly message: string;
  /** The option that the message names, null if none. */
  readonly option: string | null;
}

/** The bits of a single AI value. */
export interface AiBits {
  readonly hex: string;
  readonly bits: number;
}
