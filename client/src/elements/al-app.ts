import { html, LitElement, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { repeat } from "lit/directives/repeat.js";
import { preferences } from "../Preferences";
import type { Dialog, Screen } from "../Screens";
import { session } from "../Session";
import { openMenuSearch } from "./al-menu-search";
import { openUserMenu } from "./userMenu";
import { plainCaption } from "./caption";
import { renderControl } from "./renderControl";

const keepFocus = (event: Event) => event.preventDefault();

/** The main window: login, menu, the open screens as tabs, what is modal above them, and the line to the server. */
@customElement("al-app")
export class AppElement extends LitElement {
    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    override connectedCallback(): void {
        super.connectedCallback();
        session.addEventListener("change", this.changed);
        session.addEventListener("tick", this.ticked);
        session.addEventListener("idle", this.showIdle);
        preferences.addEventListener("change", this.changed);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        session.removeEventListener("change", this.changed);
        session.removeEventListener("tick", this.ticked);
        session.removeEventListener("idle", this.showIdle);
        preferences.removeEventListener("change", this.changed);
    }

    private readonly changed = () => this.requestUpdate();

    private readonly ticked = () => {
        if (session.line === "lost") this.requestUpdate();
    };

    /** Programs that drive the page wait for it. */
    private readonly showIdle = () => {
        this.dataset["idle"] = String(session.idle);
    };

    protected override render(): TemplateResult | typeof nothing {
        if (session.line === "asking") return nothing;
        if (session.line === "out") return html`<al-login></al-login>`;
        return this.renderWindow();
    }

    private renderWindow(): TemplateResult {
        const screens = [...session.screens.open.values()];
        const modal = screens.filter((screen) => screen.modal);
        const tabs = screens.filter((screen) => !screen.modal);
        const front = tabs.find((screen) => screen.name === session.screens.focus.form) ?? tabs.at(-1);
        const { dialogs } = session.screens;
        const covered = modal.length > 0 || dialogs.length > 0;
        document.title = front ? `${plainCaption(front.root.text("caption"))} – ${session.screens.title}` : session.screens.title;
        this.toggleAttribute("data-menu", this.menuShown(tabs.length));
        return html`
            <header ?inert=${covered}>
                <button type="button" class="menu-button" tabindex="-1" title="Menu" aria-label="Menu" aria-expanded=${this.menuShown(tabs.length)}
                    @pointerdown=${keepFocus} @click=${this.toggleMenu}><svg viewBox="0 0 16 16" aria-hidden="true"><path d="M2 4h12M2 8h12M2 12h12" /></svg></button>
                <img src="/icon.svg" alt="" width="22" height="22" /><strong>${session.screens.title}</strong>
                <div class="screens" role="tablist" aria-label="Telas abertas">
                    ${repeat(tabs, ({ name }) => name, (screen) => this.renderTab(screen, screen === front))}
                </div>
                <button type="button" class="user-button" tabindex="-1" aria-haspopup="menu" @pointerdown=${keepFocus} @click=${openUserMenu}>
                    <span class="initial" aria-hidden="true">${session.user.name.charAt(0)}</span><span>${session.user.name || "Usuário"}</span></button>
            </header>
            ${this.menuShown(tabs.length) ? html`<al-menu ?inert=${covered}></al-menu>` : nothing}
            <main ?inert=${covered}>
                ${repeat(tabs, ({ name }) => name, (screen) => html`<section class="screen" aria-label=${plainCaption(screen.root.text("caption"))}
                    ?hidden=${screen !== front}>${renderControl(screen.root)}</section>`)}
                ${tabs.length === 0 ? this.renderNothingOpen() : nothing}
            </main>
            ${repeat(modal, ({ name }) => name, (screen, index) => this.renderModal(screen, index < modal.length - 1 || dialogs.length > 0))}
            ${repeat(dialogs, ({ state }) => state.dialog, (dialog, index) => this.renderDialog(dialog, index < dialogs.length - 1))}
            ${this.renderLine()}
            <al-status></al-status>
        `;
    }

    private menuShown(screens: number): boolean {
        return screens === 0 || preferences.flag("menu", innerWidth >= 1600);
    }

    private readonly toggleMenu = () => preferences.set("menu", !preferences.flag("menu", innerWidth >= 1600));

    private renderTab(screen: Screen, front: boolean): TemplateResult {
        const title = plainCaption(screen.root.text("caption"));
        return html`<div class="tab-and-close ${front ? "front" : ""}" role="presentation">
            <button type="button" role="tab" class="tab" aria-selected=${front} tabindex="-1" @pointerdown=${keepFocus}
                @click=${() => session.send({ event: "activate", form: screen.name })}>${title}</button>
            <button type="button" class="close" tabindex="-1" title="Fechar (Ctrl+F4)" aria-hidden="true" @pointerdown=${keepFocus}
                @click=${() => session.send({ event: "close", form: screen.name })}>×</button>
        </div>`;
    }

    private renderNothingOpen(): TemplateResult {
        return html`<div class="empty">
            <p>Nenhuma tela aberta.</p>
            <button type="button" class="button" @click=${openMenuSearch}><span>Procurar tela</span><kbd>Ctrl+K</kbd></button>
        </div>`;
    }

    private renderModal(screen: Screen, covered: boolean): TemplateResult {
        const title = plainCaption(screen.root.text("caption"));
        return html`<div class="cover" ?inert=${covered}>
            <div class="box window" role="dialog" aria-modal="true" aria-label=${title}><h2>${title}</h2>${renderControl(screen.root)}</div>
        </div>`;
    }

    private renderDialog(dialog: Dialog, covered: boolean): TemplateResult {
        return html`<div class="cover" ?inert=${covered}>${boxOf(dialog)}</div>`;
    }

    private renderLine(): TemplateResult | typeof nothing {
        switch (session.line) {
            case "connecting":
                return html`<div class="line unheld" role="status">Conectando…</div>`;
            case "lost":
                return html`<div class="line unheld" role="status">Conexão perdida há ${session.lostFor} s. Reconectando… O que for digitado não se perde.</div>`;
            case "replaced":
                return html`<div class="line unheld" role="alert">Esta sessão foi aberta em outra janela.
                    <button type="button" class="button" @click=${() => session.takeOver()}><span>Usar aqui</span></button></div>`;
            case "ended":
                return html`<div class="line unheld" role="alert"><span>A sessão terminou. ${session.farewell}</span>
                    <button type="button" class="button" @click=${() => location.reload()}><span>Entrar novamente</span></button></div>`;
            default:
                return nothing;
        }
    }
}

function boxOf(dialog: Dialog): TemplateResult {
    switch (dialog.state.kind) {
        case "lookup":
            return html`<al-lookup .dialog=${dialog}></al-lookup>`;
        case "file":
            return html`<al-file .dialog=${dialog}></al-file>`;
        case "picture":
            return html`<al-viewer .dialog=${dialog}></al-viewer>`;
        case "report":
            return html`<al-report .dialog=${dialog}></al-report>`;
        default:
            return html`<al-message .dialog=${dialog}></al-message>`;
    }
}
