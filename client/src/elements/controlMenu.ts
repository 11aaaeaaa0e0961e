import type { Control } from "../Control";
import { session } from "../Session";
import type { PopupItem } from "./al-popup";

/** The items of the popup menu that a screen has given to a control, as the screen offers them now; none where it has no menu. */
export async function askMenu(control: Control, cell: { row?: number; column?: string } = {}): Promise<PopupItem[]> {
    const address = { form: control.form, control: control.name };
    if (control.texts("menuNames").length === 0) return [];
    session.send({ event: "menu", ...address, ...cell });
    await session.settled();
    if (session.screens.topDialog) return [];
    const states = control.texts("menuStates");
    const shortcuts = control.texts("menuShortcuts");
    const captions = control.texts("menuCaptions");
    return control.texts("menuNames").map((item, index) => ({ item, state: states[index] ?? "ve", index }))
        .filter(({ state }) => state.includes("v"))
        .map(({ item, state, index }) => ({
            caption: captions[index] || item,
            shortcut: shortcuts[index] ?? "",
            enabled: state.includes("e"),
            ...(state.includes("c") ? { checked: true } : {}),
            act: () => session.send({ event: "menuItem", ...address, item }),
        }));
}
