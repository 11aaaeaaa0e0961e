import { html, LitElement, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { repeat } from "lit/directives/repeat.js";
import type { Dialog, Screen } from "../Screens";
import { session } from "../Session";
import { plainCaption } from "./caption";
import { renderControl } from "./renderControl";

const patience = 400;

/** The main window: the open screens as tabs, what is modal above them, and the line to the server. */
@customElement("al-app")
export class AppElement extends LitElement {
    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    override connectedCallback(): void {
        super.connectedCallback();
        session.addEventListener("change", this.changed);
        session.addEventListener("tick", this.changed);
        session.addEventListener("idle", this.showIdle);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        session.removeEventListener("change", this.changed);
        session.removeEventListener("tick", this.changed);
        session.removeEventListener("idle", this.showIdle);
    }

    private readonly changed = () => this.requestUpdate();

    /** Programs that drive the page wait for it. */
    private readonly showIdle = () => {
        this.dataset["idle"] = String(session.idle);
    };

    protected override render(): TemplateResult {
        const screens = [...session.screens.open.values()];
        const modal = screens.filter((screen) => screen.modal);
        const tabs = screens.filter((screen) => !screen.modal);
        const front = tabs.find((screen) => screen.name === session.screens.focus.form) ?? tabs.at(-1);
        const { dialogs } = session.screens;
        const covered = modal.length > 0 || dialogs.length > 0;
        document.title = front ? `${plainCaption(front.root.text("caption"))} – ${session.screens.title}` : session.screens.title;
        return html`
            <header ?inert=${covered}>
                <img src="/icon.svg" alt="" width="22" height="22" /><strong>${session.screens.title}</strong>
                <nav class="screens" role="tablist" aria-label="Telas abertas">
                    ${repeat(tabs, ({ name }) => name, (screen) => this.renderTab(screen, screen === front))}
                </nav>
            </header>
            <main ?inert=${covered}>
                ${repeat(tabs, ({ name }) => name, (screen) => html`<section class="screen" ?hidden=${screen !== front}>${renderControl(screen.root)}</section>`)}
            </main>
            ${repeat(modal, ({ name }) => name, (screen, index) => this.renderModal(screen, index < modal.length - 1 || dialogs.length > 0))}
            ${repeat(dialogs, ({ state }) => state.dialog, (dialog, index) => this.renderDialog(dialog, index < dialogs.length - 1))}
            ${this.renderLine()}
            <footer role="status">${session.notice}${this.renderBusy()}</footer>
        `;
    }

    private renderTab(screen: Screen, front: boolean): TemplateResult {
        return html`<button type="button" role="tab" class="tab" aria-selected=${front}
            @pointerdown=${(event: Event) => event.preventDefault()}
            @click=${() => session.send({ event: "activate", form: screen.name })}
        >${plainCaption(screen.root.text("caption"))}</button>`;
    }

    private renderModal(screen: Screen, covered: boolean): TemplateResult {
        const title = plainCaption(screen.root.text("caption"));
        return html`<div class="cover" ?inert=${covered}>
            <div class="box window" role="dialog" aria-modal="true" aria-label=${title}><h2>${title}</h2>${renderControl(screen.root)}</div>
        </div>`;
    }

    private renderDialog(dialog: Dialog, covered: boolean): TemplateResult {
        const box = dialog.state.kind === "lookup"
            ? html`<al-lookup .dialog=${dialog}></al-lookup>`
            : html`<al-message .dialog=${dialog}></al-message>`;
        return html`<div class="cover" ?inert=${covered}>${box}</div>`;
    }

    private renderLine(): TemplateResult | typeof nothing {
        switch (session.line) {
            case "connected":
                return nothing;
            case "connecting":
                return html`<div class="line" role="status">Sem conexão com o servidor. Tentando novamente…</div>`;
            case "replaced":
                return html`<div class="line" role="alert">Esta sessão foi aberta em outra janela.
                    <button type="button" class="button" @click=${() => session.takeOver()}><span>Usar aqui</span></button></div>`;
            case "ended":
                return html`<div class="line" role="alert">A sessão terminou.
                    <button type="button" class="button" @click=${() => location.reload()}><span>Entrar novamente</span></button></div>`;
        }
    }

    private renderBusy(): TemplateResult | typeof nothing {
        if (session.pendingFor < patience || session.line !== "connected") return nothing;
        return html`<span class="busy">Processando… ${Math.floor(session.pendingFor / 1000)} s</span>`;
    }
}
