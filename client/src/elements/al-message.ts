import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { Button } from "../protocol";
import { session } from "../Session";
import { dateByKey } from "./dates";
import { buttonTexts, DialogElement } from "./DialogElement";

const marks = { information: "i", warning: "!", question: "?", stop: "×" } as const;

/** A text with buttons, and a field where the box asks for something. */
@customElement("al-message")
export class MessageElement extends DialogElement {
    protected override render(): TemplateResult {
        const { state } = this.dialog;
        return html`<div class="box" role=${state.kind === "message" ? "alertdialog" : "dialog"} aria-modal="true"
            aria-labelledby="dialog-title" aria-describedby="dialog-text">
            <h2 id="dialog-title">${state.title}</h2>
            <div class="content">
                ${state.kind === "message" ? html`<span class="mark ${state.icon}" aria-hidden="true">${marks[state.icon]}</span>` : nothing}
                <div class="words"><p id="dialog-text">${state.text}</p>${this.renderFields()}</div>
            </div>
            <div class="answers">${state.buttons.map((button) => this.renderButton(button))}</div>
        </div>`;
    }

    private renderFields(): TemplateResult | typeof nothing {
        const { kind, text, value } = this.dialog.state;
        if (kind === "supervisor")
            return html`<label>Usuário <input class="field" name="user" autocomplete="off" .value=${value} /></label>
                <label>Senha <input class="field" name="password" type="password" autocomplete="off" /></label>`;
        if (kind !== "input" && kind !== "date") return nothing;
        return html`<input class="field" name="value" autocomplete="off" spellcheck="false" aria-label=${text} .value=${value.trim() === "/  /" ? "" : value}
            @beforeinput=${this.aboutToEdit} />`;
    }

    private renderButton(button: Button): TemplateResult {
        return html`<button type="button" class="button ${button === this.dialog.state.default ? "default" : ""}" data-answer=${button}
            @pointerdown=${(event: Event) => event.preventDefault()} @click=${() => this.answer(button)}
        ><span>${buttonTexts[button]}</span></button>`;
    }

    protected override answer(button: Button): void {
        const { dialog } = this.dialog.state;
        const value = (name: string) => this.querySelector<HTMLInputElement>(`input[name="${name}"]`)?.value;
        const text = value("value") ?? value("user");
        const password = value("password");
        session.send({
            event: "answer",
            dialog,
            button,
            ...(text === undefined ? {} : { text }),
            ...(password === undefined ? {} : { password }),
        });
    }

    override type(text: string): void {
        if (!this.typedSpecially(text)) super.type(text);
    }

    private aboutToEdit(event: InputEvent): void {
        if (event.data && this.typedSpecially(event.data)) event.preventDefault();
    }

    private typedSpecially(text: string): boolean {
        const field = this.field;
        const date = this.dialog.state.kind === "date" && field ? dateByKey(text, field.value) : null;
        if (!field || !date) return false;
        field.value = date;
        return true;
    }
}
