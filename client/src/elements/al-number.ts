import { customElement } from "lit/decorators.js";
import { TextElement } from "./TextElement";

/** A number, typed with a comma or a point. */
@customElement("al-number")
export class NumberElement extends TextElement {
    protected override get keyboardKind(): "decimal" {
        return "decimal";
    }

    protected override get widthStyle(): string {
        const length = this.control.number("maxLength") || 12;
        return `--length: ${Math.min(length, 18)}; text-align: right`;
    }
}
