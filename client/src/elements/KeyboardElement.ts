import { LitElement } from "lit";
import { isEditing, typedText } from "../keys";
import type { Receiver } from "../Keyboard";

/** What has the keyboard above the screens, a box or a menu: what is typed goes into its field, where it has one. */
export abstract class KeyboardElement extends LitElement implements Receiver {
    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    abstract press(key: string, fresh: boolean): void;
    abstract refocus(): void;

    /** The one that has the browser's focus; else the first. */
    protected get field(): HTMLInputElement | null {
        return this.querySelector<HTMLInputElement>("input:focus") ?? this.querySelector<HTMLInputElement>("input");
    }

    keeps(key: string): boolean {
        const { activeElement } = document;
        return activeElement instanceof HTMLInputElement && this.contains(activeElement) && (typedText(key) !== null || isEditing(key));
    }

    type(text: string): void {
        const field = this.field;
        if (!field) return;
        field.setRangeText(text, field.selectionStart ?? 0, field.selectionEnd ?? 0, "end");
        field.dispatchEvent(new InputEvent("input"));
    }

    enter(): void {
        this.refocus();
        this.field?.select();
    }

    full(): boolean {
        return false;
    }

    hasFocus(): boolean {
        return this.contains(document.activeElement);
    }
}
