/*
 * What the page asks of the package rosetag, and the shape of the answers that it shows.
 */
import * as rosetag from "rosetag";
import type { Explanation, Finding, Identity, Note, RosetagError, Scheme } from "rosetag";
import { check, explain, GcpList, tid } from "rosetag/explain";

export type { Explanation, Field, Finding, Identity, Scheme } from "rosetag";

export type Form =
    | "tagUri"
    | "pureIdentity"
    | "elementString"
    | "barcodeString"
    | "digitalLink"
    | "hex";

/** The forms in the order in which they are shown, and what people call them. */
export const formTitles: Record<Form, string> = {
    tagUri: "tag URI",
    pureIdentity: "pure identity",
    elementString: "element string",
    barcodeString: "barcode string",
    digitalLink: "Digital Link",
    hex: "hex",
};

/** Why a value could not be read, and where. */
export type Failure = Pick<RosetagError, "reason" | "remedy" | "position" | "length">;

/** Everything that is known of a value. */
export interface Answer {
    value: string;
    identity: Identity | null;
    explanation: Explanation | null;
    findings: readonly Finding[];
    notes: readonly Note[];
    failure: Failure | null;
}

export function schemes(): readonly Scheme[] {
    return rosetag.schemes();
}

export function schemeNamed(name: string | null): Scheme | undefined {
    return schemes().find((scheme) => scheme.name === name);
}

interface Attempt<Result> {
    result: Result | null;
    failure: Failure | null;
}

function attempt<Result>(work: () => Result): Attempt<Result> {
    try {
        return { result: work(), failure: null };
    } catch (error) {
        if (error instanceof rosetag.RosetagError) {
            return { result: null, failure: error };
        }
        if (error instanceof RangeError) {
            const reason = error.message;
            return { result: null, failure: { reason, remedy: "", position: 0, length: 0 } };
        }
        throw error;
    }
}

/** For each digit of the hex the fields that its bits belong to. */
export function hexPlaces(explanation: Explanation): number[][] {
    return Array.from(explanation.hex, (_, digit) =>
        explanation.fields.flatMap((field, index) =>
            field.first < 4 * digit + 4 && 4 * digit < field.first + field.width ? [index] : [],
        ),
    );
}

let list: GcpList | null = null;

/** Finds out everything about a value. */
export function answerTo(value: string, givenLength?: number): Answer {
    const gcpLength = givenLength ?? list?.lengthFor(value);
    const decoded = attempt(() => rosetag.decode(value, { gcpLength }));
    const explained = attempt(() => explain(value));
    const isTid = explained.result?.form === "tid"; // which the rules of GS1 say nothing of
    return {
        value,
        identity: decoded.result,
        explanation: explained.result,
        findings: isTid ? [] : check(value, { gcpLength }),
        notes: (isTid ? explained.result : decoded.result)?.notes ?? [],
        failure: isTid ? (explained.result?.failure ?? null) : decoded.failure,
    };
}

export interface Tag {
    scheme: Scheme;
    answer: Answer | null;
    failure: Failure | null;
}

/** A scheme that can hold an identity which is no tag value; plus schemes need no prefix length. */
export function schemeThatHolds(identity: Identity): Scheme | undefined {
    const text = identity.elementString;
    return (
        schemeNamed(identity.fitsSchemes[0] ?? null) ??
        schemes().find(
            (scheme) =>
                scheme.isPlus &&
                text !== null &&
                attempt(() => rosetag.encode(text, { scheme: scheme.name })).failure === null,
        )
    );
}

/** Encodes an identity for a scheme. */
export function encodeFor(scheme: Scheme, text: string, filter: number, givenLength?: number): Tag {
    const gcpLength = givenLength ?? list?.lengthFor(text);
    const { result, failure } = attempt(() =>
        rosetag.encode(text, { scheme: scheme.name, filter, gcpLength }),
    );
    return { scheme, answer: result === null ? null : answerTo(result), failure };
}

/** What stands in place of a scheme for the TID of a chip. */
export const TID = "TID";

export interface Converted {
    schemes: readonly (string | null)[]; // or TID
    statuses: readonly string[]; // "OK" where a row was read
    texts: readonly (string | null)[];
}

function statusOfTid(value: string): string {
    try {
        tid(value);
        return "OK";
    } catch (error) {
        return error instanceof rosetag.RosetagError ? error.status : "";
    }
}

/** Converts values to one form. */
export function convertMany(values: readonly string[], form: Form): Converted {
    const rows = rosetag.decodeMany(values, [form, "scheme", "form"]);
    const converted = {
        schemes: rows.scheme as (string | null)[],
        statuses: Array.from(rows.status, (status): string => rosetag.statuses[status] ?? ""),
        texts: rows[form] as (string | null)[],
    };
    values.forEach((value, row) => {
        // A TID has no other form, and is read as such.
        if (rows.form[row] === "tid") {
            converted.schemes[row] = TID;
            converted.statuses[row] = statusOfTid(value);
        }
        // Only a list tells the length of the company prefix in a GS1 text.
        if (form === "pureIdentity" && rows.status[row] === 0 && converted.texts[row] === null) {
            const gcpLength = list?.lengthFor(value);
            converted.texts[row] =
                gcpLength === undefined ? null : attempt(() => rosetag.convert(value, form, { gcpLength })).result;
        }
    });
    return converted;
}

/** What the TID of a chip says. */
export function namesOfTid(explanation: Explanation): [name: string, meaning: string][] {
    return explanation.fields
        .filter((field) => /^(designer|model|serial)\b/.test(field.name))
        .map((field) => [field.name, field.meaning]);
}

export function tidText(value: string): string {
    return namesOfTid(explain(value)).map((names) => names.join(" ")).join(", ");
}

/** Why a value cannot be read. */
export function reasonAgainst(value: string): string {
    return answerTo(value).failure?.reason ?? "";
}

/** How many digits the company prefix of a tag can have. */
export const gcpLengths = [6, 7, 8, 9, 10, 11, 12] as const;

/** Of a prefix list: the digits that a prefix begins with, and its length. */
export type PrefixEntry = readonly [prefix: string, length: number];

/**
 * From here on the lengths of company prefixes come from this list, where the user does not give
 * them; an empty one stands for none.
 */
export function usePrefixList(entries: readonly PrefixEntry[]): void {
    list = entries.length === 0 ? null : new GcpList(entries);
}
