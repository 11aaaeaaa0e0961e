import { html, nothing, type TemplateResult } from "lit";
import { customElement } from "lit/decorators.js";
import type { Control } from "../Control";
import { session } from "../Session";
import { letterOf, plainCaption } from "./caption";
import { openOverlay, OverlayElement } from "./OverlayElement";

type Line = readonly [keys: string, what: string];

const everywhere: readonly Line[] = [
    ["Enter, Tab", "próximo campo"],
    ["Shift+Tab", "campo anterior"],
    ["Esc", "cancela"],
    ["F4, Alt+↓", "pesquisa do campo, lista aberta"],
    ["Alt", "mostra as letras dos campos e botões"],
    ["Ctrl+K", "procura uma tela"],
    ["Ctrl+Enter", "botão principal da tela"],
    ["Ctrl+F6", "próxima tela aberta"],
    ["Ctrl+F4", "fecha a tela"],
];

const ofKind: Readonly<Record<string, { title: string; lines: readonly Line[] }>> = {
    date: {
        title: "Na data",
        lines: [["h", "hoje"], ["+ e −", "um dia a mais, um a menos"], ["201126, 20/11", "formas de digitar"], ["Alt+↓", "calendário"]],
    },
    grid: {
        title: "Na grade",
        lines: [
            ["↑ ↓", "linha"],
            ["Tab", "próxima célula, depois próxima linha"],
            ["F2", "altera o texto da célula"],
            ["F4", "pesquisa da célula"],
            ["Shift+↑ ↓ ← →", "marca células"],
            ["Ctrl+C, Ctrl+V", "copia e cola, também de uma planilha"],
            ["Ctrl+F", "localiza"],
            ["Shift+F10", "menu da grade"],
        ],
    },
    combo: { title: "Na lista", lines: [["letras", "item que começa assim"], ["Alt+↓", "abre a lista"]] },
    memo: { title: "No texto longo", lines: [["Enter", "próximo campo"], ["Ctrl+Enter", "nova linha"]] },
};

/** The keys of the screen in front. */
@customElement("al-keys")
export class KeysElement extends OverlayElement {
    protected override render(): TemplateResult {
        const screen = session.screens.front;
        const title = screen ? plainCaption(screen.root.text("caption")) : session.screens.title;
        const here = ofKind[session.screens.focused?.kind ?? ""];
        return html`<div class="box keys" role="dialog" aria-label="Teclas" tabindex="-1">
            <h2>Teclas: ${title}</h2>
            <div class="key-columns">
                ${screen ? renderLines("Desta tela", ownKeys([...screen.controls.values()])) : nothing}
                ${here ? renderLines(here.title, here.lines) : nothing}
                ${renderLines("Sempre", everywhere)}
            </div>
        </div>`;
    }

    override press(key: string, fresh: boolean): void {
        if (key === "F1" || key === "Enter" || key === "Space") this.close();
        else super.press(key, fresh);
    }
}

function renderLines(title: string, lines: readonly Line[]): TemplateResult | typeof nothing {
    if (lines.length === 0) return nothing;
    return html`<section><h3>${title}</h3><dl>${lines.map(([keys, what]) => html`<dt><kbd>${keys}</kbd></dt><dd>${what}</dd>`)}</dl></section>`;
}

/** Shortcuts and letters of what can be seen, and of the menus. */
function ownKeys(controls: readonly Control[]): Line[] {
    return controls.filter((control) => control.effectivelyVisible || control.parent?.kind === "pages").flatMap((control) => {
        const text = control.text("caption");
        const letter = letterOf(text);
        const keys = [control.text("shortcut"), letter === "" ? "" : `Alt+${letter.toUpperCase()}`].filter(Boolean).join(", ");
        const own: Line[] = keys === "" ? [] : [[keys, plainCaption(text) || control.text("hint")]];
        const captions = control.texts("menuCaptions");
        const items = control.texts("menuShortcuts").map((shortcut, index): Line => [shortcut, plainCaption(captions[index] ?? "")]);
        return [...own, ...items.filter(([shortcut]) => shortcut !== "")];
    });
}

export function openKeys(): void {
    openOverlay(document.createElement("al-keys") as KeysElement);
}
