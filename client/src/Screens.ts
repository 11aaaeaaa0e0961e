import { Control } from "./Control";
import type { ControlChanges, DialogState, FocusState, ServerMessage, ShownForm } from "./protocol";
import { Rows } from "./Rows";

/** An open screen. */
export interface Screen {
    readonly name: string;
    readonly modal: boolean;
    readonly root: Control;
    readonly controls: Map<string, Control>;
}

export interface Dialog {
    readonly state: DialogState;
    readonly rows: Rows;
}

/** Everything that the server told and that is to be seen. */
export class Screens {
    title = "Alinhavo";
    focus: FocusState = { form: "", control: "" };
    dialogs: readonly Dialog[] = [];
    readonly open = new Map<string, Screen>();

    get topDialog(): Dialog | undefined {
        return this.dialogs.at(-1);
    }

    get front(): Screen | undefined {
        return this.open.get(this.focus.form);
    }

    get focused(): Control | undefined {
        return this.front?.controls.get(this.focus.control);
    }

    /** A button or a menu item of the screen in front has this key. */
    hasShortcut(key: string): boolean {
        const controls = [...(this.front?.controls.values() ?? [])];
        return controls.some((control) => control.text("shortcut") === key || control.texts("menuShortcuts").includes(key));
    }

    apply(message: ServerMessage): void {
        if (message.session !== undefined) this.open.clear();
        if (message.title !== undefined) this.title = message.title;
        for (const name of message.closed ?? []) this.open.delete(name);
        for (const shown of message.shown ?? []) this.show(shown);
        for (const change of message.changed ?? []) this.change(change);
        if (message.dialogs) this.setDialogs(message.dialogs);
        if (message.dialogRows) {
            const { dialog, ...rows } = message.dialogRows;
            this.dialogs.find((open) => open.state.dialog === dialog)?.rows.apply(rows);
        }
        if (message.focus) this.focus = message.focus;
    }

    private show(shown: ShownForm): void {
        const controls = new Map<string, Control>();
        for (const change of shown.controls) this.add(shown.form, controls, change);
        const root = controls.get(shown.form);
        if (root) this.open.set(shown.form, { name: shown.form, modal: shown.modal, root, controls });
    }

    private add(form: string, controls: Map<string, Control>, change: ControlChanges): void {
        const parent = change.parent === undefined ? null : (controls.get(change.parent) ?? null);
        const control = new Control(form, change.name, change.kind ?? "", parent);
        controls.set(control.name, control);
        parent?.children.push(control);
        control.apply(change);
    }

    private change(change: ControlChanges & { form: string }): void {
        const screen = this.open.get(change.form);
        const known = screen?.controls.get(change.name);
        if (known) known.apply(change);
        else if (screen && change.kind !== undefined) {
            this.add(change.form, screen.controls, change);
            screen.controls.get(change.parent ?? "")?.notify();
        }
    }

    private setDialogs(states: readonly DialogState[]): void {
        this.dialogs = states.map(
            (state) => this.dialogs.find((open) => open.state.dialog === state.dialog) ?? { state, rows: new Rows() },
        );
    }
}
