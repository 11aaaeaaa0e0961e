import { html, nothing, type TemplateResult } from "lit";
import { live } from "lit/directives/live.js";
import type { Action } from "../Connection";
import { editField, isEditing, typedText } from "../keys";
import { session } from "../Session";
import { caption, plainCaption } from "./caption";
import { ControlElement } from "./ControlElement";

type Field = HTMLInputElement | HTMLTextAreaElement;

/** A control in which a person types. Each change goes to the server at once; the next need not wait for its answer. */
export abstract class TextElement extends ControlElement {
    /** The text as it stands in the field. */
    protected get shownText(): string {
        return this.control.text("text");
    }

    protected get field(): Field | null {
        return this.inner as Field | null;
    }

    protected get fixed(): boolean {
        return this.control.flag("readOnly");
    }

    /** Marks the whole text when the field is entered, so that what is typed replaces it. */
    protected readonly selectsOnEntering: boolean = true;

    protected override render(): TemplateResult {
        return html`${this.renderLabel()}${this.renderBox()}`;
    }

    protected renderLabel(): TemplateResult | typeof nothing {
        const text = this.control.text("caption");
        return text === "" ? nothing : html`<label class="caption" @pointerdown=${this.pointed}>${caption(text)}</label>`;
    }

    protected renderBox(): TemplateResult {
        return this.renderField();
    }

    protected renderField(): TemplateResult {
        return html`<input
            data-focus
            class="field"
            type=${this.control.flag("password") ? "password" : "text"}
            style=${this.widthStyle}
            autocomplete="off"
            spellcheck="false"
            aria-label=${this.accessibleName}
            inputmode=${this.keyboardKind}
            .value=${live(this.shownText)}
            ?readonly=${this.fixed}
            ?disabled=${this.disabled}
            @input=${this.edited}
            @beforeinput=${this.aboutToEdit}
            @paste=${this.pasted}
            @pointerdown=${this.pointed}
        />`;
    }

    protected get accessibleName(): string {
        return plainCaption(this.control.text("caption")) || this.control.text("hint") || this.control.name;
    }

    protected get keyboardKind(): "text" | "decimal" | "numeric" {
        return "text";
    }

    protected get widthStyle(): string {
        const length = this.control.number("maxLength");
        const align = this.control.text("alignment");
        return `--length: ${length === 0 ? 24 : Math.min(Math.max(length, 3), 48)}; text-align: ${align || "left"}`;
    }

    /** Something typed that is more than text, a "+" in a date: true when it was done. */
    protected typedSpecially(_text: string): boolean {
        return false;
    }

    protected adjusted(text: string): string {
        const length = this.control.number("maxLength");
        const cut = length === 0 ? text : [...text].slice(0, length).join("");
        return this.control.flag("upperCase") ? cut.toLocaleUpperCase("pt-BR") : cut;
    }

    override keeps(key: string): boolean {
        return typedText(key) !== null || isEditing(key);
    }

    override press(key: string, fresh: boolean): void {
        const field = this.field;
        if (!field || !this.keeps(key)) return super.press(key, fresh);
        const typed = typedText(key);
        if (typed !== null) this.type(typed);
        else if (!this.fixed && editField(field, key)) this.changed(key, { kind: "key", key });
    }

    override type(text: string): void {
        const field = this.field;
        if (!field || this.fixed || this.typedSpecially(text)) return;
        const characters = this.hearsKeys ? [...text] : [text];
        for (const typed of characters) {
            insert(field, typed);
            this.changed([...typed].length === 1 ? typed : "", { kind: "text", text: typed });
        }
    }

    override full(): boolean {
        const length = this.control.number("maxLength");
        return length > 0 && [...this.shownText].length >= length;
    }

    override enter(): void {
        super.enter();
        if (this.selectsOnEntering && !this.matches(":active")) this.field?.select();
    }

    protected pointed(event: Event): void {
        if (this.disabled) return;
        if (event.currentTarget !== this.field) event.preventDefault();
        if (!this.focusedByServer) session.send({ event: "focus", ...this.address });
    }

    /** As it was copied: a field of one line would lose the ends of the lines. */
    protected readonly pasted = (event: ClipboardEvent): void => {
        event.preventDefault();
        const text = event.clipboardData?.getData("text/plain") ?? "";
        if (text !== "") this.type(text);
    };

    protected aboutToEdit(event: InputEvent): void {
        if (!event.isComposing && event.data && this.typedSpecially(event.data)) event.preventDefault();
    }

    override hasFocus(): boolean {
        return document.activeElement === this.field;
    }

    protected edited(event: InputEvent): void {
        if (event.isComposing || inserting) return;
        const typed = event.data ?? (event.inputType.startsWith("insert") ? (event.dataTransfer?.getData("text") ?? "") : "");
        const action: Action[] = typed === "" ? deletion(event.inputType) : [{ kind: "text", text: typed }];
        this.changed([...typed].length === 1 ? typed : "", ...action);
    }

    /** The field holds another text. `key` typed it, where it was one key. */
    private changed(key: string, ...actions: Action[]): void {
        const field = this.field;
        if (!field) return;
        const text = this.adjusted(field.value);
        if (field.value !== text) replace(field, text);
        if (text === this.shownText) return;
        this.sendText(text, key, actions);
    }

    protected sendText(text: string, key: string, actions: readonly Action[]): void {
        this.control.entered("text", text);
        const heard = this.hearsKeys && key !== "" ? { key: key === " " ? "Space" : key } : {};
        session.send({ event: "text", ...this.address, text, ...heard }, ...actions);
    }
}

let inserting = false;

/** In the place of what is marked, as the browser does it, so that it can be undone. */
function insert(field: Field, text: string): void {
    inserting = true;
    const done = document.activeElement === field && document.execCommand("insertText", false, text);
    inserting = false;
    if (!done) field.setRangeText(text, field.selectionStart ?? 0, field.selectionEnd ?? 0, "end");
}

function deletion(inputType: string): Action[] {
    if (inputType === "deleteContentBackward") return [{ kind: "key", key: "Backspace" }];
    return inputType === "deleteContentForward" ? [{ kind: "key", key: "Del" }] : [];
}

/** Keeps the place of the caret, which a new value would move to the end. */
function replace(field: Field, text: string): void {
    const caret = field.selectionStart ?? text.length;
    field.value = text;
    field.setSelectionRange(Math.min(caret, text.length), Math.min(caret, text.length));
}
