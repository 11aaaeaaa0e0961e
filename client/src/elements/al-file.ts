import { html, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { sendFile } from "../Account";
import type { Button } from "../protocol";
import { session } from "../Session";
import { buttonTexts, DialogElement } from "./DialogElement";

/** Asks for a file of the user's computer and brings it to the server. */
@customElement("al-file")
export class FileElement extends DialogElement {
    @state() private file: File | null = null;
    @state() private error = "";
    @state() private sending = false;

    protected override render(): TemplateResult {
        const { state: dialog } = this.dialog;
        const accept = dialog.filter.split(";").map((pattern) => pattern.replace(/^\*/, "").trim()).filter((each) => each.startsWith(".") && each !== ".*");
        return html`<div class="box" role="dialog" aria-modal="true" aria-labelledby="dialog-title">
            <h2 id="dialog-title">${dialog.title}</h2>
            <p>${dialog.text}</p>
            <input type="file" tabindex="-1" hidden accept=${accept.join(",")} @change=${this.chosen} />
            <div class="drop" @dragover=${(event: Event) => event.preventDefault()} @drop=${this.dropped}>
                <button type="button" class="button" data-choose @click=${this.choose}><span>Escolher arquivo…</span></button>
                <span class="hint">${this.file?.name ?? "ou solte o arquivo aqui"}</span>
            </div>
            <p class="refusal" role="alert" ?hidden=${this.error === ""}>${this.error}</p>
            <div class="answers">${dialog.buttons.map((button) => html`<button type="button" class="button ${button === "ok" ? "default" : ""}"
                data-answer=${button} ?disabled=${button === "ok" && (!this.file || this.sending)} @click=${() => this.answer(button)}>
                <span>${button === "ok" && this.sending ? "Enviando…" : buttonTexts[button]}</span></button>`)}</div>
        </div>`;
    }

    protected override get field(): HTMLInputElement | null {
        return null;
    }

    private readonly choose = () => this.querySelector<HTMLInputElement>('input[type="file"]')?.click();

    private readonly chosen = (event: Event) => this.take((event.target as HTMLInputElement).files?.[0]);

    private readonly dropped = (event: DragEvent) => {
        event.preventDefault();
        this.take(event.dataTransfer?.files[0]);
    };

    private take(file: File | undefined): void {
        this.file = file ?? null;
        this.error = "";
        void this.updateComplete.then(() => this.querySelector<HTMLElement>('[data-answer="ok"]')?.focus());
    }

    override refocus(): void {
        this.querySelector<HTMLElement>(this.file ? '[data-answer="ok"]' : "[data-choose]")?.focus();
    }

    override press(key: string, fresh: boolean): void {
        if ((key === "Enter" || key === "Space") && document.activeElement?.hasAttribute("data-choose")) return this.choose();
        super.press(key, fresh);
    }

    protected override answer(button: Button): void {
        const { dialog } = this.dialog.state;
        if (button !== "ok") session.send({ event: "answer", dialog, button });
        else if (this.file && !this.sending) void this.sendFile(this.file, dialog);
    }

    private async sendFile(file: File, dialog: number): Promise<void> {
        this.sending = true;
        try {
            const text = await sendFile(file, session.name);
            session.send({ event: "answer", dialog, button: "ok", text });
        } catch (error) {
            this.error = error instanceof Error ? error.message : "O arquivo não pôde ser enviado.";
        }
        this.sending = false;
    }
}
