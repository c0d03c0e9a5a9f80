/*
 * The lengths of GS1 company prefixes, from the list that GS1 publishes. The package has none.
 */
import { put, refuseTooLong } from "./calls.js";
import { reasons } from "./reasons.js";
import type { Value } from "./results.js";

/** The list that the module holds now; one that began anew holds none. */
let kept: GcpList | undefined;
let keptIn: unknown;

/** A list of company prefixes, for the option gcpLength. */
export class GcpList {
  readonly #lines: string;

  /**
   * @param entries The digits that a prefix begins with, and its length; 0: no prefix begins like this.
   * @throws RangeError if an entry is wrong.
   */
  constructor(entries: Iterable<readonly [prefix: string, gcpLength: number]>) {
    this.#lines = Array.from(entries, ([prefix, length]) => `${prefix} ${length}`).join("\n");
    this.#keep();
  }

  #keep(): void {
    const wasm = reasons();
    kept = undefined;
    wasm.exports.rosetag_keepGcpList(wasm.putText(this.#lines));
    const wrong = wasm.result();
    if (wrong !== "") {
      throw new RangeError(wrong);
    }
    kept = this;
    keptIn = wasm.exports;
  }

  /** The length of the company prefix in a value; undefined if the list does not tell it. */
  lengthFor(value: Value): number | undefined {
    refuseTooLong(value);
    const wasm = reasons();
    if (kept !== this || keptIn !== wasm.exports) {
      this.#keep();
    }
    return wasm.exports.rosetag_gcpLength(put(wasm, value)) || undefined;
  }
}
