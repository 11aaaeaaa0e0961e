import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { caption, plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";

/** Files of which one is chosen. */
@customElement("al-files")
export class FilesElement extends ControlElement {
    protected override render(): TemplateResult {
        const text = this.control.text("caption");
        const chosen = this.control.number("itemIndex");
        return html`<span class="caption">${caption(text)}</span>
            <ul role="listbox" class="files" data-focus tabindex=${this.disabled ? -1 : 0} aria-label=${plainCaption(text) || this.control.name}>
                ${this.control.texts("items").map((name, index) => html`<li role="option" aria-selected=${index === chosen}
                    @pointerdown=${(event: Event) => event.preventDefault()} @click=${() => this.choose(index)}
                    @dblclick=${() => session.send({ event: "doubleClick", ...this.address, index })}>${name}</li>`)}
            </ul>`;
    }

    private choose(index: number): void {
        if (!this.disabled) session.send({ event: "select", ...this.address, index });
    }
}
