import { html, LitElement, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { isFavourite, menuGroups, openScreen, toggleFavourite } from "../menu";
import { preferences } from "../Preferences";
import type { MenuEntry } from "../protocol";
import { session } from "../Session";
import { openMenuSearch } from "./al-menu-search";

const keepFocus = (event: Event) => event.preventDefault();

/** The screens that the user may open, his favourites first. */
@customElement("al-menu")
export class MenuElement extends LitElement {
    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    override connectedCallback(): void {
        super.connectedCallback();
        preferences.addEventListener("change", this.changed);
        session.addEventListener("change", this.changed);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        preferences.removeEventListener("change", this.changed);
        session.removeEventListener("change", this.changed);
    }

    private readonly changed = () => this.requestUpdate();

    protected override render(): TemplateResult {
        return html`<nav class="menu" aria-label="Menu">
            <button type="button" class="menu-find" tabindex="-1" @pointerdown=${keepFocus} @click=${openMenuSearch}>
                <span>Procurar tela</span><kbd>Ctrl+K</kbd></button>
            ${menuGroups().map(([group, entries]) => html`<section><h2>${group}</h2>${entries.map((entry) => this.renderEntry(entry))}</section>`)}
        </nav>`;
    }

    private renderEntry(entry: MenuEntry): TemplateResult {
        const favourite = isFavourite(entry);
        return html`<div class="menu-entry">
            <button type="button" class="menu-open" tabindex="-1" @pointerdown=${keepFocus} @click=${() => openScreen(entry)}>
                <span>${entry.caption}</span><kbd>${entry.shortcut ?? ""}</kbd></button>
            <button type="button" class="star" tabindex="-1" aria-pressed=${favourite}
                title=${favourite ? "Tirar dos favoritos" : "Pôr nos favoritos"} aria-label=${`Favorito: ${entry.caption}`}
                @pointerdown=${keepFocus} @click=${() => toggleFavourite(entry)}>${favourite ? "★" : "☆"}</button>
        </div>`;
    }
}
