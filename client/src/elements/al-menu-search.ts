import { html, nothing, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { distance, menuGroups, openScreen } from "../menu";
import type { MenuEntry } from "../protocol";
import { openOverlay, OverlayElement } from "./OverlayElement";

/** Finds a screen of the menu by the beginnings of its words. */
@customElement("al-menu-search")
export class MenuSearchElement extends OverlayElement {
    @state() private sought = "";
    @state() private marked = 0;

    private get found(): readonly MenuEntry[] {
        const all = menuGroups(this.sought).flatMap(([, entries]) => entries);
        const once = all.filter((entry, index) => all.findIndex((other) => other.class === entry.class) === index);
        return this.sought === "" ? once : once.sort((one, other) => distance(one, this.sought) - distance(other, this.sought));
    }

    protected override render(): TemplateResult {
        const { found } = this;
        return html`<div class="box palette" role="dialog" aria-label="Procurar tela">
            <input class="field" type="search" placeholder="Procurar tela" aria-label="Procurar tela" aria-controls="menu-found"
                autocomplete="off" spellcheck="false" @input=${this.searched} />
            <ul role="listbox" id="menu-found" class="found" aria-label="Telas">
                ${found.map((entry, index) => html`<li role="option" aria-selected=${index === this.marked} @click=${() => this.choose(entry)}>
                    <span>${entry.caption}</span><small>${entry.group}</small></li>`)}
            </ul>
            ${found.length === 0 ? html`<p class="hint">Nenhuma tela com este nome.</p>` : nothing}
        </div>`;
    }

    protected override updated(): void {
        this.querySelector('[aria-selected="true"]')?.scrollIntoView({ block: "nearest" });
    }

    private readonly searched = () => {
        this.sought = this.field?.value ?? "";
        this.marked = 0;
    };

    override press(key: string, fresh: boolean): void {
        if (key === "Down") this.marked = Math.min(this.found.length - 1, this.marked + 1);
        else if (key === "Up") this.marked = Math.max(0, this.marked - 1);
        else if (key === "Enter") this.choose(this.found[this.marked]);
        else if (key === "Ctrl+k") this.close();
        else super.press(key, fresh);
    }

    private choose(entry: MenuEntry | undefined): void {
        if (!entry) return;
        this.close();
        openScreen(entry);
    }
}

export function openMenuSearch(): void {
    openOverlay(document.createElement("al-menu-search") as MenuSearchElement);
}
