/* The package in Chromium, under a Content-Security-Policy that allows WebAssembly and no eval. */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";
import { after, before, test } from "node:test";

import { chromium } from "playwright-core";

const root = fileURLToPath(new URL("../../..", import.meta.url));
const types = { ".html": "text/html", ".js": "text/javascript", ".mjs": "text/javascript" };
const policy = "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; connect-src 'self'; worker-src 'self'";

function serve(request, response) {
  const path = normalize(new URL(request.url, "http://localhost").pathname);
  try {
    const body = readFileSync(join(root, path));
    const type = types[extname(path)] ?? "text/plain";
    response.writeHead(200, { "Content-Type": `${type}; charset=utf-8`, "Content-Security-Policy": policy });
    response.end(body);
  } catch {
    response.writeHead(404).end();
  }
}

let server;
let browser;
before(async () => {
  server = createServer(serve);
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: [
      ...["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run"],
      ...["--disable-background-networking", "--disable-component-update", "--disable-sync"],
    ],
  });
});
after(async () => {
  await browser?.close();
  server?.close();
});

test("shared rows in a page and in a worker of Chromium", async () => {
  const page = await browser.newPage();
  const complaints = [];
  page.on("pageerror", (error) => complaints.push(String(error)));
  page.on("console", (message) => message.type() === "error" && complaints.push(message.text()));
  await page.goto(`http://127.0.0.1:${server.address().port}/bindings/js/test/browser.html`);
  const text = await page.locator("output").textContent({ timeout: 60_000 });
  assert.deepEqual(complaints.filter((line) => !line.includes("favicon")), []);
  for (const [where, outcome] of Object.entries(JSON.parse(text))) {
    assert.ok(outcome.rows > 3000 && outcome.many > 2000, where);
    assert.deepEqual(outcome.wrong, [], where);
    const [before, after] = outcome.errors;
    assert.deepEqual(
      [before.status, before.position, before.message],
      [
        "CHECK_DIGIT",
        0,
        'CHECK_DIGIT: the check digit of a GS1 key is wrong; import "rosetag/explain" to learn where and why',
      ],
      where,
    );
    assert.deepEqual([after.status, after.position], ["CHECK_DIGIT", 17], where);
    assert.match(after.message, /^character 18, "9": .* must be 8 /, where);
  }
});
