// Importing and exporting tables; first of all the way of the manual from an empty database to the first movement, on its own
// example files.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { fileURLToPath } from "node:url";
import { test } from "./harness.mjs";
import { Movement } from "./Movement.mjs";
import { Screen } from "./Screen.mjs";

const manual = fileURLToPath(new URL("../../docs/manual/", import.meta.url));
const beginning = { empty: true, user: "ADMIN", screen: "fmImportaExporta", size: { width: 1280, height: 760 } };
const colours = { factory: true, user: "ADMIN", screen: "fmImportaExporta", opens: "importar exportar" };

/** The table and the file of each row of the manual's list, in its order. */
async function listOfManual() {
    const text = await readFile(`${manual}primeiros-passos.md`, "utf8");
    return [...text.matchAll(/^\| ([^|]+) \| \[[^\]]+\]\(([^)]+)\)/gm)].map(([, table, file]) => ({ table, file: manual + file }));
}

async function choose(screen, table) {
    await screen.press("Alt+t");
    await screen.hasFocus("CbTabela");
    await screen.keyboard.type(`${table} (`);
    await screen.settled();
}

async function give(screen, page, file) {
    await screen.press("F6");
    await screen.settled();
    await page.locator('input[type="file"]').setInputFiles(file);
    await page.getByRole("button", { name: "OK" }).click();
    await screen.asksNothing();
}

const summary = async (screen) => (await screen.control("lblResumo").innerText()).trim();

test("a factory comes in by its files and makes its first movement, as the manual says", beginning, async (screen, { page }) => {
    await screen.press("Control+k");
    await screen.picture("passos-menu");
    await screen.press("Escape");
    await screen.open("importar exportar");
    const files = await listOfManual();
    assert.equal(files.length, 15);
    for (const { table, file } of files) {
        await choose(screen, table);
        await give(screen, page, file);
        assert.match(await summary(screen), /^\d+ linhas?: \d+ novas?, nenhuma errada\. Nada foi gravado ainda\.$/, file);
        if (table === "Produtos") await screen.picture("passos-importar");
        await screen.press("Control+Enter");
        await screen.settled();
        await screen.press("s");
        await screen.settled();
        assert.match(await summary(screen), /^Gravado\./, file);
    }

    const parameters = new Screen(page, "fmParametros", screen.pictures);
    await parameters.open("parametros");
    for (const [parameter, value] of [["FAC20", "N"], ["FAC80", "00001"]]) {
        await parameters.control("dbgParametros").getByText(parameter, { exact: true }).click();
        await parameters.press("Alt+a");
        await parameters.settled();
        if (parameter === "FAC20") await parameters.picture("passos-parametro");
        await page.keyboard.type(value);
        await parameters.press("Control+Enter");
        await parameters.asksNothing();
    }

    const movement = new Movement(new Screen(page, "fmFacMov", screen.pictures));
    await movement.open();
    await movement.include("000101", { enters: true });
    await page.keyboard.type("10");
    await movement.screen.press("Enter", "Enter", "Enter");
    await movement.screen.hasFocus("edtFacDest");
    await page.keyboard.type("00010");
    await movement.screen.press("Enter");
    await movement.screen.hasText("EdtQtde", "144");
    await movement.screen.picture("passos-movimento");
    await movement.confirm();
});

test("wrong lines are seen first, each with its reason, and the others are written", colours, async (screen, { page }) => {
    await choose(screen, "Cores");
    const content = "Código;Descrição\n000001;Branco gelo\n098001;Framboesa\nCORAL-01;Coral\n;Sem código\n098002;Menta;x\n";
    await give(screen, page, { name: "cores.csv", mimeType: "text/csv", buffer: Buffer.from(content) });
    assert.equal(await summary(screen), "5 linhas: 1 nova, 1 alterada, 3 erradas. Nada foi gravado ainda.");
    await screen.hasCell("dbgLinhas", 0, "Motivo", "O texto tem 8 caracteres; cabem 6.");
    await screen.picture("importar-erradas");
    await page.emulateMedia({ colorScheme: "dark" });
    await screen.picture("importar-erradas-escuro");
    await page.emulateMedia({ colorScheme: "light" });
    await screen.press("Control+Enter");
    await screen.asks("Gravar em Cores? 5 linhas: 1 nova, 1 alterada, 3 erradas.\nAs linhas erradas não serão gravadas.");
    assert.equal(await screen.defaultAnswer(), "no");
    await screen.press("s");
    await screen.settled();
    assert.match(await summary(screen), /^Gravado\./);
});

test("a table is taken away as a file whose titles an import finds again", colours, async (screen, { page }) => {
    await choose(screen, "Tamanhos");
    await page.getByRole("tab", { name: "Exportar", exact: true }).click();
    await screen.press("Alt+m");
    await screen.settled();
    await screen.picture("exportar");
    await screen.cell("dbgTabela", 0, "TAM").click();
    await screen.press("Shift+F10");
    const [csv] = await Promise.all([page.waitForEvent("download"), page.getByRole("menuitem", { name: "Exportar como texto" }).click()]);
    const exported = await readFile(await csv.path());
    assert.match(exported.toString(), /^\uFEFFTamanho;Ordem do tamanho\r\n/);
    await page.getByRole("tab", { name: "Importar", exact: true }).click();
    await give(screen, page, { name: "tamanhos.csv", mimeType: "text/csv", buffer: exported });
    assert.match(await summary(screen), /^\d+ linhas: \d+ iguais, nenhuma errada\. Nada foi gravado ainda\.$/);
});
