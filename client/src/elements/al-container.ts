import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { caption } from "./caption";
import { ControlElement } from "./ControlElement";
import { renderControls } from "./renderControl";

/** A screen, panel, row, group or page: what stands in it, in its order. */
@customElement("al-container")
export class ContainerElement extends ControlElement {
    protected override render(): TemplateResult {
        const text = this.control.text("caption");
        if (this.control.kind !== "group") return html`<div class=${this.control.kind}>${renderControls(this.control)}</div>`;
        return html`<fieldset class="frame">
            ${text === "" ? nothing : html`<legend>${caption(text)}</legend>`}
            <div class="panel">${renderControls(this.control)}</div>
        </fieldset>`;
    }
}
