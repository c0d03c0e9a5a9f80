/*
 * Makes elements. Text is set as text, never as markup.
 */

type Child = Node | string | null | undefined | false;
type Attributes = Record<string, string | number | boolean | undefined>;

function fill(element: Element, attributes: Attributes, children: Child[]): void {
    for (const [name, value] of Object.entries(attributes)) {
        if (value !== undefined && value !== false) {
            element.setAttribute(name, value === true ? "" : String(value));
        }
    }
    for (const child of children) {
        if (child !== null && child !== undefined && child !== false) {
            element.append(child);
        }
    }
}

export function html<Name extends keyof HTMLElementTagNameMap>(
    name: Name,
    attributes: Attributes = {},
    ...children: Child[]
): HTMLElementTagNameMap[Name] {
    const element = document.createElement(name);
    fill(element, attributes, children);
    return element;
}

export function svg<Name extends keyof SVGElementTagNameMap>(
    name: Name,
    attributes: Attributes = {},
    ...children: Child[]
): SVGElementTagNameMap[Name] {
    const element = document.createElementNS("http://www.w3.org/2000/svg", name);
    fill(element, attributes, children);
    return element;
}

/** The element of the page with this id. */
export function byId<Type extends HTMLElement = HTMLElement>(id: string): Type {
    const element = document.getElementById(id);
    if (element === null) {
        throw new Error(`the page has no element ${id}`);
    }
    return element as Type;
}

export function button(label: string, work: () => void, attributes: Attributes = {}): HTMLElement {
    const element = html("button", { type: "button", ...attributes }, label);
    element.addEventListener("click", work);
    return element;
}

/** A button that copies a text and says so. */
export function copyButton(text: string, what: string): HTMLElement {
    const element = button("copy", () => void copy(), { "aria-label": `copy ${what}`, class: "copy" });
    async function copy(): Promise<void> {
        await copyText(text);
        element.textContent = "copied";
        announce(`${what} copied`);
        setTimeout(() => {
            element.textContent = "copy";
        }, 1500);
    }
    return element;
}

async function copyText(text: string): Promise<void> {
    if (navigator.clipboard !== undefined) {
        await navigator.clipboard.writeText(text);
        return;
    }
    // Pages from disk and from plain http have no clipboard of their own.
    const area = html("textarea", { class: "off-screen", "aria-hidden": true }, text);
    document.body.append(area);
    area.select();
    document.execCommand("copy");
    area.remove();
}

/** Has a screen reader say something that is seen elsewhere. */
export function announce(text: string): void {
    byId("announcement").textContent = text;
}

/** Lets the user save a file that the page made. */
export function saveFile(name: string, type: string, parts: BlobPart[]): void {
    const url = URL.createObjectURL(new Blob(parts, { type }));
    html("a", { href: url, download: name }).click();
    setTimeout(() => {
        URL.revokeObjectURL(url);
    }, 10_000);
}

/** 12345 as "12,345". */
export function grouped(count: number): string {
    return count.toLocaleString("en");
}

export function counted(count: number, noun: string): string {
    return `${grouped(count)} ${noun}${count === 1 ? "" : "s"}`;
}
