import { html, type TemplateResult } from "lit";
import { customElement, property } from "lit/decorators.js";
import { openOverlay, OverlayElement } from "./OverlayElement";

/** A question of the client's own; the harmless answer is the default one. */
@customElement("al-confirm")
export class ConfirmElement extends OverlayElement {
    @property() question = "";
    @property() yes = "";
    @property({ attribute: false }) act = () => {};

    protected override render(): TemplateResult {
        return html`<div class="cover"><div class="box" role="alertdialog" aria-modal="true" aria-label=${this.question}>
            <div class="content"><span class="mark question" aria-hidden="true">?</span><div class="words"><p>${this.question}</p></div></div>
            <div class="answers">
                <button type="button" class="button" @click=${this.accept}><span>${this.yes}</span></button>
                <button type="button" class="button default" @click=${this.close}><span>Ficar</span></button>
            </div>
        </div></div>`;
    }

    private readonly accept = () => {
        this.close();
        this.act();
    };

    override refocus(): void {
        this.querySelector<HTMLElement>(".button.default")?.focus();
    }

    override press(key: string, fresh: boolean): void {
        const buttons = [...this.querySelectorAll<HTMLElement>(".answers button")];
        const at = buttons.indexOf(document.activeElement as HTMLElement);
        if (["Tab", "Shift+Tab", "Left", "Right"].includes(key)) buttons[1 - Math.max(0, at)]?.focus();
        else if (key === "Enter" || key === "Space") buttons[at]?.click();
        else super.press(key, fresh);
    }
}

export function openConfirm(question: string, yes: string, act: () => void): void {
    const confirm = document.createElement("al-confirm") as ConfirmElement;
    Object.assign(confirm, { question, yes, act });
    openOverlay(confirm);
}
