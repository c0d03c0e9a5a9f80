/* The package in Node.js, where the size of the larger module does not matter. */
import "./reasons.js";

export * from "./index.js";
