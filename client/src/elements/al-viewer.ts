import { html, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import type { Button } from "../protocol";
import { session } from "../Session";
import { DialogElement } from "./DialogElement";
import { fileAddress } from "./fileAddress";

const steps = [0.25, 0.5, 1, 1.5, 2, 3, 4];

/** Pictures, one at a time: arrows turn over, + and - change the size, Esc closes. */
@customElement("al-viewer")
export class ViewerElement extends DialogElement {
    @state() private index = 0;
    /** Null: as large as fits. */
    @state() private scale: number | null = null;

    private get files(): readonly string[] {
        return this.dialog.state.files ?? [];
    }

    protected override render(): TemplateResult {
        const { files, index, scale } = this;
        const file = files[index];
        return html`<div class="box viewer" role="dialog" aria-modal="true" aria-labelledby="dialog-title">
            <h2 id="dialog-title">${this.dialog.state.title}${files.length > 1 ? ` (${index + 1} de ${files.length})` : ""}</h2>
            <div class="viewer-stage ${scale === null ? "fits" : ""}">
                ${file === undefined ? html`<span class="hint">Sem foto</span>`
                    : html`<img alt=${`Foto ${index + 1}`} src=${fileAddress(file)} style=${scale === null ? "" : `zoom: ${scale}`} />`}
            </div>
            <div class="answers">
                <button type="button" class="button" tabindex="-1" ?disabled=${index === 0} @click=${() => this.turn(-1)}><span>‹ Anterior</span></button>
                <button type="button" class="button" tabindex="-1" ?disabled=${index >= files.length - 1} @click=${() => this.turn(1)}><span>Próxima ›</span></button>
                <button type="button" class="button" tabindex="-1" @click=${() => this.zoom(1)}><span>Ampliar</span><kbd>+</kbd></button>
                <button type="button" class="button" tabindex="-1" @click=${() => this.zoom(-1)}><span>Reduzir</span><kbd>−</kbd></button>
                <button type="button" class="button default" data-answer="ok" @click=${() => this.answer("ok")}><span>Fechar</span></button>
            </div>
        </div>`;
    }

    override press(key: string, fresh: boolean): void {
        if (key === "Right" || key === "PgDn") this.turn(1);
        else if (key === "Left" || key === "PgUp") this.turn(-1);
        else if (key === "+" || key === "-") this.zoom(key === "+" ? 1 : -1);
        else if (key === "0") this.scale = null;
        else super.press(key, fresh);
    }

    private turn(step: number): void {
        this.index = Math.max(0, Math.min(this.files.length - 1, this.index + step));
        this.scale = null;
    }

    private zoom(step: number): void {
        const at = steps.indexOf(this.scale ?? 1);
        this.scale = steps[Math.max(0, Math.min(steps.length - 1, at + step))] ?? null;
    }

    protected override answer(_button: Button): void {
        session.send({ event: "answer", dialog: this.dialog.state.dialog, button: this.dialog.state.escape });
    }
}
