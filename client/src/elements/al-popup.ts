import { html, type TemplateResult } from "lit";
import { customElement, property, state } from "lit/decorators.js";
import { caption, letterOf, plainCaption } from "./caption";
import { openOverlay, OverlayElement } from "./OverlayElement";

export interface PopupItem {
    caption: string;
    shortcut?: string;
    enabled?: boolean;
    checked?: boolean;
    /** A line stands above it. */
    apart?: boolean;
    act: () => void;
}

/** A menu of things to do, chosen by arrows, by their letter or with the mouse. */
@customElement("al-popup")
export class PopupElement extends OverlayElement {
    @property({ attribute: false }) items: readonly PopupItem[] = [];
    @state() private marked = 0;

    protected override render(): TemplateResult {
        return html`<div role="menu" class="popup" tabindex="-1">${this.items.map((item, index) => this.renderItem(item, index))}</div>`;
    }

    private renderItem(item: PopupItem, index: number): TemplateResult {
        return html`<button type="button" role=${item.checked === undefined ? "menuitem" : "menuitemcheckbox"}
            aria-checked=${item.checked ?? false} class="popup-item ${item.apart ? "apart" : ""} ${index === this.marked ? "marked" : ""}"
            tabindex="-1" ?disabled=${item.enabled === false} @pointermove=${() => (this.marked = index)} @click=${() => this.choose(index)}>
            <span>${caption(item.caption)}</span><kbd>${item.shortcut ?? ""}</kbd>
        </button>`;
    }

    override refocus(): void {
        this.querySelector<HTMLElement>(".popup")?.focus();
    }

    override press(key: string, fresh: boolean): void {
        const steps: Record<string, number> = { Down: 1, Up: -1, Tab: 1, "Shift+Tab": -1 };
        const step = steps[key];
        if (step !== undefined) return this.step(step);
        if (key === "Enter" || key === "Space") return this.choose(this.marked);
        const letter = key.toLocaleLowerCase("pt-BR");
        const found = this.items.findIndex(({ caption: text }) =>
            (letterOf(text) || plainCaption(text).charAt(0)).toLocaleLowerCase("pt-BR") === letter);
        if (found >= 0) return this.choose(found);
        super.press(key, fresh);
    }

    override type(text: string): void {
        for (const letter of text) this.press(letter, false);
    }

    private step(step: number): void {
        const { length } = this.items;
        for (let count = 0; count < length; ++count) {
            this.marked = (this.marked + step + length) % length;
            if (this.items[this.marked]?.enabled !== false) return;
        }
    }

    private choose(index: number): void {
        const item = this.items[index];
        if (!item || item.enabled === false) return;
        this.close();
        item.act();
    }
}

export function openPopup(items: readonly PopupItem[], at: DOMRect): void {
    const popup = document.createElement("al-popup") as PopupElement;
    popup.items = items;
    openOverlay(popup, at);
}
