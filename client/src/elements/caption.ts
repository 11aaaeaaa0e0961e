import { html, nothing, type TemplateResult } from "lit";

/** A caption with the letter that Alt reaches it by underlined; "&&" is a "&". */
export function caption(text: string): TemplateResult | typeof nothing {
    if (text === "") return nothing;
    const parts = /^((?:[^&]|&&)*)&([^&])(.*)$/su.exec(text);
    if (!parts) return html`${plain(text)}`;
    const [, before = "", letter = "", after = ""] = parts;
    return html`${plain(before)}<u>${letter}</u>${plain(after)}`;
}

export function plainCaption(text: string): string {
    return text.replace(/&(&?)/g, "$1");
}

const plain = plainCaption;

/** That Alt reaches it by; empty when it has none. */
export function letterOf(text: string): string {
    return /^(?:[^&]|&&)*&([^&])/su.exec(text)?.[1] ?? "";
}
