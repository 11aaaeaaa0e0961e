import type { Control } from "../Control";

export interface GridColumn {
    field: string;
    title: string;
    kind: string;
    /** Characters; 0: as the content suggests. */
    width: number;
    editable: boolean;
    visible: boolean;
    /** Of its text among those of a row. */
    index: number;
}

export function columnsOf(control: Control): GridColumn[] {
    const titles = control.texts("titles");
    const kinds = control.texts("columnKinds");
    const widths = control.texts("columnWidths");
    const states = control.texts("columnStates");
    return control.texts("columns").map((field, index) => ({
        field,
        index,
        title: titles[index] || field,
        kind: kinds[index] ?? "text",
        width: Number(widths[index] ?? 0),
        visible: states[index]?.includes("v") ?? true,
        editable: states[index]?.includes("e") ?? false,
    }));
}

export const isNumber = (column: GridColumn | undefined) => column?.kind === "integer" || column?.kind === "float";

/** A number as it is written here: "1.234,5". */
export const numberOf = (text: string) => Number(text.replaceAll(".", "").replace(",", ".")) || 0;
