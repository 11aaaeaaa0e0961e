import { html, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { rowPixels } from "../appearance";
import type { Button } from "../protocol";
import { session } from "../Session";
import { buttonTexts, DialogElement } from "./DialogElement";

const linesSeen = 14;

/** Rows to pick from, with a search as one types. */
@customElement("al-lookup")
export class LookupElement extends DialogElement {
    @state() private row = 0;
    /** Of the rows that the search finds which was sent last: those that were picked before it stand in front of them. */
    private readonly picked = new Set<number>();
    private asked = "";
    /** Enter was pressed while the search was under way: it is for the rows that it finds. */
    private answerWhenFound = false;

    protected override render(): TemplateResult {
        const { state } = this.dialog;
        const { rows } = this.dialog;
        this.row = Math.max(0, Math.min(this.row, rows.count - 1));
        return html`<div class="box lookup" role="dialog" aria-modal="true" aria-labelledby="dialog-title">
            <h2 id="dialog-title">${state.title}</h2>
            <input class="field search" type="search" autocomplete="off" spellcheck="false" placeholder="Pesquisar"
                aria-label="Pesquisar" aria-controls="lookup-rows" .value=${state.value} @input=${this.search} />
            <div class="lookup-rows" id="lookup-rows" style="height: ${(linesSeen + 1) * rowPixels()}px" @scroll=${this.askForRows}>
                <table>
                    <thead><tr>${state.columns?.map((column) => html`<th class=${column.number ? "number" : ""}>${column.title}</th>`)}</tr></thead>
                    <tbody>${this.renderRows()}</tbody>
                </table>
            </div>
            <div class="answers">
                <span class="count">${this.countText}</span>
                ${state.buttons.map(
                    (button) => html`<button type="button" class="button ${button === "ok" ? "default" : ""}" data-answer=${button}
                        @pointerdown=${(event: Event) => event.preventDefault()} @click=${() => this.answer(button)}
                    ><span>${buttonTexts[button]}</span></button>`,
                )}
            </div>
        </div>`;
    }

    private get countText(): string {
        const { count } = this.dialog.rows;
        const found = count === 1 ? "1 linha" : `${count.toLocaleString("pt-BR")} linhas`;
        return this.dialog.state.multiple ? `${found}, ${this.picked.size} marcadas (barra de espaço marca)` : found;
    }

    private renderRows(): TemplateResult[] {
        const { rows, state } = this.dialog;
        const end = Math.min(rows.count, rows.first + rows.length);
        const lines = [];
        for (let row = rows.first; row < end; ++row) {
            const texts = rows.get(row)?.texts ?? [];
            lines.push(html`<tr aria-selected=${row === this.row} class=${this.picked.has(row) && !session.typing ? "picked" : ""}
                @pointerdown=${(event: Event) => event.preventDefault()}
                @click=${() => this.pointAt(row)} @dblclick=${() => this.answer("ok")}>
                ${texts.map((text, index) => html`<td class=${state.columns?.[index]?.number ? "number" : ""}>${text}</td>`)}
            </tr>`);
        }
        const space = (count: number) => (count > 0 ? [html`<tr class="space"><td style="height: ${count * rowPixels()}px"></td></tr>`] : []);
        return [...space(rows.first), ...lines, ...space(rows.count - end)];
    }

    protected override updated(): void {
        this.querySelector('tr[aria-selected="true"]')?.scrollIntoView({ block: "nearest" });
        if (!this.answerWhenFound || session.typing) return;
        this.answerWhenFound = false;
        this.answer("ok");
    }

    private readonly search = () => {
        const text = this.field?.value ?? "";
        if (text === this.asked) return;
        this.asked = text;
        this.row = 0;
        const rows = this.dialog.state.keepsPicks ? this.picks : [];
        session.send({ event: "search", dialog: this.dialog.state.dialog, text, ...(rows.length > 0 ? { rows } : {}) });
        this.picked.clear();
        rows.forEach((_, row) => this.picked.add(row));
    };

    override press(key: string, fresh: boolean): void {
        const steps: Record<string, number> = { Down: 1, Up: -1, PgDn: linesSeen, PgUp: -linesSeen, "Ctrl+Home": -1e9, "Ctrl+End": 1e9 };
        const step = steps[key];
        if (step !== undefined) return this.pointAt(this.row + step);
        if (key === "Space" && this.dialog.state.multiple) return this.pick();
        if (key === "Enter" && session.typing) {
            this.answerWhenFound = true;
            return;
        }
        super.press(key, fresh);
    }

    override keeps(key: string): boolean {
        return !(key === "Space" && this.dialog.state.multiple) && super.keeps(key);
    }

    private get picks(): number[] {
        return [...this.picked].sort((a, b) => a - b);
    }

    private pick(): void {
        if (!this.picked.delete(this.row)) this.picked.add(this.row);
        this.pointAt(this.row + 1);
        this.requestUpdate();
    }

    private pointAt(row: number): void {
        const { rows } = this.dialog;
        this.row = Math.max(0, Math.min(rows.count - 1, row));
        if (!rows.has(this.row, 1)) this.askAround(this.row);
    }

    private readonly askForRows = (event: Event) => {
        const top = Math.floor((event.target as HTMLElement).scrollTop / rowPixels());
        const { rows } = this.dialog;
        if (rows.count > 0 && !rows.has(top, linesSeen)) this.askAround(top);
    };

    private askAround(row: number): void {
        session.send({ event: "dialogRows", dialog: this.dialog.state.dialog, first: Math.max(0, row - 50), count: 150 });
    }

    protected override answer(button: Button): void {
        const rows = this.picked.size > 0 ? this.picks : [this.row];
        const picks = button === "ok" && this.dialog.rows.count > 0 ? { rows } : {};
        session.send({ event: "answer", dialog: this.dialog.state.dialog, button, ...picks });
    }
}
