import type { ControlChanges, Value } from "./protocol";
import { Rows } from "./Rows";

/** What the server told of a control. Whoever shows it is called when something of it changes. */
export class Control {
    readonly children: Control[] = [];
    readonly rows = new Rows();
    /** Numbers of the rows that the last change brought; null: count, window or columns are others. */
    changedRows: readonly number[] | null = null;
    private readonly properties = new Map<string, Value>();
    private readonly listeners = new Set<() => void>();

    constructor(
        readonly form: string,
        readonly name: string,
        readonly kind: string,
        readonly parent: Control | null,
    ) {}

    text(property: string): string {
        const value = this.properties.get(property);
        return typeof value === "string" ? value : "";
    }

    flag(property: string): boolean {
        return this.properties.get(property) === true;
    }

    number(property: string): number {
        const value = this.properties.get(property);
        return typeof value === "number" ? value : 0;
    }

    texts(property: string): readonly string[] {
        const value = this.properties.get(property);
        return Array.isArray(value) ? (value as readonly string[]) : [];
    }

    /** Itself and all that it stands in. */
    get effectivelyEnabled(): boolean {
        return this.flag("enabled") && (this.parent?.effectivelyEnabled ?? true);
    }

    get effectivelyVisible(): boolean {
        return this.flag("visible") && (this.parent?.showsChild(this) ?? true);
    }

    private showsChild(child: Control): boolean {
        const inFront = this.kind !== "pages" || this.children.indexOf(child) === this.number("activePage");
        return inFront && this.effectivelyVisible;
    }

    /** The user entered it: the server is told the same and does not answer with it. */
    entered(property: string, value: Value): void {
        this.properties.set(property, value);
    }

    apply(changes: ControlChanges): void {
        const { name: _name, kind: _kind, parent: _parent, form: _form, count, window, rows, ...properties } = changes;
        for (const [property, value] of Object.entries(properties)) this.properties.set(property, value as Value);
        const whole = count !== undefined || window !== undefined || "columns" in properties || "columnStates" in properties;
        const changed = this.rows.apply({
            ...(count === undefined ? {} : { count }),
            ...(window === undefined ? {} : { window }),
            ...(rows === undefined ? {} : { rows }),
        });
        this.changedRows = whole ? null : changed;
        this.notify();
        if (this.parent?.kind === "pages") this.parent.notify();
        if ("enabled" in properties || "visible" in properties || "activePage" in properties) this.notifyChildren();
    }

    listen(listener: () => void): () => void {
        this.listeners.add(listener);
        return () => this.listeners.delete(listener);
    }

    notify(): void {
        for (const listener of this.listeners) listener();
    }

    private notifyChildren(): void {
        for (const child of this.children) {
            child.notify();
            child.notifyChildren();
        }
    }
}
