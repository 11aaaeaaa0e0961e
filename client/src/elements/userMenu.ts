import { Refusal } from "../Account";
import { size, sizes, theme, themes, type Size, type Theme } from "../appearance";
import { preferences } from "../Preferences";
import { session } from "../Session";
import { openKeys } from "./al-keys";
import { openPopup, type PopupItem } from "./al-popup";
import { openConfirm } from "./al-confirm";

const placeOf = (selector: string) => document.querySelector(selector)?.getBoundingClientRect() ?? new DOMRect(innerWidth - 300, 40, 0, 0);

/** What concerns the user and his place of work. */
export function openUserMenu(): void {
    const ofTheme = (Object.keys(themes) as Theme[]).map((name): PopupItem => ({
        caption: `Aparência: ${themes[name]}`, checked: theme() === name, act: () => preferences.set("tema", name),
    }));
    const ofSize = (Object.keys(sizes) as Size[]).map((name, index): PopupItem => ({
        caption: `Letra: ${sizes[name]}`, checked: size() === name, apart: index === 0, act: () => preferences.set("letra", name),
    }));
    const rest: PopupItem[] = [
        { caption: "Teclas desta tela", shortcut: "F1", apart: true, act: openKeys },
        { caption: "&Sair", apart: true, act: () => void leave(false) },
    ];
    openPopup([...ofTheme, ...ofSize, ...rest], placeOf(".user-button"));
}

async function leave(undo: boolean): Promise<void> {
    try {
        await session.leave(undo);
    } catch (error) {
        if (!(error instanceof Refusal)) return session.tell("Sem conexão com o servidor.");
        if (!error.pending) return session.tell(error.message);
        openConfirm(`${error.message} Sair e desfazer?`, "Sair e desfazer", () => void leave(true));
    }
}
