/*
 * Many values in one pass. Rows cross into the module in blocks: one text for all of a block, and
 * where each row ends.
 */
import { core, flagsOf, formNumbers, gcpLengthOf, names, numberOf, put } from "./calls.js";
import type { OutputForm } from "./generated/names.js";
import type { Output, ReadOptions, Rows, Value } from "./results.js";

/** Rows of a block, and code units after which one ends. */
const BLOCK_ROWS = 4096;
const BLOCK_LENGTH = 1 << 19;

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** A NUL, which no value can hold. */
const UNREADABLE = "\0";

/** A value as it stands in a block. */
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

interface Block {
  /** The rows one after the other. */
  texts: string[];
  first: number;
}

type Column = (string | number | null)[];

class Pass {
  readonly status: Uint8Array;
  readonly #forms: { form: number; cells: Column }[] = [];
  readonly #schemes: Column | undefined;
  readonly #filters: Column | undefined;
  readonly #wanted: number;
  readonly #flags: number;
  readonly #gcpLength: number;

  constructor(rows: number, columns: Map<Output, Column>, options: ReadOptions | undefined) {
    this.status = new Uint8Array(rows);
    for (const [name, cells] of columns) {
      if (name !== "scheme" && name !== "filter") {
        this.#forms.push({ form: numberOf("output", name as OutputForm, formNumbers), cells });
      }
    }
    this.#schemes = columns.get("scheme");
    this.#filters = columns.get("filter");
    this.#wanted = this.#forms.reduce((all, { form }) => all | (1 << form), 0);
    this.#flags = flagsOf(options);
    this.#gcpLength = gcpLengthOf(options);
  }

  run({ texts, first }: Block): void {
    const ends = new Uint32Array(texts.length);
    const textLength = putBlock(texts, ends);
    core.exports.rosetag_decodeMany(
      texts.length,
      textLength,
      this.#wanted,
      this.#schemes === undefined && this.#filters === undefined ? 0 : 1,
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
    const cells = new Int8Array(core.bytes.buffer, address, 3 * rows);
    for (let row = 0; row < rows; ++row) {
      this.status[first + row] = cells[3 * row] as number;
      if (this.#schemes !== undefined) {
        this.#schemes[first + row] = names.schemes[cells[3 * row + 1] as number]?.name ?? null;
      }
      if (this.#filters !== undefined) {
        const filter = cells[3 * row + 2] as number;
        this.#filters[first + row] = filter < 0 ? null : filter;
      }
    }
  }
}

/** Writes the texts of a block and where they end; returns the length of the texts in bytes. */
function putBlock(texts: string[], ends: Uint32Array): number {
  let end = 0;
  for (let row = 0; row < texts.length; ++row) {
    end += (texts[row] as string).length;
    ends[row] = end;
  }
  const room = 3 * end;
  core.reserve(room + 4 + 4 * texts.length);
  const area = core.bytes.subarray(core.input, core.input + room);
  let written = encoder.encodeInto(texts.join(""), area).written;
  if (written !== end) {
    // Not all of it is ASCII: row by row.
    written = 0;
    for (let row = 0; row < texts.length; ++row) {
      written += encoder.encodeInto(wellFormed(texts[row] as string), area.subarray(written)).written;
      ends[row] = written;
    }
  }
  const place = core.input + ((written + 3) & ~3);
  core.bytes.set(new Uint8Array(ends.buffer), place);
  return written;
}

function wellFormed(text: string): string {
  return /\p{Surrogate}/u.test(text) ? UNREADABLE : text;
}

function readColumn(form: number, rows: number, first: number, cells: Column): void {
  const ends = core.exports.rosetag_column(form) / 4;
  core.look();
  const { words, bytes } = core;
  const { address, length } = core.resultPlace();
  const texts = decoder.decode(bytes.subarray(address, address + length));
  const isAscii = texts.length === length;
  let start = 0;
  for (let row = 0; row < rows; ++row) {
    const end = words[ends + row] as number;
    if (end === start) {
      cells[first + row] = null;
    } else {
      cells[first + row] = isAscii
        ? texts.slice(start, end)
        : decoder.decode(bytes.subarray(address + start, address + end));
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
  let block: Block = { texts: [], first: 0 };
  let length = 0;
  for (let row = 0; row < given.length; ++row) {
    let text = textOf(given[row]);
    if (text.length > core.largestValue) {
      tooLong.push(row);
      text = UNREADABLE;
    }
    block.texts.push(text);
    length += text.length;
    if (block.texts.length === BLOCK_ROWS || length >= BLOCK_LENGTH) {
      pass.run(block);
      block = { texts: [], first: row + 1 };
      length = 0;
    }
  }
  if (block.texts.length > 0) {
    pass.run(block);
  }
  for (const row of tooLong) {
    pass.status[row] = core.exports.rosetag_convert(put(core, given[row] as Value), 0, 0, -1);
  }
  return { status: pass.status, ...Object.fromEntries(columns) } as unknown as Rows<Name>;
}
