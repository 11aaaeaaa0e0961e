// Nobody is kept out: axe-core finds nothing serious.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { test } from "./harness.mjs";

const axe = await readFile(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

async function seriousFindings(page) {
    await page.evaluate(axe);
    const { violations } = await page.evaluate(() => window.axe.run());
    return violations
        .filter(({ impact }) => impact === "serious" || impact === "critical")
        .map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html.slice(0, 160)).join(" | ")}`);
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
