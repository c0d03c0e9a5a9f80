/*
 * Marks in the input what is wrong with it: a copy of its text lies under it, of which only the
 * marks can be seen.
 */
import { byId, html } from "./elements";
import type { Answer } from "./values";

interface Mark {
    position: number;
    length: number;
    kind: string;
}

function marksOf(answer: Answer): Mark[] {
    const marks: Mark[] = answer.findings
        .filter((finding) => finding.length < answer.value.length)
        .map((finding) => ({ ...finding, kind: finding.severity }));
    if (answer.failure !== null && answer.failure.length < answer.value.length) {
        marks.push({ ...answer.failure, kind: "error" });
    }
    return marks.sort((a, b) => a.position - b.position);
}

/** Marks the places of a failure and of findings. */
export function markInput(input: HTMLTextAreaElement, answer: Answer | null): void {
    const copy = byId("marks");
    const text = input.value;
    const marks = answer === null ? [] : marksOf(answer);
    copy.replaceChildren();
    let position = 0;
    for (const mark of marks) {
        if (mark.position < position) {
            continue;
        }
        copy.append(text.slice(position, mark.position));
        position = mark.position + mark.length;
        // Between two characters, or at the end, the mark is by itself.
        const marked = text.slice(mark.position, position) || "\u2009";
        copy.append(html("mark", { class: mark.kind }, marked));
    }
    copy.append(text.slice(position));
    input.setAttribute("aria-invalid", String(marks.some((mark) => mark.kind === "error")));
}
