/*
 * The page: an input, and below it what the value is.
 */
import { details, sentence } from "./answer";
import { startBuilding, type Builder } from "./build_tag";
import { button, byId, html } from "./elements";
import { examples } from "./examples";
import { linkFields } from "./field_links";
import { markInput } from "./input_marks";
import { startMany } from "./many";
import { startPrefixList } from "./prefix_list";
import { answerTo, gcpLengths, type Answer } from "./values";

const input = byId<HTMLTextAreaElement>("value");
const prefixSelect = byId<HTMLSelectElement>("prefix-length");
const letGoOfFields = linkFields(byId("answer"));
let builder: Builder | null = null;

function setSentence(parts: (Node | string)[]): void {
    const next = html("span", {}, ...parts);
    const place = byId("sentence");
    if (next.innerHTML !== place.firstElementChild?.innerHTML) {
        place.replaceChildren(next);
    }
}

// GS1 texts do not tell how long the company prefix in them is: the user says it, or a list.
function answerWithPrefix(value: string): Answer {
    const answer = answerTo(value);
    const needsLength = answer.notes.some((note) => note.kind === "needs_gcp_length");
    byId("prefix").hidden = !needsLength;
    return needsLength && prefixSelect.value !== "" ? answerTo(value, Number(prefixSelect.value)) : answer;
}

function withoutBits(answer: Answer): HTMLElement | null {
    if (answer.identity === null || answer.explanation !== null) {
        return null;
    }
    return html(
        "p",
        { class: "no-bits" },
        "It has no bits until it is encoded for a tag. ",
        button("See it on a tag", () => {
            byId<HTMLDetailsElement>("build").open = true;
            builder?.take(input.value.trim());
            byId("build").scrollIntoView();
            byId("build-text").focus();
        }),
    );
}

function fitInput(): void {
    input.style.height = "auto";
    input.style.height = `${String(input.scrollHeight)}px`;
}

function show(): void {
    const value = input.value;
    const isEmpty = value.trim() === "";
    document.body.classList.toggle("is-empty", isEmpty);
    fitInput();
    letGoOfFields();
    if (isEmpty) {
        byId("prefix").hidden = true;
        byId("answer").replaceChildren();
        markInput(input, null);
        setSentence(["Paste a tag’s hex, an EPC URI, a scanned barcode, an element string, a GS1 Digital Link or a TID to see what it is."]);
        return;
    }
    const answer = answerWithPrefix(value);
    byId("sentence").classList.toggle("failed", answer.failure !== null);
    setSentence(sentence(answer));
    markInput(input, answer);
    const parts = details(answer).filter((part) => part !== null);
    byId("answer").replaceChildren(...parts);
    const offer = withoutBits(answer);
    if (offer !== null) {
        byId("answer").append(offer);
    }
}

function rememberInAddress(): void {
    const value = input.value.trim();
    const address = value === "" ? location.pathname + location.search : `#${encodeURIComponent(value)}`;
    history.replaceState(null, "", address);
}

function takeFromAddress(): void {
    const fragment = location.hash.slice(1);
    let value = fragment;
    try {
        value = decodeURIComponent(fragment);
    } catch {
        // A link that somebody typed by hand may hold a bare "%".
    }
    if (value !== input.value.trim()) {
        input.value = value;
    }
    show();
}

function startExamples(): void {
    byId("examples").append(
        ...examples.map((example) =>
            html(
                "li",
                {},
                button(
                    example.title,
                    () => {
                        location.hash = encodeURIComponent(example.value);
                        scrollTo(0, 0);
                        input.focus();
                    },
                    { title: example.value },
                ),
            ),
        ),
    );
}

function startPrefixSelect(): void {
    prefixSelect.append(html("option", { value: "" }, "not known"));
    for (const length of gcpLengths) {
        prefixSelect.append(html("option", { value: length }, String(length)));
    }
    prefixSelect.addEventListener("change", show);
}

/** Starts the page. */
export function startPage(): void {
    const many = startMany();
    input.addEventListener("input", () => {
        show();
        rememberInAddress();
    });
    input.addEventListener("keydown", (event) => {
        if (event.key === "Enter") {
            event.preventDefault();
        }
    });
    input.addEventListener("paste", (event) => {
        const text = event.clipboardData?.getData("text/plain") ?? "";
        if (text.trim().includes("\n")) {
            event.preventDefault();
            many.take(text);
        }
    });
    addEventListener("hashchange", takeFromAddress);
    addEventListener("resize", fitInput);

    startExamples();
    startPrefixSelect();
    builder = startBuilding();
    startPrefixList((entries) => {
        show();
        builder?.show();
        many.usePrefixList(entries);
    });
    takeFromAddress();

    if ("serviceWorker" in navigator && location.protocol.startsWith("http")) {
        void navigator.serviceWorker.register("service-worker.js");
    }
}
