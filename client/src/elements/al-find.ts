import { html, type TemplateResult } from "lit";
import { customElement, property, state } from "lit/decorators.js";
import { openOverlay, OverlayElement } from "./OverlayElement";

/** A place for a text that is sought, and what came of it. Enter goes on to the next, Shift+Enter back. */
@customElement("al-find")
export class FindElement extends OverlayElement {
    /** Goes to the next row that holds the text, in the direction of the step; says how it went. */
    @property({ attribute: false }) seek: (text: string, step: 1 | -1, fromHere: boolean) => Promise<string> = async () => "";
    @state() private outcome = "";

    protected override render(): TemplateResult {
        return html`<div class="find" role="search">
            <input class="field" type="search" placeholder="Localizar na grade" aria-label="Localizar na grade" autocomplete="off" spellcheck="false"
                @input=${() => this.go(1, true)} />
            <span class="hint" role="status">${this.outcome}</span>
            <button type="button" class="inside-find" tabindex="-1" aria-label="Anterior" @click=${() => this.go(-1, false)}>‹</button>
            <button type="button" class="inside-find" tabindex="-1" aria-label="Próxima" @click=${() => this.go(1, false)}>›</button>
        </div>`;
    }

    override press(key: string, fresh: boolean): void {
        if (key === "Enter" || key === "Down" || key === "F3") this.go(1, false);
        else if (key === "Shift+Enter" || key === "Up" || key === "Shift+F3") this.go(-1, false);
        else super.press(key, fresh);
    }

    private readonly go = (step: 1 | -1, fromHere: boolean) => {
        const text = this.field?.value ?? "";
        if (text === "") this.outcome = "";
        else void this.seek(text, step, fromHere).then((outcome) => (this.outcome = outcome));
    };
}

export function openFind(at: DOMRect, seek: FindElement["seek"]): void {
    const find = document.createElement("al-find") as FindElement;
    find.seek = seek;
    openOverlay(find, new DOMRect(at.right - 380, at.top, 0, 0));
}
