import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { Control } from "../Control";
import { session } from "../Session";
import { caption, plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";
import { renderControls } from "./renderControl";

/** Pages of which one is in front. */
@customElement("al-pages")
export class PagesElement extends ControlElement {
    protected override render(): TemplateResult {
        const pages = this.control.children;
        const active = this.control.number("activePage");
        const front = pages[active];
        const alone = pages.filter((page) => page.flag("visible")).length === 1;
        return html`
            <div role="tablist" class="tabs" ?hidden=${alone} aria-label=${plainCaption(this.control.text("caption")) || "Páginas"}>
                ${pages.map((page, index) => this.renderTab(page, index, index === active))}
            </div>
            ${front ? html`<div role="tabpanel" class="page" aria-label=${plainCaption(front.text("caption"))}>${renderControls(front)}</div>` : ""}
        `;
    }

    private renderTab(page: Control, index: number, active: boolean): TemplateResult {
        return html`<button
            type="button"
            role="tab"
            class="tab"
            tabindex=${active ? 0 : -1}
            ?data-focus=${active}
            aria-selected=${active}
            ?hidden=${!page.flag("visible")}
            ?disabled=${!page.effectivelyEnabled}
            @pointerdown=${(event: Event) => event.preventDefault()}
            @click=${() => session.send({ event: "page", ...this.address, index })}
        >${caption(page.text("caption"))}</button>`;
    }
}
