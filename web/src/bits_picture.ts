/*
 * The bits of a value as the memory of a tag holds them: a row for each 16-bit word, with its
 * address at the left and its hex at the right, cut into fields. A field has its name above its
 * first bit, a tint, and a line of its own kind under it; its ends are round only where it begins
 * and ends, so that one that runs over several rows reads as one.
 */
import { svg } from "./elements";
import { fieldClass, MARK } from "./field_links";
import type { Explanation, Field } from "./values";

const WORD = 16;

interface Layout {
    width: number;
    cell: number; // of a bit
    left: number; // the room for addresses
    box: number; // the height of a row of bits
    bitFont: number;
    nameFont: number;
    gap: number; // between rows
    isNarrow: boolean;
}

function layoutFor(width: number): Layout {
    const isNarrow = width < 560;
    const left = isNarrow ? 30 : 78;
    const right = isNarrow ? 44 : 76;
    const cell = Math.max(12, Math.min(44, (width - left - right) / WORD));
    return {
        width: left + WORD * cell + right,
        cell,
        left,
        box: isNarrow ? 30 : 40,
        bitFont: isNarrow ? Math.min(15, cell * 0.8) : 18,
        nameFont: isNarrow ? 11.5 : 13.5,
        gap: isNarrow ? 12 : 16,
        isNarrow,
    };
}

// The bits of a field that are in one row.
interface Piece {
    field: Field;
    index: number;
    from: number; // columns of the row
    to: number;
    begins: boolean;
    ends: boolean;
}

function piecesOfRow(fields: readonly Field[], start: number): Piece[] {
    const pieces: Piece[] = [];
    fields.forEach((field, index) => {
        const from = Math.max(field.first - start, 0);
        const to = Math.min(field.first + field.width - start, WORD);
        // A field without bits is one that the bits were too few for.
        const isMissing = field.width === 0 && field.first > start && field.first <= start + WORD;
        if (from < to || isMissing) {
            pieces.push({
                field,
                index,
                from,
                to,
                begins: field.first >= start,
                ends: field.first + field.width <= start + WORD,
            });
        }
    });
    return pieces;
}

interface Name {
    piece: Piece;
    text: string;
    mark: number; // where the field begins
    left: number;
    tier: number; // 0 is next to the bits
}

const measure = document.createElement("canvas").getContext("2d");

function widthOf(text: string, font: number): number {
    if (measure === null) {
        return text.length * font * 0.62;
    }
    measure.font = `bold ${String(font)}px ${getComputedStyle(document.body).fontFamily}`;
    return measure.measureText(text).width;
}

// Names that would run into the next one are placed higher, with a thin line down to their first bit.
function placeNames(pieces: readonly Piece[], layout: Layout): Name[] {
    const names: Name[] = [];
    for (const piece of [...pieces].reverse()) {
        if (!piece.begins) {
            continue;
        }
        const text = piece.field.isGood ? piece.field.name : `✕ ${piece.field.name}`;
        const width = widthOf(text, layout.nameFont) + 8;
        const mark = layout.left + piece.from * layout.cell + 2;
        const left = Math.max(0, Math.min(mark, layout.width - width));
        const tier = names.reduce(
            (least, other) =>
                left + width > Math.min(other.left, other.mark) ? Math.max(least, other.tier + 1) : least,
            0,
        );
        names.push({ piece, text, mark, left, tier });
    }
    return names;
}

// A box that is round only at the ends of its field.
function boxPath(x: number, y: number, width: number, height: number, piece: Piece): string {
    const left = piece.begins ? 5 : 0;
    const right = piece.ends ? 5 : 0;
    return (
        `M${n(x + left)} ${n(y)}H${n(x + width - right)}q${String(right)} 0 ${String(right)} ${String(right)}` +
        `V${n(y + height)}H${n(x)}V${n(y + left)}q0 ${String(-left)} ${String(left)} ${String(-left)}Z`
    );
}

function n(value: number): string {
    return String(Math.round(value * 100) / 100);
}

function drawPiece(piece: Piece, row: string, y: number, layout: Layout): SVGGElement {
    const { cell, left, box, bitFont } = layout;
    const x = left + piece.from * cell + (piece.begins ? 1 : 0);
    const end = left + piece.to * cell - (piece.ends ? 1 : 0);
    const group = svg("g", {
        class: `field ${fieldClass(piece.index)}${piece.field.isGood ? "" : " bad"}`,
        [MARK]: piece.index,
    });
    group.append(svg("title", {}, `${piece.field.name}: ${piece.field.meaning}`));
    if (piece.from === piece.to) {
        group.append(
            svg("path", { class: "missing", d: `M${n(x)} ${n(y)}v${n(box)}`, fill: "none" }),
        );
        return group;
    }
    group.append(svg("path", { class: "tint", d: boxPath(x, y, end - x, box, piece) }));
    const line = `M${n(x)} ${n(y + box - 1.5)}H${n(end)}`;
    group.append(svg("path", { class: "line", d: line, fill: "none" }));
    const columns = Array.from({ length: piece.to - piece.from }, (_, i) =>
        n(left + (piece.from + i + 0.5) * cell),
    );
    group.append(
        svg(
            "text",
            { class: "bit", x: columns.join(" "), y: n(y + box / 2 + bitFont * 0.3), "font-size": n(bitFont) },
            row.slice(piece.from, piece.to),
        ),
    );
    return group;
}

function drawName(name: Name, boxTop: number, layout: Layout): SVGGElement {
    const tierHeight = layout.nameFont + 4;
    const base = boxTop - 6 - name.tier * tierHeight;
    const group = svg("g", {
        class: `name ${fieldClass(name.piece.index)}${name.piece.field.isGood ? "" : " bad"}`,
        [MARK]: name.piece.index,
    });
    if (name.tier > 0) {
        group.append(
            svg("path", { class: "leader", d: `M${n(name.mark)} ${n(base + 3)}V${n(boxTop - 1)}`, fill: "none" }),
        );
    }
    group.append(
        svg("text", { x: n(name.left), y: n(base), "font-size": n(layout.nameFont) }, name.text),
    );
    return group;
}

// The digits of a word, each with the fields that its four bits belong to.
function drawHex(bits: string, start: number, fields: readonly Field[], y: number, layout: Layout): SVGGElement {
    const font = layout.isNarrow ? 13 : 18;
    const width = font * 0.602;
    const x = layout.left + WORD * layout.cell + (layout.isNarrow ? 9 : 20);
    const group = svg("g", { class: "hex" });
    for (let digit = 0; 4 * digit < bits.length; ++digit) {
        const first = start + 4 * digit;
        const owners = fields.flatMap((field, index) =>
            field.first < first + 4 && first < field.first + field.width ? [index] : [],
        );
        const value = parseInt(bits.slice(4 * digit, 4 * digit + 4).padEnd(4, "0"), 2);
        group.append(
            svg(
                "text",
                {
                    x: n(x + digit * width),
                    y: n(y),
                    "font-size": n(font),
                    [MARK]: owners.length > 0 ? owners.join(" ") : undefined,
                },
                value.toString(16).toUpperCase(),
            ),
        );
    }
    return group;
}

function drawRow(explanation: Explanation, start: number, top: number, layout: Layout): [SVGGElement, number] {
    const row = explanation.bits.slice(start, start + WORD);
    const pieces = piecesOfRow(explanation.fields, start);
    const names = placeNames(pieces, layout);
    const tiers = names.reduce((most, name) => Math.max(most, name.tier + 1), 0);
    const boxTop = top + (tiers > 0 ? 6 + tiers * (layout.nameFont + 4) : 0);
    const middle = boxTop + layout.box / 2;
    const group = svg("g", { class: "word" });
    const address = (explanation.bankAddress + start) / WORD;
    group.append(
        svg(
            "text",
            { class: "address", x: n(layout.left - 10), y: n(middle + 4.5), "font-size": layout.isNarrow ? 11 : 14 },
            layout.isNarrow ? `w${String(address)}` : `word ${String(address)}`,
        ),
    );
    names.forEach((name) => group.append(drawName(name, boxTop, layout)));
    pieces.forEach((piece) => group.append(drawPiece(piece, row, boxTop, layout)));
    const covered = pieces.reduce((most, piece) => Math.max(most, piece.to), 0);
    if (covered < row.length) {
        const columns = Array.from({ length: row.length - covered }, (_, i) =>
            n(layout.left + (covered + i + 0.5) * layout.cell),
        );
        group.append(
            svg(
                "text",
                {
                    class: "bit unread",
                    x: columns.join(" "),
                    y: n(middle + layout.bitFont * 0.3),
                    "font-size": n(layout.bitFont),
                },
                row.slice(covered),
            ),
        );
    }
    group.append(drawHex(row, start, explanation.fields, middle + (layout.isNarrow ? 4.5 : 6), layout));
    return [group, boxTop + layout.box + layout.gap];
}

/** Draws the bits for a width in pixels. */
export function drawBits(explanation: Explanation, width: number): SVGSVGElement {
    const layout = layoutFor(width);
    const picture = svg("svg", { class: "memory", role: "img", "font-family": "ui-monospace, monospace" });
    const words = Math.ceil(explanation.bits.length / WORD);
    const names = explanation.fields.map((field) => `${field.name} ${String(field.width)} bits`);
    picture.append(
        svg("title", {}, `${String(explanation.bits.length)} bits in ${String(words)} words: ${names.join(", ")}`),
    );
    let top = 2;
    for (let start = 0; start < explanation.bits.length; start += WORD) {
        const [row, next] = drawRow(explanation, start, top, layout);
        picture.append(row);
        top = next;
    }
    picture.setAttribute("viewBox", `0 0 ${n(layout.width)} ${n(top)}`);
    picture.setAttribute("width", n(layout.width));
    picture.setAttribute("height", n(top));
    return picture;
}

// What the style sheet of the page says about the picture, for a file by itself.
function styleOfFile(): string {
    const probe = svg("g");
    document.body.append(probe);
    const hues = Array.from({ length: 7 }, (_, hue) => {
        probe.setAttribute("class", `hue-${String(hue)}`);
        const colour = getComputedStyle(probe).getPropertyValue("--hue").trim();
        const own = `.hue-${String(hue)}`;
        return `${own} .tint{fill:${colour}}${own} .line,${own} .leader{stroke:${colour}}`;
    });
    probe.remove();
    return (
        "text{fill:#1a1a1a}.name text{font-family:system-ui,sans-serif}.bit{text-anchor:middle}" +
        ".address{text-anchor:end;fill:#666}.unread{fill:#767676}.tint{fill-opacity:.17}" +
        ".line{stroke-width:3}.line-1 .line{stroke-dasharray:9 3}.line-2 .line{stroke-dasharray:3 3}" +
        ".line-3 .line{stroke-dasharray:12 3 3 3}.leader{stroke-width:1}.bad .tint{fill:#c00}" +
        ".missing{stroke:#c00;stroke-width:3}" +
        hues.join("")
    );
}

/** The picture as a separate file, light and wide. */
export function bitsFile(explanation: Explanation): string {
    const picture = drawBits(explanation, 780);
    picture.setAttribute("xmlns", "http://www.w3.org/2000/svg");
    const background = svg("rect", { width: "100%", height: "100%", fill: "#fff" });
    const style = svg("style");
    style.textContent = styleOfFile();
    picture.prepend(style, background);
    return new XMLSerializer().serializeToString(picture);
}
