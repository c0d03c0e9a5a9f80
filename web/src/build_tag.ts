/*
 * Builds a tag: an identity for every scheme that can hold it, side by side, and the bits of one of
 * them, while the user types.
 */
import { bits, failureSentence } from "./answer";
import { byId, copyButton, counted, html, svg } from "./elements";
import { fieldClass, linkFields } from "./field_links";
import { answerTo, encodeFor, gcpLengths, schemes, type Answer, type Explanation, type Scheme, type Tag } from "./values";

const gtin = byId<HTMLInputElement>("build-gtin");
const serial = byId<HTMLInputElement>("build-serial");
const filter = byId<HTMLSelectElement>("build-filter");
const prefix = byId<HTMLSelectElement>("build-prefix");
const text = byId<HTMLInputElement>("build-text");

let chosen = "sgtin-96";

export interface Builder {
    /** Builds a tag of an identity in any form. */
    take(identity: string): void;
    show(): void;
}

function gcpLength(): number | undefined {
    return prefix.value === "" ? undefined : Number(prefix.value);
}

// What is to be written: an element string made of GTIN and serial, or what the user gives.
function identity(): Answer {
    if (text.value.trim() !== "") {
        return answerTo(text.value.trim(), gcpLength());
    }
    // Shorter GTINs are padded; one that is wrong is reported as a GTIN.
    const key = answerTo(gtin.value.trim()).identity;
    const element = key?.form === "gtin" ? key.elementString : `(01)${gtin.value.trim()}`;
    const serialText = serial.value === "" ? "" : `(21)${serial.value}`;
    return answerTo(`${element ?? ""}${serialText}`, gcpLength());
}

function isFailed(tag: Tag): boolean {
    return tag.failure !== null;
}

// Those that hold the identity, shortest first; then those of the same family that do not.
function tagsOf(value: string): Tag[] {
    const tags = schemes().map((scheme) => encodeFor(scheme, value, Number(filter.value), gcpLength()));
    const held = tags.filter((tag) => !isFailed(tag));
    const families = new Set(held.map((tag) => tag.scheme.family));
    const others = tags.filter((tag) => isFailed(tag) && families.has(tag.scheme.family));
    held.sort((a, b) => bitCount(a) - bitCount(b));
    return [...held, ...others];
}

function bitCount(tag: Tag): number {
    return tag.answer?.explanation?.bits.length ?? 0;
}

// The fields of a tag as a strip, to scale among its neighbours.
function strip(explanation: Explanation, longest: number): SVGSVGElement {
    const picture = svg("svg", {
        class: "strip",
        viewBox: `0 0 ${String(longest)} 10`,
        preserveAspectRatio: "none",
        "aria-hidden": true,
    });
    explanation.fields.forEach((field, index) => {
        picture.append(
            svg(
                "g",
                { class: fieldClass(index) },
                svg("rect", { class: "tint", x: field.first, y: 0, width: field.width, height: 10 }),
                svg("rect", { class: "solid", x: field.first, y: 8, width: field.width, height: 2 }),
            ),
        );
    });
    return picture;
}

function heldRow(tag: Tag, longest: number): HTMLElement {
    const explanation = tag.answer?.explanation;
    const name = tag.scheme.name;
    const choice = html("input", {
        type: "radio",
        name: "build-scheme",
        value: name,
        id: `build-${name}`,
        checked: name === chosen,
    });
    choice.addEventListener("change", () => {
        chosen = name;
        show();
    });
    return html(
        "tr",
        {},
        html("th", { scope: "row" }, choice, html("label", { for: `build-${name}` }, name)),
        html("td", { class: "count" }, counted(bitCount(tag), "bit")),
        html(
            "td",
            { class: "value" },
            explanation === null || explanation === undefined ? null : strip(explanation, longest),
            explanation?.hex ?? "",
        ),
        html("td", { class: "tool" }, copyButton(explanation?.hex ?? "", `hex of ${name}`)),
    );
}

function failedRow(tag: Tag): HTMLElement {
    return html(
        "tr",
        { class: "failed" },
        html("th", { scope: "row" }, tag.scheme.name),
        html("td", { class: "count" }, "no"),
        html("td", { colspan: 2 }, tag.failure?.reason ?? ""),
    );
}

function showFilters(scheme: Scheme | undefined): void {
    const words = scheme?.filters ?? [];
    const key = words.map((word) => word.name).join();
    if (filter.dataset["words"] === key) {
        return;
    }
    filter.dataset["words"] = key;
    const before = filter.value;
    filter.replaceChildren(
        ...words.map((word) => html("option", { value: word.filter }, `${String(word.filter)}: ${word.name}`)),
    );
    if (words.length === 0) {
        filter.append(html("option", { value: 0 }, "0"));
    }
    filter.value = before;
    if (filter.selectedIndex < 0) {
        filter.selectedIndex = 0;
    }
}

function showTags(value: string): void {
    const tags = tagsOf(value);
    const held = tags.filter((tag) => !isFailed(tag));
    const shown = held.find((tag) => tag.scheme.name === chosen) ?? held[0];
    byId("build-problem").textContent = held.length === 0 ? "No scheme can hold this identity." : "";
    chosen = shown?.scheme.name ?? chosen;
    showFilters(shown?.scheme);
    const longest = Math.max(...tags.map(bitCount));
    const focused = document.activeElement?.id ?? "";
    byId("build-schemes").replaceChildren(
        html(
            "table",
            { class: "schemes" },
            html("caption", { class: "off-screen" }, "Schemes that can hold this identity"),
            html("tbody", {}, ...tags.map((tag) => (isFailed(tag) ? failedRow(tag) : heldRow(tag, longest)))),
        ),
    );
    if (focused.startsWith("build-")) {
        document.getElementById(focused)?.focus();
    }
    const explanation = shown?.answer?.explanation;
    byId("build-answer").replaceChildren(
        ...(explanation === null || explanation === undefined ? [] : [bits(explanation, "built", `${chosen}: the bits`)]),
    );
}

function show(): void {
    if (!byId<HTMLDetailsElement>("build").open) {
        return;
    }
    const { value, failure } = identity();
    gtin.disabled = serial.disabled = text.value.trim() !== "";
    if (failure !== null) {
        byId("build-problem").textContent = failureSentence(failure);
        byId("build-schemes").replaceChildren();
        byId("build-answer").replaceChildren();
        return;
    }
    showTags(value);
}

export function startBuilding(): Builder {
    prefix.append(html("option", { value: "" }, "length not known, or from a list"));
    for (const length of gcpLengths) {
        prefix.append(html("option", { value: length }, `${String(length)} digits`));
    }
    prefix.value = "7";
    showFilters(schemes()[0]);
    for (const element of [gtin, serial, text, filter, prefix]) {
        element.addEventListener("input", show);
    }
    byId("build").addEventListener("toggle", show);
    linkFields(byId("build-answer"));
    return {
        take(value: string): void {
            text.value = value;
            show();
        },
        show,
    };
}
