/*
 * Many values: which column holds them, what became of each, and the file that is saved. It runs in
 * a worker, or in the page where the browser allows no worker.
 */
import { csvCell, tableOf, type TextTable } from "./table_text";
import { convertMany, reasonAgainst, TID, tidText, usePrefixList, type Form, type PrefixEntry } from "./values";

const CHUNK = 8192;
const SHOWN = 200;
const OK = "OK"; // the status of a row that was read

/** What happens: the page asks for this. */
export type Request =
    | { kind: "take"; text: string; form: Form }
    | { kind: "convert"; column: number; form: Form }
    | { kind: "rows"; only: string }
    | { kind: "list"; entries: readonly PrefixEntry[] }
    | { kind: "save" };

export interface Count {
    name: string;
    rows: number;
    isFailure: boolean;
}

export interface Row {
    line: number;
    value: string;
    scheme: string;
    status: string;
    text: string; // in the form that was asked for, or why there is none
}

/** And this is what it is told. */
export type Report =
    | { kind: "progress"; done: number; of: number }
    | { kind: "counts"; rows: number; milliseconds: number; counts: Count[]; columns: string[]; column: number }
    | { kind: "rows"; rows: Row[]; of: number }
    | { kind: "file"; blob: Blob };

interface Results {
    values: string[];
    schemes: (string | null)[];
    statuses: string[];
    texts: (string | null)[];
}

let table: TextTable = { rows: [], isTable: false };
let hasHeader = false;
let column = 0;
let form: Form = "tagUri";
let results: Results = { values: [], schemes: [], statuses: [], texts: [] };

function bodyRows(): string[][] {
    return hasHeader ? table.rows.slice(1) : table.rows;
}

function readable(cells: string[]): number {
    return convertMany(cells, "elementString").statuses.filter((status) => status === OK).length;
}

// The values are in the column of which most can be read; a row of names above them cannot.
function findColumn(): void {
    const width = table.rows[0]?.length ?? 1;
    const sample = table.rows.slice(1, 60);
    const scores = Array.from({ length: width }, (_, index) => readable(sample.map((row) => row[index] ?? "")));
    column = scores.indexOf(Math.max(...scores));
    const first = table.rows[0]?.[column] ?? "";
    hasHeader = table.isTable && readable([first]) === 0;
}

function pause(): Promise<void> {
    return new Promise((resolve) => {
        setTimeout(resolve, 0);
    });
}

async function convertAll(report: (report: Report) => void): Promise<void> {
    const start = performance.now();
    const values = bodyRows().map((row) => (row[column] ?? "").trim());
    const all: Results = { values, schemes: [], statuses: [], texts: [] };
    results = all;
    for (let first = 0; first < values.length; first += CHUNK) {
        const chunk = convertMany(values.slice(first, first + CHUNK), form);
        all.schemes.push(...chunk.schemes);
        all.statuses.push(...chunk.statuses);
        all.texts.push(...chunk.texts);
        report({ kind: "progress", done: Math.min(first + CHUNK, values.length), of: values.length });
        await pause();
        if (results !== all) {
            return; // other values have come meanwhile
        }
    }
    report({
        kind: "counts",
        rows: values.length,
        milliseconds: performance.now() - start,
        counts: countsOf(),
        columns: (table.rows[0] ?? []).map((name, index) => (hasHeader ? name : `column ${String(index + 1)}`)),
        column,
    });
    reportRows("", report);
}

// The scheme of a row that was read, or its status.
function groupOf(row: number): string {
    const status = results.statuses[row] ?? "";
    return status === OK ? (results.schemes[row] ?? "") || "no scheme" : status;
}

function countsOf(): Count[] {
    const counts = new Map<string, Count>();
    results.values.forEach((_, row) => {
        const name = groupOf(row);
        const isFailure = results.statuses[row] !== OK;
        const count = counts.get(name) ?? { name, rows: 0, isFailure };
        ++count.rows;
        counts.set(name, count);
    });
    return [...counts.values()].sort((a, b) => Number(a.isFailure) - Number(b.isFailure) || b.rows - a.rows);
}

function reportRows(only: string, report: (report: Report) => void): void {
    const rows: Row[] = [];
    let of = 0;
    for (let row = 0; row < results.values.length; ++row) {
        if (only !== "" && groupOf(row) !== only) {
            continue;
        }
        if (++of <= SHOWN) {
            const value = results.values[row] ?? "";
            const status = results.statuses[row] ?? "";
            const scheme = results.schemes[row] ?? "";
            rows.push({
                line: row + (hasHeader ? 2 : 1),
                value,
                scheme,
                status,
                text:
                    status !== OK ? reasonAgainst(value) : scheme === TID ? tidText(value) : (results.texts[row] ?? ""),
            });
        }
    }
    report({ kind: "rows", rows, of });
}

// The columns that were given, then those of the results.
function fileOf(): Blob {
    const names = hasHeader ? (table.rows[0] ?? []) : (table.rows[0] ?? []).map((_, i) => (i === 0 ? "value" : `value${String(i + 1)}`));
    const snakeForm = form.replace(/[A-Z]/g, (letter) => `_${letter.toLowerCase()}`);
    const lines = [[...names, "scheme", snakeForm, "status"].map(csvCell).join(",")];
    bodyRows().forEach((cells, row) => {
        const added = [results.schemes[row] ?? "", results.texts[row] ?? "", results.statuses[row] ?? ""];
        lines.push([...cells, ...added].map(csvCell).join(","));
    });
    return new Blob([lines.join("\n"), "\n"], { type: "text/csv" });
}

/** Does what the page asks for. */
export async function doRequest(request: Request, report: (report: Report) => void): Promise<void> {
    switch (request.kind) {
        case "take":
            table = tableOf(request.text);
            form = request.form;
            findColumn();
            return convertAll(report);
        case "convert":
            column = request.column;
            form = request.form;
            return convertAll(report);
        case "list":
            usePrefixList(request.entries);
            return form === "pureIdentity" && results.values.length > 0 ? convertAll(report) : undefined;
        case "rows":
            reportRows(request.only, report);
            return;
        case "save":
            report({ kind: "file", blob: fileOf() });
            return;
    }
}
