import { goOut, whoIs, type Welcome } from "./Account";
import { Connection, type Action } from "./Connection";
import type { Control } from "./Control";
import { Keyboard, type Receiver } from "./Keyboard";
import { preferences } from "./Preferences";
import type { MenuEntry, ServerMessage, UserEvent } from "./protocol";
import { Screens } from "./Screens";
import { soundAlarm, soundGood } from "./sound";

type Line = "asking" | "out" | "connecting" | "connected" | "lost" | "replaced" | "ended";

/** Something of the client's own above the screens. It has the keyboard until it is closed. */
export interface Overlay extends Receiver {
    close(): void;
}

const sessionKey = "sessao";

/** What the user works with: the screens, the line to the server and the keyboard between them. */
export class Session extends EventTarget {
    readonly screens = new Screens();
    line: Line = "asking";
    /** Why the session ended. */
    farewell = "";
    welcome: Welcome | null = null;
    notice = "";
    busy = false;
    menu: readonly MenuEntry[] = [];
    user = { code: "", name: "" };
    dialogReceiver: Receiver | null = null;
    private lostSince = 0;
    private pendingSince: number | null = null;
    private readonly overlays: Overlay[] = [];
    private readonly receivers = new Map<Control, Receiver>();
    private readonly connection = new Connection({
        received: (message) => this.received(message),
        takenBack: (actions) => this.keyboard.putBack(actions),
        lineChanged: (connected) => this.lineChanged(connected),
        refused: () => void this.lookAtLogin(),
    });
    private readonly keyboard = new Keyboard({
        waiting: () => this.connection.waiting,
        typing: () => this.connection.typing,
        send: (event) => this.send(event),
        heldChanged: () => this.dispatchEvent(new Event("idle")),
        receiver: () => this.receiver,
        ownKey: (key) => this.ownKey(key),
        place: () => this.place,
    });
    private readonly ownKeys = new Map<string, () => void>();

    /** Asks who is there: a login page, work to go on with, or nothing but the line to a session. */
    async start(): Promise<void> {
        setInterval(() => this.dispatchEvent(new Event("tick")), 250);
        const welcome = await whoIs().catch(() => null);
        if (welcome === null) return this.setLine("out");
        this.welcome = welcome;
        await this.work(sessionStorage.getItem(sessionKey) ?? "");
    }

    /** Goes on with a session of the user, or begins one. */
    async work(wanted: string): Promise<void> {
        await preferences.load();
        this.keyboard.listen(document);
        this.setLine("connecting");
        this.connection.open(wanted);
    }

    takeOver(): void {
        this.setLine("connecting");
        this.connection.open();
    }

    /** Throws a Refusal when something waits to be stored and may not be undone. */
    async leave(undo: boolean): Promise<void> {
        await goOut(this.connection.session, undo);
        this.connection.giveUp();
        sessionStorage.removeItem(sessionKey);
        location.reload();
    }

    send(event: UserEvent, ...actions: Action[]): void {
        this.notice = "";
        this.connection.send(event, actions);
        this.dispatchEvent(new Event("idle"));
    }

    /** One after the other, each when the one before is answered. */
    sendInTurn(events: readonly UserEvent[]): void {
        this.keyboard.append(events.map((event) => ({ kind: "event", event })));
    }

    /** For the user, until he does something else. */
    tell(text: string): void {
        this.notice = text;
        this.dispatchEvent(new Event("change"));
    }

    /** Its public name. */
    get name(): string {
        return this.connection.session;
    }

    /** Everything that the user did is answered. */
    get idle(): boolean {
        return this.line === "out" || (!this.connection.waiting && !this.connection.typing && !this.keyboard.holding);
    }

    /** When everything is answered. */
    async settled(): Promise<void> {
        while (!this.idle) await new Promise((resolve) => this.addEventListener("idle", resolve, { once: true }));
    }

    /** Some text is on its way to the server. */
    get typing(): boolean {
        return this.connection.typing;
    }

    get pendingFor(): number {
        return this.connection.pendingFor;
    }

    /** Seconds for which something written has been waiting to be stored; null: nothing does. */
    get unstoredFor(): number | null {
        return this.pendingSince === null ? null : Math.round((performance.now() - this.pendingSince) / 1000);
    }

    get lostFor(): number {
        return Math.round((performance.now() - this.lostSince) / 1000);
    }

    register(control: Control, receiver: Receiver): void {
        this.receivers.set(control, receiver);
    }

    unregister(control: Control, receiver: Receiver): void {
        if (this.receivers.get(control) === receiver) this.receivers.delete(control);
    }

    /** A key of the window itself, where no screen in front has it for a button. */
    addKey(key: string, act: () => void): void {
        this.ownKeys.set(key, act);
    }

    private ownKey(key: string): boolean {
        const act = this.ownKeys.get(key);
        if (!act || this.overlay || this.screens.topDialog || this.screens.hasShortcut(key)) return false;
        act();
        return true;
    }

    closeFront(): void {
        const { front } = this.screens;
        if (front && !front.modal) this.send({ event: "close", form: front.name });
    }

    toNextScreen(): void {
        const names = [...this.screens.open.values()].filter(({ modal }) => !modal).map(({ name }) => name);
        const next = names[(names.indexOf(this.screens.focus.form) + 1) % names.length];
        if (next !== undefined && !this.screens.front?.modal) this.send({ event: "activate", form: next });
    }

    /** Long work is to end. */
    cancel(): void {
        this.connection.cancel();
    }

    openOverlay(overlay: Overlay): void {
        this.overlays.push(overlay);
        this.keyboard.settle();
    }

    closeOverlay(overlay: Overlay): void {
        const index = this.overlays.indexOf(overlay);
        if (index >= 0) this.overlays.splice(index, 1);
        this.keyboard.settle();
    }

    get overlay(): Overlay | undefined {
        return this.overlays.at(-1);
    }

    /** What is typed goes there. */
    get receiver(): Receiver | null {
        if (this.overlay) return this.overlay;
        if (this.screens.topDialog) return this.dialogReceiver;
        const focused = this.screens.focused;
        return (focused && this.receivers.get(focused)) ?? null;
    }

    private get place(): string {
        const { form, control } = this.screens.focus;
        return `${this.overlays.length} ${this.screens.topDialog?.state.dialog ?? 0} ${form} ${control}`;
    }

    private received(message: ServerMessage): void {
        if (message.session !== undefined) this.begun(message);
        if (message.busy !== undefined) this.busy = message.busy;
        if (message.status) this.pendingSince = message.status.pending === null ? null : performance.now() - message.status.pending * 1000;
        if (message.replaced) this.setLine("replaced");
        if (message.ended !== undefined) this.ended(message.ended);
        if (message.refused?.[0]) this.notice = message.refused[0].why;
        this.show(message);
        this.dispatchEvent(new Event("change"));
        if (message.done !== undefined) this.keyboard.settle();
    }

    private begun({ session = "", user, menu }: ServerMessage): void {
        sessionStorage.setItem(sessionKey, session);
        this.user = user ?? this.user;
        this.menu = menu ?? this.menu;
        this.pendingSince = null;
    }

    private show(message: ServerMessage): void {
        const { focused, topDialog } = this.screens;
        const typed = focused?.kind === "edit" ? focused.text("text") : "";
        this.screens.apply(message);
        const dialog = this.screens.topDialog;
        if (dialog && dialog.state.dialog !== topDialog?.state.dialog) {
            for (const overlay of [...this.overlays]) overlay.close();
            if (dialog.state.beep) soundAlarm();
        } else if (typed !== "" && !dialog && this.screens.focused === focused && focused?.text("text") === "") soundGood();
    }

    private ended(why: string): void {
        this.farewell = why;
        sessionStorage.removeItem(sessionKey);
        this.setLine("ended");
    }

    private lineChanged(connected: boolean): void {
        if (!connected && this.line === "connected") this.lostSince = performance.now();
        if (connected) this.setLine("connected");
        else if (this.line !== "connecting") this.setLine("lost");
    }

    private async lookAtLogin(): Promise<void> {
        const welcome = await whoIs().catch(() => undefined);
        if (welcome !== null) return;
        this.connection.giveUp();
        this.ended("");
    }

    private setLine(line: Line): void {
        this.line = line;
        this.dispatchEvent(new Event("idle"));
        this.dispatchEvent(new Event("change"));
    }
}

export const session = new Session();
