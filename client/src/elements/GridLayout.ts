import type { Control } from "../Control";
import { preferences } from "../Preferences";
import { session } from "../Session";
import type { GridColumn } from "./gridColumns";

/** The column by which the rows stand; none: as the screen has them. */
export interface RowOrder {
    column: string;
    descending: boolean;
}

/** How a user has arranged a grid: the order and widths of its columns, the order of its rows, and whether numbers are added up. */
export class GridLayout {
    constructor(private readonly control: Control) {}

    private get name(): string {
        const screen = session.screens.open.get(this.control.form);
        return `grade.${screen?.root.text("class") ?? ""}.${this.control.name}`;
    }

    private get stored() {
        return preferences.object(this.name);
    }

    get totals(): boolean {
        const chosen = this.stored["somas"];
        return typeof chosen === "boolean" ? chosen : this.control.flag("totals");
    }

    /** In the user's order; a column that he has not seen yet stands where it would. */
    ordered(columns: readonly GridColumn[]): GridColumn[] {
        const order = Array.isArray(this.stored["ordem"]) ? (this.stored["ordem"] as readonly string[]) : [];
        const place = new Map(order.map((field, index) => [field, index]));
        const known = columns.filter(({ field }) => place.has(field)).sort((a, b) => (place.get(a.field) ?? 0) - (place.get(b.field) ?? 0));
        return columns.map((column) => (place.has(column.field) ? (known.shift() ?? column) : column));
    }

    get reordered(): boolean {
        return Array.isArray(this.stored["ordem"]);
    }

    /** Pixels; undefined where the user left it. */
    width(field: string): number | undefined {
        const widths = this.stored["larguras"];
        const width = typeof widths === "object" && widths !== null && !Array.isArray(widths) ? (widths as Record<string, unknown>)[field] : undefined;
        return typeof width === "number" ? width : undefined;
    }

    setOrder(fields: readonly string[]): void {
        preferences.set(this.name, { ...this.stored, ordem: fields });
    }

    setWidth(field: string, pixels: number): void {
        const widths = { ...(this.stored["larguras"] as Record<string, number> | undefined), [field]: Math.round(pixels) };
        preferences.set(this.name, { ...this.stored, larguras: widths });
    }

    setTotals(shown: boolean): void {
        preferences.set(this.name, { ...this.stored, somas: shown });
    }

    get rowOrder(): RowOrder {
        const kept = this.stored["linhas"];
        const { coluna = "", desce = false } = typeof kept === "object" && kept !== null && !Array.isArray(kept) ? (kept as Record<string, unknown>) : {};
        return { column: String(coluna), descending: desce === true };
    }

    setRowOrder({ column, descending }: RowOrder): void {
        preferences.set(this.name, { ...this.stored, linhas: column === "" ? null : { coluna: column, desce: descending } });
    }

    forget(): void {
        preferences.set(this.name, null);
    }
}
