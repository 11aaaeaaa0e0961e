import { LitElement } from "lit";
import { property } from "lit/decorators.js";
import type { Control } from "../Control";
import type { Receiver } from "../Keyboard";
import { isMenuKey } from "../keys";
import { session } from "../Session";
import { openPopup } from "./al-popup";
import { askMenu } from "./controlMenu";

/** Shows one control. It draws into the page itself, so that one style sheet serves all. */
export abstract class ControlElement extends LitElement implements Receiver {
    @property({ attribute: false }) control!: Control;
    private shown: Control | null = null;
    private stopListening = () => {};

    protected override createRenderRoot(): HTMLElement {
        return this;
    }

    override connectedCallback(): void {
        super.connectedCallback();
        this.watch();
        this.addEventListener("contextmenu", this.menuAsked);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        this.unwatch();
        this.removeEventListener("contextmenu", this.menuAsked);
    }

    protected override willUpdate(): void {
        if (this.control !== this.shown) this.watch();
        this.hidden = !this.control.flag("visible");
        this.title = this.control.text("hint");
    }

    private watch(): void {
        this.unwatch();
        if (!this.control) return;
        this.shown = this.control;
        this.dataset["name"] = this.control.name;
        session.register(this.control, this);
        this.stopListening = this.control.listen(() => this.controlChanged());
        this.controlChanged();
    }

    private unwatch(): void {
        if (this.shown) session.unregister(this.shown, this);
        this.stopListening();
        this.shown = null;
    }

    protected controlChanged(): void {
        this.requestUpdate();
    }

    protected get address(): { form: string; control: string } {
        return { form: this.control.form, control: this.control.name };
    }

    protected get disabled(): boolean {
        return !this.control.effectivelyEnabled;
    }

    /** Some handler wants to see keys before their effect. */
    protected get hearsKeys(): boolean {
        return this.control.flag("hearsKeys") || session.screens.open.get(this.control.form)?.root.flag("hearsKeys") === true;
    }

    protected get focusedByServer(): boolean {
        return session.screens.focused === this.control && !session.screens.topDialog;
    }

    /** The part that has the browser's focus. */
    protected get inner(): HTMLElement | null {
        return this.querySelector<HTMLElement>("[data-focus]");
    }

    keeps(_key: string): boolean {
        return false;
    }

    press(key: string, _fresh: boolean): void {
        if (isMenuKey(key) && this.hasMenu) return this.openMenu(this.getBoundingClientRect());
        session.send({ event: "key", ...this.address, key }, { kind: "key", key });
    }

    /** The screen has given it a popup menu. */
    protected get hasMenu(): boolean {
        return this.control.texts("menuNames").length > 0;
    }

    /** Of the innermost control that has one. */
    protected readonly menuAsked = (event: MouseEvent): void => {
        if (!this.hasMenu || this.disabled) return;
        event.preventDefault();
        event.stopPropagation();
        this.openMenu(new DOMRect(event.clientX, event.clientY, 0, 0));
    };

    protected openMenu(at: DOMRect): void {
        void askMenu(this.control).then((items) => items.length > 0 && openPopup(items, at));
    }

    type(text: string): void {
        for (const character of text) this.press(character === " " ? "Space" : character, false);
    }

    enter(): void {
        this.scrollIntoView({ block: "nearest" });
        this.refocus();
    }

    refocus(): void {
        this.inner?.focus();
    }

    full(): boolean {
        return false;
    }

    hasFocus(): boolean {
        return this.contains(document.activeElement);
    }
}
