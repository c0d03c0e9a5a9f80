/*
 * Building a tag, and the list of company prefixes that the user brings.
 */
import assert from "node:assert/strict";
import { test } from "node:test";
import { open, site, textOf, textsOf } from "./browser.mjs";

let page;

async function openBuilder(value = "") {
    page = await open(value);
    await page.locator("#build summary").click();
    await page.locator("#build-gtin").waitFor();
}

async function schemesHeld() {
    return textsOf(page, ".schemes tr:not(.failed) label");
}

test("every scheme that can hold the identity stands beside the others with its length", async () => {
    await openBuilder();
    await page.locator("#build-filter").selectOption({ label: "2: full case for transport" });
    assert.deepEqual(await textsOf(page, ".schemes tr"), [
        "sgtin-9696 bits3054257BF7194E4000001A85copy",
        "sgtin+96 bitsF7280614141123458046A140copy",
        `sgtin-198208 bits${"3654257BF7194E5B3770E4".padEnd(52, "0")}copy`,
    ]);
    assert.equal(await page.locator("#build-answer .memory .hex").first().textContent(), "3054");
});

test("the bits change with every key, and schemes that no longer fit say why", async () => {
    await openBuilder();
    const serial = page.locator("#build-serial");
    await page.locator("#build-answer .fields button", { hasText: "serial" }).click();
    await serial.press("End");
    const seen = new Set();
    for (const key of ["0", "1", "x"]) {
        await serial.press(key);
        await page.locator("#build-answer .field.lit").first().waitFor();
        seen.add((await textsOf(page, "#build-answer .memory .hex")).join(""));
    }
    assert.equal(seen.size, 3);
    assert.deepEqual(await schemesHeld(), ["sgtin+", "sgtin-198"]);
    assert.match(await textOf(page, ".schemes .failed"), /^sgtin-96.*digits only, and "x" is not one/);
    assert.equal(await page.evaluate(() => document.activeElement.id), "build-serial");

    await page.locator("#build-sgtin-198").check();
    await page.locator("#build-answer .memory .name", { hasText: "serial" }).waitFor();
    assert.match(await page.locator("#build-answer .memory title").first().textContent(), /^208 bits/);
    assert.equal(await page.evaluate(() => document.activeElement.id), "build-sgtin-198");

    await page.locator("#build-prefix").selectOption("");
    assert.deepEqual(await schemesHeld(), ["sgtin+"]);
    await page.locator("#build-gtin").fill("80614141123457");
    assert.match(await textOf(page, "#build-problem"), /The check digit of AI 01 must be 8/);
    assert.deepEqual(await schemesHeld(), []);
});

test("any other identity can be built, also the one that was looked at", async () => {
    page = await open("(00)106141412345678908");
    await page.getByRole("button", { name: "See it on a tag" }).click();
    assert.equal(await page.locator("#build-text").inputValue(), "(00)106141412345678908");
    assert.deepEqual(await schemesHeld(), ["sscc-96", "sscc+"]);
    await page.locator("#build-text").fill("(01)80614141123458(21)6789(17)251231(10)AB");
    assert.ok((await schemesHeld()).includes("dsgtin+"));
});

const LISTS = {
    "prefixes.xml":
        '<?xml version="1.0"?><GCPPrefixFormatList date="2026-01-01T00:00:00">' +
        '<entry prefix="0614141" gcpLength="7"/><entry prefix="020" gcpLength="0"/><entry prefix="950600" gcpLength="6"/></GCPPrefixFormatList>',
    "prefixes.json": JSON.stringify({
        GCPPrefixFormatList: { date: "2026-01-01T00:00:00", entry: [{ prefix: "0614141", gcpLength: 7 }] },
    }),
};

test("a list of prefixes tells their length, stays after a reload and can be forgotten", async () => {
    for (const [name, text] of Object.entries(LISTS)) {
        await openBuilder("(01)80614141123458(21)6789");
        await page.locator("#build-prefix").selectOption("");
        assert.deepEqual(await schemesHeld(), ["sgtin+"]);
        await page.locator("#list-file").setInputFiles({ name, mimeType: "text/plain", buffer: Buffer.from(text) });
        await page.locator("#list-forget").waitFor();
        assert.deepEqual(await schemesHeld(), ["sgtin-96", "sgtin+", "sgtin-198"], name);
        await page.locator("table.forms", { hasText: "urn:epc:id:sgtin:0614141.812345.6789" }).waitFor();
        await page.reload();
        await page.locator("table.forms", { hasText: "urn:epc:id:sgtin:0614141.812345.6789" }).waitFor();
        await page.locator("#build summary").click();
        await page.locator("#list-forget").click();
        await page.locator("#prefix").waitFor();
        await page.reload();
        await page.locator("#prefix").waitFor();
        assert.ok(page.requests.every((request) => request.startsWith(site.url)));
        await page.context().close();
    }
});

test("a file that is no list of prefixes is refused", async () => {
    for (const text of ["{", "<a/>", "hello", "[]", '<GCPPrefixFormatList><entry prefix="95" gcpLength="7"/></GCPPrefixFormatList>']) {
        await openBuilder();
        await page.locator("#list-file").setInputFiles({ name: "list", mimeType: "text/plain", buffer: Buffer.from(text) });
        await page.locator("#list-state", { hasText: "not a list of company prefixes" }).waitFor();
        assert.equal(await page.locator("#list-forget").isVisible(), false, text);
        await page.context().close();
    }
});
