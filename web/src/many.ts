/*
 * The part of the page for many values. The work is done in a worker, so that the page stays
 * responsive.
 */
import { byId, counted, grouped, html, saveFile } from "./elements";
import { doRequest, type Count, type Report, type Request, type Row } from "./many_rows";
import { takeFiles } from "./prefix_list";
import { formTitles, type Form, type PrefixEntry } from "./values";

const text = byId<HTMLTextAreaElement>("many-text");
const column = byId<HTMLSelectElement>("many-column");
const form = byId<HTMLSelectElement>("many-form");
const save = byId<HTMLButtonElement>("many-save");

let send: (request: Request) => void;
let only = ""; // the group of which rows are shown; empty: all

function startWorker(): void {
    try {
        const worker = new Worker("page.js");
        worker.onmessage = (event: MessageEvent<Report>) => {
            show(event.data);
        };
        send = (request) => {
            worker.postMessage(request);
        };
    } catch {
        // A page from disk may have no worker.
        send = (request) => void doRequest(request, show);
    }
}

function show(report: Report): void {
    switch (report.kind) {
        case "progress":
            byId("many-state").textContent = `${grouped(report.done)} of ${grouped(report.of)} …`;
            return;
        case "counts":
            showCounts(report.counts, report.rows, report.milliseconds);
            showColumns(report.columns, report.column);
            return;
        case "rows":
            showRows(report.rows, report.of);
            return;
        case "file":
            saveFile("rosetag.csv", "text/csv", [report.blob]);
    }
}

function showCounts(counts: readonly Count[], rows: number, milliseconds: number): void {
    const failed = counts.filter((count) => count.isFailure).reduce((sum, count) => sum + count.rows, 0);
    byId("many-state").textContent =
        `${counted(rows, "value")} in ${Math.max(milliseconds / 1000, 0.01).toFixed(2)} s: ` +
        `${grouped(rows - failed)} recognized, ${grouped(failed)} not.`;
    save.disabled = rows === 0;
    only = "";
    byId("many-counts").replaceChildren(
        html(
            "ul",
            { class: "counts" },
            ...counts.map((count) => html("li", {}, countButton(count, rows))),
        ),
    );
}

function countButton(count: Count, all: number): HTMLElement {
    const meter = html("meter", { min: 0, max: all, value: count.rows, "aria-hidden": true });
    const element = html(
        "button",
        { type: "button", "aria-pressed": "false", class: count.isFailure ? "failed" : undefined },
        html("span", { class: "group" }, count.name),
        html("span", { class: "rows" }, grouped(count.rows)),
        meter,
    );
    element.addEventListener("click", () => {
        only = only === count.name ? "" : count.name;
        for (const other of byId("many-counts").querySelectorAll("button")) {
            other.setAttribute("aria-pressed", String(other === element && only !== ""));
        }
        send({ kind: "rows", only });
    });
    return element;
}

function showColumns(columns: readonly string[], chosen: number): void {
    column.replaceChildren(...columns.map((name, index) => html("option", { value: index }, name)));
    column.value = String(chosen);
    column.disabled = columns.length < 2;
}

function showRows(rows: readonly Row[], of: number): void {
    const titles = ["line", "value", "scheme", formTitles[form.value as Form], "status"];
    byId("many-rows").replaceChildren(
        html(
            "div",
            { class: "scroll", tabindex: 0, role: "region", "aria-label": "the values" },
            html(
                "table",
                {},
                html("thead", {}, html("tr", {}, ...titles.map((title) => html("th", { scope: "col" }, title)))),
                html(
                    "tbody",
                    {},
                    ...rows.map((row) =>
                        html(
                            "tr",
                            { class: row.status === "OK" ? undefined : "failed" },
                            html("td", { class: "count" }, String(row.line)),
                            html("td", { class: "value" }, html("a", { href: `#${encodeURIComponent(row.value)}` }, row.value)),
                            html("td", {}, row.scheme),
                            html("td", { class: row.status === "OK" ? "value" : "value reason" }, row.text),
                            html("td", {}, row.status),
                        ),
                    ),
                ),
            ),
        ),
        rows.length < of ? html("p", { class: "hint" }, `The first ${grouped(rows.length)} of ${grouped(of)} are shown here; the CSV has all.`) : "",
    );
}

function take(values: string): void {
    byId("many-state").textContent = "Reading …";
    send({ kind: "take", text: values, form: form.value as Form });
}

export interface Many {
    /** Opens the part with values that were pasted elsewhere. */
    take(values: string): void;
    usePrefixList(entries: readonly PrefixEntry[]): void;
}

export function startMany(): Many {
    startWorker();
    for (const [name, title] of Object.entries(formTitles)) {
        form.append(html("option", { value: name }, title));
    }
    form.value = "elementString";
    text.addEventListener("input", () => {
        take(text.value);
    });
    const convert = (): void => {
        send({ kind: "convert", column: Number(column.value), form: form.value as Form });
    };
    column.addEventListener("change", convert);
    form.addEventListener("change", convert);
    save.addEventListener("click", () => {
        send({ kind: "save" });
    });
    takeFiles(byId("many-drop"), byId<HTMLInputElement>("many-file"), (file) => {
        text.value = "";
        text.placeholder = file.name;
        void file.text().then(take);
    });
    return {
        take(values: string): void {
            byId<HTMLDetailsElement>("many").open = true;
            text.value = values;
            take(values);
            text.focus();
        },
        usePrefixList(entries): void {
            send({ kind: "list", entries });
        },
    };
}
