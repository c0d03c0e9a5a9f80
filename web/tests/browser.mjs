/*
 * Debian's Chromium, and what tests ask of a page. A file of tests has one browser and one server,
 * and each of its tests pages of its own.
 */
import { readdirSync, statSync } from "node:fs";
import { join } from "node:path";
import { after, afterEach, before } from "node:test";
import { chromium } from "playwright-core";
import { serve, siteDirectory } from "../serve.mjs";

export { serve, siteDirectory } from "../serve.mjs";

/** The bytes of all files of the page. */
export function siteSize() {
    return readdirSync(siteDirectory).reduce((sum, name) => sum + statSync(join(siteDirectory, name)).size, 0);
}

let browser;
const contexts = [];

/** The page on its server: its url. */
export const site = {};

before(async () => {
    Object.assign(site, await serve());
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
        args: [
            "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
            "--disable-background-networking", "--disable-component-update", "--disable-sync",
        ],
    });
});
afterEach(async () => {
    await Promise.all(contexts.splice(0).map((context) => context.close()));
});
after(async () => {
    await browser.close();
    await site.close();
});

/** Opens the page with a value, and notes its errors and requests. */
export async function open(value = "", options = {}, url = site.url) {
    const context = await browser.newContext({ viewport: { width: 1000, height: 900 }, ...options });
    contexts.push(context);
    context.setDefaultTimeout(15_000);
    const page = await context.newPage();
    page.errors = [];
    page.requests = [];
    page.on("pageerror", (error) => page.errors.push(error.message));
    page.on("console", (message) => {
        if (message.type() === "error") {
            page.errors.push(message.text());
        }
    });
    page.on("request", (request) => page.requests.push(request.url()));
    await page.goto(`${url}${value === "" ? "" : `#${encodeURIComponent(value)}`}`);
    // The policy of the page forbids the evaluation that waiting for functions needs.
    await page.locator("#sentence > span").waitFor();
    return page;
}

/** Types a value, and waits until the page has taken it: its answer stands when the value is in the address. */
export async function type(page, value) {
    await page.locator("#value").fill(value);
    await page.waitForURL((url) => decodeURIComponent(url.hash.slice(1)) === value.trim());
}

export async function textOf(page, selector) {
    return (await page.locator(selector).first().textContent()).replace(/\s+/g, " ").trim();
}

export async function textsOf(page, selector) {
    return (await page.locator(selector).allTextContents()).map((text) => text.replace(/\s+/g, " ").trim());
}
