import type { RowChanges } from "./protocol";

export interface RowData {
    color: number;
    texts: readonly string[];
}

/** The rows in the window that the server keeps the client informed of. */
export class Rows {
    count = 0;
    first = 0;
    length = 0;
    private readonly rows = new Map<number, RowData>();

    get(row: number): RowData | undefined {
        return this.rows.get(row);
    }

    has(first: number, count: number): boolean {
        for (let row = first; row < Math.min(first + count, this.count); ++row) {
            if (!this.rows.has(row)) return false;
        }
        return true;
    }

    /** Numbers of the rows that are others than before. */
    apply(changes: RowChanges): number[] {
        if (changes.window) this.moveWindow(...changes.window);
        if (changes.count !== undefined) this.count = changes.count;
        for (const row of [...this.rows.keys()]) {
            if (row >= this.count) this.rows.delete(row);
        }
        for (const [row, [color, ...texts]] of changes.rows ?? []) this.rows.set(row, { color, texts });
        return (changes.rows ?? []).map(([row]) => row);
    }

    clear(): void {
        this.rows.clear();
        this.count = 0;
    }

    private moveWindow(first: number, length: number): void {
        this.first = first;
        this.length = length;
        for (const row of [...this.rows.keys()]) {
            if (row < first || row >= first + length) this.rows.delete(row);
        }
    }
}
