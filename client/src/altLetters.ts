/** While Alt is held, the letters that reach fields and buttons stand out. */
export function showLettersWithAlt(): void {
    const show = (shown: boolean) => document.documentElement.classList.toggle("letters", shown);
    addEventListener("keydown", (event) => {
        if (event.key !== "Alt") return;
        event.preventDefault();
        show(true);
    });
    addEventListener("keyup", (event) => {
        if (event.key !== "Alt") return;
        event.preventDefault();
        show(false);
    });
    addEventListener("blur", () => show(false));
}
