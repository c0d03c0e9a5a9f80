/*
 * Many values.
 */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { open, textOf, textsOf } from "./browser.mjs";

let page;

async function openMany() {
    page = await open();
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
    assert.match(await textOf(page, "#many-state"), /3 recognized, 2 not/);
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
    await page.locator(".counts button", { hasText: "BAD_PARTITION" }).click();
    await page.locator("#many-rows td", { hasText: "no company prefix length has the partition value 7" }).waitFor();
    await page.locator(".counts button", { hasText: "sgtin-96" }).click();
    await page.locator("#many-rows td", { hasText: "6790" }).waitFor();
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
    page = await open("", { permissions: ["clipboard-read", "clipboard-write"] });
    await page.evaluate(() => navigator.clipboard.writeText("3074257BF7194E4000001A85\n3074257BF7194E4000001A86"));
    await page.locator("#value").focus();
    await page.keyboard.press("Control+V");
    await page.locator("#many-state", { hasText: "2 values" }).waitFor();
    assert.equal(await page.locator("#value").inputValue(), "");
});

test("a TID is one, and a prefix list tells the pure identity of GS1 texts", async () => {
    await openMany();
    await page.locator("#many-form").selectOption("pureIdentity");
    await page.locator("#many-text").fill("E28011302000123456789ABC\n(01)80614141123458(21)6789\nE2\nFF00");
    await page.locator("#many-state", { hasText: "4 values" }).waitFor();
    assert.deepEqual(await counts(), { TID: "1", "no scheme": "1", TRUNCATED: "1", UNKNOWN_HEADER: "1" });
    const texts = () => textsOf(page, "#many-rows td:nth-child(4)");
    const [tid, gs1] = await texts();
    assert.match(tid, /^designer \(MDID\) 0x001, model \(TMN\) 0x130, serial 123456789ABC$/);
    assert.equal(gs1, "");
    assert.match(await saved(), /^E28011302000123456789ABC,TID,,OK$/m);

    const list = '<GCPPrefixFormatList><entry prefix="0614141" gcpLength="7"/></GCPPrefixFormatList>';
    await page.locator("#build summary").click();
    await page.locator("#list-file").setInputFiles({ name: "list", mimeType: "text/xml", buffer: Buffer.from(list) });
    await page.locator("#many-rows td", { hasText: "urn:epc:id:sgtin:0614141.812345.6789" }).waitFor();
    assert.match(await saved(), /,urn:epc:id:sgtin:0614141\.812345\.6789,OK$/m);
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
    // The file is made in the page; from the drop on, frames and the time to the counts are measured.
    const [milliseconds, frames, longest] = await page.evaluate(async () => {
        const line = (_, i) => `3074257BF7194E40${(0x1a85 + i).toString(16).toUpperCase().padStart(8, "0")}`;
        const file = new File([Array.from({ length: 100_000 }, line).join("\n")], "reads.txt");
        const dataTransfer = new DataTransfer();
        dataTransfer.items.add(file);
        const start = performance.now();
        document.getElementById("many-drop").dispatchEvent(new DragEvent("drop", { dataTransfer }));
        let [last, most, count] = [start, 0, 0];
        while (!document.getElementById("many-state").textContent.startsWith("100,000 values")) {
            const now = await new Promise(requestAnimationFrame);
            [last, most, count] = [now, Math.max(most, now - last), count + 1];
        }
        return [last - start, count, most];
    });
    console.log(`# 100,000 lines: ${milliseconds.toFixed(0)} ms from the drop to the counts, ${frames} frames meanwhile, the longest ${longest.toFixed(0)} ms`);
    assert.ok(frames > 5, "the page draws while the worker works");
    assert.deepEqual(await counts(), { "sgtin-96": "100,000" });
    assert.match(await textOf(page, "#many-rows .hint"), /^The first 200 of 100,000 are shown here; the CSV has all\.$/);
    const file = await saved();
    assert.equal(file.split("\n").length, 100_002);
    assert.ok(file.includes("(01)80614141123458(21)106788,OK"));
});
