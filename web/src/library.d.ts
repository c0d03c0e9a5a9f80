/* The WebAssembly of the library, in base64 of gzip: build.mjs makes it. */
declare module "library.wasm.gz" {
    const base64: string;
    export default base64;
}
