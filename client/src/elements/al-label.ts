import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { caption } from "./caption";
import { ControlElement } from "./ControlElement";

@customElement("al-label")
export class LabelElement extends ControlElement {
    protected override render(): TemplateResult {
        return html`<span class="text ${this.control.text("style")}" @click=${this.clicked}>${caption(this.control.text("caption"))}</span>`;
    }

    private clicked(): void {
        if (!this.disabled) session.send({ event: "click", ...this.address });
    }
}
