/*
 * A module of the library with its memory. Values are written to its input; results are read where
 * it says that they are.
 */
import type { Status } from "./generated/names.js";

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
  rosetag_tid(length: number): number;
  rosetag_failure(): void;
  rosetag_failureText(): void;
  rosetag_decodeMany(
    rows: number,
    textLength: number,
    forms: number,
    details: number,
    flags: number,
    gcpLength: number,
  ): void;
  rosetag_rows(): number;
  rosetag_column(form: number): number;
  rosetag_names(): void;
  // The larger module only.
  rosetag_keepGcpList(length: number): void;
  rosetag_gcpLength(length: number): number;
  rosetag_explain(length: number, flags: number, gcpLength: number): number;
  rosetag_bits(): void;
  rosetag_check(length: number, flags: number, gcpLength: number): void;
  rosetag_encodeAi(codeLength: number, length: number, withCode: number, encoding: number): number;
  rosetag_decodeAi(codeLength: number, length: number): number;
}

/** A failure as the module tells it; positions count bytes. */
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

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** Texts up to these lengths are quicker written and put together here than by the functions above. */
const SHORT_INPUT = 64;
const SHORT_RESULT = 16;

function bytesOfBase64(text: string): Uint8Array<ArrayBuffer> {
  const characters = atob(text);
  const bytes = new Uint8Array(characters.length);
  for (let at = 0; at < bytes.length; ++at) {
    bytes[at] = characters.charCodeAt(at);
  }
  return bytes;
}

export class Wasm {
  /** Changes after a call that could not end: read it anew each time. */
  exports!: Exports;
  bytes!: Uint8Array;
  words!: Uint32Array;
  input = 0;
  largestValue = 0;
  readonly #module: WebAssembly.Module;
  #inputSize = 0;
  #result = 0;

  constructor(base64: string) {
    this.#module = new WebAssembly.Module(bytesOfBase64(base64));
    this.begin();
  }

  /** Begins with fresh memory, after a call that could not end. */
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
      this.words = new Uint32Array(this.exports.memory.buffer);
    }
  }

  /** Makes room in the input. What stands there is lost if it has to grow. */
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
    const { bytes } = this;
    if (length <= SHORT_RESULT) {
      let text = "";
      let at = address;
      for (; at < address + length; ++at) {
        const code = bytes[at] as number;
        if (code >= 0x80) {
          break;
        }
        text += String.fromCharCode(code);
      }
      if (at === address + length) {
        return text;
      }
    }
    return decoder.decode(bytes.subarray(address, address + length));
  }

  resultPlace(): { address: number; length: number } {
    this.look();
    return {
      address: this.words[this.#result] as number,
      length: this.words[this.#result + 1] as number,
    };
  }

  /** The result of the last call. */
  result(): string {
    this.look();
    return this.textAt(this.words[this.#result] as number, this.words[this.#result + 1] as number);
  }

  failure(): RawFailure {
    this.exports.rosetag_failureText();
    const text = this.result();
    this.exports.rosetag_failure();
    const failure = JSON.parse(this.result());
    return {
      status: statusOf(failure.status),
      text,
      message: failure.message,
      remedy: failure.remedy ?? "",
      position: failure.position,
      length: failure.length,
      culprit: failure.culprit ?? "",
      option: failure.option ?? "",
    };
  }
}

/** "EPC_ERR_CHECK_DIGIT" is "CHECK_DIGIT" here. */
export function statusOf(name: string): Status {
  return name.replace(/^EPC_(ERR_)?/, "") as Status;
}
