/*
 * A server of static files as plain as any, for a look at the page and for its tests.
 *
 * usage: node serve.mjs [PORT]
 */
import { createReadStream, existsSync } from "node:fs";
import { createServer } from "node:http";
import { dirname, extname, join } from "node:path";
import { fileURLToPath } from "node:url";

export const siteDirectory = join(dirname(fileURLToPath(import.meta.url)), "../build/web");

const types = {
    ".html": "text/html; charset=utf-8",
    ".js": "text/javascript; charset=utf-8",
    ".css": "text/css; charset=utf-8",
    ".svg": "image/svg+xml",
};

/** Serves the page on this machine alone; port 0 is any that is free. */
export function serve(port = 0) {
    const server = createServer((request, response) => {
        const { pathname } = new URL(request.url, "http://localhost");
        const file = join(siteDirectory, pathname.endsWith("/") ? `${pathname}index.html` : pathname);
        if (!file.startsWith(siteDirectory) || !existsSync(file)) {
            response.writeHead(404).end();
            return;
        }
        response.writeHead(200, { "content-type": types[extname(file)] ?? "application/octet-stream" });
        createReadStream(file).pipe(response);
    });
    return new Promise((resolve, reject) => {
        server.on("error", reject);
        server.listen(port, "127.0.0.1", () => {
            resolve({
                url: `http://127.0.0.1:${server.address().port}/`,
                close: () => {
                    server.closeAllConnections();
                    return new Promise((done) => server.close(done));
                },
            });
        });
    });
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
    const { url } = await serve(Number(process.argv[2] ?? 8000));
    console.log(`The page is at ${url}#3074257BF7194E4000001A85 until you press Ctrl+C.`);
}
