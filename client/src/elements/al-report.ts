import { html, type TemplateResult } from "lit";
import { customElement, state } from "lit/decorators.js";
import { Refusal } from "../Account";
import { preferences } from "../Preferences";
import type { Button } from "../protocol";
import { documentOf, mailReport, saveReport, type FileFormat } from "../report/reportFiles";
import { frameSandbox, frameSource, largestZoom, ReportPages, smallestZoom, type Zoom } from "../report/ReportPages";
import { session } from "../Session";
import { openMail } from "./al-mail";
import { openPopup, type PopupItem } from "./al-popup";
import { DialogElement } from "./DialogElement";

const zoomKey = "relatorio.zoom";
const zooms = [0.5, 0.67, 0.75, 0.9, 1, 1.1, 1.25, 1.5, 1.75, 2];
const lineStep = 60;
const searchDelay = 150;

const formatNames: Readonly<Record<FileFormat, string>> = { pdf: "&PDF", xlsx: "&Excel (XLSX), os dados", html: "Página &HTML", txt: "&Texto (TXT)" };

/** A report to be read on sheets of paper, searched, printed, saved and sent. */
@customElement("al-report")
export class ReportElement extends DialogElement {
    @state() private message = "";
    @state() private failed = false;
    @state() private found = 0;
    private pages: ReportPages | null = null;
    private searchTimer = 0;

    protected override render(): TemplateResult {
        const { title, text } = this.dialog.state;
        const { pages } = this;
        return html`<div class="box report" role="dialog" aria-modal="true" aria-labelledby="dialog-title">
            <div class="report-head">
                <h2 id="dialog-title">${title}</h2>
                <span class="hint ${this.failed ? "failed" : ""}" role=${this.failed ? "alert" : "status"}>${this.message || text}</span>
                <button type="button" class="button" data-stop @click=${this.print} title="Ctrl+P"><span>Imprimir</span></button>
                <button type="button" class="button" data-stop data-save aria-haspopup="menu" @click=${this.openFormats} title="Ctrl+S"><span>Salvar ▾</span></button>
                <button type="button" class="button" data-stop @click=${this.send}><span>Enviar por e-mail</span></button>
                <button type="button" class="button default" data-stop data-answer="ok" @click=${() => this.answer("ok")}><span>Fechar</span><kbd>Esc</kbd></button>
            </div>
            <div class="report-bar" role="toolbar" aria-label="Páginas">
                <button type="button" class="button" data-stop aria-label="Página anterior" title="PgUp" ?disabled=${(pages?.current ?? 1) <= 1}
                    @click=${() => this.turn(-1)}><span>‹</span></button>
                <input class="field page-number" inputmode="numeric" autocomplete="off" aria-label="Página" .value=${String(pages?.current ?? 1)}
                    @focus=${(event: Event) => (event.target as HTMLInputElement).select()} @change=${this.goToTyped} />
                <span class="page-count">de ${pages?.count ?? 0}${pages?.complete ? "" : "…"}</span>
                <button type="button" class="button" data-stop aria-label="Próxima página" title="PgDn"
                    ?disabled=${pages?.complete === true && pages.current >= pages.count} @click=${() => this.turn(1)}><span>›</span></button>
                <span class="bar-space"></span>
                <button type="button" class="button" data-stop aria-label="Reduzir" title="Ctrl+-" @click=${() => this.stepZoom(-1)}><span>−</span></button>
                <button type="button" class="button zoom" data-stop data-zoom aria-haspopup="menu" @click=${this.openZooms}><span>${this.zoomText}</span></button>
                <button type="button" class="button" data-stop aria-label="Ampliar" title="Ctrl++" @click=${() => this.stepZoom(1)}><span>+</span></button>
                <span class="bar-space"></span>
                <input class="field report-search" type="search" placeholder="Localizar" aria-label="Localizar no relatório" autocomplete="off" spellcheck="false"
                    title="Ctrl+F" @input=${this.searchSoon} />
                <button type="button" class="button" data-stop aria-label="Ocorrência anterior" title="Shift+F3" @click=${() => this.seek(-1)}><span>↑</span></button>
                <button type="button" class="button" data-stop aria-label="Próxima ocorrência" title="F3" @click=${() => this.seek(1)}><span>↓</span></button>
                <span class="hint found" role="status">${this.foundText}</span>
            </div>
            <iframe class="report-pages" tabindex="-1" title=${title} sandbox=${frameSandbox} srcdoc=${frameSource} @load=${this.loaded}></iframe>
        </div>`;
    }

    private get report(): string {
        return this.dialog.state.report ?? "";
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        clearTimeout(this.searchTimer);
        this.pages?.close();
    }

    private readonly loaded = (event: Event) => {
        this.pages?.close();
        const pages = new ReportPages(event.target as HTMLIFrameElement);
        this.pages = pages;
        pages.zoom = this.keptZoom;
        pages.addEventListener("change", () => this.requestUpdate());
        pages.document.addEventListener("keydown", (key) => this.passOn(key));
        pages.document.addEventListener("wheel", (wheel) => this.wheeled(wheel), { passive: false });
        void this.load(pages);
    };

    private async load(pages: ReportPages): Promise<void> {
        try {
            await pages.show(documentOf(this.report));
        } catch (error) {
            this.tellFailure(error);
        }
    }

    /** A key that was pressed among the sheets is one of the viewer's. */
    private passOn(event: KeyboardEvent): void {
        const { key, code, ctrlKey, shiftKey, altKey, metaKey } = event;
        const passed = new KeyboardEvent("keydown", { key, code, ctrlKey, shiftKey, altKey, metaKey, bubbles: true, cancelable: true });
        if (!document.dispatchEvent(passed)) event.preventDefault();
    }

    private wheeled(event: WheelEvent): void {
        if (!event.ctrlKey) return;
        event.preventDefault();
        this.stepZoom(event.deltaY < 0 ? 1 : -1);
    }

    // Keys

    protected override get stops(): HTMLElement[] {
        return [...this.querySelectorAll<HTMLElement>("iframe, input, [data-stop]:enabled")];
    }

    override refocus(): void {
        this.querySelector<HTMLElement>("iframe")?.focus();
    }

    override enter(): void {
        this.refocus();
    }

    private get searchField(): HTMLInputElement | null {
        return this.querySelector(".report-search");
    }

    private get inSearch(): boolean {
        return document.activeElement === this.searchField;
    }

    override press(key: string, _fresh: boolean): void {
        const act = this.actions[key];
        if (act) return act();
        const focused = document.activeElement;
        if (key === "Enter" && this.inSearch) this.seek(1);
        else if (key === "Shift+Enter" && this.inSearch) this.seek(-1);
        else if (key === "Enter" && focused instanceof HTMLInputElement) this.goToTyped();
        else if ((key === "Enter" || key === "Space") && focused instanceof HTMLButtonElement) focused.click();
    }

    /** What is typed while the sheets have the focus is no text. */
    override type(text: string): void {
        if (document.activeElement instanceof HTMLInputElement) super.type(text);
    }

    private readonly actions: Readonly<Record<string, () => void>> = {
        Esc: () => this.escape(),
        Tab: () => this.step(1),
        "Shift+Tab": () => this.step(-1),
        PgDn: () => this.turn(1),
        PgUp: () => this.turn(-1),
        Down: () => this.pages?.scrollBy(0, lineStep),
        Up: () => this.pages?.scrollBy(0, -lineStep),
        Right: () => this.pages?.scrollBy(lineStep, 0),
        Left: () => this.pages?.scrollBy(-lineStep, 0),
        Home: () => this.pages?.goTo(1),
        End: () => this.pages?.goTo(this.pages.count),
        "Ctrl+Home": () => this.pages?.goTo(1),
        "Ctrl+End": () => this.pages?.goTo(this.pages.count),
        "Ctrl+g": () => this.querySelector<HTMLElement>(".page-number")?.focus(),
        "Ctrl+f": () => this.searchField?.focus(),
        "Ctrl++": () => this.stepZoom(1),
        "Ctrl+=": () => this.stepZoom(1),
        "Ctrl+-": () => this.stepZoom(-1),
        "Ctrl+0": () => this.setZoom("largura"),
        "Ctrl+p": () => this.print(),
        "Ctrl+s": () => this.openFormats(),
        F3: () => this.seek(1),
        "Shift+F3": () => this.seek(-1),
    };

    private escape(): void {
        const { searchField } = this;
        if (!this.inSearch || !searchField) return this.answer("ok");
        searchField.value = "";
        this.searchSoon();
        this.refocus();
    }

    protected override answer(_button: Button): void {
        session.send({ event: "answer", dialog: this.dialog.state.dialog, button: this.dialog.state.escape });
    }

    // Pages

    private turn(step: number): void {
        this.pages?.goTo(this.pages.current + step);
    }

    private readonly goToTyped = () => {
        const field = this.querySelector<HTMLInputElement>(".page-number");
        const page = Number(field?.value.trim());
        if (Number.isInteger(page) && page > 0) this.pages?.goTo(page);
        this.requestUpdate();
        this.refocus();
    };

    // Size

    private get keptZoom(): Zoom {
        const kept = preferences.text(zoomKey, "largura");
        return kept === "largura" || kept === "pagina" ? kept : Math.min(largestZoom, Math.max(smallestZoom, Number(kept) || 1));
    }

    private get zoomText(): string {
        return `${Math.round((this.pages?.scale ?? 1) * 100)} %`;
    }

    private setZoom(zoom: Zoom): void {
        if (this.pages) this.pages.zoom = zoom;
        preferences.set(zoomKey, String(zoom));
    }

    /** The next of the usual sizes. */
    private stepZoom(step: 1 | -1): void {
        const now = this.pages?.scale ?? 1;
        const next = step > 0 ? zooms.find((zoom) => zoom > now + 0.01) : zooms.findLast((zoom) => zoom < now - 0.01);
        this.setZoom(next ?? (step > 0 ? largestZoom : smallestZoom));
    }

    private readonly openZooms = () => {
        const wanted = this.pages?.zoom;
        const choice = (zoom: Zoom, name: string, apart = false): PopupItem => ({ caption: name, apart, checked: zoom === wanted, act: () => this.setZoom(zoom) });
        const factors = [0.5, 0.75, 1, 1.25, 1.5, 2].map((zoom, index) => choice(zoom, `${zoom * 100} %`, index === 0));
        openPopup([choice("largura", "&Ajustar à largura"), choice("pagina", "&Página inteira"), ...factors], this.boundsOf("[data-zoom]"));
    };

    private boundsOf(selector: string): DOMRect {
        return this.querySelector(selector)?.getBoundingClientRect() ?? new DOMRect();
    }

    // Searching

    private get foundText(): string {
        const sought = this.searchField?.value ?? "";
        const { length } = this.pages?.text.places ?? [];
        if (sought === "") return "";
        return length === 0 ? "não encontrado" : `${this.found + 1} de ${length.toLocaleString("pt-BR")}`;
    }

    private readonly searchSoon = () => {
        clearTimeout(this.searchTimer);
        this.searchTimer = window.setTimeout(() => void this.search(), searchDelay);
    };

    private async search(): Promise<void> {
        const { pages } = this;
        if (!pages || !(await pages.text.find(this.searchField?.value ?? ""))) return;
        this.found = Math.max(0, pages.firstFoundFrom(pages.current));
        pages.reveal(this.found);
        this.requestUpdate();
    }

    private seek(step: 1 | -1): void {
        const { length } = this.pages?.text.places ?? [];
        if (length === 0) return;
        this.found = (this.found + step + length) % length;
        this.pages?.reveal(this.found);
    }

    // Taking it along

    private tell(message: string): void {
        this.failed = false;
        this.message = message;
    }

    private tellFailure(error: unknown): void {
        this.failed = true;
        this.message = error instanceof Refusal ? error.message : "Sem conexão com o servidor.";
    }

    /** On paper as on the screen, when every sheet is there. */
    private readonly print = () => {
        if (this.pages?.complete) this.pages.print();
        else this.tell("As páginas ainda estão sendo montadas.");
    };

    private readonly openFormats = () => {
        const formats: FileFormat[] = this.dialog.state.plainText ? ["txt", "pdf", "xlsx", "html"] : ["pdf", "xlsx", "html"];
        openPopup(formats.map((format) => ({ caption: formatNames[format], act: () => void this.save(format) })), this.boundsOf("[data-save]"));
    };

    private async save(format: FileFormat): Promise<void> {
        const name = format.toUpperCase();
        this.tell(`Preparando ${name}…`);
        try {
            await saveReport(this.report, format, this.dialog.state.title);
            this.tell(`${name} salvo.`);
        } catch (error) {
            this.tellFailure(error);
        }
    }

    private readonly send = () =>
        openMail(this.dialog.state.recipient ?? "", async (address) => {
            await mailReport(this.report, address);
            this.tell(`Na caixa de saída, para ${address}.`);
        });
}
