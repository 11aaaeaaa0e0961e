import { html, type TemplateResult } from "lit";
import { customElement, property } from "lit/decorators.js";
import { formatDate } from "./dates";
import { openOverlay, OverlayElement } from "./OverlayElement";

const monthName = new Intl.DateTimeFormat("pt-BR", { month: "long", year: "numeric" });
const weekDays = ["D", "S", "T", "Q", "Q", "S", "S"];

/** A month to pick a day from, by arrows or with the mouse. */
@customElement("al-calendar")
export class CalendarElement extends OverlayElement {
    @property({ attribute: false }) day = new Date();
    @property({ attribute: false }) picked: (date: Date) => void = () => {};

    protected override render(): TemplateResult {
        const first = new Date(this.day.getFullYear(), this.day.getMonth(), 1);
        const start = new Date(first.getFullYear(), first.getMonth(), 1 - first.getDay());
        const days = Array.from({ length: 42 }, (_, index) => new Date(start.getFullYear(), start.getMonth(), start.getDate() + index));
        return html`<div class="calendar" role="dialog" aria-label="Calendário" tabindex="-1">
            <div class="calendar-head">
                <button type="button" aria-label="Mês anterior" tabindex="-1" @click=${() => this.moveMonth(-1)}>‹</button>
                <b aria-live="polite">${monthName.format(first)}</b>
                <button type="button" aria-label="Próximo mês" tabindex="-1" @click=${() => this.moveMonth(1)}>›</button>
            </div>
            <div class="days">
                ${weekDays.map((name) => html`<span aria-hidden="true">${name}</span>`)}
                ${days.map((day) => this.renderDay(day))}
            </div>
        </div>`;
    }

    private renderDay(day: Date): TemplateResult {
        const text = formatDate(day);
        const other = day.getMonth() === this.day.getMonth() ? "" : "other";
        const today = text === formatDate(new Date()) ? "today" : "";
        return html`<button type="button" tabindex="-1" class="day ${other} ${today}" aria-label=${text}
            aria-pressed=${text === formatDate(this.day)} @click=${() => this.pick(day)}>${day.getDate()}</button>`;
    }

    override refocus(): void {
        this.querySelector<HTMLElement>(".calendar")?.focus();
    }

    override press(key: string, fresh: boolean): void {
        const steps: Record<string, number> = { Left: -1, Right: 1, Up: -7, Down: 7, "+": 1, "-": -1 };
        const step = steps[key];
        if (step !== undefined) return this.moveDay(step);
        if (key === "PgUp" || key === "PgDn") return this.moveMonth(key === "PgUp" ? -1 : 1);
        if (key === "h" || key === "Home") this.day = new Date();
        else if (key === "Enter" || key === "Space") this.pick(this.day);
        else super.press(key, fresh);
    }

    override type(text: string): void {
        for (const letter of text) this.press(letter, false);
    }

    private moveDay(days: number): void {
        this.day = new Date(this.day.getFullYear(), this.day.getMonth(), this.day.getDate() + days);
    }

    /** To the same day, or the last one of a shorter month. */
    private moveMonth(months: number): void {
        const [year, month] = [this.day.getFullYear(), this.day.getMonth() + months];
        const last = new Date(year, month + 1, 0).getDate();
        this.day = new Date(year, month, Math.min(this.day.getDate(), last));
    }

    private pick(day: Date): void {
        this.close();
        this.picked(day);
    }
}

export function openCalendar(day: Date, at: DOMRect, picked: (date: Date) => void): void {
    const calendar = document.createElement("al-calendar") as CalendarElement;
    Object.assign(calendar, { day, picked });
    openOverlay(calendar, at);
}
