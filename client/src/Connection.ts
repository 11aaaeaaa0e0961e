import type { ClientMessage, ServerMessage, UserEvent } from "./protocol";

/** What the user did at the keyboard or with the mouse, to be done again elsewhere if need be. */
export type Action =
    | { kind: "key"; key: string }
    | { kind: "text"; text: string }
    | { kind: "click"; target: HTMLElement }
    | { kind: "event"; event: UserEvent };

interface Sent {
    message: ClientMessage;
    /** What led to it; empty where it is not to be done again. */
    actions: readonly Action[];
}

export interface ConnectionListener {
    received(message: ServerMessage): void;
    /** These were not carried out and have to be done again, where the focus now is. */
    takenBack(actions: readonly Action[]): void;
    lineChanged(connected: boolean): void;
    /** No connection came about: the login may be gone. */
    refused(): void;
}

const firstRetry = 250;
const lastRetry = 4000;

/** Text on its way: what is typed next may follow it at once. */
const isTyping = (message: UserEvent) => message.event === "text" || message.event === "cellText" || message.event === "search";
const isQuestion = (message: UserEvent) => message.event === "rows" || message.event === "dialogRows";

/**
 * The line to the session. It numbers the messages, keeps those that are not answered, sends them again after the line was cut, and
 * takes back those that the server passed over.
 */
export class Connection {
    private socket: WebSocket | null = null;
    /** Its public name; another place of work has another one. */
    session = "";
    private last = 0;
    private turn = 0;
    private sent: Sent[] = [];
    private unsent: Sent[] = [];
    private ready = false;
    private retry = firstRetry;
    private over = false;
    private pendingSince = 0;

    constructor(private readonly listener: ConnectionListener) {}

    /** `wanted`: a session of the same user by its name, "nova" for another one, empty for the one he had last. */
    open(wanted = this.session): void {
        this.over = false;
        const url = new URL(`/sessao?id=${encodeURIComponent(wanted)}`, location.href);
        url.protocol = url.protocol.replace("http", "ws");
        this.socket = new WebSocket(url);
        this.socket.addEventListener("message", (event) => this.receive(JSON.parse(String(event.data)) as ServerMessage));
        this.socket.addEventListener("close", () => this.closed(wanted));
    }

    /** An answer is under way that may move the focus. */
    get waiting(): boolean {
        return !this.ready || this.sent.some(({ message }) => !isTyping(message) && !isQuestion(message));
    }

    /** Some text is on its way. */
    get typing(): boolean {
        return this.sent.some(({ message }) => isTyping(message));
    }

    /** Milliseconds for which the oldest message has been waiting for its answer; 0 when there is none. */
    get pendingFor(): number {
        return this.sent.length === 0 ? 0 : performance.now() - this.pendingSince;
    }

    send(event: UserEvent, actions: readonly Action[] = []): void {
        const message = { n: ++this.last, turn: this.turn, ...event };
        if (this.sent.length === 0) this.pendingSince = performance.now();
        this.sent.push({ message, actions });
        if (this.ready) this.socket?.send(JSON.stringify(message));
    }

    /** Not one of the messages in their order: the session may be at work for long. */
    cancel(): void {
        if (this.ready) this.socket?.send(JSON.stringify({ cancel: true }));
    }

    /** No more attempts. */
    giveUp(): void {
        this.over = true;
    }

    private receive(message: ServerMessage): void {
        if (message.session !== undefined) this.begin(message.session, message);
        if (message.replaced || message.ended !== undefined) this.over = true;
        if (message.done !== undefined) this.answered(message);
        if (message.session !== undefined) this.takeBackUnsent();
        this.listener.received(message);
    }

    private begin(session: string, { done = 0, passed = [] }: ServerMessage): void {
        this.retry = firstRetry;
        this.ready = true;
        this.listener.lineChanged(true);
        this.unsent = session === this.session ? this.sent.filter(({ message: { n } }) => n > done || passed.includes(n)) : [];
        this.sent = [];
        this.session = session;
        this.last = done;
    }

    private answered({ done = 0, turn = this.turn, passed = [] }: ServerMessage): void {
        const back = this.sent.filter(({ message }) => passed.includes(message.n) || (message.n > done && turn !== this.turn));
        // The server passes over what was sent in an earlier turn: of the rest, only requests for rows go on.
        const open = this.sent.filter((sent) => sent.message.n > done && (turn === this.turn || isQuestion(sent.message)));
        this.turn = turn;
        this.sent = open;
        this.pendingSince = performance.now();
        this.listener.takenBack(back.flatMap(({ actions }) => actions));
    }

    /** After a cut line: what the server did not get, or passed over, is done again, on what the server now shows. */
    private takeBackUnsent(): void {
        const actions = this.unsent.flatMap((sent) => this.actionsOf(sent));
        this.unsent = [];
        this.listener.takenBack(actions);
    }

    private actionsOf({ message, actions }: Sent): readonly Action[] {
        if (actions.length > 0 || message.turn !== this.turn || isQuestion(message)) return actions;
        const { n: _n, turn: _turn, ...event } = message;
        return [{ kind: "event", event }];
    }

    private closed(wanted: string): void {
        const refused = !this.ready;
        this.socket = null;
        this.ready = false;
        if (this.over) return;
        this.listener.lineChanged(false);
        if (refused) this.listener.refused();
        setTimeout(() => !this.over && this.open(this.session || wanted), this.retry);
        this.retry = Math.min(this.retry * 2, lastRetry);
    }
}
