import { html, LitElement, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";

/** Milliseconds before an answer counts as long work; before it covers the screen. */
const patience = 400;
const longPatience = 2000;

/** The last line of the window: what was refused, what waits to be stored, and for how long the server has been at work. */
@customElement("al-status")
export class StatusElement extends LitElement {
    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    override connectedCallback(): void {
        super.connectedCallback();
        session.addEventListener("change", this.changed);
        session.addEventListener("tick", this.changed);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        session.removeEventListener("change", this.changed);
        session.removeEventListener("tick", this.changed);
    }

    private readonly changed = () => this.requestUpdate();

    protected override render(): TemplateResult {
        return html`<footer>
            <span class="notice" role="status">${session.notice}</span>
            ${this.renderUnstored()}
            <span class="hint">F1 teclas desta tela</span>
        </footer>
        ${this.renderBusy()}`;
    }

    private renderUnstored(): TemplateResult | typeof nothing {
        const seconds = session.unstoredFor;
        if (seconds === null) return nothing;
        const age = seconds < 60 ? "há menos de 1 min" : `há ${Math.floor(seconds / 60)} min`;
        return html`<span class="unstored ${seconds >= 600 ? "old" : ""}">● Trabalho ainda não gravado ${age}</span>`;
    }

    private renderBusy(): TemplateResult | typeof nothing {
        const { pendingFor } = session;
        if (pendingFor < patience || session.line !== "connected") return nothing;
        const seconds = Math.floor(pendingFor / 1000);
        if (pendingFor < longPatience) return html`<div class="busy small" role="status"><span class="spinner"></span>Processando…</div>`;
        return html`<div class="busy unheld" role="alertdialog" aria-label="Processando"><span class="spinner"></span>
            <span>Processando há ${seconds} s</span>
            <button type="button" class="button" tabindex="-1" @click=${() => session.cancel()}><span>Cancelar</span></button></div>`;
    }
}
