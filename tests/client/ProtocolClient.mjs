// Another client, written from docs/protocol.md alone: it drives a screen by the names of its controls.
import WebSocket from "ws";

/** Logs in and takes a new session; resolves when everything is told. */
export async function connect(url, user, password) {
    const answer = await fetch(`${url}entrar`, {
        method: "POST",
        headers: { "Content-Type": "application/json" },
        body: JSON.stringify({ usuario: user, senha: password }),
    });
    if (!answer.ok) throw new Error((await answer.json()).erro);
    const cookie = answer.headers.get("set-cookie").split(";")[0];
    const socket = new WebSocket(`${url.replace("http", "ws")}sessao?id=nova`, { headers: { Cookie: cookie, Origin: new URL(url).origin } });
    const client = new ProtocolClient(socket);
    await client.told((message) => message.session !== undefined);
    return client;
}

export class ProtocolClient {
    menu = [];
    dialogs = [];
    focus = { form: "", control: "" };
    refused = [];
    #socket;
    #controls = new Map();
    #last = 0;
    #turn = 0;
    #waiting = [];

    constructor(socket) {
        this.#socket = socket;
        socket.on("message", (data) => this.#receive(JSON.parse(String(data))));
        socket.on("close", () => this.#waiting.splice(0).forEach(({ reject }) => reject(new Error("the connection is closed"))));
    }

    /** The next message for which the condition holds. */
    told(condition) {
        return new Promise((resolve, reject) => this.#waiting.push({ condition, resolve, reject }));
    }

    /** Sends the event and waits until it is carried out; throws what the server says of one that no person could have done. */
    async do(event) {
        const n = ++this.#last;
        this.#socket.send(JSON.stringify({ n, turn: this.#turn, ...event }));
        const message = await this.told(({ done, error }) => done >= n || error !== undefined);
        if (message.error !== undefined) throw new Error(message.error);
        const refusal = message.refused?.find((each) => each.n === n);
        if (refusal) throw new Error(refusal.why);
        if (message.passed?.includes(n)) throw new Error(`${event.event} was passed over`);
    }

    open(screenClass) {
        return this.do({ event: "open", class: screenClass });
    }

    click(form, control) {
        return this.do({ event: "click", form, control });
    }

    key(form, control, key) {
        return this.do({ event: "key", form, control, key });
    }

    /** Goes there, types the text, and leaves with Enter. */
    async fill(form, control, text) {
        await this.do({ event: "focus", form, control });
        await this.do({ event: "text", form, control, text });
        await this.key(form, control, "Enter");
    }

    async fillCell(form, control, row, column, text) {
        await this.do({ event: "cell", form, control, row, column });
        await this.do({ event: "cellText", form, control, text });
        await this.key(form, control, "Enter");
    }

    answer(button) {
        return this.do({ event: "answer", dialog: this.dialogs.at(-1).dialog, button });
    }

    property(form, control, name) {
        return this.#controls.get(`${form}.${control}`)?.[name];
    }

    /** The text of a cell among the rows that the server has told. */
    cell(form, control, row, column) {
        const grid = this.#controls.get(`${form}.${control}`);
        return grid.rowsTold.get(row)?.[1 + grid.columns.indexOf(column)];
    }

    close() {
        this.#socket.close();
    }

    #receive(message) {
        if (message.session !== undefined) this.#controls.clear();
        if (message.menu) this.menu = message.menu;
        for (const { form, controls } of message.shown ?? []) controls.forEach((control) => this.#change(form, control));
        for (const { form, ...control } of message.changed ?? []) this.#change(form, control);
        if (message.dialogs) this.dialogs = message.dialogs;
        if (message.focus) this.focus = message.focus;
        this.#turn = message.turn ?? this.#turn;
        if (message.session !== undefined) this.#last = message.done;
        for (const waiting of this.#waiting.filter(({ condition }) => condition(message))) {
            this.#waiting.splice(this.#waiting.indexOf(waiting), 1);
            waiting.resolve(message);
        }
    }

    #change(form, { rows = [], ...properties }) {
        const name = `${form}.${properties.name}`;
        const control = this.#controls.get(name) ?? { rowsTold: new Map() };
        Object.assign(control, properties);
        if (properties.count !== undefined) [...control.rowsTold.keys()].filter((row) => row >= properties.count).forEach((row) => control.rowsTold.delete(row));
        for (const [row, cells] of rows) control.rowsTold.set(row, cells);
        this.#controls.set(name, control);
    }
}
