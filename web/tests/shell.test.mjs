/*
 * What holds for the whole page: nothing leaves it, it works offline and from disk, for keyboards
 * and screen readers, and it is small.
 */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { test } from "node:test";
import { open, serve, site, siteDirectory, siteSize, textOf, type } from "./browser.mjs";

const axeSource = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const SGTIN = "3074257BF7194E4000001A85";

let page;

async function useEverything() {
    for (const value of [SGTIN, "(01)80614141123457(17)271332", "https://id.example.com/01/09506000134352?17=271231"]) {
        await type(page, value);
    }
    await page.locator("#build summary").click();
    await page.locator("#build-serial").fill("A1");
    await page.locator("#many summary").click();
    await page.locator("#many-text").fill(`${SGTIN}\nnonsense`);
    await page.locator("#many-state", { hasText: "2 values" }).waitFor();
}

test("no request leaves, and the policy of the page forbids it", async () => {
    page = await open();
    await useEverything();
    const own = new Set(["", "page.js", "page.css", "icon.svg", "service-worker.js", "index.html"].map((name) => site.url + name));
    // Downloads are blobs of the page itself.
    assert.deepEqual(page.requests.filter((request) => !own.has(request.split("#")[0])), []);
    assert.deepEqual(page.errors, []);

    // What a value could leave by, tried from within the page: nothing reaches another server.
    let reached = 0;
    const outside = createServer((_, response) => {
        ++reached;
        response.writeHead(200, { "access-control-allow-origin": "*" }).end();
    });
    await new Promise((resolve) => outside.listen(0, "127.0.0.1", resolve));
    await page.evaluate(async (url) => {
        const element = (name, attributes) => document.body.append(Object.assign(document.createElement(name), attributes));
        element("img", { src: `${url}image` });
        element("script", { src: `${url}script` });
        element("link", { rel: "stylesheet", href: `${url}style` });
        element("iframe", { src: `${url}frame` });
        const form = Object.assign(document.createElement("form"), { action: `${url}form`, target: "other" });
        document.body.append(form);
        form.submit();
        navigator.sendBeacon(`${url}beacon`, "leak");
        try {
            new WebSocket(url.replace("http", "ws"));
        } catch {
            // refused at once
        }
        await fetch(`${url}fetch`).catch(() => undefined);
    }, `http://127.0.0.1:${outside.address().port}/`);
    await page.waitForTimeout(500);
    assert.equal(reached, 0);
    assert.ok(page.errors.length >= 6, page.errors.join("\n"));
    outside.close();
    const policy = await page.locator('meta[http-equiv="Content-Security-Policy"]').getAttribute("content");
    assert.match(policy, /default-src 'none'/);
    assert.match(policy, /connect-src 'none'/);
    assert.doesNotMatch(policy, /unsafe-inline|'unsafe-eval'|https?:/);
});

test("it works offline after the first visit", async () => {
    const own = await serve();
    page = await open(SGTIN, {}, own.url);
    await page.evaluate(() => navigator.serviceWorker.ready.then(() => true));
    await own.close();
    await page.context().setOffline(true);
    await page.reload();
    assert.match(await textOf(page, "#sentence"), /trade item/);
    await useEverything();
});

test("it works from disk", async () => {
    page = await open(SGTIN, {}, `file://${siteDirectory}/index.html`);
    assert.match(await textOf(page, "#sentence"), /trade item/);
    await page.locator(".memory").waitFor();
    await useEverything();
});

async function violations() {
    await page.evaluate(axeSource);
    return page.evaluate(async () => {
        const { violations: found } = await globalThis.axe.run(document, {
            runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"],
        });
        return found.map((rule) => `${rule.id}: ${rule.help}: ${rule.nodes.map((node) => `${node.target} ${node.failureSummary}`).join("; ")}`);
    });
}

test("axe-core finds nothing, light and dark, in every part", async () => {
    for (const colorScheme of ["light", "dark"]) {
        for (const width of [1000, 360]) {
            page = await open("", { colorScheme, viewport: { width, height: 900 } });
            assert.deepEqual(await violations(), [], `${colorScheme}, empty`);
            await useEverything();
            assert.deepEqual(await violations(), [], `${colorScheme}, everything open`);
            for (const value of [SGTIN, "30FF", "(01)80614141123457(17)271332", "E28011302000123456789ABC"]) {
                await type(page, value);
                assert.deepEqual(await violations(), [], `${colorScheme}, ${value}`);
            }
            await type(page, SGTIN);
            for (let field = 0; field < 6; ++field) {
                await page.locator(".fields button").nth(field).click();
                assert.deepEqual(await violations(), [], `${colorScheme}, field ${field} lit`);
            }
            await page.context().close();
        }
    }
});

test("everything can be reached and used with the keyboard", async () => {
    page = await open();
    assert.equal(await page.evaluate(() => document.activeElement.id), "value");
    await page.keyboard.type(SGTIN);
    const reached = [];
    for (let i = 0; i < 60; ++i) {
        await page.keyboard.press("Tab");
        const [name, ring] = await page.evaluate(() => {
            const element = document.activeElement;
            const style = getComputedStyle(element);
            return [element.id || element.textContent.trim() || element.tagName, style.outlineStyle];
        });
        if (name.startsWith("Rosetag") || name === "BODY") {
            break;
        }
        assert.notEqual(ring, "none", `${name} shows no focus`);
        reached.push(name);
    }
    for (const name of ["copy", "header", "serial", "Save the picture (SVG)", "a chip’s TID"]) {
        assert.ok(reached.includes(name), `${name} in ${reached}`);
    }
    await page.locator("#build summary").focus();
    await page.keyboard.press("Enter");
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.id), "build-gtin");
});

test("all of it is less than 300 KB, uncompressed", () => {
    console.log(`# the page: ${siteSize()} bytes in all files`);
    assert.ok(siteSize() < 300_000);
});
