import type { Control } from "../Control";
import { session } from "../Session";

/** Where the server gives a grid's rows as a file. */
export function exportAddress(control: Control, format: "csv" | "xlsx"): string {
    const query = new URLSearchParams({ form: control.form, control: control.name, formato: format, sessao: session.name });
    return `/grade?${query}`;
}

/** Lets the browser keep the file. */
export function download(address: string): void {
    const link = document.createElement("a");
    link.href = address;
    link.download = "";
    link.click();
}

/** The texts of all rows, also of those that are not told: of the visible columns, by their field. */
export async function allRows(control: Control, fields: readonly string[]): Promise<string[][]> {
    const { rows } = control;
    const indexes = fields.map((field) => control.texts("columns").indexOf(field));
    if (rows.has(0, rows.count))
        return Array.from({ length: rows.count }, (_, row) => indexes.map((index) => rows.get(row)?.texts[index] ?? ""));
    const response = await fetch(exportAddress(control, "csv"));
    if (!response.ok) throw new Error("As linhas da grade não puderam ser lidas.");
    const [head = [], ...lines] = parseCsv(await response.text());
    const titles = control.texts("titles");
    const places = indexes.map((index) => head.indexOf(titles[index] ?? ""));
    return lines.map((line) => places.map((place) => line[place] ?? ""));
}

/** Divided by ";", texts in quotes where they need them. */
export function parseCsv(text: string): string[][] {
    const lines: string[][] = [];
    let line: string[] = [];
    for (const [, quoted, bare, end] of text.replace(/^\uFEFF/, "").matchAll(/(?:"((?:[^"]|"")*)"|([^;\r\n]*))(;|\r?\n|$)/g)) {
        if (end === "" && quoted === undefined && bare === "" && line.length === 0) break;
        line.push(quoted?.replaceAll('""', '"') ?? bare ?? "");
        if (end === ";") continue;
        lines.push(line);
        line = [];
        if (end === "") break;
    }
    return lines;
}
