/*
 * Pictures of the page in both themes, wide and on a phone, in build/pictures, for people to look
 * at. Nothing in them may run out of the window.
 */
import assert from "node:assert/strict";
import { mkdirSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { open, siteDirectory } from "./browser.mjs";

const pictures = join(siteDirectory, "../pictures");

const values = {
    empty: "",
    tag: "3074257BF7194E4000001A85",
    longest: "3B020CF5E76C8108310518720928B30D38F4114935155976196B0C72CF4D400420C41461C824A2CC34E3D04524D45565D865AC31CB300000",
    plus: "F7880614141123458046A145CCE7CC40C01B58421E0C25AC592F6600",
    tid: "E28011302000123456789ABC",
    text: "(01)80614141123458(21)6789",
    link: "https://id.example.com/01/09506000134352/10/ABC123?17=271231",
    mistake: "(01)80614141123457(17)271332",
    cut: "30FF",
};

mkdirSync(pictures, { recursive: true });

async function take(page, name, theme, width) {
    const overflow = await page.evaluate(
        () => document.documentElement.scrollWidth - document.documentElement.clientWidth,
    );
    assert.equal(overflow, 0, `${name}, ${theme}, ${width}`);
    await page.screenshot({ path: join(pictures, `${name}-${theme}-${width}.png`), fullPage: true });
}

for (const theme of ["light", "dark"]) {
    for (const width of [900, 360]) {
        test(`pictures of the page, ${theme}, ${width} pixels wide`, async () => {
            for (const [name, value] of Object.entries(values)) {
                const page = await open(value, { colorScheme: theme, viewport: { width, height: 700 } });
                await take(page, name, theme, width);
                if (name === "tag") {
                    await page.locator(".fields button").nth(3).click();
                    await take(page, "lit", theme, width);
                }
                if (name === "text") {
                    await page.locator("#build summary").click();
                    await page.locator("#build-serial").fill("67A/9");
                    await take(page, "build", theme, width);
                }
                if (name === "empty") {
                    await page.locator("#many summary").click();
                    await page.locator("#many-text").fill(Object.values(values).slice(1).join("\n"));
                    await page.locator("#many-state", { hasText: "8 values" }).waitFor();
                    await take(page, "many", theme, width);
                }
                await page.context().close();
            }
        });
    }
}

test("the picture for the README", async () => {
    const page = await open(values.tag, { viewport: { width: 900, height: 1036 } });
    await page.locator("#value").blur();
    await page.screenshot({ path: join(pictures, "page.png") });
    assert.equal(await page.locator(".memory").isVisible(), true);
    await page.context().close();
});
