/*
 * A field of a value is in many places: its bits, its row, its digits of the hex, its characters
 * in each text. Pointing at one of them lights all. Every place carries the numbers of its fields
 * in data-fields.
 */

export const MARK = "data-fields";

/** The classes that give a field its colour and its kind of line, wherever it is. */
export function fieldClass(field: number): string {
    return `hue-${String(field % 7)} line-${String(field % 4)}`;
}

function fieldsAt(target: EventTarget | null): string[] {
    const place = target instanceof Element ? target.closest(`[${MARK}]`) : null;
    return place?.getAttribute(MARK)?.split(" ") ?? [];
}

/** Says that a part was made again and what was lit in it has to be lit again. */
export function tellOfRedrawing(part: Element): void {
    part.dispatchEvent(new Event("redrawn", { bubbles: true }));
}

/**
 * Lights fields inside of an element while they are pointed at or have the focus. Gives a function
 * that lets go of all.
 */
export function linkFields(root: Element): () => void {
    let held: string[] = []; // by a tap or a click, until the next one
    let lit: string | null = ""; // null: not known

    const light = (fields: string[]): void => {
        if (fields.join(" ") === lit) {
            return;
        }
        lit = fields.join(" ");
        root.classList.toggle("has-lit", fields.length > 0);
        for (const place of root.querySelectorAll(`[${MARK}]`)) {
            const own = place.getAttribute(MARK)?.split(" ") ?? [];
            const shown = own.find((field) => fields.includes(field));
            if (own.length > 1 && place.classList.contains("part")) {
                // A hex digit that two fields share shows the one that is lit.
                place.className = `part ${fieldClass(Number(shown ?? own[0]))}`;
            }
            place.classList.toggle("lit", shown !== undefined);
        }
    };
    const hold = (fields: string[]): void => {
        held = fields;
        for (const place of root.querySelectorAll(`button[${MARK}]`)) {
            place.setAttribute("aria-pressed", String(fieldsAt(place)[0] === fields[0]));
        }
        light(held);
    };
    const orHeld = (fields: string[]): string[] => (fields.length > 0 ? fields : held);

    root.addEventListener("pointerover", (event) => {
        if ((event as PointerEvent).pointerType === "mouse") {
            light(orHeld(fieldsAt(event.target)));
        }
    });
    root.addEventListener("pointerleave", () => {
        light(held);
    });
    root.addEventListener("focusin", (event) => {
        light(orHeld(fieldsAt(event.target)));
    });
    root.addEventListener("focusout", () => {
        light(held);
    });
    root.addEventListener("click", (event) => {
        const fields = fieldsAt(event.target);
        hold(fields.join(" ") === held.join(" ") ? [] : fields);
    });
    root.addEventListener("keydown", (event) => {
        if ((event as KeyboardEvent).key === "Escape") {
            hold([]);
        }
    });
    root.addEventListener("redrawn", () => {
        lit = null;
        hold(held);
    });
    return () => {
        hold([]);
    };
}

/** A part of a text that belongs to a field. */
export interface TextPart {
    field: number;
    position: number;
    length: number;
}

const GS = "\u001d";

// The separator of barcode strings has no glyph.
function appendText(parent: Node, text: string): void {
    text.split(GS).forEach((piece, i) => {
        if (i > 0) {
            const mark = document.createElement("span");
            mark.className = "separator";
            mark.title = "the separator, character 29";
            mark.textContent = "GS";
            parent.appendChild(mark);
        }
        parent.appendChild(document.createTextNode(piece));
    });
}

/** Cuts a text into spans, one for each part of a field. */
export function markedText(text: string, parts: readonly TextPart[]): DocumentFragment {
    const fragment = document.createDocumentFragment();
    let position = 0;
    for (const part of [...parts].sort((a, b) => a.position - b.position)) {
        appendText(fragment, text.slice(position, part.position));
        position = part.position + part.length;
        const span = document.createElement("span");
        span.className = `part ${fieldClass(part.field)}`;
        span.setAttribute(MARK, String(part.field));
        span.textContent = text.slice(part.position, position);
        fragment.append(span);
    }
    appendText(fragment, text.slice(position));
    return fragment;
}
