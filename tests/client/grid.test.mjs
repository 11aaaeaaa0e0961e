// Typing in a grid.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

async function toGrid(screen) {
    await screen.press("Enter");
    await screen.keyboard.type("01");
    await screen.press("Enter", "Enter", "Enter", "Enter");
    await screen.hasFocus("dbgBotoes");
}

for (const delay of [0, 100]) {
    test(`digits typed fast go down a column, with ${delay} ms of delay each way`, { delay }, async (screen) => {
        await toGrid(screen);
        await screen.press("ArrowRight");
        await screen.keyboard.type("12");
        await screen.press("Enter");
        await screen.keyboard.type("345");
        await screen.press("Enter");
        await screen.keyboard.type("6");
        await screen.press("Enter");
        await screen.hasCell("dbgBotoes", 0, "Qtde", "12");
        await screen.hasCell("dbgBotoes", 1, "Qtde", "345");
        await screen.hasCell("dbgBotoes", 2, "Qtde", "6");
        await screen.hasText("edtTotal", "363");
    });
}

test("Tab goes along the row and on to the next, Esc gives up what was typed", {}, async (screen) => {
    await toGrid(screen);
    await screen.press("ArrowRight");
    await screen.keyboard.type("5");
    await screen.press("Tab");
    await screen.keyboard.type("99");
    await screen.press("Escape", "Tab");
    await screen.hasCell("dbgBotoes", 0, "Qtde", "5");
    await screen.hasCell("dbgBotoes", 0, "Perda", "");
    await screen.press("Space");
    await screen.hasCell("dbgBotoes", 0, "Conferido", "✓");
});

test("an alarm before a row is stored is answered only by a chosen OK", {}, async (screen) => {
    await toGrid(screen);
    await screen.press("ArrowRight", "ArrowRight");
    await screen.keyboard.type("3");
    await screen.press("Enter");
    await screen.asks("Perda maior que a quantidade.");
    assert.equal(await screen.defaultAnswer(), "cancel");
    await screen.press("Enter");
    await screen.asks("Perda maior que a quantidade.");
    await screen.press("ArrowLeft", "Enter");
    await screen.asksNothing();
    await screen.hasCell("dbgBotoes", 0, "Perda", "0,00");
});

test("a box in the middle of a key of the grid gives its answer to the cell", { delay: 50 }, async (screen) => {
    await toGrid(screen);
    await screen.press("ArrowRight", "F4");
    await screen.asks("Quantidade:");
    await screen.keyboard.type("77");
    await screen.press("Enter");
    await screen.asksNothing();
    await screen.hasCell("dbgBotoes", 0, "Qtde", "77");
});

test("keys pressed before a box opens are typed into it", { delay: 100 }, async (screen) => {
    await toGrid(screen);
    await screen.press("ArrowRight", "F4");
    await screen.keyboard.type("88");
    await screen.press("Enter", "ArrowDown");
    await screen.keyboard.type("4");
    await screen.press("Enter");
    await screen.asksNothing();
    await screen.hasCell("dbgBotoes", 0, "Qtde", "88");
    await screen.hasCell("dbgBotoes", 1, "Qtde", "4");
});

test("a click goes to its cell, and the key of a menu item does its work", {}, async (screen) => {
    await toGrid(screen);
    await screen.cell("dbgBotoes", 1, "Qtde").click();
    await screen.settled();
    await screen.keyboard.type("8");
    await screen.press("Enter");
    await screen.hasCell("dbgBotoes", 1, "Qtde", "8");
    await screen.press("Control+Delete");
    await screen.hasCell("dbgBotoes", 1, "Qtde", "0");
});

test("a hundred thousand rows open at once and scroll", { screen: "fmLeitura" }, async (screen, { page }) => {
    await screen.control("btnMuitas").locator("button").click();
    await screen.settled();
    await screen.hasCell("dbgLidos", 0, "Ordem", "1");
    await screen.cell("dbgLidos", 0, "Quant").click();
    await screen.press("Control+End");
    await screen.hasCell("dbgLidos", 99999, "Ordem", "100000");
    await screen.press("Control+Home");
    await screen.hasCell("dbgLidos", 0, "Ordem", "1");
    await page.mouse.move(600, 300);
    await page.mouse.wheel(0, 28 * 5000);
    await screen.until("row 5000 is shown", async () => (await screen.control("dbgLidos").locator('[row-index="5001"]').innerText()).includes("5002"));
});
