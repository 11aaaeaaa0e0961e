import type { PageRule } from "./PageRule";

/** Milliseconds of work between two breaths, in which the browser answers its user. */
const slice = 12;
const firstRows = 60;
/** Elements in a block that is tried as a whole. */
const largest = 2000;

/** A block that goes over to the next sheet: what is in the document, and what it is a part of there. */
interface Open {
    source: Element;
    clone: Element;
}

/**
 * Lays a document out on sheets of paper, as it would be printed: blocks and rows of tables follow each other until a sheet is full; a table's
 * head stands again on each of its sheets, and what asks to stay together does. The sheets are made one after the other, with breaths.
 */
export class Paginator {
    private body!: HTMLElement;
    private limit = 0;
    private readonly open: Open[] = [];
    private rowsExpected = firstRows;
    private workedSince = performance.now();

    /** `begin` puts a new, empty sheet behind those before and gives the element that takes what is printed on it. */
    constructor(
        private readonly rule: PageRule,
        private readonly begin: (page: number) => HTMLElement,
        private readonly breathe: () => Promise<boolean>,
    ) {}

    /** The number of sheets; null when it was given up on the way. */
    async layOut(source: HTMLElement): Promise<number | null> {
        try {
            this.newSheet();
            await this.flowChildren(source);
            return this.pages;
        } catch (error) {
            if (error === givenUp) return null;
            throw error;
        }
    }

    pages = 0;

    private newSheet(): void {
        this.body = this.begin(++this.pages);
        this.limit = this.rule.height - this.rule.margin.top - this.rule.margin.bottom;
        let into: Element = this.body;
        for (const open of this.open) {
            open.clone = this.shallow(open.source);
            into.append(open.clone);
            into = open.clone;
        }
    }

    private get target(): Element {
        return this.open.at(-1)?.clone ?? this.body;
    }

    private get document(): Document {
        return this.body.ownerDocument;
    }

    private shallow(element: Element): Element {
        return this.document.importNode(element, false);
    }

    private async flowChildren(source: Element): Promise<void> {
        for (const child of [...source.childNodes]) {
            await this.breath();
            if (child instanceof Element) await this.flow(child);
            else if (child.nodeType === Node.TEXT_NODE && child.textContent?.trim()) this.target.append(this.document.importNode(child));
        }
    }

    private async flow(source: Element): Promise<void> {
        if (rowsOf(source).length > 0 && !this.whole(source)) return this.flowTable(source as HTMLTableElement);
        if (source.getElementsByTagName("*").length > largest) return this.flowInto(source);
        const block = this.document.importNode(source, true);
        this.target.append(block);
        if (newPage.has(this.styleOf(block).breakBefore) && !this.isFirst(block)) this.moveOn(block);
        if (this.fits(block)) return;
        if (!this.isFirst(block)) {
            this.moveOn(block);
            if (this.fits(block)) return;
        }
        if (source.tagName === "PRE") return this.flowLines(block);
        if (rowsOf(source).length > 0 || source.childElementCount > 0) {
            block.remove();
            return rowsOf(source).length > 0 ? this.flowTable(source as HTMLTableElement) : this.flowInto(source);
        }
    }

    /** A table that is short and asks to stay on one sheet. */
    private whole(source: Element): boolean {
        if (rowsOf(source).length > this.rowsExpected * 2) return false;
        const shell = this.shallow(source);
        this.target.append(shell);
        const { breakInside } = this.styleOf(shell);
        shell.remove();
        return breakInside.startsWith("avoid");
    }

    private async flowInto(source: Element): Promise<void> {
        const clone = this.shallow(source);
        this.target.append(clone);
        this.open.push({ source, clone });
        await this.flowChildren(source);
        this.open.pop();
    }

    /** With what stands before it and asks to stay with it. */
    private moveOn(block: Element): void {
        const moved: Element[] = [block];
        for (let before = block.previousElementSibling; before; before = before.previousElementSibling) {
            if (!this.styleOf(before).breakAfter.startsWith("avoid") || !before.previousElementSibling) break;
            moved.unshift(before);
        }
        for (const each of moved) each.remove();
        this.newSheet();
        this.target.append(...moved);
    }

    // Tables

    private async flowTable(source: HTMLTableElement): Promise<void> {
        const rows = rowsOf(source);
        const feet = [...source.querySelectorAll(":scope > tfoot")];
        for (let first = 0; first < rows.length; ) {
            await this.breath();
            const table = this.tableShell(source, first === 0);
            this.target.append(table);
            if (first === 0 && newPage.has(this.styleOf(table).breakBefore) && !this.isFirst(table)) {
                table.remove();
                this.newSheet();
                continue;
            }
            const laid = this.layRows(table, rows, first);
            const taken = this.takenRows(laid, first + laid.length === rows.length);
            if (taken === 0 && !this.isFirst(table)) {
                table.remove();
                this.moveHeadingsOn();
                continue;
            }
            const kept = Math.max(1, taken);
            for (const row of laid.slice(kept)) row.remove();
            for (const section of [...table.querySelectorAll(":scope > tbody")]) if (section.childElementCount === 0) section.remove();
            first += kept;
            this.rowsExpected = Math.max(firstRows, Math.round(kept * 1.2));
            if (first < rows.length) this.newSheet();
            else for (const foot of feet) table.append(this.document.importNode(foot, true));
        }
    }

    /** The next sheet begins with the headings at the end of this one, which belong to what comes. */
    private moveHeadingsOn(): void {
        const last = this.target.lastElementChild;
        if (last && last.previousElementSibling && this.styleOf(last).breakAfter.startsWith("avoid")) this.moveOn(last);
        else this.newSheet();
    }

    private tableShell(source: HTMLTableElement, first: boolean): HTMLTableElement {
        const table = this.shallow(source) as HTMLTableElement;
        const parts = first ? ":scope > caption, :scope > colgroup, :scope > thead" : ":scope > colgroup, :scope > thead";
        for (const part of source.querySelectorAll(parts)) table.append(this.document.importNode(part, true));
        return table;
    }

    /** Puts rows into the table until they reach beyond the sheet, or all are there; these rows. */
    private layRows(table: HTMLTableElement, rows: readonly HTMLTableRowElement[], first: number): HTMLTableRowElement[] {
        const laid: HTMLTableRowElement[] = [];
        let section: Element | null = null;
        let sectionSource: Element | null = null;
        do {
            for (let count = 0; count < this.rowsExpected && first + laid.length < rows.length; ++count) {
                const row = rows[first + laid.length]!;
                if (row.parentElement !== sectionSource || !section) {
                    sectionSource = row.parentElement;
                    section = sectionSource === null || sectionSource.tagName === "TABLE" ? table : this.shallow(sectionSource);
                    if (section !== table) table.append(section);
                }
                const clone = this.document.importNode(row, true);
                section.append(clone);
                laid.push(clone);
            }
        } while (first + laid.length < rows.length && this.bottom(laid.at(-1)!) <= this.limit);
        return laid;
    }

    /** How many of them stand on the sheet. `all`: no row comes behind them. */
    private takenRows(laid: readonly HTMLTableRowElement[], all: boolean): number {
        let low = 0;
        for (let high = laid.length; low < high; ) {
            const middle = (low + high) >> 1;
            if (this.bottom(laid[middle]!) <= this.limit + 0.5) low = middle + 1;
            else high = middle;
        }
        if (low === laid.length && all) return low;
        let taken = low;
        while (taken > 0 && this.together(laid[taken - 1]!, laid[taken])) --taken;
        return taken > 0 || low === 0 || !this.isFirst(laid[0]!.closest("table")!) ? taken : low;
    }

    private together(row: Element, next: Element | undefined): boolean {
        return this.styleOf(row).breakAfter.startsWith("avoid") || (next !== undefined && this.styleOf(next).breakBefore.startsWith("avoid"));
    }

    // Lines of plain text

    private flowLines(block: Element): void {
        const lines = (block.textContent ?? "").split("\n");
        const perSheet = Math.max(1, Math.floor((this.limit * lines.length) / Math.max(1, block.getBoundingClientRect().height / this.scale)));
        for (let first = 0; first < lines.length; first += perSheet) {
            const part = first === 0 ? block : this.shallow(block);
            if (first > 0) this.newSheet();
            part.textContent = lines.slice(first, first + perSheet).join("\n");
            this.target.append(part);
        }
    }

    // Measuring

    private styleOf(element: Element): CSSStyleDeclaration {
        return this.document.defaultView!.getComputedStyle(element);
    }

    /** Nothing else stands on its sheet before it. */
    private isFirst(block: Element): boolean {
        for (let at: Element | null = block; at && at !== this.body; at = at.parentElement) if (at.previousElementSibling) return false;
        return true;
    }

    /** Pixels on the screen of a pixel on the paper. */
    private get scale(): number {
        return this.body.getBoundingClientRect().width / this.body.offsetWidth || 1;
    }

    /** Below the beginning of the sheet. */
    private bottom(block: Element): number {
        return (block.getBoundingClientRect().bottom - this.body.getBoundingClientRect().top) / this.scale;
    }

    /** A text in columns goes on to the side. */
    private fits(block: Element): boolean {
        return this.bottom(block) <= this.limit + 0.5 && this.body.scrollWidth <= this.body.clientWidth + 1;
    }

    private async breath(): Promise<void> {
        if (performance.now() - this.workedSince < slice) return;
        if (!(await this.breathe())) throw givenUp;
        this.workedSince = performance.now();
    }
}

const newPage = new Set(["page", "left", "right", "recto", "verso"]);

const givenUp = Symbol("given up");

const rowsOf = (source: Element) => [...source.querySelectorAll<HTMLTableRowElement>(":scope > tbody > tr, :scope > tr")];
