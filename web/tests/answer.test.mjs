/*
 * What the page says of a value.
 */
import assert from "node:assert/strict";
import { test } from "node:test";
import { open, site, textOf, textsOf, type } from "./browser.mjs";

let page;

// What is in the field, and what the sentence has to say of it.
const sentences = [
    ["3074257BF7194E4000001A85", /^A trade item with a serial number \(sgtin-96, 96 bits\), filter 3: GTIN 80614141123458, SERIAL 6789\.$/],
    ["30 74 25 7B F7 19 4E 40 00 00 1A 85", /GTIN 80614141123458, SERIAL 6789/],
    ["urn:epc:tag:sgtin-96:2.0614141.812345.6789", /filter 2 \(full case for transport\)/],
    ["urn:epc:tag:gid-96:31415.271828.1414", /general identifier.*general manager 31415, object class 271828, serial 1414/],
    ["urn:epc:id:sscc:0614141.1234567890", /^A logistic unit \(pure identity\): SSCC 106141412345678908\.$/],
    ["(01)80614141123458(21)6789", /^A trade item with a serial number \(element string\): GTIN 80614141123458, SERIAL 6789/],
    ["]C1011234567890123110ABC", /GTIN 12345678901231, BATCH\/LOT ABC/],
    ["https://id.example.com/01/09506000134352/10/ABC123", /A GS1 value \(Digital Link\): GTIN 09506000134352, BATCH\/LOT ABC123/],
    ["F7880614141123458046A145CCE7CC40C01B58421E0C25AC592F6600", /sgtin\+, 224 bits.*USE BY 251231 and 2 more/],
    ["E28011302000123456789ABC", /chip \(TID\): designer \(MDID\) 0x001, model \(TMN\) 0x130, serial 123456789ABC/],
    ["(01)80614141123457(21)6789", /^Something is wrong at character 18\. The check digit of AI 01 must be 8 after these digits, not 7: look for a mistyped digit, or end with 8/],
    ["30FF", /partition.*Read the tag again/],
    ["nonsense", /^Something is wrong/],
    ["\u{1F3F7}", /^Something is wrong/],
];

test("one sentence says what a value is, on every key", async () => {
    page = await open();
    for (const [value, expected] of sentences) {
        await type(page, value);
        assert.match(await textOf(page, "#sentence"), expected, value);
    }
    await type(page, "");
    await page.locator("body.is-empty").waitFor();
    assert.deepEqual(page.errors, []);
});

test("a tag shows why, and all its forms with a button that copies each", async () => {
    page = await open("3074257BF7194E4000001A85", {
        permissions: ["clipboard-read", "clipboard-write"],
    });
    assert.match(await textOf(page, ".why"), /^Why\? The header 30 stands for sgtin-96, which lays out the rest: filter \(3 bits\)/);
    const rows = await textsOf(page, ".forms .value");
    assert.deepEqual(rows, [
        "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
        "urn:epc:id:sgtin:0614141.812345.6789",
        "(01)80614141123458(21)6789",
        "0180614141123458216789",
        "/01/80614141123458/21/6789",
        "3074257BF7194E4000001A85",
    ]);
    for (const [index, form] of rows.entries()) {
        const button = page.locator(".forms .copy").nth(index);
        await button.click();
        await button.filter({ hasText: "copied" }).waitFor();
        assert.equal(await page.evaluate(() => navigator.clipboard.readText()), form);
    }
    assert.deepEqual(await textsOf(page, ".ais tbody tr"), ["01GTIN80614141123458", "21SERIAL6789"]);
});

test("the separator of a barcode string is seen, and copied as it is", async () => {
    page = await open("(10)AB(21)7", { permissions: ["clipboard-read", "clipboard-write"] });
    assert.equal(await textOf(page, ".forms tr:nth-child(2) .value"), "10ABGS217");
    await page.locator(".forms tr:nth-child(2) .copy").click();
    await page.locator(".copy", { hasText: "copied" }).waitFor();
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), "10AB\u001d217");
});

// The input, what is marked in it, and what the findings beside it say.
const faults = [
    ["(01)80614141123457(17)271332", ["7", "13"], [/AI 17 holds a date/]],
    ["(01)09506000134352(21)A\u00e9B", ["\u00e9"], []],
    ["(01)09506000134352(3103)12", ["12"], []],
    ["https://example.com/01/9506000134352?utm=1", [], [/left out|padded/i]],
];

test("what is wrong is marked in the input, and told with a remedy", async () => {
    page = await open();
    for (const [value, marks, told] of faults) {
        await type(page, value);
        assert.equal(await page.locator("#marks").textContent(), value);
        const marked = await page.locator("#marks mark").allTextContents();
        for (const mark of marks) {
            assert.ok(marked.some((text) => text.includes(mark)), `${value}: ${mark} in ${marked}`);
        }
        const findings = await textsOf(page, ".findings li");
        for (const pattern of told) {
            assert.ok(findings.some((text) => pattern.test(text)), `${value}: ${findings}`);
        }
        if (marks.length > 0) {
            await page.locator('#value[aria-invalid="true"]').waitFor();
        }
    }
});

test("the marks stand under the characters they are about", async () => {
    for (const width of [1000, 360]) {
        page = await open("(01)80614141123457(21)6789(10)ABCDEFGHIJKLMNOPQ", { viewport: { width, height: 800 } });
        const input = await page.locator("#value").boundingBox();
        const copy = await page.locator("#marks").boundingBox();
        assert.deepEqual([input.width, input.height], [copy.width, copy.height]);
        const fonts = await page.evaluate(() =>
            ["value", "marks"].map((id) => {
                const style = getComputedStyle(document.getElementById(id));
                return [style.font, style.padding, style.letterSpacing, style.wordBreak].join();
            }),
        );
        assert.equal(fonts[0], fonts[1]);
        await page.context().close();
    }
});

test("the length of a company prefix that a text does not tell can be given", async () => {
    page = await open("(01)80614141123458(21)6789");
    await page.locator("#prefix-length").selectOption("7");
    await page.locator("table.forms", { hasText: "urn:epc:id:sgtin:0614141.812345.6789" }).waitFor();
});

test("the value stands in the address, and examples put theirs there", async () => {
    page = await open();
    await type(page, "(01)80614141123458(21)a/b#%");
    const link = await page.evaluate(() => location.href);
    assert.equal(link, `${site.url}#${encodeURIComponent("(01)80614141123458(21)a/b#%")}`);
    await page.goto("about:blank");
    await page.goto(link);
    assert.equal(await page.locator("#value").inputValue(), "(01)80614141123458(21)a/b#%");
    const count = await page.locator("#examples button").count();
    assert.ok(count >= 8);
    for (let i = 0; i < count; ++i) {
        await page.locator("#examples button").nth(i).click();
        const isMistake = (await textOf(page, `#examples li:nth-child(${i + 1})`)).includes("mistake");
        const value = await page.locator("#value").inputValue();
        assert.equal(await page.evaluate(() => location.href), `${site.url}#${encodeURIComponent(value)}`);
        await page.locator(isMistake ? "#sentence.failed" : "#sentence:not(.failed)").waitFor();
    }
    assert.deepEqual(page.errors, []);
});
