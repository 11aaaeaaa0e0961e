import { Connection, type Action } from "./Connection";
import type { Control } from "./Control";
import { Keyboard, type Receiver } from "./Keyboard";
import type { ServerMessage, UserEvent } from "./protocol";
import { Screens } from "./Screens";

type Line = "connecting" | "connected" | "replaced" | "ended";

/** What the user works with: the screens, the line to the server and the keyboard between them. */
export class Session extends EventTarget {
    readonly screens = new Screens();
    line: Line = "connecting";
    notice = "";
    busy = false;
    dialogReceiver: Receiver | null = null;
    private readonly receivers = new Map<Control, Receiver>();
    private readonly connection = new Connection({
        received: (message) => this.received(message),
        takenBack: (actions) => this.keyboard.putBack(actions),
        lineChanged: (connected) => this.setLine(connected ? "connected" : "connecting"),
    });
    private readonly keyboard = new Keyboard({
        waiting: () => this.connection.waiting,
        typing: () => this.connection.typing,
        send: (event) => this.send(event),
        heldChanged: () => this.dispatchEvent(new Event("idle")),
        receiver: () => this.receiver,
        place: () => this.place,
    });

    start(): void {
        this.keyboard.listen(document);
        this.connection.open();
        setInterval(() => this.dispatchEvent(new Event("tick")), 250);
    }

    takeOver(): void {
        this.setLine("connecting");
        this.connection.open();
    }

    send(event: UserEvent, ...actions: Action[]): void {
        this.notice = "";
        this.connection.send(event, actions);
        this.dispatchEvent(new Event("idle"));
    }

    /** Everything that the user did is answered. */
    get idle(): boolean {
        return !this.connection.waiting && !this.connection.typing && !this.keyboard.holding;
    }

    /** Some text is on its way to the server. */
    get typing(): boolean {
        return this.connection.typing;
    }

    get pendingFor(): number {
        return this.connection.pendingFor;
    }

    register(control: Control, receiver: Receiver): void {
        this.receivers.set(control, receiver);
    }

    unregister(control: Control, receiver: Receiver): void {
        if (this.receivers.get(control) === receiver) this.receivers.delete(control);
    }

    /** What is typed goes there. */
    get receiver(): Receiver | null {
        if (this.screens.topDialog) return this.dialogReceiver;
        const focused = this.screens.focused;
        return (focused && this.receivers.get(focused)) ?? null;
    }

    private get place(): string {
        const { form, control } = this.screens.focus;
        return `${this.screens.topDialog?.state.dialog ?? 0} ${form} ${control}`;
    }

    private received(message: ServerMessage): void {
        if (message.busy !== undefined) this.busy = message.busy;
        if (message.replaced) this.setLine("replaced");
        if (message.ended !== undefined) this.setLine("ended");
        if (message.refused?.[0]) this.notice = message.refused[0].why;
        const shown = this.screens.topDialog?.state.dialog;
        this.screens.apply(message);
        const dialog = this.screens.topDialog?.state;
        if (dialog?.beep && dialog.dialog !== shown) this.dispatchEvent(new Event("alarm"));
        this.dispatchEvent(new Event("change"));
        if (message.done !== undefined) this.keyboard.settle();
    }

    private setLine(line: Line): void {
        this.line = line;
        this.dispatchEvent(new Event("idle"));
        this.dispatchEvent(new Event("change"));
    }
}

export const session = new Session();
