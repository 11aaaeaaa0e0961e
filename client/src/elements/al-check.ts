import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { live } from "lit/directives/live.js";
import { session } from "../Session";
import { caption } from "./caption";
import { ControlElement } from "./ControlElement";

/** Yes or no; as a radio button, one of several. */
@customElement("al-check")
export class CheckElement extends ControlElement {
    protected override render(): TemplateResult {
        const radio = this.control.kind === "radio";
        return html`<label class="choice" @pointerdown=${(event: Event) => event.preventDefault()}>
            <input
                data-focus
                type=${radio ? "radio" : "checkbox"}
                .checked=${live(this.control.flag("checked"))}
                ?disabled=${this.disabled}
                aria-readonly=${radio ? nothing : this.control.flag("readOnly")}
                @click=${this.clicked}
            /><span>${caption(this.control.text("caption"))}</span>
        </label>`;
    }

    /** The server decides; until then the mark stays as it was. */
    private clicked(event: Event): void {
        event.preventDefault();
        if (this.control.flag("readOnly")) return;
        const checked = this.control.kind === "radio" || !this.control.flag("checked");
        session.send({ event: "check", ...this.address, checked });
    }
}
