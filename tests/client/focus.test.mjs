// The order of leaving and entering, at a real keyboard.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

test("Enter and Tab move on, Shift+Tab moves back", {}, async (screen) => {
    await screen.hasFocus("edtPedido");
    await screen.press("Enter");
    await screen.hasFocus("cbCor");
    await screen.press("Tab");
    await screen.hasFocus("edtEntrega");
    await screen.press("Shift+Tab");
    await screen.hasFocus("cbCor");
});

test("a field that is left tells its handler, which shows what it found", {}, async (screen) => {
    await screen.keyboard.type("123");
    await screen.press("Enter");
    await screen.says("lblSituacao", "Pedido 123.");
});

test("a handler that refuses keeps the focus and the field is marked to be typed anew", {}, async (screen) => {
    await screen.keyboard.type("987");
    await screen.press("Enter");
    await screen.asks("Pedido não encontrado.");
    await screen.press("Enter");
    await screen.hasFocus("edtPedido");
    await screen.keyboard.type("12");
    await screen.hasText("edtPedido", "12");
});

test("leaving for the cancel button is not checked", {}, async (screen) => {
    await screen.keyboard.type("987");
    await screen.press("Alt+d");
    await screen.asksNothing();
    await screen.hasText("edtPedido", "");
    await screen.hasFocus("edtPedido");
});

test("a click leaves the field first, and is dropped when the field refuses to be left", {}, async (screen) => {
    await screen.keyboard.type("987");
    await screen.control("btnConfirmar").locator("button").click();
    await screen.asks("Pedido não encontrado.");
    await screen.press("Enter");
    await screen.asksNothing();
    await screen.hasFocus("edtPedido");
});

test("a question in the middle of a leave keeps the field on No and lets it go on Yes", {}, async (screen) => {
    await screen.press("Enter", "Enter");
    await screen.hasFocus("edtEntrega");
    await screen.keyboard.type("010120");
    await screen.press("Enter");
    await screen.asks("Data de entrega menor que a data atual. Deseja continuar?");
    assert.equal(await screen.defaultAnswer(), "no");
    await screen.press("Enter");
    await screen.hasFocus("edtEntrega");
    await screen.press("Tab");
    await screen.asks("Data de entrega menor que a data atual. Deseja continuar?");
    await screen.press("s");
    await screen.hasFocus("cbUrgente");
    await screen.hasText("edtEntrega", "01/01/2020");
});

test("a letter typed before a question could be seen does not answer it", { delay: 100 }, async (screen) => {
    await screen.press("Enter", "Enter");
    await screen.keyboard.type("010120");
    await screen.press("Enter", "s");
    await screen.asks("Data de entrega menor que a data atual. Deseja continuar?");
});

test("a shortcut acts without leaving the field", {}, async (screen) => {
    await screen.keyboard.type("98");
    await screen.press("F7");
    await screen.asks("Total: 0");
    await screen.press("Enter");
    await screen.hasFocus("edtPedido");
    await screen.hasText("edtPedido", "98");
});

test("Alt and a letter reach their control, and the first page comes back by its letter", {}, async (screen) => {
    await screen.press("Alt+n");
    await screen.hasFocus("mmObs");
    await screen.press("Alt+p");
    await screen.settled();
    assert.ok(await screen.control("edtPedido").isVisible());
});

test("typing finds the item of a list, arrows step through it", {}, async (screen) => {
    await screen.press("Enter");
    await screen.keyboard.type("02");
    await screen.hasText("cbCor", "02 |Verde");
    await screen.press("ArrowUp");
    await screen.hasText("cbCor", "01 |Azul");
});

test("in a date h is today and + the day after", {}, async (screen) => {
    await screen.press("Enter", "Enter");
    await screen.keyboard.type("h+");
    const tomorrow = new Date();
    tomorrow.setDate(tomorrow.getDate() + 1);
    await screen.hasText("edtEntrega", tomorrow.toLocaleDateString("pt-BR"));
});

test("accented letters are typed and cut in characters", {}, async (screen) => {
    await screen.keyboard.insertText("ÁÉÍÓÚÇÃÕ");
    await screen.hasText("edtPedido", "ÁÉÍÓÚÇ");
});

test("Space ticks a box, the arrows choose a radio button", {}, async (screen) => {
    await screen.press("Alt+u");
    await screen.settled();
    assert.ok(await screen.control("cbUrgente").locator("input").isChecked());
    await screen.press("Space", "Tab", "ArrowRight");
    await screen.settled();
    assert.ok(!(await screen.control("cbUrgente").locator("input").isChecked()));
    assert.ok(await screen.control("rgBanho").getByLabel("Duplo").isChecked());
});
