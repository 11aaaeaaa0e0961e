import { html, type TemplateResult } from "lit";
import { repeat } from "lit/directives/repeat.js";
import type { Control } from "../Control";

/** One element for each kind of control. */
const elements: Readonly<Record<string, (control: Control) => TemplateResult>> = {
    edit: (control) => html`<al-edit .control=${control}></al-edit>`,
    number: (control) => html`<al-number .control=${control}></al-number>`,
    date: (control) => html`<al-date .control=${control}></al-date>`,
    memo: (control) => html`<al-memo .control=${control}></al-memo>`,
    combo: (control) => html`<al-combo .control=${control}></al-combo>`,
    check: (control) => html`<al-check .control=${control}></al-check>`,
    radio: (control) => html`<al-check .control=${control}></al-check>`,
    radioGroup: (control) => html`<al-radio-group .control=${control}></al-radio-group>`,
    button: (control) => html`<al-button .control=${control}></al-button>`,
    label: (control) => html`<al-label .control=${control}></al-label>`,
    image: (control) => html`<al-image .control=${control}></al-image>`,
    files: (control) => html`<al-files .control=${control}></al-files>`,
    pages: (control) => html`<al-pages .control=${control}></al-pages>`,
    grid: (control) => html`<al-grid .control=${control}></al-grid>`,
};

export function renderControl(control: Control): TemplateResult {
    return elements[control.kind]?.(control) ?? html`<al-container data-kind=${control.kind} .control=${control}></al-container>`;
}

export function renderControls(parent: Control): unknown {
    return repeat(parent.children, (control) => control.name, renderControl);
}
