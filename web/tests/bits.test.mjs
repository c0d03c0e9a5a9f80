/*
 * The picture of the bits, and what lights together.
 */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { open, textsOf, type } from "./browser.mjs";

const SGTIN = "3074257BF7194E4000001A85";
const LONGEST = // a part number and a serial number of an aircraft part, each as long as it can be
    "3B020CF5E76C8108310518720928B30D38F4114935155976196B0C72CF4D400420C41461C824A2CC34E3D04524D45565D865AC31CB300000";
const TID = "E28011302000123456789ABC";
const PLUS = "F7880614141123458046A145CCE7CC40C01B58421E0C25AC592F6600";

let page;

// The bits of each row as they are drawn, from left to right.
async function drawnRows() {
    return page.evaluate(() =>
        [...document.querySelectorAll(".memory .word")].map((row) =>
            [...row.querySelectorAll(".bit")]
                .flatMap((text) => [...text.textContent].map((bit, i) => [text.x.baseVal.getItem(i).value, bit]))
                .sort((a, b) => a[0] - b[0])
                .map(([, bit]) => bit)
                .join(""),
        ),
    );
}

function binary(hex) {
    return [...hex].map((digit) => parseInt(digit, 16).toString(2).padStart(4, "0")).join("");
}

test("rows are the words of the memory bank, with address, bits and hex", async () => {
    page = await open();
    for (const [hex, firstWord] of [[SGTIN, 2], [LONGEST, 2], [TID, 0], [PLUS, 2], ["E2003412", 0], ["42", 2], [`3400${SGTIN}`, 1]]) {
        await type(page, hex);
        const words = hex.match(/.{1,4}/g);
        assert.deepEqual(await textsOf(page, ".memory .hex"), words, hex);
        assert.deepEqual(await drawnRows(), words.map(binary), hex);
        assert.deepEqual(
            await textsOf(page, ".memory .address"),
            words.map((_, i) => `word ${firstWord + i}`),
            hex,
        );
    }
    assert.deepEqual(page.errors, []);
});

test("each field has its name once, and its bits and meaning in the table", async () => {
    page = await open(SGTIN);
    const names = ["header", "filter", "partition", "company prefix", "item reference", "serial"];
    assert.deepEqual((await textsOf(page, ".memory .name")).sort(), [...names].sort());
    assert.deepEqual(await textsOf(page, ".fields tbody th"), names);
    assert.deepEqual(await textsOf(page, ".fields .raw"), [
        "00110000", "011", "101", "000010010101111011111101", "11000110010100111001",
        "00000000000000000000000001101010000101",
    ].map((bits) => bits.replace(/(.{8})(?=.)/g, "$1\u200B")));
    assert.equal((await textsOf(page, ".fields .meaning"))[2], "5: a company prefix of 7 digits");
});

test("fields next to one another differ in their line and not in hue alone", async () => {
    page = await open(PLUS);
    const lines = await page.evaluate(() =>
        [...document.querySelectorAll(".fields button")].map((button) => {
            const style = getComputedStyle(button);
            return `${style.textDecorationStyle} ${style.textDecorationColor}`;
        }),
    );
    for (let i = 1; i < lines.length; ++i) {
        assert.notEqual(lines[i].split(" ")[0], lines[i - 1].split(" ")[0], `fields ${i - 1} and ${i}`);
    }
    assert.equal(new Set(lines).size, lines.length);
});

// Where field 3 of the example, the company prefix, is lit.
async function litTexts(selector) {
    return textsOf(page, `${selector}.lit`);
}

test("pointing at any place of a field lights all of them", async () => {
    page = await open(SGTIN);
    const places = [
        ".memory .field[data-fields='3'] >> nth=1",
        ".memory .name[data-fields='3']",
        ".fields tbody tr[data-fields='3'] .raw",
        ".forms tr:nth-child(1) .part[data-fields='3']",
        ".forms tr:nth-child(3) .part[data-fields='3']",
        ".forms tr:nth-child(6) .part[data-fields='3'] >> nth=0",
    ];
    for (const place of places) {
        await page.mouse.move(2, 2);
        await page.locator("#answer:not(.has-lit)").waitFor();
        await page.locator(place).hover();
        await page.locator(".memory .field[data-fields='3'].lit").first().waitFor();
        assert.deepEqual(await litTexts(".memory .name"), ["company prefix"], place);
        assert.equal((await litTexts(".memory .field")).length, 3, place);
        assert.deepEqual(await litTexts(".forms tr:nth-child(1) .part"), ["0614141"], place);
        assert.deepEqual(await litTexts(".forms tr:nth-child(3) .part"), ["0614141"], place);
        assert.equal((await litTexts(".forms tr:nth-child(6) .part.hue-3")).join(""), "4257BF7", place);
        assert.equal((await litTexts(".memory .hex text")).join(""), "4257BF7", place);
        assert.equal(await page.locator(".fields tr.lit").count(), 1, place);
    }
});

test("focus lights too, a click or a tap holds, Escape lets go", async () => {
    page = await open(SGTIN);
    const serial = page.locator(".fields button", { hasText: "serial" });
    await serial.focus();
    await page.locator(".memory .name.lit", { hasText: "serial" }).waitFor();
    await page.keyboard.press("Shift+Tab");
    await page.locator(".memory .name.lit", { hasText: "item reference" }).waitFor();
    await page.keyboard.press("Enter");
    assert.equal(await page.locator(".fields button[aria-pressed='true']").textContent(), "item reference");
    await page.keyboard.press("Escape");
    assert.equal(await page.locator(".fields button[aria-pressed='true']").count(), 0);
    await serial.click();
    await type(page, TID);
    assert.equal(await page.locator(".has-lit, .lit").count(), 0, "another value has nothing lit");
    await page.context().close();

    page = await open(SGTIN, { hasTouch: true, isMobile: true, viewport: { width: 390, height: 800 } });
    await page.locator(".memory .field[data-fields='1'] .tint").tap();
    await page.locator(".fields button[aria-pressed='true']", { hasText: "filter" }).waitFor();
    assert.deepEqual(await litTexts(".forms tr:nth-child(1) .part"), ["3"]);
});

// Texts of the picture that run into one another or out of it.
async function collisions() {
    return page.evaluate(() => {
        const picture = document.querySelector(".memory");
        const frame = picture.getBoundingClientRect();
        const texts = [...picture.querySelectorAll(".name text, .address, .hex text")].map((text) => ({
            text: text.textContent,
            box: text.getBoundingClientRect(),
        }));
        const found = texts
            .filter(({ box }) => box.left < frame.left - 1 || box.right > frame.right + 1)
            .map(({ text }) => `${text} is cut off`);
        for (const [i, a] of texts.entries()) {
            for (const b of texts.slice(i + 1)) {
                const isApart =
                    a.box.right <= b.box.left + 1 || b.box.right <= a.box.left + 1 ||
                    a.box.bottom <= b.box.top + 4 || b.box.bottom <= a.box.top + 4;
                if (!isApart) {
                    found.push(`${a.text} and ${b.text}`);
                }
            }
        }
        return found;
    });
}

test("readable from one byte to 448 bits, wide, on a phone and in print", async () => {
    for (const width of [1000, 360, 320]) {
        page = await open("", { viewport: { width, height: 800 } });
        for (const value of ["42", SGTIN, LONGEST, TID, PLUS, `3400${SGTIN}`]) {
            await type(page, value);
            await page.locator(".memory").waitFor();
            assert.deepEqual(await collisions(), [], `${value} at ${width}`);
            const [scroll, font] = await page.evaluate(() => {
                const { scrollWidth, clientWidth } = document.documentElement;
                const bit = document.querySelector(".memory .bit");
                const scale = document.querySelector(".memory").getScreenCTM().a;
                return [scrollWidth - clientWidth, Number(bit.getAttribute("font-size")) * scale];
            });
            assert.equal(scroll, 0, `${value} at ${width} runs out of the window`);
            assert.ok(font >= 10, `${value} at ${width}: bits of ${font} px`);
        }
        await page.context().close();
    }
    page = await open(LONGEST);
    await page.emulateMedia({ media: "print" });
    assert.equal(await page.locator(".memory").isVisible(), true);
    assert.equal(await page.locator(".examples").isVisible(), false);
    assert.ok((await page.pdf({ format: "A4" })).length > 10_000);
});

test("a field that is wrong is marked where it stands", async () => {
    page = await open("30FF");
    assert.deepEqual(await textsOf(page, ".memory .name.bad"), ["✕ partition"]);
    assert.match((await textsOf(page, ".fields .bad .meaning"))[0], /partition value 7/);
    assert.deepEqual(await textsOf(page, ".memory .unread"), ["11"]);
    await type(page, "E28011052000");
    assert.deepEqual(await textsOf(page, ".memory .name.bad"), ["✕ serial"]);
});

test("the picture is saved as an SVG that stands alone", async () => {
    page = await open(SGTIN);
    const waiting = page.waitForEvent("download");
    await page.getByRole("button", { name: "Save the picture" }).click();
    const download = await waiting;
    assert.equal(download.suggestedFilename(), `${SGTIN}.svg`);
    const file = readFileSync(await download.path(), "utf8");
    assert.match(file, /^<svg [^>]*xmlns="http:\/\/www\.w3\.org\/2000\/svg"/);
    assert.match(file, /--hue|fill:#0072b2/);
    for (const word of ["company prefix", "word 7", "0000000"]) {
        assert.ok(file.includes(word), word);
    }
    const other = await page.context().newPage();
    await other.setContent(file);
    const fill = await other.evaluate(() => getComputedStyle(document.querySelector(".hue-0 .tint")).fill);
    assert.equal(fill, "rgb(0, 114, 178)");
});
