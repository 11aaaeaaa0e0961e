import { html, nothing, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { live } from "lit/directives/live.js";
import type { Action } from "../Connection";
import { typedText } from "../keys";
import { session } from "../Session";
import { TextElement } from "./TextElement";

const pauseOfTyping = 1000;

/** A text with a list of texts to choose from. Where it is no free text, typing finds the item that begins so. */
@customElement("al-combo")
export class ComboElement extends TextElement {
    @state() private open = false;
    private marked = -1;
    private sought = "";
    private soughtAt = 0;

    private get editable(): boolean {
        return this.control.flag("editable");
    }

    protected override get fixed(): boolean {
        return super.fixed || !this.editable;
    }

    protected override renderBox(): TemplateResult {
        const longest = Math.max(8, ...this.control.texts("items").map((item) => item.length));
        const listId = `${this.control.form}-${this.control.name}-list`;
        return html`<span class="with-button combo ${this.editable ? "" : "fixed"}" style="--length: ${Math.min(longest, 40)}">
            <input
                data-focus
                class="field"
                role="combobox"
                aria-expanded=${this.open}
                aria-controls=${listId}
                aria-label=${this.accessibleName}
                autocomplete="off"
                spellcheck="false"
                .value=${live(this.shownText)}
                ?readonly=${this.fixed}
                aria-readonly=${this.control.flag("readOnly")}
                ?disabled=${this.disabled}
                @input=${this.edited}
                @paste=${this.pasted}
                @pointerdown=${this.pointed}
                @click=${() => !this.editable && this.toggle()}
                @blur=${() => (this.open = false)}
            />
            <button type="button" class="inside" tabindex="-1" aria-label="Abrir a lista" ?disabled=${this.disabled}
                @pointerdown=${(event: Event) => event.preventDefault()} @click=${this.openByMouse}>
                <svg viewBox="0 0 16 16" aria-hidden="true"><path d="m4 6 4 4 4-4" /></svg>
            </button>
            <ul id=${listId} role="listbox" class="list" ?hidden=${!this.open} aria-label=${this.accessibleName}>
                ${this.open ? this.control.texts("items").map((item, index) => this.renderItem(item, index)) : nothing}
            </ul>
        </span>`;
    }

    private renderItem(item: string, index: number): TemplateResult {
        return html`<li role="option" aria-selected=${index === this.marked}
            @pointerdown=${(event: Event) => event.preventDefault()} @click=${() => this.choose(index)}>${item}</li>`;
    }

    protected override updated(): void {
        if (this.open) this.querySelector('[aria-selected="true"]')?.scrollIntoView({ block: "nearest" });
    }

    override keeps(key: string): boolean {
        return this.editable && super.keeps(key);
    }

    override press(key: string, fresh: boolean): void {
        if (key === "Alt+Down" || key === "Alt+Up" || (key === "F4" && !this.control.flag("hearsKeys"))) return this.toggle();
        if (this.open && this.pressInList(key)) return;
        const typed = typedText(key);
        if (!this.editable && typed !== null) return this.type(typed);
        super.press(key, fresh);
    }

    private pressInList(key: string): boolean {
        const last = this.control.texts("items").length - 1;
        const steps: Record<string, number> = { Down: 1, Up: -1, PgDn: 10, PgUp: -10, Home: -last, End: last };
        const step = steps[key];
        if (step !== undefined) this.marked = Math.max(0, Math.min(last, this.marked + step));
        else if (key === "Enter" || key === "Tab") this.choose(this.marked);
        else if (key === "Esc") this.open = false;
        else return false;
        this.requestUpdate();
        // Tab chooses and goes on.
        return key !== "Tab";
    }

    override type(text: string): void {
        if (this.editable) return super.type(text);
        const now = performance.now();
        this.sought = (now - this.soughtAt > pauseOfTyping ? "" : this.sought) + text.toLocaleLowerCase("pt-BR");
        this.soughtAt = now;
        const found = this.control.texts("items").findIndex((item) => item.toLocaleLowerCase("pt-BR").startsWith(this.sought));
        if (found >= 0 && found !== this.control.number("itemIndex")) this.select(found, { kind: "text", text });
    }

    private toggle(): void {
        this.open = !this.open && !this.disabled && !this.control.flag("readOnly");
        this.marked = this.control.number("itemIndex");
    }

    private openByMouse(): void {
        if (!this.focusedByServer) session.send({ event: "focus", ...this.address });
        this.toggle();
    }

    private choose(index: number): void {
        this.open = false;
        if (index >= 0) this.select(index);
    }

    private select(index: number, ...actions: Action[]): void {
        if (!this.control.flag("readOnly")) session.send({ event: "select", ...this.address, index }, ...actions);
    }

    override enter(): void {
        this.sought = "";
        super.enter();
    }
}
