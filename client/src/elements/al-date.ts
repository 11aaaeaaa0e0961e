import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import { session } from "../Session";
import { openCalendar } from "./al-calendar";
import { dateByKey, formatDate, isBlankDate, parseDate } from "./dates";
import { TextElement } from "./TextElement";

/** A day: "h" is today, "+" and "-" step a day, Alt+Down opens a calendar. */
@customElement("al-date")
export class DateElement extends TextElement {
    protected override get shownText(): string {
        const text = super.shownText;
        return isBlankDate(text) ? "" : text;
    }

    protected override renderBox(): TemplateResult {
        return html`<span class="with-button">
            ${this.renderField()}
            <button type="button" class="inside" tabindex="-1" aria-label="Abrir o calendário" title="Calendário (Alt+↓)"
                ?disabled=${this.disabled || this.fixed} @pointerdown=${(event: Event) => event.preventDefault()} @click=${this.openByMouse}>
                <svg viewBox="0 0 16 16" aria-hidden="true"><path d="M2.5 4h11v9.5h-11zM2.5 7h11M5.5 2v3M10.5 2v3" /></svg>
            </button>
        </span>`;
    }

    protected override get keyboardKind(): "numeric" {
        return "numeric";
    }

    protected override get widthStyle(): string {
        return "--length: 10";
    }

    override press(key: string, fresh: boolean): void {
        if (key === "Alt+Down" && !this.fixed) return this.openCalendar();
        super.press(key, fresh);
    }

    protected override typedSpecially(text: string): boolean {
        const field = this.field;
        const date = field && dateByKey(text, field.value);
        if (!field || !date) return false;
        this.replaceBy(date, text);
        return true;
    }

    private openByMouse(): void {
        if (!this.focusedByServer) session.send({ event: "focus", ...this.address });
        void session.settled().then(() => this.focusedByServer && this.openCalendar());
    }

    private openCalendar(): void {
        const { field } = this;
        if (!field) return;
        openCalendar(parseDate(field.value) ?? new Date(), field.getBoundingClientRect(), (date) => {
            const text = formatDate(date);
            this.replaceBy(text, "");
        });
    }

    private replaceBy(date: string, typed: string): void {
        const { field } = this;
        if (!field || this.fixed) return;
        field.value = date;
        field.select();
        this.sendText(date, typed, [{ kind: "text", text: typed || date }]);
    }
}
