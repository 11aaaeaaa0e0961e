// Nobody is kept out: axe-core finds nothing serious.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { test } from "./harness.mjs";
import { Movement } from "./Movement.mjs";
import { Viewer } from "./Viewer.mjs";

const axe = await readFile(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

async function seriousFindings(page) {
    await page.evaluate(axe);
    const { violations } = await page.evaluate(() => window.axe.run());
    return violations
        .filter(({ impact }) => impact === "serious" || impact === "critical")
        .map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html.slice(0, 160)).join(" | ")}`);
}

/** The factory's screens, each as its user finds it in the middle of his work. */
const factoryScreens = {
    movimentacao: ["fmFacMov", "movimentacao", async (screen, page, colorScheme) => {
        const movement = new Movement(screen);
        await movement.include(colorScheme === "light" ? "026250" : "026252", { enters: true });
        await movement.toQuantities("01");
        await screen.keyboard.type("7");
    }],
    setores: ["fmCadFluxo", "cadastro setores", async () => undefined],
    fluxos: ["fmFacFluxo", "cadastro fluxos", async (screen) => screen.press("F4", "Enter")],
    pendente: ["fmRelFacPen", "pendente", async (screen) => screen.press("Alt+c")],
    producao: ["fmRelFacDia", "producao dia", async (screen) => {
        await screen.field("DataDe").click();
        await screen.settled();
        await screen.keyboard.type("01112026");
        await screen.press("Tab");
        await screen.keyboard.type("20112026");
        await screen.press("Tab", "Alt+c");
    }],
    relatorio: ["fmRelFacPen", "pendente", async (screen, page) => {
        await screen.field("edtR0Empresa").fill("'00115','00110'");
        await screen.press("Alt+c");
        await screen.settled();
        await screen.press("Alt+i");
        await new Viewer(page, screen).complete();
    }],
};

for (const colorScheme of ["light", "dark"]) {
    for (const [name, [form, words, prepare]] of Object.entries(factoryScreens)) {
        const options = { factory: true, user: "ADMIN", screen: form, opens: words, colorScheme, size: { width: 1440, height: 900 } };
        test(`nothing serious on the factory's ${name}, ${colorScheme}`, options, async (screen, { page }) => {
            await prepare(screen, page, colorScheme);
            await screen.settled();
            await screen.picture(`fabrica-${name}-${colorScheme}`);
            assert.deepEqual(await seriousFindings(page), []);
            await screen.press("Escape", "Alt+t");
            await screen.settled();
        });
    }
}

for (const colorScheme of ["light", "dark"]) {
    test(`nothing serious on the login page, ${colorScheme}`, { screen: null, colorScheme }, async (_screen, { page }) => {
        await page.getByLabel("Usuário").waitFor();
        assert.deepEqual(await seriousFindings(page), []);
    });

    for (const name of ["fmExemplo", "fmLeitura", "fmControles"]) {
        test(`nothing serious on ${name}, ${colorScheme}`, { screen: name, colorScheme }, async (screen, { page }) => {
            if (name === "fmExemplo") await screen.press("Enter", "0", "1", "Enter");
            await screen.settled();
            assert.deepEqual(await seriousFindings(page), []);
        });
    }

    test(`nothing serious in lookups, menus and lists of keys, ${colorScheme}`, { screen: "fmControles", colorScheme }, async (screen, { page }) => {
        const found = [];
        for (const key of ["F6", "F1", "Control+k"]) {
            await screen.press(key);
            await screen.settled();
            found.push(...(await seriousFindings(page)));
            await screen.press("Escape");
        }
        assert.deepEqual(found, []);
    });
}
