import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { Button } from "../protocol";
import { session } from "../Session";
import { DialogElement } from "./DialogElement";
import { download } from "./gridRows";

/** A report to be read, printed and kept as PDF. */
@customElement("al-report")
export class ReportElement extends DialogElement {
    protected override render(): TemplateResult {
        const { title, text } = this.dialog.state;
        return html`<div class="box viewer" role="dialog" aria-modal="true" aria-labelledby="dialog-title">
            <h2 id="dialog-title">${title}</h2>
            <p ?hidden=${text === ""}>${text}</p>
            <iframe class="viewer-stage" style="width: 100%; border: 0; background: white" title=${title} src=${this.address("")}></iframe>
            <div class="answers">
                <button type="button" class="button" tabindex="-1" @click=${this.print}><span>Imprimir</span></button>
                <button type="button" class="button" tabindex="-1" @click=${this.save}><span>Salvar PDF</span></button>
                <button type="button" class="button default" data-answer="ok" @click=${() => this.answer("ok")}><span>Fechar</span></button>
            </div>
        </div>`;
    }

    private address(ending: string): string {
        return `/relatorio/${this.dialog.state.report ?? ""}${ending}?${new URLSearchParams({ sessao: session.name })}`;
    }

    private readonly print = () => this.querySelector("iframe")?.contentWindow?.print();

    private readonly save = () => download(this.address(".pdf"));

    protected override answer(_button: Button): void {
        session.send({ event: "answer", dialog: this.dialog.state.dialog, button: this.dialog.state.escape });
    }
}
