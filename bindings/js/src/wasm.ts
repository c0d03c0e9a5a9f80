/*
 * A module of the library with its memory. Values are written to its input; results are read where
 * it says that they are.
 */

/** What a module exports for this package; the functions of the C library are there besides. */
interface Exports {
  memory: WebAssembly.Memory;
  __wasm_call_ctors(): void;
  rosetag_input(bytes: number): number;
  rosetag_result(): number;
  rosetag_largestValue(): number;
  rosetag_convert(length: number, form: number, flags: number, gcpLength: number): number;
  rosetag_decode(length: number, flags: number, gcpLength: number): number;
  rosetag_encode(
    length: number,
    scheme: number,
    filter: number,
    gcpLength: number,
    encoding: number,
    flags: number,
  ): number;
  rosetag_failure(): void;
  rosetag_decodeMany(
    rows: number,
    forms: number,
    details: number,
    flags: number,
    gcpLength: number,
  ): void;
  rosetag_rows(): number;
  rosetag_column(form: number): number;
  // The larger module only.
  rosetag_keepGcpList(length: number): void;
  rosetag_gcpLength(length: number): number;
  rosetag_explain(length: number, flags: number, gcpLength: number): number;
  rosetag_tid(length: number): number;
  rosetag_bits(): void;
  rosetag_check(length: number, flags: number, gcpLength: number): void;
  rosetag_encodeAi(codeLength: number, length: number, withCode: number, encoding: number): number;
  rosetag_decodeAi(codeLength: number, length: number): number;
}

const encoder = new TextEncoder();
const decoder = new TextDecoder("utf-8", { ignoreBOM: true });

/** What Node.js has besides: for short texts it takes half the time of a TextDecoder. */
interface NodeBytes {
  utf8Slice(start: number, end: number): string;
}
const NodeBuffer = (globalThis as { Buffer?: { from(memory: ArrayBuffer): NodeBytes; prototype: unknown } }).Buffer;
const isNode = typeof (NodeBuffer?.prototype as NodeBytes | undefined)?.utf8Slice === "function";

/** Texts up to this length are quicker written here than by TextEncoder. */
const SHORT_INPUT = 64;

function bytesOfBase64(text: string): Uint8Array<ArrayBuffer> {
  const characters = atob(text);
  const bytes = new Uint8Array(characters.length);
  for (let at = 0; at < bytes.length; ++at) {
    bytes[at] = characters.charCodeAt(at);
  }
  return bytes;
}

export class Wasm {
  /** Changes after a call that could not finish: read it again each time. */
  exports!: Exports;
  bytes!: Uint8Array;
  words!: Int32Array;
  #nodeBytes: NodeBytes | undefined;
  input = 0;
  largestValue = 0;
  readonly #module: WebAssembly.Module;
  #inputSize = 0;
  #result = 0;

  constructor(base64: string) {
    this.#module = new WebAssembly.Module(bytesOfBase64(base64));
    this.begin();
  }

  /** Starts with fresh memory, after a call that could not finish. */
  begin(): void {
    this.exports = new WebAssembly.Instance(this.#module).exports as unknown as Exports;
    this.exports.__wasm_call_ctors();
    this.#inputSize = 0;
    this.#result = this.exports.rosetag_result() / 4;
    this.largestValue = this.exports.rosetag_largestValue();
    this.bytes = new Uint8Array();
    this.look();
    this.reserve(4096);
  }

  /** Looks at the memory again: growing moves it, and leaves views without a length. */
  look(): void {
    if (this.bytes.length === 0) {
      this.bytes = new Uint8Array(this.exports.memory.buffer);
      this.words = new Int32Array(this.exports.memory.buffer);
      this.#nodeBytes = isNode ? NodeBuffer?.from(this.exports.memory.buffer) : undefined;
    }
  }

  /** Makes room in the input. Its content is lost if it has to grow. */
  reserve(bytes: number): void {
    if (bytes > this.#inputSize) {
      this.#inputSize = 0; // if there is not enough memory
      this.input = this.exports.rosetag_input(bytes);
      this.#inputSize = bytes;
      this.look();
    }
  }

  /** Writes a text to the input; returns its length in bytes. */
  putText(text: string, offset = 0): number {
    const { length } = text;
    this.reserve(offset + 3 * length);
    const { bytes } = this;
    const first = this.input + offset;
    if (length <= SHORT_INPUT) {
      let at = 0;
      for (; at < length; ++at) {
        const code = text.charCodeAt(at);
        if (code >= 0x80) {
          break;
        }
        bytes[first + at] = code;
      }
      if (at === length) {
        return length;
      }
    }
    return encoder.encodeInto(text, bytes.subarray(first, first + 3 * length)).written;
  }

  /** A text in the memory. */
  textAt(address: number, length: number): string {
    return this.#nodeBytes === undefined
      ? decoder.decode(this.bytes.subarray(address, address + length))
      : this.#nodeBytes.utf8Slice(address, address + length);
  }

  /** The text that the last call gave. */
  result(): string {
    this.look();
    return this.textAt(this.words[this.#result] as number, this.words[this.#result + 1] as number);
  }

  /** Where that text stands. */
  resultPlace(): { address: number; length: number } {
    this.look();
    return {
      address: this.words[this.#result] as number,
      length: this.words[this.#result + 1] as number,
    };
  }

  /** The record that the last call gave. */
  record(): RecordReader {
    this.look();
    const { words } = this;
    const place = this.#result;
    return new RecordReader(
      this,
      words[place] as number,
      words[place + 1] as number,
      (words[place + 2] as number) / 4,
    );
  }
}

/** Reads numbers and texts in the order in which the module wrote them, before the next call. */
export class RecordReader {
  readonly #wasm: Wasm;
  readonly #address: number;
  readonly #all: string;
  readonly #isAscii: boolean;
  #number: number;
  #start = 0;

  constructor(wasm: Wasm, address: number, length: number, numbers: number) {
    this.#wasm = wasm;
    this.#address = address;
    this.#all = wasm.textAt(address, length);
    this.#isAscii = this.#all.length === length;
    this.#number = numbers;
  }

  number(): number {
    return this.#wasm.words[this.#number++] as number;
  }

  text(): string {
    const start = this.#start;
    const end = this.number();
    this.#start = end;
    return this.#isAscii
      ? this.#all.slice(start, end)
      : this.#wasm.textAt(this.#address + start, end - start);
  }

  /** A text, null if it is empty. */
  textOrNull(): string | null {
    return this.text() || null;
  }
}
