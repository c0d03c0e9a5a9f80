/*
 * One script is the page and its worker. It holds the WebAssembly of the library compressed, so that
 * it is small also where a server does not compress, and works from disk, where nothing can be
 * fetched. Everything else is evaluated once that is unpacked.
 */
import compressed from "library.wasm.gz";

declare global {
    /** In base64, as the package would have it in its own files. */
    var libraryWasm: string; // eslint-disable-line no-var
}

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
    return Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
}

async function unpack(): Promise<string> {
    const stream = new Blob([bytesOf(compressed)]).stream().pipeThrough(new DecompressionStream("gzip"));
    const bytes = new Uint8Array(await new Response(stream).arrayBuffer());
    let binary = "";
    for (let first = 0; first < bytes.length; first += 0x8000) {
        binary += String.fromCharCode(...bytes.subarray(first, first + 0x8000));
    }
    return btoa(binary);
}

// What the page asks before the worker is ready waits in its queue.
async function boot(): Promise<void> {
    if (typeof document === "undefined") {
        const early: MessageEvent[] = [];
        onmessage = (event: MessageEvent) => {
            early.push(event);
        };
        globalThis.libraryWasm = await unpack();
        const { startWorker } = await import("./many_worker");
        startWorker();
        early.forEach((event) => dispatchEvent(new MessageEvent("message", { data: event.data })));
        return;
    }
    globalThis.libraryWasm = await unpack();
    const { startPage } = await import("./page");
    startPage();
}

void boot();
