/*
 * Many values in one pass. Rows cross into the module in blocks: one text for all of a block, and
 * where each row ends.
 */
import { core, flagsOf, formName, formNumbers, gcpLengthOf, numberOf, put, schemeName } from "./calls.js";
import type { Output, ReadOptions, Rows, Value } from "./results.js";

/** Rows of a block, and code units after which one ends. Texts of larger ones are slow to allocate. */
const BLOCK_ROWS = 1024;
const BLOCK_LENGTH = 1 << 19;

/** Of what the module tells of a row: status, scheme, filter, form. */
const ROW_BYTES = 4;

const encoder = new TextEncoder();

/** A NUL, which no value can hold. */
const UNREADABLE = "\0";

/** A value as it is in a block. */
function textOf(value: Value | null | undefined): string {
  if (typeof value === "string") {
    return value;
  }
  if (value === null || value === undefined) {
    return "";
  }
  if (value instanceof Uint8Array || value instanceof Uint16Array) {
    const digits = 2 * value.BYTES_PER_ELEMENT;
    let text = "";
    for (const number of value) {
      text += number.toString(16).padStart(digits, "0");
    }
    return text;
  }
  throw new TypeError("a value must be a string, a Uint8Array or a Uint16Array");
}

type Column = (string | number | null)[];

class Pass {
  readonly status: Uint8Array;
  readonly #forms: { form: number; cells: Column }[] = [];
  readonly #schemes: Column | undefined;
  readonly #filters: Column | undefined;
  readonly #given: Column | undefined;
  readonly #wanted: number;
  readonly #flags: number;
  readonly #gcpLength: number;

  constructor(rows: number, columns: Map<Output, Column>, options: ReadOptions | undefined) {
    this.status = new Uint8Array(rows);
    for (const [name, cells] of columns) {
      if (name !== "scheme" && name !== "filter" && name !== "form") {
        this.#forms.push({ form: numberOf("output", name, formNumbers), cells });
      }
    }
    this.#schemes = columns.get("scheme");
    this.#filters = columns.get("filter");
    this.#given = columns.get("form");
    this.#wanted = this.#forms.reduce((all, { form }) => all | (1 << form), 0);
    this.#flags = flagsOf(options);
    this.#gcpLength = gcpLengthOf(options);
  }

  /** Converts a block of rows, the first of which has this number. */
  run(texts: string[], first: number): void {
    putBlock(texts);
    core.exports.rosetag_decodeMany(
      texts.length,
      this.#wanted,
      (this.#schemes ?? this.#filters ?? this.#given) === undefined ? 0 : 1,
      this.#flags,
      this.#gcpLength,
    );
    core.look();
    this.#readRows(texts.length, first);
    for (const { form, cells } of this.#forms) {
      readColumn(form, texts.length, first, cells);
    }
  }

  #readRows(rows: number, first: number): void {
    const address = core.exports.rosetag_rows();
    const cells = new Int8Array(core.bytes.buffer, address, ROW_BYTES * rows);
    for (let row = 0; row < rows; ++row) {
      this.status[first + row] = cells[ROW_BYTES * row] as number;
      if (this.#schemes !== undefined) {
        this.#schemes[first + row] = schemeName(cells[ROW_BYTES * row + 1] as number);
      }
      if (this.#filters !== undefined) {
        const filter = cells[ROW_BYTES * row + 2] as number;
        this.#filters[first + row] = filter < 0 ? null : filter;
      }
      if (this.#given !== undefined) {
        this.#given[first + row] = formName(cells[ROW_BYTES * row + 3] as number);
      }
    }
  }
}

/** Writes where the texts of a block end, and then the texts. */
function putBlock(texts: string[]): void {
  const rows = texts.length;
  const all = texts.join("");
  const textRoom = 3 * all.length;
  core.reserve(4 * rows + textRoom);
  const ends = core.words.subarray(core.input / 4, core.input / 4 + rows);
  const textStart = core.input + 4 * rows;
  const area = core.bytes.subarray(textStart, textStart + textRoom);
  const isAscii = encoder.encodeInto(all, area).written === all.length;
  let end = 0;
  for (let row = 0; row < rows; ++row) {
    const text = texts[row] as string;
    // A text that is not ASCII is longer in bytes.
    end += isAscii ? text.length : encoder.encodeInto(wellFormed(text), area.subarray(end)).written;
    ends[row] = end;
  }
}

function wellFormed(text: string): string {
  return /\p{Surrogate}/u.test(text) ? UNREADABLE : text;
}

function readColumn(form: number, rows: number, first: number, cells: Column): void {
  const ends = core.exports.rosetag_column(form) / 4;
  core.look();
  const { words } = core;
  const { address, length } = core.resultPlace();
  const texts = core.textAt(address, length);
  const isAscii = texts.length === length;
  let start = 0;
  for (let row = 0; row < rows; ++row) {
    const end = words[ends + row] as number;
    if (end === start) {
      cells[first + row] = null;
    } else {
      cells[first + row] = isAscii
        ? texts.slice(start, end)
        : core.textAt(address + start, end - start);
    }
    start = end;
  }
}

/**
 * Converts many values in one pass: an array for each output, and the status of each row. A row
 * that fails is null in all of them; null or undefined as a row is an empty value. One bad row never
 * ends a call.
 *
 * @throws TypeError if a row is neither a value nor null, or an output does not exist.
 */
export function decodeMany<Name extends Output>(
  values: Iterable<Value | null | undefined>,
  to: Name | readonly Name[],
  options?: ReadOptions,
): Rows<Name> {
  const given = Array.isArray(values) ? (values as (Value | null | undefined)[]) : [...values];
  const columns = new Map<Output, Column>();
  for (const name of typeof to === "string" ? [to] : to) {
    columns.set(name, new Array(given.length).fill(null));
  }
  const pass = new Pass(given.length, columns, options);
  const tooLong: number[] = [];
  const block: string[] = [];
  let first = 0;
  let length = 0;
  for (let row = 0; row < given.length; ++row) {
    let text = textOf(given[row]);
    if (text.length > core.largestValue) {
      tooLong.push(row);
      text = UNREADABLE;
    }
    block[row - first] = text;
    length += text.length;
    if (row - first === BLOCK_ROWS - 1 || length >= BLOCK_LENGTH || row === given.length - 1) {
      block.length = row + 1 - first;
      pass.run(block, first);
      first = row + 1;
      length = 0;
    }
  }
  for (const row of tooLong) {
    pass.status[row] = core.exports.rosetag_convert(put(core, given[row] as Value), 0, 0, -1);
  }
  return { status: pass.status, ...Object.fromEntries(columns) } as unknown as Rows<Name>;
}
