// Pictures of the screens, to be looked at.
import { test } from "./harness.mjs";

for (const colorScheme of ["light", "dark"]) {
    test(`pictures, ${colorScheme}`, { colorScheme }, async (screen, { page }) => {
        await screen.keyboard.type("123");
        await screen.press("Enter");
        await screen.keyboard.type("01");
        await screen.press("Enter", "Enter", "Enter", "Enter", "ArrowRight");
        await screen.keyboard.type("12");
        await screen.press("Enter");
        await screen.keyboard.type("40");
        await screen.press("Tab");
        await screen.keyboard.type("2");
        await screen.press("Enter");
        await screen.press("ArrowLeft");
        await screen.keyboard.type("8");
        await screen.settled();
        await screen.picture(`exemplo-${colorScheme}`);
        await screen.press("Enter", "Alt+c");
        await screen.asks("Confirma o tingimento?");
        await screen.picture(`pergunta-${colorScheme}`);
        await screen.press("Escape");
        await screen.press("Alt+n");
        await screen.settled();
        await screen.picture(`notas-${colorScheme}`);
        const leitura = page.getByRole("tab", { name: "Leitura de Código de Barras" });
        await leitura.click();
        await screen.settled();
        for (const code of ["7891234567895", "7891234567901"]) await screen.scan(code);
        await screen.settled();
        await screen.picture(`leitura-${colorScheme}`);
        await screen.press("F6");
        await screen.settled();
        await screen.picture(`pesquisa-${colorScheme}`);
        await screen.press("Escape");
    });
}
