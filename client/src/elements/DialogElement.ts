import { property } from "lit/decorators.js";
import type { Button } from "../protocol";
import type { Dialog } from "../Screens";
import { session } from "../Session";
import { KeyboardElement } from "./KeyboardElement";

export const buttonTexts: Readonly<Record<Button, string>> = { ok: "OK", cancel: "Cancelar", yes: "Sim", no: "Não" };

/** A box that waits for an answer on top of everything. */
export abstract class DialogElement extends KeyboardElement {
    @property({ attribute: false }) dialog!: Dialog;

    override connectedCallback(): void {
        super.connectedCallback();
        session.dialogReceiver = this;
        session.addEventListener("change", this.changed);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        if (session.dialogReceiver === this) session.dialogReceiver = null;
        session.removeEventListener("change", this.changed);
    }

    private readonly changed = () => this.requestUpdate();

    protected get buttons(): HTMLButtonElement[] {
        return [...this.querySelectorAll<HTMLButtonElement>("[data-answer]")];
    }

    /** Where Tab goes, in this order. */
    protected get stops(): HTMLElement[] {
        return [...this.querySelectorAll<HTMLElement>("input, [data-answer]")];
    }

    protected abstract answer(button: Button): void;

    press(key: string, fresh: boolean): void {
        switch (key) {
            case "Esc":
                return this.answer(this.dialog.state.escape);
            case "Enter":
                return this.answer(this.focusedButton ?? (this.field ? "ok" : this.dialog.state.default));
            case "Space":
                if (this.focusedButton) return this.answer(this.focusedButton);
                break;
            case "Tab":
            case "Right":
            case "Down":
                return this.step(1);
            case "Shift+Tab":
            case "Left":
            case "Up":
                return this.step(-1);
            default:
                break;
        }
        this.pressLetter(key, fresh);
    }

    /** A letter that was typed before the box could be seen answers nothing. */
    private pressLetter(key: string, fresh: boolean): void {
        const letter = key.replace(/^Alt\+/, "").toLocaleLowerCase("pt-BR");
        const button = this.dialog.state.buttons.find((name) => buttonTexts[name].toLocaleLowerCase("pt-BR").startsWith(letter));
        if (button && fresh && [...letter].length === 1) this.answer(button);
    }

    private get focusedButton(): Button | undefined {
        const focused = document.activeElement;
        return focused instanceof HTMLButtonElement && this.contains(focused) ? (focused.dataset["answer"] as Button) : undefined;
    }

    protected step(step: number): void {
        const { stops } = this;
        const next = stops[(stops.indexOf(document.activeElement as HTMLElement) + step + stops.length) % stops.length];
        next?.focus();
        if (next instanceof HTMLInputElement) next.select();
    }

    refocus(): void {
        const { default: wanted } = this.dialog.state;
        (this.field ?? this.buttons.find((button) => button.dataset["answer"] === wanted))?.focus();
    }
}
