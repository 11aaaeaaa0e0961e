import { preferences } from "./Preferences";

export const themes = { automatico: "Automático", claro: "Claro", escuro: "Escuro" } as const;
export const sizes = { normal: "Normal", grande: "Grande", enorme: "Muito grande" } as const;

export type Theme = keyof typeof themes;
export type Size = keyof typeof sizes;

const pixels: Readonly<Record<Size, number>> = { normal: 14, grande: 17, enorme: 21 };
const schemes: Readonly<Record<Theme, string>> = { automatico: "light dark", claro: "light", escuro: "dark" };

export const theme = () => preferences.text("tema", "automatico") as Theme;
export const size = () => preferences.text("letra", "normal") as Size;

/** Of the text; everything else is measured by it. */
export const textPixels = () => pixels[size()] ?? pixels.normal;

/** Of a line of a grid or a lookup; `--row` in the style sheet. */
export const rowPixels = () => textPixels() * 2;

export function showAppearance(): void {
    const { style } = document.documentElement;
    style.colorScheme = schemes[theme()] ?? schemes.automatico;
    style.setProperty("--size", `${textPixels()}px`);
}
