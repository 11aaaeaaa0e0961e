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
    PinnedRowModule,
    ScrollApiModule,
} from "ag-grid-community";
import { html, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { RowData } from "../Rows";
import { rowPixels, textPixels } from "../appearance";
import { preferences } from "../Preferences";
import { session } from "../Session";
import type { Action } from "../Connection";
import { openFind } from "./al-find";
import { openPopup, type PopupItem } from "./al-popup";
import { caption, plainCaption } from "./caption";
import { askMenu } from "./controlMenu";
import { dateByKey } from "./dates";
import { columnsOf, isNumber, numberOf, type GridColumn } from "./gridColumns";
import { GridLayout, type RowOrder } from "./GridLayout";
import { allRows, download, exportAddress } from "./gridRows";
import { gridTheme } from "./gridTheme";
import { isEditing, isMenuKey, typedText } from "../keys";
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
    PinnedRowModule,
]);

const blockSize = 100;
const rowsMeasured = 50;
/** Rows asked for above and below those that are seen. */
const margin = 100;
/** Bytes of a paste, so that its message stays below the 64 KiB that the server reads. */
const longestPaste = 60_000;
/** Pixels of the kinds that need no more; a text takes what is left. */
const narrow: Readonly<Record<string, number>> = { integer: 84, float: 84, date: 104, datetime: 140, tick: 72 };
/** In the order of the server's enumeration. */
const colors = ["", "good", "warning", "bad", "muted", "highlight", "progress", "special"];

interface Cell {
    row: number;
    column: string;
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
    /** The other end of what is marked; one end is the current cell. */
    private marked: Cell | null = null;
    /** The order that the server was last asked for. */
    private orderAsked = "";

    private get layout(): GridLayout {
        return new GridLayout(this.control);
    }

    override connectedCallback(): void {
        super.connectedCallback();
        preferences.addEventListener("change", this.rearranged);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        preferences.removeEventListener("change", this.rearranged);
        this.api?.destroy();
        this.api = null;
        this.columnsKey = "";
    }

    private readonly rearranged = () => {
        this.api?.updateGridOptions({ rowHeight: rowPixels(), headerHeight: rowPixels() });
        this.requestUpdate();
    };

    protected override render(): TemplateResult {
        const lines = Math.max(3, this.control.number("lines"));
        return html`
            ${this.renderLabel()}
            <div class="grid" style="height: calc(${(lines + (this.layout.totals ? 2 : 1)) * rowPixels() + 4}px + var(--bar, 0px))" @pointerdown=${this.pressedOutside}>
                <div class="rows" @click=${this.clicked} @dblclick=${this.doubleClicked} @contextmenu=${this.cellMenuAsked}></div>
                <input
                    data-focus
                    class="cell-editor"
                    autocomplete="off"
                    spellcheck="false"
                    aria-label=${this.cellName}
                    ?disabled=${this.disabled}
                    @input=${this.edited}
                    @beforeinput=${this.aboutToEdit}
                    @paste=${this.pasted}
                    @copy=${this.copied}
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

    private get columns(): GridColumn[] {
        return columnsOf(this.control);
    }

    private get place(): string {
        return `${this.control.number("row")} ${this.control.text("column")}`;
    }

    private get editsCell(): boolean {
        return this.control.flag("editing") || this.openedAt === this.place;
    }

    private get currentColumn(): GridColumn | undefined {
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
        this.askForOrder();
        this.showColumns();
        this.showCurrent();
        void this.showTotals();
    }

    /** Of the rows, as the user had them the last time. */
    private askForOrder(): void {
        const { column, descending } = this.layout.rowOrder;
        const wanted = `${column} ${descending}`;
        const known = column === "" || this.columns.some(({ field }) => field === column);
        if (!this.control.flag("sortable") || !known || wanted === this.orderAsked) return;
        this.orderAsked = wanted;
        const { column: shown, descending: shownDescending } = this.shownOrder;
        if (column === shown && (column === "" || descending === shownDescending)) return;
        session.send({ event: "sort", ...this.address, column, descending });
    }

    private get shownOrder(): RowOrder {
        return { column: this.control.text("sortColumn"), descending: this.control.flag("sortDescending") };
    }

    private async clickTitle(column: string): Promise<void> {
        session.send({ event: "title", ...this.address, column });
        await session.settled();
        if (!this.control.flag("sortable")) return;
        const order = this.shownOrder;
        this.orderAsked = `${order.column} ${order.descending}`;
        this.layout.setRowOrder(order);
    }

    private showColumns(): void {
        const visible = this.shownColumns;
        const key = JSON.stringify([this.shownOrder, ...visible.map((column) => [column, this.contentLength(column)])]);
        if (key === this.columnsKey) return;
        this.columnsKey = key;
        const definitions = visible.map((column) => this.definition(column));
        if (this.api) this.api.setGridOption("columnDefs", definitions);
        else this.makeGrid(definitions);
        this.api?.purgeInfiniteCache();
    }

    /** In the user's order. */
    private get shownColumns(): GridColumn[] {
        return this.layout.ordered(this.columns.filter((column) => column.visible));
    }

    private definition(column: GridColumn): ColDef {
        const number = isNumber(column);
        const base: ColDef = {
            colId: column.field,
            headerName: `${column.title}${this.orderSign(column)}`,
            valueGetter: ({ node, data }) => (node?.rowPinned ? (data as Record<string, string>)[column.field] : this.row(node)?.texts[column.index]) ?? "",
            cellClassRules: { marked: ({ rowIndex, node }) => !node.rowPinned && this.isMarked(rowIndex, column.field) },
            cellClass: [number ? "number" : "", column.kind, column.editable ? "" : "fixed"].filter(Boolean),
            headerClass: number ? "number" : "",
            sortable: false,
            resizable: true,
            minWidth: this.leastWidth(column),
        };
        if (column.kind === "tick") base.valueFormatter = ({ value }) => (value === "S" ? "✓" : "");
        const width = this.layout.width(column.field) ?? (column.width > 0 ? column.width * textPixels() * 0.56 + 18 : narrow[column.kind]);
        return width === undefined ? { ...base, flex: Math.max(column.title.length, this.contentLength(column)) } : { ...base, width };
    }

    private orderSign({ field }: GridColumn): string {
        const { column, descending } = this.shownOrder;
        if (field !== column) return "";
        return descending ? " ▼" : " ▲";
    }

    /** Neither its title nor a code is cut off. */
    private leastWidth(column: GridColumn): number {
        const letters = Math.max(column.title.length + this.orderSign(column).length, Math.min(16, this.contentLength(column)));
        return Math.round(letters * textPixels() * 0.58) + 26;
    }

    /** Characters of its longest text, roughly: a little more or less is no reason to lay out the columns anew. */
    private contentLength({ index }: GridColumn): number {
        const { rows } = this.control;
        let longest = 1;
        for (let row = 0; row < Math.min(rows.count, rowsMeasured); ++row) longest = Math.max(longest, rows.get(row)?.texts[index]?.length ?? 0);
        return Math.ceil(longest / 8) * 8;
    }

    private row(node: IRowNode | null): RowData | undefined {
        return node?.rowPinned ? undefined : this.control.rows.get(node?.rowIndex ?? -1);
    }

    private makeGrid(columnDefs: ColDef[]): void {
        const host = this.querySelector<HTMLElement>(".rows");
        if (!host) return;
        this.api = createGrid(host, {
            theme: gridTheme,
            columnDefs,
            rowModelType: "infinite",
            datasource: this.datasource,
            cacheBlockSize: blockSize,
            maxBlocksInCache: 10,
            rowHeight: rowPixels(),
            headerHeight: rowPixels(),
            suppressCellFocus: true,
            suppressHeaderFocus: true,
            suppressContextMenu: true,
            animateRows: false,
            overlayNoRowsTemplate: "<span></span>",
            rowClassRules: {
                current: ({ node }) => !node.rowPinned && node.rowIndex === this.control.number("row"),
                totals: ({ node }) => node.rowPinned === "bottom",
                ...Object.fromEntries(
                    colors.slice(1).map((name, index) => [name, ({ node }: { node: IRowNode }) => this.row(node)?.color === index + 1]),
                ),
            },
            onBodyScroll: () => this.placeEditor(),
            onColumnResized: ({ finished, source, column }) => {
                if (finished && source === "uiColumnResized" && column) this.layout.setWidth(column.getColId(), column.getActualWidth());
                this.placeEditor();
            },
            onColumnMoved: ({ finished, source }) => {
                if (finished && source === "uiColumnMoved") this.layout.setOrder(this.api?.getColumnState().map(({ colId }) => colId) ?? []);
                this.placeEditor();
            },
            onModelUpdated: () => this.reveal(),
            onViewportChanged: () => {
                this.askForRows();
                this.reveal();
            },
        });
        new ResizeObserver(() => this.placeEditor()).observe(host);
        const bar = host.querySelector<HTMLElement>(".ag-body-horizontal-scroll");
        if (bar) new ResizeObserver(() => this.style.setProperty("--bar", `${bar.offsetHeight}px`)).observe(bar);
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
        void this.showTotals();
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
            if (this.marked) this.unmark();
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
        field.classList.toggle("number", isNumber(this.currentColumn));
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
        const step = markSteps[key];
        if (step && !this.editsCell) return this.extendMark(...step);
        if (this.marked) this.unmark();
        if (key === "Ctrl+f") return this.find();
        if (isMenuKey(key)) return this.openMenu(this.cellBounds);
        if ((key === "F4" || key === "Alt+Down") && this.pickList.length > 0) return this.openPickList();
        if ((key === "Left" || key === "Right") && !this.editsCell && this.layout.reordered) return this.stepColumn(key === "Left" ? -1 : 1);
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
        field.value = this.cellText;
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

    /** "h", "+" and "-" in the cell of a date. */
    protected override typedSpecially(text: string): boolean {
        if (this.currentColumn?.kind !== "date") return false;
        const date = dateByKey(text, this.editsCell ? this.shownText : this.cellText);
        if (date) this.sendText(date, text, [{ kind: "text", text }]);
        return date !== null;
    }

    override type(text: string): void {
        const lines = text.replace(/\r/g, "").replace(/\n$/, "").split("\n").map((line) => line.split("\t"));
        const several = lines.length > 1 || lines[0]!.length > 1;
        if (several && this.control.flag("takesPaste")) this.pasteRows(text);
        else if (several) this.pasteCells(lines);
        else super.type(lines[0]![0]!);
    }

    private get cellText(): string {
        return this.control.rows.get(this.control.number("row"))?.texts[this.currentColumn?.index ?? -1] ?? "";
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

    private clicked(event: MouseEvent): void {
        const { row, column } = cellOf(event);
        if (column === undefined) return;
        if (event.shiftKey && row !== undefined) return this.mark({ row, column });
        if (this.marked) this.unmark();
        if (row === undefined) void this.clickTitle(column);
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

    // Marking, copying and pasting

    private isMarked(row: number, field: string): boolean {
        const range = this.range;
        return this.marked !== null && row >= range.first && row <= range.last && range.fields.includes(field);
    }

    /** From the current cell to the other end of what is marked. */
    private get range(): { first: number; last: number; fields: string[] } {
        const here = { row: this.control.number("row"), column: this.control.text("column") };
        const there = this.marked ?? here;
        const fields = this.shownColumns.map(({ field }) => field);
        const [from = 0, to = 0] = [fields.indexOf(here.column), fields.indexOf(there.column)].sort((a, b) => a - b);
        return { first: Math.min(here.row, there.row), last: Math.max(here.row, there.row), fields: fields.slice(from, to + 1) };
    }

    private mark(cell: Cell): void {
        this.marked = cell;
        this.api?.refreshCells({ force: true });
    }

    private unmark(): void {
        this.marked = null;
        this.api?.refreshCells({ force: true });
    }

    private extendMark(rows: number, columns: number): void {
        const { row, column } = this.marked ?? { row: this.control.number("row"), column: this.control.text("column") };
        const fields = this.shownColumns.map(({ field }) => field);
        const limited = (value: number, count: number) => Math.max(0, Math.min(count - 1, value));
        const end = { row: limited(row + rows, this.control.rows.count), column: fields[limited(fields.indexOf(column) + columns, fields.length)] ?? column };
        this.mark(end);
        this.api?.ensureIndexVisible(end.row);
    }

    private readonly copied = (event: ClipboardEvent): void => {
        const field = this.field;
        if (this.editsCell && field && field.selectionStart !== field.selectionEnd) return;
        event.preventDefault();
        const text = this.markedText;
        if (text === null) return session.tell("Nem todas as linhas marcadas estão aqui: exporte a grade.");
        event.clipboardData?.setData("text/plain", text);
    };

    /** As a spreadsheet takes it; null when some of the rows are not told. */
    private get markedText(): string | null {
        const { first, last, fields } = this.range;
        const { rows } = this.control;
        if (!rows.has(first, last - first + 1)) return null;
        const indexes = fields.map((field) => this.control.texts("columns").indexOf(field));
        const lines = Array.from({ length: last - first + 1 }, (_, row) => indexes.map((index) => rows.get(first + row)?.texts[index] ?? ""));
        return lines.map((line) => line.join("\t")).join("\n");
    }

    /** As a whole: the screen knows what the cells are. A message has its limit. */
    private pasteRows(text: string): void {
        if (new TextEncoder().encode(JSON.stringify(text)).length > longestPaste) {
            return session.tell("São linhas demais para colar de uma vez: cole em partes ou importe o arquivo.");
        }
        session.send({ event: "paste", ...this.address, text: text.replace(/\r/g, "") });
    }

    /** From the current cell on, each as if it were typed. */
    private pasteCells(lines: readonly (readonly string[])[]): void {
        const fields = this.shownColumns.map(({ field }) => field);
        const left = fields.indexOf(this.control.text("column"));
        const top = this.control.number("row");
        const cells = lines.flatMap((line, row) => line.map((text, index) => ({ row: Math.max(0, top) + row, column: fields[left + index], text })));
        session.sendInTurn([
            ...cells.flatMap(({ row, column, text }) =>
                column === undefined ? [] : [
                    { event: "cell" as const, ...this.address, row, column },
                    { event: "cellText" as const, ...this.address, text },
                ]),
            { event: "key", ...this.address, key: "Enter" },
        ]);
    }

    // Its menu

    private get cellBounds(): DOMRect {
        return (this.field ?? this).getBoundingClientRect();
    }

    /** A grid has items of its own. */
    protected override get hasMenu(): boolean {
        return false;
    }

    private readonly cellMenuAsked = (event: MouseEvent): void => {
        event.preventDefault();
        event.stopPropagation();
        const { row, column } = cellOf(event);
        this.openMenu(new DOMRect(event.clientX, event.clientY, 0, 0), row, column);
    };

    protected override openMenu(at: DOMRect, row = this.control.number("row"), column = this.control.text("column")): void {
        if (row !== this.control.number("row") || column !== this.control.text("column")) session.send({ event: "cell", ...this.address, row, column });
        void askMenu(this.control, { row, column }).then((items) => openPopup([...items, ...this.ownItems(items.length > 0)], at));
    }

    private ownItems(apart: boolean): PopupItem[] {
        const { layout } = this;
        const column = this.currentColumn;
        return [
            ...(this.control.flag("sortable") && column ? [{ caption: `Ordenar por ${column.title.replaceAll("&", "&&")}`, apart, act: () => void this.clickTitle(column.field) }] : []),
            { caption: "Copiar", shortcut: "Ctrl+C", apart, act: () => void this.copyMarked() },
            { caption: "Localizar…", shortcut: "Ctrl+F", act: () => this.find() },
            { caption: "Somar as colunas", checked: layout.totals, act: () => layout.setTotals(!layout.totals) },
            { caption: "Exportar para planilha (XLSX)", apart: true, act: () => download(exportAddress(this.control, "xlsx")) },
            { caption: "Exportar como texto (CSV)", act: () => download(exportAddress(this.control, "csv")) },
            { caption: "Colunas como no início", apart: true, enabled: layout.reordered || this.hasOwnWidths || layout.rowOrder.column !== "", act: () => layout.forget() },
        ];
    }

    private get hasOwnWidths(): boolean {
        return this.columns.some(({ field }) => this.layout.width(field) !== undefined);
    }

    private async copyMarked(): Promise<void> {
        await navigator.clipboard.writeText(this.markedText ?? "").catch(() => session.tell("O navegador não deixou copiar."));
    }

    private get pickList(): readonly string[] {
        return this.control.texts(`pickList.${this.control.text("column")}`);
    }

    private openPickList(): void {
        if (this.fixed) return;
        const items = this.pickList.map((text): PopupItem => ({ caption: text.replaceAll("&", "&&"), act: () => this.sendText(text, "", [{ kind: "text", text }]) }));
        openPopup(items, this.cellBounds);
    }

    /** In the user's own order of columns the server does not know which one stands beside. */
    private stepColumn(step: number): void {
        const fields = this.shownColumns.map(({ field }) => field);
        const column = fields[fields.indexOf(this.control.text("column")) + step];
        if (column !== undefined) session.send({ event: "cell", ...this.address, row: this.control.number("row"), column });
    }

    // Finding and adding up

    private find(): void {
        openFind(this.getBoundingClientRect(), (text, step, fromHere) => this.seek(text, step, fromHere));
    }

    private async seek(text: string, step: 1 | -1, fromHere: boolean): Promise<string> {
        const sought = text.toLocaleLowerCase("pt-BR");
        const fields = this.shownColumns.map(({ field }) => field);
        const rows = await allRows(this.control, fields);
        const start = this.control.number("row") + (fromHere ? 0 : step);
        for (let count = 0; count < rows.length; ++count) {
            const row = (start + step * count + 2 * rows.length) % rows.length;
            const found = rows[row]!.findIndex((cell) => cell.toLocaleLowerCase("pt-BR").includes(sought));
            const column = fields[found];
            if (column === undefined) continue;
            session.send({ event: "cell", ...this.address, row, column });
            return `linha ${row + 1}`;
        }
        return "não encontrado";
    }

    private async showTotals(): Promise<void> {
        const { api } = this;
        if (!api) return;
        const numbers = this.shownColumns.filter((column) => column.kind === "float" || column.kind === "integer");
        if (!this.layout.totals || numbers.length === 0) return api.setGridOption("pinnedBottomRowData", []);
        const rows = await allRows(this.control, numbers.map(({ field }) => field)).catch(() => []);
        const sums = numbers.map(({ field }, index) => [field, sumText(rows.map((row) => row[index] ?? ""))]);
        if (this.api === api) api.setGridOption("pinnedBottomRowData", [Object.fromEntries(sums)]);
    }

    /** The rows do not take the browser's focus: it stays where the server says. */
    private pressedOutside(event: Event): void {
        if (event.target !== this.field) this.refocusIfCurrent();
    }

    private refocusIfCurrent(): void {
        if (this.focusedByServer) queueMicrotask(() => this.refocus());
    }
}

const markSteps: Readonly<Record<string, readonly [rows: number, columns: number]>> = {
    "Shift+Up": [-1, 0],
    "Shift+Down": [1, 0],
    "Shift+Left": [0, -1],
    "Shift+Right": [0, 1],
    "Shift+PgUp": [-10, 0],
    "Shift+PgDn": [10, 0],
};

/** With as many decimals as the longest of them has. */
function sumText(texts: readonly string[]): string {
    const decimals = Math.max(0, ...texts.map((text) => text.split(",")[1]?.length ?? 0));
    const sum = texts.reduce((all, text) => all + numberOf(text), 0);
    return sum.toLocaleString("pt-BR", { minimumFractionDigits: decimals, maximumFractionDigits: decimals });
}

/** A title has a column and no row. */
function cellOf(event: Event): { row?: number; column?: string } {
    const target = event.target as Element;
    const column = target.closest(".ag-cell, .ag-header-cell")?.getAttribute("col-id");
    const row = target.closest(".ag-row")?.getAttribute("row-index");
    return { ...(column ? { column } : {}), ...(row ? { row: Number(row) } : {}) };
}
