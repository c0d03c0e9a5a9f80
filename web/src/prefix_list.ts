/*
 * The list of the lengths of company prefixes, which GS1 publishes: the user drops the file, and it
 * stays on the device.
 */
import { byId, grouped } from "./elements";
import { usePrefixList, type PrefixEntry } from "./values";

const DATABASE = "rosetag";
const STORE = "lists";
const KEY = "prefixes";

function entryOf(prefix: unknown, length: unknown): PrefixEntry {
    return [String(prefix), length === null ? NaN : Number(length)];
}

/** The prefixes and lengths of a file. */
function entriesOf(text: string): PrefixEntry[] {
    if (text.trimStart().startsWith("<")) {
        const tree = new DOMParser().parseFromString(text, "application/xml");
        return Array.from(tree.querySelectorAll("entry"), (entry) =>
            entryOf(entry.getAttribute("prefix"), entry.getAttribute("gcpLength")),
        );
    }
    const tree = JSON.parse(text) as {
        GCPPrefixFormatList?: { entry?: { prefix?: unknown; gcpLength?: unknown }[] };
    };
    return (tree.GCPPrefixFormatList?.entry ?? []).map((entry) => entryOf(entry.prefix, entry.gcpLength));
}

function withStore<Result>(mode: IDBTransactionMode, work: (store: IDBObjectStore) => IDBRequest<Result>): Promise<Result> {
    return new Promise((resolve, reject) => {
        const opening = indexedDB.open(DATABASE, 1);
        opening.onupgradeneeded = () => opening.result.createObjectStore(STORE);
        opening.onerror = () => {
            reject(new Error("this browser keeps nothing"));
        };
        opening.onsuccess = () => {
            const transaction = opening.result.transaction(STORE, mode);
            const request = work(transaction.objectStore(STORE));
            transaction.oncomplete = () => {
                resolve(request.result);
                opening.result.close();
            };
            transaction.onabort = () => {
                reject(new Error("this browser keeps nothing"));
            };
        };
    });
}

type Changed = (entries: readonly PrefixEntry[]) => void;

function say(entries: readonly PrefixEntry[], changed: Changed): void {
    const { length } = entries;
    byId("list-state").textContent = length === 0 ? "" : `In use: ${grouped(length)} prefixes.`;
    byId("list-forget").hidden = length === 0;
    changed(entries);
}

async function keep<Result>(work: (store: IDBObjectStore) => IDBRequest<Result>): Promise<void> {
    try {
        await withStore("readwrite", work);
    } catch {
        // Without storage the list is dropped anew each time.
    }
}

// The page says that a list is in use, or forgotten, when this holds for the next visit too.
async function take(file: File, changed: Changed): Promise<void> {
    try {
        const entries = entriesOf(await file.text());
        if (entries.length === 0) {
            throw new Error("it has no entries");
        }
        usePrefixList(entries);
        await keep((store) => store.put(entries, KEY));
        say(entries, changed);
    } catch (error) {
        byId("list-state").textContent = `This is not a list of company prefixes: ${(error as Error).message}.`;
    }
}

async function forget(changed: Changed): Promise<void> {
    usePrefixList([]);
    await keep((store) => store.delete(KEY));
    say([], changed);
}

async function recall(changed: Changed): Promise<void> {
    try {
        const entries = await withStore("readonly", (store) => store.get(KEY) as IDBRequest<PrefixEntry[] | undefined>);
        if (entries !== undefined) {
            usePrefixList(entries);
            say(entries, changed);
        }
    } catch {
        // Nothing was kept.
    }
}

/** Takes dropped and chosen files; dropped anywhere on an element they are taken by a callback. */
export function takeFiles(zone: HTMLElement, chooser: HTMLInputElement, work: (file: File) => void): void {
    zone.addEventListener("dragover", (event) => {
        event.preventDefault();
        zone.classList.add("over");
    });
    for (const end of ["dragleave", "drop"]) {
        zone.addEventListener(end, () => {
            zone.classList.remove("over");
        });
    }
    zone.addEventListener("drop", (event) => {
        event.preventDefault();
        const file = event.dataTransfer?.files[0];
        if (file !== undefined) {
            work(file);
        }
    });
    chooser.addEventListener("change", () => {
        const file = chooser.files?.[0];
        if (file !== undefined) {
            work(file);
        }
        chooser.value = "";
    });
}

/** Recalls the list of an earlier visit and takes new ones. */
export function startPrefixList(changed: Changed): void {
    takeFiles(byId("list-drop"), byId<HTMLInputElement>("list-file"), (file) => void take(file, changed));
    byId("list-forget").addEventListener("click", () => void forget(changed));
    void recall(changed);
}
