/*
 * What a value is: one sentence, why, its forms, its AIs, its bits and what is wrong with it.
 */
import { bitsFile, drawBits } from "./bits_picture";
import { button, copyButton, counted, html, saveFile } from "./elements";
import { fieldClass, MARK, markedText, tellOfRedrawing, type TextPart } from "./field_links";
import {
    formTitles,
    hexPlaces,
    namesOfTid,
    schemeNamed,
    schemeThatHolds,
    type Answer,
    type Explanation,
    type Failure,
    type Field,
    type Finding,
    type Form,
    type Identity,
} from "./values";

const SHOWN_IN_SENTENCE = 3;

function strong(text: string): HTMLElement {
    return html("strong", {}, text);
}

function capitalized(text: string): string {
    return text.charAt(0).toUpperCase() + text.slice(1);
}

// "GTIN 80614141123458, SERIAL 6789", or the fields of a scheme that has no AIs.
function namesOf(answer: Answer): [string, string][] {
    const ais = answer.identity?.ais ?? [];
    if (ais.length > 0) {
        return ais.map((ai) => [ai.title || `AI ${ai.ai}`, ai.value]);
    }
    const fields = answer.explanation?.fields ?? [];
    return fields
        .filter((field) => field.value !== null && field.value !== "" && field.name !== "filter")
        .map((field) => [field.name, field.value ?? ""]);
}

function listed(names: [string, string][]): (Node | string)[] {
    const parts = names
        .slice(0, SHOWN_IN_SENTENCE)
        .flatMap(([title, value], i) => [i > 0 ? ", " : "", `${title} `, strong(value)]);
    const rest = names.length - SHOWN_IN_SENTENCE;
    return rest > 0 ? [...parts, ` and ${String(rest)} more`] : parts;
}

function filterWords(identity: Identity): string {
    if (identity.filter === null) {
        return "";
    }
    const word = schemeNamed(identity.scheme)?.filters.find((row) => row.filter === identity.filter);
    return `, filter ${String(identity.filter)}${word === undefined ? "" : ` (${word.name})`}`;
}

function sentenceOfTag(identity: Identity, answer: Answer): (Node | string)[] {
    const thing = schemeNamed(identity.scheme)?.thing ?? "a tag value";
    const [article, ...rest] = thing.split(" ");
    return [
        `${capitalized(article ?? "")} `,
        strong(rest.join(" ")),
        ` (${identity.scheme ?? ""}, ${String(identity.bits)} bits)${filterWords(identity)}: `,
        ...listed(namesOf(answer)),
        ".",
    ];
}

function sentenceOfText(identity: Identity): (Node | string)[] {
    const [article, ...rest] = (schemeThatHolds(identity)?.thing ?? "a GS1 value").split(" ");
    const form = formTitles[identity.form as Form] ?? identity.form;
    return [
        `${capitalized(article ?? "")} `,
        strong(rest.join(" ")),
        ` (${form}): `,
        ...listed(identity.ais.map((ai) => [ai.title || `AI ${ai.ai}`, ai.value])),
        ".",
    ];
}

function sentenceOfTid(explanation: Explanation): (Node | string)[] {
    return ["The ", strong("identity of a tag’s chip"), " (TID): ", ...listed(namesOfTid(explanation)), "."];
}

/** What is wrong and what to do, in one or two sentences. */
export function failureSentence(failure: Failure): string {
    const remedy = failure.remedy === "" ? "" : ` ${capitalized(failure.remedy)}.`;
    return `${capitalized(failure.reason)}.${remedy}`;
}

function sentenceOfFailure(answer: Answer): (Node | string)[] {
    const { failure } = answer;
    if (failure === null) {
        return [];
    }
    const place =
        failure.length > 0
            ? ` at character ${String(failure.position + 1)}`
            : failure.position > 0
              ? ` after character ${String(failure.position)}`
              : "";
    return [strong(`Something is wrong${place}.`), ` ${failureSentence(failure)}`];
}

/** The sentence that says what a value is. */
export function sentence(answer: Answer): (Node | string)[] {
    const { identity, explanation } = answer;
    if (answer.failure !== null) {
        return sentenceOfFailure(answer);
    }
    if (explanation?.form === "tid") {
        return sentenceOfTid(explanation);
    }
    if (identity === null) {
        return [];
    }
    return identity.scheme === null ? sentenceOfText(identity) : sentenceOfTag(identity, answer);
}

// What its first bits say, and how that lays out the rest.
function why(explanation: Explanation): HTMLElement | null {
    const start = explanation.fields.findIndex((field) => ["header", "allocation class"].includes(field.name));
    const head = explanation.fields[start];
    const rest = explanation.fields.slice(start + 1).filter((field) => field.isGood && field.width > 0);
    if (head === undefined || !head.isGood || rest.length === 0) {
        return null;
    }
    const shown = rest.slice(0, 5).map((field) => `${field.name} (${counted(field.width, "bit")})`);
    const hex = parseInt(head.bits, 2).toString(16).toUpperCase();
    return html(
        "p",
        { class: "why" },
        `Why? The ${head.name} `,
        html("code", { class: `part ${fieldClass(start)}`, [MARK]: start }, hex),
        ` stands for ${head.meaning.replace(/^0x\w+[:,] /, "")}, which lays out the rest: `,
        `${shown.join(", ")}${rest.length > shown.length ? " and so on" : ""}.`,
    );
}

function visible(text: string): string {
    return text.replaceAll("\u001d", "␝");
}

function partsFor(form: Form, answer: Answer): TextPart[] {
    const { explanation } = answer;
    if (explanation === null) {
        return [];
    }
    return explanation.places.filter((place) => place.form === form);
}

function hexText(explanation: Explanation): DocumentFragment {
    const fragment = document.createDocumentFragment();
    hexPlaces(explanation).forEach((owners, digit) => {
        const first = owners[0];
        fragment.append(
            html(
                "span",
                {
                    class: first === undefined ? undefined : `part ${fieldClass(first)}`,
                    [MARK]: owners.length > 0 ? owners.join(" ") : undefined,
                },
                explanation.hex.charAt(digit),
            ),
        );
    });
    return fragment;
}

function formRow(title: string, text: string, shown: Node | string): HTMLElement {
    return html(
        "tr",
        {},
        html("th", { scope: "row" }, title),
        html("td", { class: "value" }, shown),
        html("td", { class: "tool" }, copyButton(text, title)),
    );
}

function forms(answer: Answer): HTMLElement | null {
    const { identity, explanation } = answer;
    const rows: HTMLElement[] = [];
    if (identity !== null) {
        for (const [form, title] of Object.entries(formTitles) as [Form, string][]) {
            const text = identity[form];
            if (text !== null && form !== "hex") {
                rows.push(formRow(title, text, markedText(text, partsFor(form, answer))));
            }
        }
    }
    const hex = explanation?.hex ?? identity?.hex ?? "";
    if (hex !== "") {
        rows.push(formRow("hex", hex, explanation === null ? hex : hexText(explanation)));
    }
    return rows.length === 0
        ? null
        : section("Its forms", "forms", html("table", { class: "forms" }, html("tbody", {}, ...rows)));
}

function section(title: string, name: string, ...content: (Node | null)[]): HTMLElement {
    const id = `title-${name}`;
    return html("section", { "aria-labelledby": id, class: name }, html("h2", { id }, title), ...content);
}

function ais(answer: Answer): HTMLElement | null {
    const rows = answer.identity?.ais ?? [];
    if (rows.length === 0) {
        return null;
    }
    return section(
        "Application identifiers",
        "ais",
        html(
            "table",
            {},
            html(
                "thead",
                {},
                html(
                    "tr",
                    {},
                    ...["AI", "title", "value"].map((title) => html("th", { scope: "col" }, title)),
                ),
            ),
            html(
                "tbody",
                {},
                ...rows.map((ai) =>
                    html(
                        "tr",
                        {},
                        html("td", { class: "value code" }, ai.ai),
                        html("td", {}, ai.title),
                        html("td", { class: "value" }, ai.value),
                    ),
                ),
            ),
        ),
    );
}

function findingItem(finding: Finding): HTMLElement {
    return html(
        "li",
        { class: finding.severity },
        html("span", { class: "severity" }, finding.severity),
        finding.culprit === "" ? null : html("code", {}, visible(finding.culprit)),
        ` ${capitalized(finding.message)}.`,
    );
}

// What check found besides the failure in the sentence.
function findings(answer: Answer): HTMLElement | null {
    const further = answer.findings.filter(
        (finding) =>
            answer.failure === null ||
            finding.position !== answer.failure.position ||
            finding.length !== answer.failure.length,
    );
    const items = further.map(findingItem);
    for (const note of answer.notes) {
        items.push(
            html("li", { class: note.severity }, html("span", { class: "severity" }, note.severity), ` ${capitalized(note.text)}.`),
        );
    }
    return items.length === 0 ? null : html("ul", { class: "findings" }, ...items);
}

function bitGroups(field: Field): string {
    return field.bits.replace(/(.{8})(?=.)/g, "$1\u200B");
}

function fieldRow(field: Field, index: number): HTMLElement {
    return html(
        "tr",
        { [MARK]: index, class: field.isGood ? undefined : "bad" },
        html(
            "th",
            { scope: "row" },
            html(
                "button",
                { type: "button", class: `part ${fieldClass(index)}`, [MARK]: index, "aria-pressed": "false" },
                field.name,
            ),
        ),
        html("td", { class: "count" }, counted(field.width, "bit")),
        html("td", { class: "value raw" }, bitGroups(field)),
        html("td", { class: "meaning" }, field.isGood ? field.meaning : `✕ ${field.meaning}`),
    );
}

function fieldTable(explanation: Explanation): HTMLElement {
    const titles = ["field", "width", "raw bits", "meaning"];
    return html(
        "table",
        { class: "fields" },
        html("thead", {}, html("tr", {}, ...titles.map((title) => html("th", { scope: "col" }, title)))),
        html("tbody", {}, ...explanation.fields.map(fieldRow)),
    );
}

/** The picture of the bits, redrawn when its room changes, and the table of the fields. */
export function bits(explanation: Explanation, name: string, what: string): HTMLElement {
    const frame = html("div", { class: "frame" });
    let drawnFor = 0;
    new ResizeObserver(() => {
        const width = frame.clientWidth;
        if (width > 0 && width !== drawnFor) {
            drawnFor = width;
            frame.replaceChildren(drawBits(explanation, width));
            tellOfRedrawing(frame);
        }
    }).observe(frame);
    const bank = explanation.form === "tid" ? "the TID bank" : "the EPC bank";
    return section(
        `${what}, as stored in ${bank}`,
        name,
        frame,
        html(
            "p",
            { class: "tools" },
            button("Save the picture (SVG)", () => {
                saveFile(`${explanation.hex || "bits"}.svg`, "image/svg+xml", [bitsFile(explanation)]);
            }),
            button("Print", () => {
                print();
            }),
        ),
        fieldTable(explanation),
    );
}

/** Everything about a value but the sentence. */
export function details(answer: Answer): (Node | null)[] {
    const { explanation } = answer;
    const hasBits = explanation !== null && explanation.bits !== "";
    return [
        hasBits && answer.failure === null ? why(explanation) : null,
        findings(answer),
        forms(answer),
        hasBits ? bits(explanation, "bits", "The bits") : null,
        ais(answer),
    ];
}
