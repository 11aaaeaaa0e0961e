/** Keys as the server names them: "Enter", "Ctrl+Del", "F5", "Alt+c", or the character that is typed. */

const names: Readonly<Record<string, string>> = {
    Escape: "Esc",
    " ": "Space",
    Delete: "Del",
    Insert: "Ins",
    PageUp: "PgUp",
    PageDown: "PgDn",
    ArrowUp: "Up",
    ArrowDown: "Down",
    ArrowLeft: "Left",
    ArrowRight: "Right",
};

const others = new Set(["Enter", "Tab", "Backspace", "Home", "End", "ContextMenu"]);

/** Null for what is no key of its own: a modifier, the first half of an accented letter. */
export function keyName(event: KeyboardEvent): string | null {
    const character = [...event.key].length === 1 && event.key !== " ";
    const name = names[event.key] ?? (character || others.has(event.key) || /^F\d+$/.test(event.key) ? event.key : null);
    if (name === null) return null;
    // AltGr is how some keyboards type, not a modifier.
    if (event.getModifierState("AltGraph")) return name;
    const modifiers = [event.ctrlKey ? "Ctrl+" : "", event.altKey ? "Alt+" : "", event.shiftKey && !character ? "Shift+" : ""];
    return modifiers.join("") + name;
}

/** The character that the key types, if it types one. */
export function typedText(key: string): string | null {
    if (key === "Space" || key === "Shift+Space") return " ";
    return [...key].length === 1 ? key : null;
}

/** The browser does these itself: copying and pasting, undoing, the full screen. */
export function isBrowsers(key: string): boolean {
    return /^Ctrl\+[acvxyz]$/i.test(key) || /^(Ctrl\+|Shift\+)Ins$/.test(key) || key === "Shift+Del" || key === "F11";
}

/** Opens the popup menu of what has the focus. */
export const isMenuKey = (key: string) => key === "Shift+F10" || key === "ContextMenu";

export function isPaste(key: string): boolean {
    return /^Ctrl\+v$/i.test(key) || key === "Shift+Ins";
}

const editing = new Set(["Backspace", "Del", "Left", "Right", "Home", "End"]);

/** A key that changes or moves within a line of text. */
export function isEditing(key: string): boolean {
    return editing.has(key.replace(/^(Ctrl\+)?(Shift\+)?/, "")) && !key.includes("Alt+") && key !== "Ctrl+Del";
}

/** Does in the field what the browser would have done with the key. True when the text is another. */
export function editField(field: HTMLInputElement | HTMLTextAreaElement, key: string): boolean {
    const before = field.value;
    const start = field.selectionStart ?? before.length;
    const end = field.selectionEnd ?? start;
    const marked = start !== end;
    switch (key) {
        case "Backspace":
            field.setRangeText("", marked ? start : Math.max(0, start - 1), end, "end");
            break;
        case "Del":
            field.setRangeText("", start, marked ? end : end + 1, "end");
            break;
        case "Left":
            field.setSelectionRange(marked ? start : Math.max(0, start - 1), marked ? start : Math.max(0, start - 1));
            break;
        case "Right":
            field.setSelectionRange(marked ? end : end + 1, marked ? end : end + 1);
            break;
        case "Home":
            field.setSelectionRange(0, 0);
            break;
        case "End":
            field.setSelectionRange(before.length, before.length);
            break;
        case "Ctrl+a":
            field.select();
            break;
        default:
            break;
    }
    return field.value !== before;
}
