/*
 * Many values.
 */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { after, afterEach, before, test } from "node:test";
import { openPage, serve, startBrowser, textOf, textsOf } from "./browser.mjs";

let browser, site, page;
before(async () => {
    site = await serve();
    browser = await startBrowser();
});
after(async () => {
    await browser.close();
    await site.close();
});
afterEach(async () => {
    await page?.context().close();
});

async function openMany() {
    page = await openPage(browser, site.url);
    await page.locator("#many summary").click();
}

async function drop(name, text) {
    await page.locator("#many-file").setInputFiles({ name, mimeType: "text/plain", buffer: Buffer.from(text) });
}

async function saved() {
    const waiting = page.waitForEvent("download");
    await page.locator("#many-save").click();
    return readFileSync(await (await waiting).path(), "utf8");
}

async function counts() {
    return Object.fromEntries(
        (await page.locator(".counts button").evaluateAll((buttons) =>
            buttons.map((button) => [...button.querySelectorAll("span")].map((span) => span.textContent)),
        )),
    );
}

test("lines are counted by scheme and status, shown by group, and saved", async () => {
    await openMany();
    await page.locator("#many-text").fill(
        "3074257BF7194E4000001A85\n(01)80614141123458(21)6789\n30FF\nnonsense\n3074257BF7194E4000001A86\r\n",
    );
    await page.locator("#many-state", { hasText: "5 values" }).waitFor();
    assert.match(await textOf(page, "#many-state"), /3 read, 2 not/);
    const found = await counts();
    assert.equal(found["sgtin-96"], "2");
    assert.equal(found["no scheme"], "1");
    assert.equal(Object.values(found).length, 5 - 1);
    await page.locator(".counts button", { hasText: "sgtin-96" }).click();
    await page.locator("#many-rows tbody tr:nth-child(2):last-child").waitFor();
    assert.deepEqual(await textsOf(page, "#many-rows td:nth-child(4)"), ["(01)80614141123458(21)6789", "(01)80614141123458(21)6790"]);

    await page.locator("#many-form").selectOption("tagUri");
    await page.locator("#many-rows td", { hasText: "urn:epc:tag:sgtin-96:3.0614141.812345.6790" }).waitFor();
    const lines = (await saved()).trimEnd().split("\n");
    assert.equal(lines.length, 6);
    assert.equal(lines[0], "value,scheme,tag_uri,status");
    assert.equal(lines[1], "3074257BF7194E4000001A85,sgtin-96,urn:epc:tag:sgtin-96:3.0614141.812345.6789,OK");
    assert.match(lines[3], /^30FF,,,[A-Z_]+$/);
    await page.locator("#many-rows a").first().click();
    await page.locator("#sentence", { hasText: "trade item" }).waitFor();
});

// The column of a table is found by its values; names above it are kept.
const tables = [
    ["reads.csv", 'time,epc,antenna\n10:00,3074257BF7194E4000001A85,1\n10:01,"30FF",2\n', 2, "time,epc,antenna,scheme"],
    ["reads.tsv", "3074257BF7194E4000001A85\tdock\n3074257BF7194E4000001A86\tgate\n", 2, "value,value2,scheme"],
    ["semi.csv", '"a ""name"", quoted";value\n"x;y";3074257BF7194E4000001A85\n', 1, '"a ""name"", quoted",value,scheme'],
    ["lines.txt", "(10)AB,CD(21)1\n(01)80614141123458\n", 2, "value,scheme"],
];

test("a table is read by its column of values and keeps its other columns", async () => {
    for (const [name, text, rows, head] of tables) {
        await openMany();
        await drop(name, text);
        await page.locator("#many-state", { hasText: `${rows} value` }).waitFor();
        const file = await saved();
        assert.ok(file.startsWith(head), `${name}: ${file}`);
        assert.ok(file.includes(",OK\n"), `${name}: ${file}`);
        assert.equal(file.trimEnd().split("\n").length, rows + 1, name);
        await page.context().close();
    }
});

test("several lines in the field above become many values", async () => {
    page = await openPage(browser, site.url, "", { permissions: ["clipboard-read", "clipboard-write"] });
    await page.evaluate(() => navigator.clipboard.writeText("3074257BF7194E4000001A85\n3074257BF7194E4000001A86"));
    await page.locator("#value").focus();
    await page.keyboard.press("Control+V");
    await page.locator("#many-state", { hasText: "2 values" }).waitFor();
    assert.equal(await page.locator("#value").inputValue(), "");
});

test("a dropped file is read", async () => {
    await openMany();
    const transfer = await page.evaluateHandle(() => {
        const data = new DataTransfer();
        data.items.add(new File(["E2003412\n3074257BF7194E4000001A85"], "tags.txt"));
        return data;
    });
    await page.dispatchEvent("#many-drop", "drop", { dataTransfer: transfer });
    await page.locator("#many-state", { hasText: "2 values" }).waitFor();
});

test("100,000 lines go through the worker while the page stays responsive", async () => {
    await openMany();
    const lines = Array.from({ length: 100_000 }, (_, i) => `3074257BF7194E40${(0x1a85 + i).toString(16).toUpperCase().padStart(8, "0")}`);
    // The longest time between two frames says how long the page did not answer.
    await page.evaluate(() => {
        window.longestFrame = 0;
        let last = performance.now();
        const frame = (now) => {
            window.longestFrame = Math.max(window.longestFrame, now - last);
            last = now;
            requestAnimationFrame(frame);
        };
        requestAnimationFrame(frame);
    });
    const start = performance.now();
    await drop("reads.txt", lines.join("\n"));
    await page.locator("#many-state", { hasText: "100,000 values" }).waitFor({ timeout: 30_000 });
    const seconds = (performance.now() - start) / 1000;
    const longest = await page.evaluate(() => window.longestFrame);
    console.log(`# 100,000 lines: ${seconds.toFixed(2)} s from file to counts; ${await textOf(page, "#many-state")} Longest frame ${longest.toFixed(0)} ms.`);
    assert.deepEqual(await counts(), { "sgtin-96": "100,000" });
    const file = await saved();
    assert.equal(file.split("\n").length, 100_002);
    assert.ok(file.includes("(01)80614141123458(21)106788,OK"));
});
