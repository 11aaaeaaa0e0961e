import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";
import { fileAddress } from "./fileAddress";

/** A picture from a file of the server. */
@customElement("al-image")
export class ImageElement extends ControlElement {
    protected override render(): TemplateResult {
        const file = this.control.text("file");
        const text = plainCaption(this.control.text("caption"));
        return html`
            ${text === "" ? nothing : html`<span class="caption">${text}</span>`}
            <div class="picture" @click=${this.clicked} @dblclick=${this.doubleClicked}>
                ${file === "" ? html`<span class="hint">Sem foto</span>`
                    : html`<img alt=${text || "Foto"} src=${fileAddress(file, this.control.number("version"))} />`}
            </div>`;
    }

    private clicked(): void {
        if (!this.disabled) session.send({ event: "click", ...this.address });
    }

    private doubleClicked(): void {
        if (!this.disabled) session.send({ event: "doubleClick", ...this.address });
    }
}
