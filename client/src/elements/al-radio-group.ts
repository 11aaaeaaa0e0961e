import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { live } from "lit/directives/live.js";
import { session } from "../Session";
import { caption, plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";

/** Texts of which one is chosen. */
@customElement("al-radio-group")
export class RadioGroupElement extends ControlElement {
    protected override render(): TemplateResult {
        const text = this.control.text("caption");
        const items = this.control.texts("items");
        const chosen = this.control.number("itemIndex");
        return html`<fieldset role="radiogroup" class="frame" aria-label=${plainCaption(text) || this.control.name}>
            <legend>${caption(text)}</legend>
            <div class="choices">${items.map((item, index) => this.renderItem(item, index, chosen))}</div>
        </fieldset>`;
    }

    private renderItem(item: string, index: number, chosen: number): TemplateResult {
        return html`<label class="choice" @pointerdown=${(event: Event) => event.preventDefault()}>
            <input
                type="radio"
                name="${this.control.form}-${this.control.name}"
                ?data-focus=${index === Math.max(0, chosen)}
                .checked=${live(index === chosen)}
                ?disabled=${this.disabled}
                @click=${(event: Event) => this.clicked(event, index)}
            /><span>${caption(item)}</span>
        </label>`;
    }

    private clicked(event: Event, index: number): void {
        event.preventDefault();
        if (!this.control.flag("readOnly")) session.send({ event: "select", ...this.address, index });
    }
}
