import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { live } from "lit/directives/live.js";
import { TextElement } from "./TextElement";

/** Several lines of text. */
@customElement("al-memo")
export class MemoElement extends TextElement {
    protected override readonly selectsOnEntering = false;

    protected override renderField(): TemplateResult {
        return html`<textarea
            data-focus
            class="field"
            rows=${Math.max(2, this.control.number("lines"))}
            spellcheck="false"
            aria-label=${this.accessibleName}
            .value=${live(this.shownText)}
            ?readonly=${this.fixed}
            ?disabled=${this.disabled}
            @input=${this.edited}
            @paste=${this.pasted}
            @pointerdown=${this.pointed}
        ></textarea>`;
    }

    override keeps(key: string): boolean {
        return super.keeps(key) || key === "Up" || key === "Down" || key === "PgUp" || key === "PgDn";
    }
}
