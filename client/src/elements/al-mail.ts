import { html, type TemplateResult } from "lit";
import { customElement, property, state } from "lit/decorators.js";
import { Refusal } from "../Account";
import { openOverlay, OverlayElement } from "./OverlayElement";

/** Asks for an address, and keeps asking until the mail is taken or given up. */
@customElement("al-mail")
export class MailElement extends OverlayElement {
    @property() address = "";
    /** Throws a Refusal with a text for the user. */
    @property({ attribute: false }) send: (address: string) => Promise<void> = async () => {};
    @state() private refusal = "";
    @state() private sending = false;

    protected override render(): TemplateResult {
        return html`<div class="cover"><div class="box" role="dialog" aria-modal="true" aria-label="Enviar por e-mail">
            <h2>Enviar por e-mail</h2>
            <div class="words"><label>Endereço <input class="field" type="text" inputmode="email" name="address" autocomplete="email" spellcheck="false" .value=${this.address} /></label></div>
            <p class="refusal" role="alert" ?hidden=${this.refusal === ""}>${this.refusal}</p>
            <div class="answers">
                <button type="button" class="button default" ?disabled=${this.sending} @click=${this.accept}><span>${this.sending ? "Enviando…" : "Enviar"}</span></button>
                <button type="button" class="button" @click=${this.close}><span>Cancelar</span></button>
            </div>
        </div></div>`;
    }

    override press(key: string, fresh: boolean): void {
        const stops = [...this.querySelectorAll<HTMLElement>("input, button:enabled")];
        const at = stops.indexOf(document.activeElement as HTMLElement);
        const step = { Tab: 1, "Shift+Tab": -1 }[key];
        if (step !== undefined) stops[(at + step + stops.length) % stops.length]?.focus();
        else if (key === "Enter" && stops[at] instanceof HTMLInputElement) this.accept();
        else if (key === "Enter" || key === "Space") stops[at]?.click();
        else super.press(key, fresh);
    }

    private readonly accept = () => {
        if (!this.sending) void this.trySending(this.field?.value.trim() ?? "");
    };

    private async trySending(address: string): Promise<void> {
        this.sending = true;
        try {
            await this.send(address);
            this.close();
        } catch (error) {
            this.refusal = error instanceof Refusal ? error.message : "Sem conexão com o servidor.";
            this.field?.select();
        }
        this.sending = false;
    }
}

export function openMail(address: string, send: MailElement["send"]): void {
    const mail = document.createElement("al-mail") as MailElement;
    Object.assign(mail, { address, send });
    openOverlay(mail);
}
