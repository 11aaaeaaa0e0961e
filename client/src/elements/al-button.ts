import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { caption, plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";

@customElement("al-button")
export class ButtonElement extends ControlElement {
    protected override render(): TemplateResult {
        const shortcut = this.control.text("shortcut");
        const text = this.control.text("caption");
        return html`<button
            data-focus
            type="button"
            class="button ${this.control.text("role")}"
            aria-label=${plainCaption(text) === "" ? this.control.text("hint") || this.control.name : nothing}
            aria-keyshortcuts=${shortcut || nothing}
            ?disabled=${this.disabled}
            @pointerdown=${(event: Event) => event.preventDefault()}
            @mousedown=${(event: Event) => event.preventDefault()}
            @click=${this.clicked}
        >
            <span>${caption(text)}</span>${shortcut === "" ? nothing : html`<kbd aria-hidden="true">${shortcut}</kbd>`}
        </button>`;
    }

    private clicked(): void {
        session.send({ event: "click", ...this.address });
    }
}
