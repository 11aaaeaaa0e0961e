import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { TextElement } from "./TextElement";

/** One line of text. Several lines that are pasted become a list of codes. */
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
        </span>`;
    }

    override type(text: string): void {
        const codes = text.split(/\r?\n/).map((line) => (line.split("\t")[0] ?? "").trim()).filter((code) => code !== "");
        super.type(codes.length > 1 ? codes.map((code) => `'${code.replaceAll("'", "''")}'`).join(",") : text.replace(/[\r\n\t]+/g, ""));
    }

    private lookUp(): void {
        session.send({ event: "key", ...this.address, key: "F4" });
    }
}
