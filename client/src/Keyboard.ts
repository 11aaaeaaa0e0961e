import type { Action } from "./Connection";
import type { UserEvent } from "./protocol";
import { isBrowsers, isPaste, keyName, typedText } from "./keys";

/** What has the focus: a control or a dialog. */
export interface Receiver {
    /** The browser does with the key what is to be done: it edits the field. */
    keeps(key: string): boolean;
    /** `fresh`: pressed while this could be seen, not held back from before. */
    press(key: string, fresh: boolean): void;
    type(text: string): void;
    /** The focus comes to it. */
    enter(): void;
    /** It has the focus and the browser's is elsewhere. */
    refocus(): void;
    hasFocus(): boolean;
    /** No more fits into it, unless what was typed and is on its way empties it. */
    full(): boolean;
}

interface Surroundings {
    /** An answer is under way that may move the focus. */
    waiting(): boolean;
    /** Some text is on its way. */
    typing(): boolean;
    send(event: UserEvent): void;
    /** Something was held back, or all of it was done. */
    heldChanged(): void;
    receiver(): Receiver | null;
    /** A key of the window itself: true when it was done. */
    ownKey(key: string): boolean;
    /** Another text when the focus is elsewhere. */
    place(): string;
}

/** After everything that the changes of the screen have set going. */
const afterRendering = () =>
    new Promise<void>((resolve) => {
        const channel = new MessageChannel();
        channel.port1.onmessage = () => {
            channel.port1.close();
            resolve();
        };
        channel.port2.postMessage(null);
    });

/**
 * Brings what the user does at the keyboard and with the mouse to what has the focus. While an answer is under way that may move the
 * focus, it holds everything back, in its order, and afterwards does it where the focus then is. What the browser composes or pastes
 * meanwhile goes into a field of its own that nobody sees.
 */
export class Keyboard {
    private held: Action[] = [];
    private replaying = false;
    private composing = false;
    /** The key before was the first half of an accented letter: the browser types what becomes of it. */
    private accent = false;
    private place = "";
    private readonly catcher = document.createElement("input");

    constructor(private readonly surroundings: Surroundings) {}

    listen(document: Document): void {
        this.catcher.className = "catcher";
        this.catcher.tabIndex = -1;
        this.catcher.autocomplete = "off";
        this.catcher.setAttribute("aria-hidden", "true");
        document.body.append(this.catcher);
        this.catcher.addEventListener("input", () => this.caught());
        this.catcher.addEventListener("compositionend", () => this.caught());
        this.catcher.addEventListener("paste", (event) => this.pasted(event));
        document.addEventListener("compositionstart", () => (this.composing = true), true);
        document.addEventListener("compositionend", () => this.composed(), true);
        document.addEventListener("keydown", (event) => this.keyDown(event), true);
        for (const type of ["pointerdown", "mousedown", "pointerup", "mouseup", "click", "dblclick", "contextmenu"])
            document.addEventListener(type, (event) => this.mouse(event), true);
    }

    /** An answer came. */
    settle(): void {
        void this.replay();
    }

    /** Was not carried out: to be done before what is held. */
    putBack(actions: readonly Action[]): void {
        this.held.unshift(...actions);
    }

    /** To be done after what is held. */
    append(actions: readonly Action[]): void {
        this.held.push(...actions);
        this.settle();
        this.surroundings.heldChanged();
    }

    /** Something is held back. */
    get holding(): boolean {
        return this.replaying || this.held.length > 0 || this.mustWait;
    }

    private get mustWait(): boolean {
        return this.surroundings.waiting() || (this.surroundings.typing() && this.surroundings.receiver()?.full() === true);
    }

    private keyDown(event: KeyboardEvent): void {
        if (event.isComposing || event.metaKey) return;
        const key = keyName(event);
        const accented = this.accent && key !== null;
        this.accent = event.key === "Dead" || (this.accent && key === null);
        if (!this.holding) return this.pass(event, key, accented);
        this.hold(event, key, accented);
        this.surroundings.heldChanged();
    }

    private hold(event: KeyboardEvent, key: string | null, accented: boolean): void {
        const typed = key === null ? null : typedText(key);
        if (event.key === "Dead" || (key !== null && (isPaste(key) || (accented && typed !== null)))) {
            this.catcher.focus({ preventScroll: true });
        } else if (key !== null) {
            event.preventDefault();
            this.held.push(typed === null ? { kind: "key", key } : { kind: "text", text: typed });
        }
    }

    /** A letter is typed here and now: the browser would type it a moment later, when an answer may have come in between. */
    private pass(event: KeyboardEvent, key: string | null, accented: boolean): void {
        const receiver = this.surroundings.receiver();
        if (receiver && !receiver.hasFocus()) receiver.refocus();
        if (key === null || isBrowsers(key)) return;
        const kept = receiver?.keeps(key) === true;
        const typed = kept && !accented ? typedText(key) : null;
        if (kept && typed === null) return;
        event.preventDefault();
        if (typed === null) this.press(receiver, key, true);
        else receiver?.type(typed);
    }

    private caught(): void {
        if (this.composing || this.catcher.value === "") return;
        this.held.push({ kind: "text", text: this.catcher.value });
        this.catcher.value = "";
    }

    /** A line of text would lose the ends of the lines. */
    private pasted(event: ClipboardEvent): void {
        event.preventDefault();
        const text = event.clipboardData?.getData("text/plain") ?? "";
        if (text !== "") this.held.push({ kind: "text", text });
    }

    private composed(): void {
        this.composing = false;
        this.caught();
        this.settle();
    }

    /** A click is held back like a key; it is for what was clicked, or for nothing. */
    private mouse(event: Event): void {
        if (!this.holding || !event.isTrusted || (event.target instanceof Element && event.target.closest(".unheld"))) return;
        event.preventDefault();
        event.stopPropagation();
        if (event.type === "click" && event.target instanceof HTMLElement)
            this.held.push({ kind: "click", target: event.target });
    }

    private async replay(): Promise<void> {
        if (this.replaying) return;
        this.replaying = true;
        for (;;) {
            await afterRendering();
            if (this.composing || this.mustWait) break;
            this.caught();
            const receiver = this.surroundings.receiver();
            this.moveFocus(receiver);
            const action = this.held.shift();
            if (!action) break;
            if (action.kind === "event") this.surroundings.send(action.event);
            else this.perform(action, receiver);
        }
        this.replaying = false;
        this.surroundings.heldChanged();
    }

    private perform(action: Exclude<Action, { kind: "event" }>, receiver: Receiver | null): void {
        switch (action.kind) {
            case "key":
                return this.press(receiver, action.key, false);
            case "text":
                return receiver?.type(action.text);
            case "click":
                if (action.target.isConnected && !action.target.closest("[inert]")) action.target.click();
        }
    }

    private press(receiver: Receiver | null, key: string, fresh: boolean): void {
        if (!this.surroundings.ownKey(key)) receiver?.press(key, fresh);
    }

    private moveFocus(receiver: Receiver | null): void {
        const place = this.surroundings.place();
        if (place !== this.place) receiver?.enter();
        else if (receiver && !receiver.hasFocus()) receiver.refocus();
        this.place = place;
    }
}
