import { Paginator } from "./Paginator";
import { takePageRule, usualPage, type PageRule } from "./PageRule";
import { PageText } from "./PageText";

/** How large a sheet is shown: by its width, as a whole, or by a factor. */
export type Zoom = "largura" | "pagina" | number;

export const smallestZoom = 0.5;
export const largestZoom = 2;

/** No wider than this by the window's width: letters as large as a hand are no easier to read. */
const widest = 1.4;
/** Between and around the sheets. */
const space = 16;

/** Runs and fetches nothing: also what a template or a text of the data would smuggle in. */
const shell = `<!doctype html><html><head><meta charset="utf-8"><meta http-equiv="Content-Security-Policy"
    content="default-src 'none'; style-src 'unsafe-inline'; img-src data:; font-src data:"></head><body></body></html>`;

export const frameSource = shell;
/** Without scripts; of the same origin so that this page may fill and print it. */
export const frameSandbox = "allow-same-origin allow-modals";

/** What a sheet has no use for. */
const useless = 'script, iframe, frame, object, embed, link, meta, base, form, img:not([src^="data:"])';

/** A report as sheets of paper in a frame of its own. Says "change" when there are more sheets, or another one is in view. */
export class ReportPages extends EventTarget {
    private readonly frames: HTMLElement[] = [];
    private rule: PageRule = usualPage;
    private wanted: Zoom = "largura";
    private factor = 1;
    private countOnSheets = 0;
    private over = false;
    /** Where the window was scrolled to for the wanted sheet. */
    private aim: number | null = null;
    /** Every sheet is made. */
    complete = false;
    current = 1;
    readonly text = new PageText();
    private readonly resized = new ResizeObserver(() => this.applyZoom());

    constructor(private readonly frame: HTMLIFrameElement) {
        super();
        this.resized.observe(frame);
        this.document.addEventListener("scroll", () => this.scrolled());
    }

    get document(): Document {
        return this.frame.contentDocument!;
    }

    private get window(): Window {
        return this.frame.contentWindow!;
    }

    get count(): number {
        return this.frames.length;
    }

    /** Lays the document out on its sheets; returns when all are there. */
    async show(html: AsyncIterable<string>): Promise<void> {
        const source = document.implementation.createHTMLDocument("");
        source.open();
        for await (const part of html) {
            if (this.over) return;
            source.write(part);
            await pause();
        }
        source.close();
        for (const each of [...source.querySelectorAll(useless)]) each.remove();
        this.takeStyles(source);
        this.applyZoom();
        const paginator = new Paginator(this.rule, (page) => this.beginSheet(page, source.body), () => this.breathe());
        if ((await paginator.layOut(source.body)) === null) return;
        this.endSheet();
        this.complete = true;
        this.changed();
    }

    /** Nothing goes on. */
    close(): void {
        this.over = true;
        this.resized.disconnect();
    }

    // Sheets

    private takeStyles(source: Document): void {
        const root = this.document.documentElement;
        for (const { name, value } of [...source.documentElement.attributes]) if (["lang", "class", "style", "dir"].includes(name)) root.setAttribute(name, value);
        for (const style of source.querySelectorAll("style")) {
            const { rule, rest } = takePageRule(style.textContent ?? "", this.rule);
            this.rule = rule;
            this.addStyle(rest);
        }
        for (const sheet of [...this.document.styleSheets]) showAsPrinted(sheet);
        this.addStyle(this.ownStyle());
    }

    private addStyle(css: string): void {
        const style = this.document.createElement("style");
        style.textContent = css;
        this.document.head.append(style);
    }

    private ownStyle(): string {
        const { width, height, margin, boxes } = this.rule;
        const [contentWidth, contentHeight] = [width - margin.left - margin.right, height - margin.top - margin.bottom];
        const outer = getComputedStyle(this.frame);
        return `
            html { background: ${outer.backgroundColor} !important; scrollbar-color: #8a97a3 transparent; --zoom: 1; }
            html > body { all: unset !important; display: block !important; min-width: max-content; padding: ${space / 2}px ${space}px !important; }
            al-frame { display: block; position: relative; width: calc(${width}px * var(--zoom)); margin: 0 auto ${space}px;
                height: calc(${height}px * var(--zoom)); background: #fff; box-shadow: 0 1px 5px #0005; contain: strict; }
            al-frame[done] { content-visibility: auto; }
            al-sheet { display: block; position: absolute; inset: 0 auto auto 0; width: ${width}px; height: ${height}px; background: #fff;
                transform: scale(var(--zoom)); transform-origin: 0 0; counter-reset: page var(--page) pages var(--pages); }
            al-sheet > body { position: absolute !important; inset: ${margin.top}px auto auto ${margin.left}px !important; margin: 0 !important;
                width: ${contentWidth}px !important; height: ${contentHeight}px !important; max-width: none !important; min-width: 0 !important;
                box-shadow: none !important; background: none !important; }
            al-margin { position: absolute; display: flex; align-items: center; left: ${margin.left}px; right: ${margin.right}px; white-space: pre-wrap; }
            al-margin[data-place^="top"] { top: 0; height: ${margin.top}px; }
            al-margin[data-place^="bottom"] { bottom: 0; height: ${margin.bottom}px; }
            al-margin[data-place$="center"] { justify-content: center; }
            al-margin[data-place$="right"] { justify-content: flex-end; }
            ${[...boxes].map(([place, declarations]) => `al-margin[data-place="${place}"]::before { ${declarations} }`).join("\n")}
            ::highlight(found) { background: #ffe27a; color: #000; }
            ::highlight(current) { background: #f08c2e; color: #000; }
            @page { size: ${width}px ${height}px; margin: 0; }
            @media print {
                html { background: none !important; }
                html > body { padding: 0 !important; }
                al-frame { width: ${width}px; height: ${height}px; margin: 0; box-shadow: none; break-after: page; content-visibility: visible !important; }
                al-frame:last-child { break-after: auto; }
                al-sheet { transform: none; }
                ::highlight(found), ::highlight(current) { background: none; }
            }`;
    }

    private beginSheet(page: number, source: HTMLElement): HTMLElement {
        this.endSheet();
        const { document } = this;
        const frame = document.createElement("al-frame");
        const sheet = document.createElement("al-sheet");
        const body = document.importNode(source, false);
        sheet.style.setProperty("--page", String(page));
        sheet.append(body);
        for (const place of this.rule.boxes.keys()) {
            const box = document.createElement("al-margin");
            box.dataset["place"] = place;
            sheet.append(box);
        }
        frame.append(sheet);
        document.body.append(frame);
        this.frames.push(frame);
        return body;
    }

    private endSheet(): void {
        this.frames.at(-1)?.setAttribute("done", "");
        const sheet = this.frames.at(-1)?.querySelector("body");
        if (sheet) this.text.add(sheet);
    }

    private async breathe(): Promise<boolean> {
        this.changed();
        await pause();
        return !this.over;
    }

    private changed(): void {
        if (this.complete || this.count >= 2 * this.countOnSheets) this.tellSheets();
        this.dispatchEvent(new Event("change"));
    }

    /** Their number stands on each of them: all are styled anew, so it is told seldom while they become more. */
    private tellSheets(): void {
        this.countOnSheets = this.count;
        this.document.documentElement.style.setProperty("--pages", String(this.count));
    }

    // Going through them

    goTo(page: number): void {
        const frame = this.frames[Math.max(1, Math.min(this.count, page)) - 1];
        if (!frame) return;
        this.window.scrollTo({ top: frame.offsetTop - space / 2 });
        this.aim = this.window.scrollY;
        this.enter(Math.max(1, Math.min(this.count, page)));
    }

    scrollBy(x: number, y: number): void {
        this.window.scrollBy({ left: x, top: y });
    }

    /** The sheet in the upper part of the window, or the one that was wanted and could not come that far up. */
    private scrolled(): void {
        if (this.window.scrollY === this.aim) return;
        this.aim = null;
        const place = this.window.scrollY + this.window.innerHeight / 3;
        let [low, high] = [0, this.frames.length];
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.frames[middle]!.offsetTop <= place) low = middle + 1;
            else high = middle;
        }
        this.enter(Math.max(1, low));
    }

    private enter(page: number): void {
        if (page === this.current) return;
        this.current = page;
        this.dispatchEvent(new Event("change"));
    }

    /** The first place of the text on that sheet or behind it; -1 when there is none. */
    firstFoundFrom(page: number): number {
        const sheet = this.frames[page - 1];
        return this.text.places.findIndex(({ node }) => {
            const side = sheet?.compareDocumentPosition(node) ?? 0;
            return (side & (Node.DOCUMENT_POSITION_CONTAINED_BY | Node.DOCUMENT_POSITION_FOLLOWING)) !== 0;
        });
    }

    /** Marks the place of a text and brings it into view. */
    reveal(found: number): void {
        this.text.mark(this.window as Window & typeof globalThis, found);
        const sheet = this.text.places[found]?.node.parentElement?.closest("al-frame");
        this.text.places[found]?.node.parentElement?.scrollIntoView({ block: "center", inline: "nearest" });
        if (!sheet) return;
        this.aim = this.window.scrollY;
        this.enter(this.frames.indexOf(sheet as HTMLElement) + 1);
    }

    // Size

    get zoom(): Zoom {
        return this.wanted;
    }

    /** As it is now. */
    get scale(): number {
        return this.factor;
    }

    set zoom(zoom: Zoom) {
        this.wanted = zoom;
        this.applyZoom();
    }

    private applyZoom(): void {
        const factor = this.factorOf(this.wanted);
        if (factor === this.factor || !(factor > 0)) return;
        const { window } = this;
        const [middle, beside] = [(window.scrollY + window.innerHeight / 3) / this.factor, window.scrollX / this.factor];
        this.factor = factor;
        this.document.documentElement.style.setProperty("--zoom", String(factor));
        window.scrollTo({ top: middle * factor - window.innerHeight / 3, left: beside * factor });
        this.dispatchEvent(new Event("change"));
    }

    private factorOf(zoom: Zoom): number {
        const { clientWidth, clientHeight } = this.document.documentElement;
        const byWidth = (clientWidth - 2 * space) / this.rule.width;
        if (zoom === "largura") return Math.min(widest, byWidth);
        if (zoom === "pagina") return Math.min(largestZoom, byWidth, (clientHeight - space) / this.rule.height);
        return zoom;
    }

    print(): void {
        this.window.print();
    }
}

/** On the screen as on paper: what a style sheet says for the screen alone does not hold, what it says for paper does. */
function showAsPrinted(sheet: CSSStyleSheet): void {
    for (let index = sheet.cssRules.length - 1; index >= 0; --index) {
        const rule = sheet.cssRules[index];
        if (!rule || !("media" in rule)) continue;
        const media = (rule as CSSMediaRule).media.mediaText;
        if (media !== "screen" && media !== "print") continue;
        const inner = media === "print" ? [...(rule as CSSMediaRule).cssRules].map(({ cssText }) => cssText) : [];
        sheet.deleteRule(index);
        for (const text of inner.reverse()) sheet.insertRule(text, index);
    }
}

const pause = () => new Promise<void>((resolve) => setTimeout(resolve));
