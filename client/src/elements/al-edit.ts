import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { TextElement } from "./TextElement";

/** One line of text. */
@customElement("al-edit")
export class EditElement extends TextElement {
    protected override renderBox(): TemplateResult {
        if (!this.control.flag("lookup")) return this.renderField();
        return html`<span class="with-button">
            ${this.renderField()}
            <button type="button" class="inside" tabindex="-1" aria-label="Pesquisar" title="Pesquisar (F4)" ?disabled=${this.disabled}
                @pointerdown=${(event: Event) => event.preventDefault()} @click=${this.lookUp}>
                <svg viewBox="0 0 16 16" aria-hidden="true"><circle cx="7" cy="7" r="4.5" /><path d="m10.5 10.5 3.5 3.5" /></svg>
            </button>
        </span>${nothing}`;
    }

    private lookUp(): void {
        session.send({ event: "key", ...this.address, key: "F4" });
    }
}
