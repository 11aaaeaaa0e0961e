import { customElement } from "lit/decorators.js";
import { dateByKey, isBlankDate } from "./dates";
import { TextElement } from "./TextElement";

/** A day: "h" is today, "+" and "-" step a day. */
@customElement("al-date")
export class DateElement extends TextElement {
    protected override get shownText(): string {
        const text = super.shownText;
        return isBlankDate(text) ? "" : text;
    }

    protected override get keyboardKind(): "numeric" {
        return "numeric";
    }

    protected override get widthStyle(): string {
        return "--length: 10";
    }

    protected override typedSpecially(text: string): boolean {
        const field = this.field;
        const date = field && dateByKey(text, field.value);
        if (!field || !date) return false;
        field.value = date;
        field.select();
        this.sendText(date, text, [{ kind: "text", text }]);
        return true;
    }
}
