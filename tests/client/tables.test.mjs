// The tables and a new order over the demonstration factory, by the keyboard alone.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

const factory = { factory: true, user: "ADMIN" };
const colours = { ...factory, screen: "fmTabela_CADCOR", opens: "cores" };
const sizes = { ...factory, screen: "fmTabela_FAIXA_ITEN", opens: "tamanhos da faixa" };
const products = { ...factory, screen: "fmTabela_PRODUTO", opens: "produtos" };
const order = { ...factory, screen: "fmNovaOF", opens: "ordem de fabricação" };

async function paste(screen, page, text) {
    await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
    await page.evaluate((copied) => navigator.clipboard.writeText(copied), text);
    await screen.press("Control+v");
}

test("A colour is included, found, changed and deleted without a mouse", colours, async (screen) => {
    await screen.hasFocus("edtBusca");
    await screen.press("Alt+i");
    await screen.hasFocus("edtCOR");
    await screen.keyboard.type("099001");
    await screen.press("Enter");
    await screen.keyboard.type("Roxo & lilás");
    await screen.picture("colour_in_edit");
    await screen.press("Control+Enter");
    await screen.hasFocus("DBGrid1");
    await screen.hasText("edtDESCRICAO", "Roxo & lilás");

    await screen.press("Alt+p");
    await screen.keyboard.type("roxo");
    await screen.says("lblAchados", "1 linha.");
    await screen.press("ArrowDown", "Alt+a");
    await screen.hasFocus("edtDESCRICAO");
    await screen.keyboard.type("Roxo");
    await screen.press("Control+Enter");
    await screen.hasCell("DBGrid1", 0, "DESCRICAO", "Roxo");

    await screen.press("Alt+e");
    await screen.asks("Excluir de Cores: Código 099001?");
    assert.equal(await screen.defaultAnswer(), "no");
    await screen.press("s");
    await screen.settled();
    await screen.says("lblAchados", "Nenhuma linha.");
});

test("Rows of a spreadsheet are pasted into a size range, wrong ones are shown with their reason", sizes, async (screen, { page }) => {
    await screen.press("ArrowDown");
    await screen.hasFocus("DBGrid1");
    await paste(screen, page, "Faixa de tamanhos\tTamanho\tPosição\n1\tZZ\t9\n999\tM\tx\n");
    await screen.settled();
    await screen.picture("pasted_rows");
    await screen.hasCell("dbgErros", 0, "Motivo", "Tamanho: o código ZZ não existe em Tamanhos.");
    await screen.hasCell("dbgErros", 1, "Motivo", "Posição: x não é um número inteiro.");
    await screen.press("Escape");
    await screen.asksNothing();
});

test("All fields of a product are in view, light and dark", products, async (screen, { page }) => {
    await screen.settled();
    await screen.press("ArrowDown", "ArrowDown");
    await screen.picture("products");
    await page.emulateMedia({ colorScheme: "dark" });
    await screen.picture("products_dark");
});

test("An order is made with a grid pasted, and found again by its number", order, async (screen, { page }) => {
    await screen.hasFocus("edtNumero");
    await screen.picture("order_idle");
    await screen.press("Alt+i");
    await screen.hasFocus("edtProduto");
    await screen.press("F4");
    await screen.settled();
    await screen.press("Enter");
    await screen.settled();
    await screen.press("Enter");
    await screen.hasFocus("edtCliente");
    await screen.press("Alt+d");
    await screen.hasFocus("dbgGrade");
    const [first, second] = await screen.control("dbgGrade").locator(".ag-header-cell-text").evaluateAll((titles) =>
        titles.map((title) => title.textContent).filter((title) => !["Cor", "Descrição", "Total"].includes(title)).slice(0, 2));
    await paste(screen, page, `Cor\t${first}\t${second}\n000001\t10\t20\n000002\t5\t\n`);
    await screen.settled();
    await screen.hasText("edtTotal", "35");
    await screen.picture("order_in_edit");
    await page.emulateMedia({ colorScheme: "dark" });
    await screen.picture("order_in_edit_dark");
    const number = await screen.field("edtNumero").inputValue();
    await screen.press("Control+Enter");
    await screen.settled();
    await screen.says("lblSituacao", `OF ${number} incluída com 35 peças. Pronta para entrar em produção.`);

    await screen.press("Alt+a");
    await screen.hasFocus("edtProduto");
    await screen.press("Escape");
    await screen.hasFocus("edtNumero");
    await screen.press("Alt+e");
    await screen.asks(`Excluir a OF ${number}?`);
    await screen.press("s");
    await screen.settled();
    await screen.hasText("edtNumero", "");
});
