/*
 * Cuts a text into rows and cells: lines of one value each, or a table with a delimiter.
 */

export interface TextTable {
    rows: string[][];
    isTable: boolean; // false: every row is one value
}

const DELIMITERS = ["\t", ";", ",", "|"];

function linesOf(text: string): string[] {
    const lines = text.split(/\r\n|\n|\r/);
    while (lines.length > 0 && lines.at(-1) === "") {
        lines.pop();
    }
    return lines;
}

// What occurs in each of the first lines, equally often.
function delimiterOf(lines: readonly string[]): string | undefined {
    const sample = lines.slice(0, 20).map((line) => line.replace(/"[^"]*"/g, ""));
    return DELIMITERS.find((delimiter) => {
        const counts = sample.map((line) => line.split(delimiter).length);
        return (counts[0] ?? 1) > 1 && counts.every((count) => count === counts[0]);
    });
}

// Cells in quotes may hold delimiters, line ends, and quotes twice.
function quotedRows(text: string, delimiter: string): string[][] {
    const rows: string[][] = [[]];
    const cell = /"((?:[^"]|"")*)"|([^"\r\n]*?)(?=[\r\n]|$)|/y;
    const plain = new RegExp(`[^${delimiter === "|" || delimiter === "\t" ? `\\${delimiter === "\t" ? "t" : "|"}` : delimiter}\\r\\n]*`, "y");
    let position = 0;
    while (position < text.length) {
        const row = rows.at(-1) ?? [];
        cell.lastIndex = plain.lastIndex = position;
        if (text[position] === '"') {
            const found = cell.exec(text);
            row.push((found?.[1] ?? "").replaceAll('""', '"'));
            position = found === null ? text.length : cell.lastIndex;
        } else {
            row.push(plain.exec(text)?.[0] ?? "");
            position = plain.lastIndex;
        }
        if (text[position] === delimiter) {
            ++position;
            if (position === text.length) {
                row.push("");
            }
            continue;
        }
        position += text.startsWith("\r\n", position) ? 2 : 1;
        if (position < text.length) {
            rows.push([]);
        }
    }
    return rows;
}

export function tableOf(text: string): TextTable {
    const lines = linesOf(text.replace(/^\uFEFF/, ""));
    const delimiter = delimiterOf(lines);
    if (delimiter === undefined) {
        return { rows: lines.map((line) => [line]), isTable: false };
    }
    const rows = text.includes('"')
        ? quotedRows(lines.join("\n"), delimiter)
        : lines.map((line) => line.split(delimiter));
    return { rows, isTable: true };
}

/** A cell of a CSV file. */
export function csvCell(text: string): string {
    return /[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}
