import { html, LitElement, nothing, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { comeIn, Refusal, type OfferedSession } from "../Account";
import { session } from "../Session";

const lastUserKey = "usuario";

/** Who comes in; and, when work of his waits, whether he goes on with it. */
@customElement("al-login")
export class LoginElement extends LitElement {
    @state() private error = "";
    @state() private asking = false;

    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    protected override firstUpdated(): void {
        const user = this.value("usuario");
        this.querySelector<HTMLInputElement>(`input[name="${user === "" ? "usuario" : "senha"}"]`)?.focus();
    }

    protected override render(): TemplateResult {
        return html`<div class="entrance">
            <div class="entrance-box">
                <div class="brand"><img src="/icon.svg" alt="" width="44" height="44" /><h1>Alinhavo</h1></div>
                ${session.welcome ? this.renderOffers(session.welcome.sessoes, session.welcome.aviso) : this.renderForm()}
            </div>
        </div>`;
    }

    private renderForm(): TemplateResult {
        return html`<form @submit=${this.submitted}>
            <label>Usuário <input class="field" name="usuario" autocomplete="username" autocapitalize="characters" spellcheck="false"
                required .value=${localStorage.getItem(lastUserKey) ?? ""} /></label>
            <label>Senha <input class="field" name="senha" type="password" autocomplete="current-password" /></label>
            <p class="refusal" role="alert" ?hidden=${this.error === ""}>${this.error}</p>
            <button class="button default" ?disabled=${this.asking}><span>${this.asking ? "Entrando…" : "Entrar"}</span></button>
        </form>`;
    }

    private renderOffers(sessions: readonly OfferedSession[], notice: string | undefined): TemplateResult {
        return html`
            ${notice ? html`<p class="refusal" role="alert">${notice}</p>` : nothing}
            ${sessions.length > 0 ? html`<p>Há trabalho aberto de ${session.welcome?.nome ?? ""}:</p>` : nothing}
            ${sessions.map((offer, index) => this.renderOffer(offer, index === 0))}
            <button type="button" class="button ${sessions.length === 0 ? "default" : ""}" @click=${() => session.work("nova")}>
                <span>${sessions.length === 0 ? "Continuar" : "Começar outra sessão"}</span></button>`;
    }

    private renderOffer(offer: OfferedSession, first: boolean): TemplateResult {
        const screens = offer.telas.length === 0 ? "nenhuma tela aberta" : offer.telas.join(", ");
        return html`<button type="button" class="offer" ?autofocus=${first} @click=${() => session.work(offer.id)}>
            <b>Continuar de onde parou</b>
            <span>${screens}</span>
            <small>desde ${offer.desde}, último uso ${offer.uso}${offer.aberta ? ", aberta em outro navegador" : ""}</small>
            ${offer.pendente ? html`<small class="pending">há trabalho que ainda não foi gravado</small>` : nothing}
        </button>`;
    }

    protected override updated(): void {
        if (session.welcome) this.querySelector<HTMLElement>(".offer, .button.default")?.focus();
    }

    private readonly submitted = (event: Event) => {
        event.preventDefault();
        void this.comeIn();
    };

    private async comeIn(): Promise<void> {
        this.asking = true;
        this.error = "";
        const user = this.value("usuario").trim();
        try {
            const welcome = await comeIn(user, this.value("senha"));
            localStorage.setItem(lastUserKey, user);
            session.welcome = welcome;
            if (welcome.sessoes.length === 0 && !welcome.aviso) await session.work("nova");
        } catch (error) {
            this.error = error instanceof Refusal ? error.message : "Sem conexão com o servidor. Tente novamente.";
            this.querySelector<HTMLInputElement>('input[name="senha"]')?.select();
        }
        this.asking = false;
    }

    private value(name: string): string {
        return this.querySelector<HTMLInputElement>(`input[name="${name}"]`)?.value ?? "";
    }
}
