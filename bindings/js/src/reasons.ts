/* Registers the larger module with the core, for errors that say where and why. */
import { useReasons } from "./calls.js";
import explainWasm from "./generated/explain_wasm.js";
import { Wasm } from "./wasm.js";

let larger: Wasm | undefined;

/** The larger module; it is compiled when it is first needed. */
export function reasons(): Wasm {
  larger ??= new Wasm(explainWasm);
  return larger;
}

useReasons(reasons);
