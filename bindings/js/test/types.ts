/* What TypeScript accepts, and what it refuses. */
import {
  type Form,
  type Identity,
  RosetagError,
  type SchemeName,
  type Status,
  convert,
  decode,
  decodeMany,
  encode,
  encodeBytes,
  schemes,
  tryDecode,
} from "rosetag";
import { type Finding, check, explain, tid } from "rosetag/explain";

const item: Identity = decode("3074257BF7194E4000001A85");
const scheme: SchemeName | null = item.scheme;
const text: string | null = convert(new Uint16Array(6), "tagUri", { strict: true });
const hex: string = encode("(01)80614141123458(21)6789", { scheme: "sgtin-96", filter: "pos", gcpLength: 7 });
const bytes: Uint8Array = encodeBytes(hex);
const rows = decodeMany([hex, bytes, null], ["gtin", "filter", "scheme", "form"]);
const gtins: (string | null)[] = rows.gtin;
const filters: (number | null)[] = rows.filter;
const names: (SchemeName | null)[] = rows.scheme;
const forms: Form[] = rows.form;
const findings: readonly Finding[] = check(hex);
const meaning: string | undefined = explain(hex).fields[0]?.meaning;
const designer: number = tid("E2003412").designer;
const result = tryDecode(hex);
const either: Identity | RosetagError = result.ok ? result.identity : result.error;
const status: Status = "CHECK_DIGIT";

// @ts-expect-error: there is no such form
convert(hex, "tag_uri");
// @ts-expect-error: there is no such scheme
encode(hex, { scheme: "sgtin-97" });
// @ts-expect-error: there is no such filter
encode(hex, { scheme: "sgtin-96", filter: "nothing" });
// @ts-expect-error: a number is no value
decode(42);
// @ts-expect-error: that column was not asked for
rows.serial;
// @ts-expect-error: results are not to be changed
item.gtin = "";
// @ts-expect-error: there is no such status
const wrong: Status = "CHECK_DIGITS";

export { designer, either, filters, findings, forms, gtins, meaning, names, scheme, schemes, status, text, wrong };
