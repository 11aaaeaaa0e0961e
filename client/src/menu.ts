import { preferences } from "./Preferences";
import type { MenuEntry } from "./protocol";
import { session } from "./Session";

const favouritesKey = "favoritos";

const plain = (text: string) => text.normalize("NFD").replace(/\p{M}/gu, "").toLocaleLowerCase("pt-BR");

/** Every word that is sought begins a word of the text. */
function holds(text: string, sought: string): boolean {
    const words = plain(text).split(/[^\p{L}\p{N}]+/u);
    return plain(sought.trim()).split(/\s+/).every((part) => words.some((word) => word.startsWith(part)));
}

const matches = (entry: MenuEntry, sought: string) => holds(`${entry.group} ${entry.caption} ${entry.class}`, sought);

/** How far an entry is from what is sought: its name, the beginning of it, words of it, or something around it. */
export function distance({ caption }: MenuEntry, sought: string): number {
    const [name, wanted] = [plain(caption), plain(sought.trim())];
    if (name === wanted) return 0;
    if (name.startsWith(wanted)) return 1;
    return holds(caption, sought) ? 2 : 3;
}

export const isFavourite = (entry: MenuEntry) => preferences.texts(favouritesKey).includes(entry.class);

export function toggleFavourite(entry: MenuEntry): void {
    const others = preferences.texts(favouritesKey).filter((name) => name !== entry.class);
    preferences.set(favouritesKey, isFavourite(entry) ? others : [...others, entry.class]);
}

/** The user's screens by group, his favourites foremost. */
export function menuGroups(sought = ""): readonly (readonly [group: string, entries: readonly MenuEntry[]])[] {
    const found = session.menu.filter((entry) => matches(entry, sought));
    const groups = new Map<string, MenuEntry[]>();
    const favourites = found.filter(isFavourite);
    if (favourites.length > 0) groups.set("Favoritos", favourites);
    for (const entry of found) groups.set(entry.group, [...(groups.get(entry.group) ?? []), entry]);
    return [...groups];
}

export const openScreen = (entry: MenuEntry) => session.send({ event: "open", class: entry.class });
