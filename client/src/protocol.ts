/** The messages between client and server, as docs/protocol.md describes them. */

export type Button = "ok" | "cancel" | "yes" | "no";

/** What the user did. */
export type UserEvent =
    | { event: "focus"; form: string; control: string }
    | { event: "text"; form: string; control: string; text: string; key?: string }
    | { event: "key"; form: string; control: string; key: string }
    | { event: "click"; form: string; control: string }
    | { event: "doubleClick"; form: string; control: string; index?: number }
    | { event: "check"; form: string; control: string; checked: boolean }
    | { event: "select"; form: string; control: string; index: number }
    | { event: "page"; form: string; control: string; index: number }
    | { event: "cell"; form: string; control: string; row: number; column: string }
    | { event: "cellText"; form: string; control: string; text: string; key?: string }
    | { event: "paste"; form: string; control: string; text: string }
    | { event: "title"; form: string; control: string; column: string }
    | { event: "cellDoubleClick"; form: string; control: string; row: number; column: string }
    | { event: "tick"; form: string; control: string; row: number; column: string; checked: boolean }
    | { event: "menu"; form: string; control: string; row?: number; column?: string }
    | { event: "menuItem"; form: string; control: string; item: string }
    | { event: "search"; dialog: number; text: string; rows?: number[] }
    | { event: "answer"; dialog: number; button: Button; text?: string; rows?: number[]; password?: string }
    | { event: "open"; class: string }
    | { event: "activate"; form: string }
    | { event: "close"; form: string }
    | { event: "rows"; form: string; control: string; first: number; count: number }
    | { event: "dialogRows"; dialog: number; first: number; count: number }
    | { event: "sort"; form: string; control: string; column: string; descending: boolean };

export type ClientMessage = { n: number; turn: number } & UserEvent;

export type Value = string | number | boolean | readonly string[] | null;

/** A row's number, then the number of its colour and the texts of its cells. */
export type Row = readonly [row: number, cells: readonly [color: number, ...texts: string[]]];

/** Rows of a grid or a lookup that are others than before. */
export interface RowChanges {
    count?: number;
    /** First row and number of the rows that the server keeps the client informed of. */
    window?: readonly [first: number, count: number];
    rows?: readonly Row[];
}

/** Properties of a control that are others than before. */
export interface ControlChanges extends RowChanges {
    name: string;
    /** Only where the control is new. */
    kind?: string;
    parent?: string;
    [property: string]: Value | RowChanges[keyof RowChanges];
}

export interface ShownForm {
    form: string;
    class: string;
    modal: boolean;
    controls: readonly ControlChanges[];
}

export interface LookupColumn {
    field: string;
    title: string;
    number: boolean;
}

export interface DialogState {
    dialog: number;
    kind: "message" | "input" | "date" | "lookup" | "file" | "supervisor" | "picture" | "report";
    title: string;
    text: string;
    icon: "information" | "warning" | "question" | "stop";
    buttons: readonly Button[];
    default: Button;
    escape: Button;
    value: string;
    filter: string;
    beep: boolean;
    columns?: readonly LookupColumn[];
    multiple?: boolean;
    /** What was picked stands in front of what a search finds. */
    keepsPicks?: boolean;
    /** Token of the report to show. */
    report?: string;
    /** The report is one of plain text. */
    plainText?: boolean;
    /** Address that the report is offered to be sent to. */
    recipient?: string;
    /** Pictures to show. */
    files?: readonly string[];
}

/** A screen that the user may open. */
export interface MenuEntry {
    group: string;
    caption: string;
    class: string;
    shortcut?: string;
}

export interface FocusState {
    form: string;
    control: string;
    row?: number;
    column?: string;
}

/** What the server tells: everything when it names its session, else what is another than before. */
export interface ServerMessage {
    session?: string;
    title?: string;
    user?: { code: string; name: string };
    menu?: readonly MenuEntry[];
    /** Seconds for which something written has been waiting to be stored; null: nothing does. */
    status?: { pending: number | null };
    done?: number;
    turn?: number;
    closed?: readonly string[];
    shown?: readonly ShownForm[];
    changed?: readonly (ControlChanges & { form: string })[];
    dialogs?: readonly DialogState[];
    dialogRows?: RowChanges & { dialog: number };
    focus?: FocusState;
    passed?: readonly number[];
    refused?: readonly { n: number; why: string }[];
    busy?: boolean;
    error?: string;
    replaced?: true;
    ended?: string;
}
