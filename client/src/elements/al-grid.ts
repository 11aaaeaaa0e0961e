import {
    CellStyleModule,
    ColumnApiModule,
    createGrid,
    EventApiModule,
    type GridApi,
    type ColDef,
    type IDatasource,
    type IRowNode,
    InfiniteRowModelModule,
    ModuleRegistry,
    RenderApiModule,
    RowApiModule,
    RowStyleModule,
    ScrollApiModule,
    themeQuartz,
} from "ag-grid-community";
import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { RowData } from "../Rows";
import { session } from "../Session";
import type { Action } from "../Connection";
import { caption, plainCaption } from "./caption";
import { isEditing, typedText } from "../keys";
import { TextElement } from "./TextElement";

ModuleRegistry.registerModules([
    InfiniteRowModelModule,
    CellStyleModule,
    RowStyleModule,
    ColumnApiModule,
    RowApiModule,
    RenderApiModule,
    ScrollApiModule,
    EventApiModule,
]);

const theme = themeQuartz.withParams({
    backgroundColor: "var(--surface)",
    foregroundColor: "var(--text)",
    accentColor: "var(--accent)",
    borderColor: "var(--line)",
    headerBackgroundColor: "var(--head)",
    headerTextColor: "var(--muted)",
    headerFontWeight: 600,
    rowHoverColor: "var(--hover)",
    oddRowBackgroundColor: "var(--surface)",
    fontFamily: "inherit",
    fontSize: "var(--size)",
    headerFontSize: "var(--small)",
    rowHeight: "var(--row)",
    headerHeight: "var(--row)",
    cellHorizontalPadding: "8px",
    wrapperBorderRadius: "var(--radius)",
    spacing: "4px",
    columnBorder: { color: "var(--hair)" },
    rowBorder: { color: "var(--hair)" },
});

const rowPixels = 28;
const blockSize = 100;
/** Rows asked for above and below those that are seen. */
const margin = 100;
/** Pixels of the kinds that need no more; a text takes what is left. */
const narrow: Readonly<Record<string, number>> = { integer: 110, float: 110, date: 104, datetime: 140, tick: 72 };
/** In the order of the server's enumeration. */
const colors = ["", "good", "warning", "bad", "muted", "highlight", "progress", "special"];

interface Column {
    field: string;
    title: string;
    kind: string;
    width: number;
    editable: boolean;
    lookup: boolean;
    visible: boolean;
    index: number;
}

/**
 * The rows of a table. A field lies over the current cell: it is the cell's frame, and what is typed stands in it until the cell is
 * left. The server says which cell is the current one.
 */
@customElement("al-grid")
export class GridElement extends TextElement {
    private api: GridApi | null = null;
    private columnsKey = "";
    private asked: number | null = null;
    /** Where F2 opened the cell to change its text. */
    private openedAt = "";
    private shownRow = -1;
    /** The current cell was brought into view, which may take until the rows are laid out. */
    private revealed = false;

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        this.api?.destroy();
        this.api = null;
        this.columnsKey = "";
    }

    protected override render(): TemplateResult {
        const lines = Math.max(3, this.control.number("lines"));
        return html`
            ${this.renderLabel()}
            <div class="grid" style="height: ${(lines + 1) * rowPixels + 4}px" @pointerdown=${this.pressedOutside}>
                <div class="rows" @click=${this.clicked} @dblclick=${this.doubleClicked}></div>
                <input
                    data-focus
                    class="cell-editor"
                    autocomplete="off"
                    spellcheck="false"
                    aria-label=${this.cellName}
                    ?disabled=${this.disabled}
                    @input=${this.edited}
                    @beforeinput=${this.aboutToEdit}
                />
            </div>
        `;
    }

    protected override renderLabel(): ReturnType<TextElement["renderLabel"]> {
        const text = this.control.text("caption");
        return text === "" ? super.renderLabel() : html`<span class="caption">${caption(text)}</span>`;
    }

    private get cellName(): string {
        const column = this.columns.find(({ field }) => field === this.control.text("column"));
        const text = plainCaption(this.control.text("caption")) || this.control.name;
        return `${text}, ${column?.title ?? ""}, linha ${this.control.number("row") + 1} de ${this.control.number("rowCount")}`;
    }

    private get columns(): Column[] {
        const titles = this.control.texts("titles");
        const kinds = this.control.texts("columnKinds");
        const widths = this.control.texts("columnWidths");
        const states = this.control.texts("columnStates");
        return this.control.texts("columns").map((field, index) => ({
            field,
            index,
            title: titles[index] || field,
            kind: kinds[index] ?? "text",
            width: Number(widths[index] ?? 0),
            visible: states[index]?.includes("v") ?? true,
            editable: states[index]?.includes("e") ?? false,
            lookup: states[index]?.includes("l") ?? false,
        }));
    }

    private get place(): string {
        return `${this.control.number("row")} ${this.control.text("column")}`;
    }

    private get editsCell(): boolean {
        return this.control.flag("editing") || this.openedAt === this.place;
    }

    private get currentColumn(): Column | undefined {
        return this.columns.find(({ field }) => field === this.control.text("column"));
    }

    // What the server told

    protected override controlChanged(): void {
        super.controlChanged();
        if (this.api) this.showRows();
    }

    protected override updated(): void {
        const field = this.field;
        if (this.openedAt !== this.place) this.openedAt = "";
        if (field && this.control.flag("editing") && field.value !== this.shownText) field.value = this.shownText;
        if (field && !this.editsCell) field.value = "";
        this.showColumns();
        this.showCurrent();
    }

    private showColumns(): void {
        const visible = this.columns.filter((column) => column.visible);
        const key = JSON.stringify(visible);
        if (key === this.columnsKey) return;
        this.columnsKey = key;
        const definitions = visible.map((column) => this.definition(column));
        if (this.api) this.api.setGridOption("columnDefs", definitions);
        else this.makeGrid(definitions);
        this.api?.purgeInfiniteCache();
    }

    private definition(column: Column): ColDef {
        const number = column.kind === "integer" || column.kind === "float";
        const base: ColDef = {
            colId: column.field,
            headerName: column.title,
            valueGetter: ({ node }) => this.row(node)?.texts[column.index] ?? "",
            cellClass: [number ? "number" : "", column.kind, column.editable ? "" : "fixed"].filter(Boolean),
            headerClass: number ? "number" : "",
            sortable: false,
            resizable: true,
            minWidth: 48,
        };
        if (column.kind === "tick") base.valueFormatter = ({ value }) => (value === "S" ? "✓" : "");
        const width = column.width > 0 ? column.width * 9 + 20 : narrow[column.kind];
        return width === undefined ? { ...base, flex: 1, minWidth: 120 } : { ...base, width };
    }

    private row(node: IRowNode | null): RowData | undefined {
        return this.control.rows.get(node?.rowIndex ?? -1);
    }

    private makeGrid(columnDefs: ColDef[]): void {
        const host = this.querySelector<HTMLElement>(".rows");
        if (!host) return;
        this.api = createGrid(host, {
            theme,
            columnDefs,
            rowModelType: "infinite",
            datasource: this.datasource,
            cacheBlockSize: blockSize,
            maxBlocksInCache: 10,
            rowHeight: rowPixels,
            headerHeight: rowPixels,
            suppressCellFocus: true,
            suppressHeaderFocus: true,
            suppressContextMenu: true,
            animateRows: false,
            overlayNoRowsTemplate: "<span></span>",
            rowClassRules: {
                current: ({ node }) => node.rowIndex === this.control.number("row"),
                ...Object.fromEntries(
                    colors.slice(1).map((name, index) => [name, ({ node }: { node: IRowNode }) => this.row(node)?.color === index + 1]),
                ),
            },
            onBodyScroll: () => this.placeEditor(),
            onColumnResized: () => this.placeEditor(),
            onColumnMoved: () => this.placeEditor(),
            onModelUpdated: () => this.reveal(),
            onViewportChanged: () => {
                this.askForRows();
                this.reveal();
            },
        });
        new ResizeObserver(() => this.placeEditor()).observe(host);
    }

    /** AG Grid only counts the rows; what stands in them is looked up when they are drawn. */
    private readonly datasource: IDatasource = {
        getRows: ({ startRow, endRow, successCallback }) => {
            const { count } = this.control.rows;
            successCallback(Array.from({ length: Math.max(0, Math.min(endRow, count) - startRow) }, () => ({})), count);
        },
    };

    private showRows(): void {
        const changed = this.control.changedRows;
        if (changed === null && this.api?.getDisplayedRowCount() !== this.control.rows.count) {
            this.api?.setRowCount(this.control.rows.count, true);
            this.api?.refreshInfiniteCache();
        }
        this.asked = null;
        this.redraw(changed);
        this.askForRows();
    }

    /** All that are drawn when null. */
    private redraw(rows: readonly number[] | null): void {
        if (rows === null) return this.api?.redrawRows();
        const known = rows.filter((row) => row >= 0 && row < this.control.rows.count);
        const nodes = known.map((row) => this.api?.getDisplayedRowAtIndex(row)).filter((node) => node !== undefined);
        if (nodes.length > 0) this.api?.redrawRows({ rowNodes: nodes });
    }

    /** Of the server, when rows are to be seen that it has not told. */
    private askForRows(): void {
        const first = Math.max(0, this.api?.getFirstDisplayedRowIndex() ?? 0);
        const count = (this.api?.getLastDisplayedRowIndex() ?? 0) - first + 1;
        if (this.asked === first || count <= 0 || this.control.rows.has(first, count)) return;
        this.asked = first;
        session.send({ event: "rows", ...this.address, first: Math.max(0, first - margin), count: 2 * margin + count });
    }

    private showCurrent(): void {
        const row = this.control.number("row");
        if (row !== this.shownRow) {
            const before = this.shownRow;
            this.shownRow = row;
            this.redraw([before, row]);
            this.revealed = false;
        }
        const column = this.control.text("column");
        if (this.focusedByServer && column !== "" && this.api?.getColumn(column)) this.api.ensureColumnVisible(column);
        this.reveal();
    }

    private reveal(): void {
        const { api, shownRow } = this;
        if (api && !this.revealed && shownRow >= 0 && shownRow < api.getDisplayedRowCount()) {
            api.ensureIndexVisible(shownRow);
            this.revealed = shownRow >= api.getFirstDisplayedRowIndex() && shownRow <= api.getLastDisplayedRowIndex();
        }
        this.placeEditor();
    }

    /** Over the current cell; out of sight while that is. */
    private placeEditor(): void {
        const field = this.field;
        const grid = this.querySelector(".grid");
        if (!field || !grid) return;
        const cell = grid.querySelector(
            `[row-index="${this.control.number("row")}"] [col-id="${CSS.escape(this.control.text("column"))}"]`,
        );
        field.classList.toggle("away", !cell);
        field.classList.toggle("editing", this.editsCell);
        const kind = this.currentColumn?.kind;
        field.classList.toggle("number", kind === "integer" || kind === "float");
        if (!cell) return;
        const [inner, outer] = [cell.getBoundingClientRect(), grid.getBoundingClientRect()];
        field.style.translate = `${inner.left - outer.left - 1}px ${inner.top - outer.top - 1}px`;
        field.style.width = `${inner.width}px`;
        field.style.height = `${inner.height}px`;
    }

    // What the user does

    protected override get shownText(): string {
        return this.control.text("editorText");
    }

    protected override get fixed(): boolean {
        return !this.currentColumn?.editable;
    }

    override keeps(key: string): boolean {
        if (typedText(key) !== null) return !this.fixed && !(key === "Space" && this.currentColumn?.kind === "tick");
        return this.editsCell && isEditing(key);
    }

    override press(key: string, fresh: boolean): void {
        if (key === "F2" && !this.fixed) return this.editCell();
        if (key === "Esc" && this.openedAt !== "") return this.closeCell();
        if (!this.editsCell && isEditing(key) && !this.keeps(key)) return this.sendKey(key);
        super.press(key, fresh);
    }

    private sendKey(key: string): void {
        session.send({ event: "key", ...this.address, key }, { kind: "key", key });
    }

    /** The cell's own text is to be changed, not replaced. */
    private editCell(): void {
        const field = this.field;
        if (!field || this.editsCell) return;
        field.value = this.control.rows.get(this.control.number("row"))?.texts[this.currentColumn?.index ?? -1] ?? "";
        this.openedAt = this.place;
        this.placeEditor();
    }

    private closeCell(): void {
        this.openedAt = "";
        this.requestUpdate();
    }

    protected override sendText(text: string, key: string, actions: readonly Action[]): void {
        this.openedAt = "";
        this.control.entered("editorText", text);
        this.control.entered("editing", true);
        const heard = this.hearsKeys && key !== "" ? { key: key === " " ? "Space" : key } : {};
        session.send({ event: "cellText", ...this.address, text, ...heard }, ...actions);
        this.placeEditor();
    }

    protected override adjusted(text: string): string {
        return text;
    }

    override enter(): void {
        this.scrollIntoView({ block: "nearest" });
        this.refocus();
        this.placeEditor();
    }

    override refocus(): void {
        this.field?.focus({ preventScroll: true });
    }

    // AG Grid tells of clicks when it has time to, a key that follows would be ahead of them: the page's own events are at once.

    private clicked(event: Event): void {
        const { row, column } = cellOf(event);
        if (column === undefined) return;
        if (row === undefined) session.send({ event: "title", ...this.address, column });
        else this.cellClicked(row, column);
    }

    private doubleClicked(event: Event): void {
        const { row, column } = cellOf(event);
        if (column !== undefined && row !== undefined) session.send({ event: "cellDoubleClick", ...this.address, row, column });
    }

    private cellClicked(row: number, column: string): void {
        const definition = this.columns.find(({ field }) => field === column);
        if (definition?.kind === "tick" && definition.editable) {
            const checked = this.control.rows.get(row)?.texts[definition.index] !== "S";
            return session.send({ event: "tick", ...this.address, row, column, checked });
        }
        session.send({ event: "cell", ...this.address, row, column });
    }

    /** The rows do not take the browser's focus: it stays where the server says. */
    private pressedOutside(event: Event): void {
        if (event.target !== this.field) this.refocusIfCurrent();
    }

    private refocusIfCurrent(): void {
        if (this.focusedByServer) queueMicrotask(() => this.refocus());
    }
}

/** A title has a column and no row. */
function cellOf(event: Event): { row?: number; column?: string } {
    const target = event.target as Element;
    const column = target.closest(".ag-cell, .ag-header-cell")?.getAttribute("col-id");
    const row = target.closest(".ag-row")?.getAttribute("row-index");
    return { ...(column ? { column } : {}), ...(row ? { row: Number(row) } : {}) };
}
