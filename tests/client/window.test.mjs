// What stands around the screens: menu, tabs, keys, the state of the work.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

test("Ctrl+K finds a screen by the beginnings of its words, without accents", {}, async (screen, { page }) => {
    await screen.press("Control+k");
    await screen.keyboard.type("cod bar");
    assert.deepEqual(await page.locator(".found li span").allInnerTexts(), ["Leitura de Código de Barras"]);
    await screen.press("Enter");
    await screen.settled();
    assert.equal(await page.getByRole("tab", { selected: true }).first().innerText(), "Leitura de Código de Barras");
    await screen.hasFocus("EdtBarra");
});

test("Esc gives the keyboard back to the field that had it", {}, async (screen) => {
    await screen.press("Control+k", "Escape");
    await screen.keyboard.type("77");
    await screen.hasText("edtPedido", "77");
});

test("a favourite stands first in the menu, and is found again after a reload", { size: { width: 1700, height: 900 } }, async (screen, { page }) => {
    const entry = page.locator(".menu-entry", { hasText: "Leitura de Código de Barras" });
    await entry.first().hover();
    await Promise.all([
        page.waitForRequest((request) => request.url().endsWith("/preferencias") && request.method() === "PUT"),
        entry.first().locator(".star").click(),
    ]);
    assert.equal(await page.locator(".menu h2").first().innerText(), "Favoritos");
    await page.reload();
    await screen.settled();
    assert.equal(await page.locator(".menu section").first().locator(".menu-open span").innerText(), "Leitura de Código de Barras");
});

test("a screen is closed by its tab, and is opened anew by the menu", {}, async (screen, { page }) => {
    await screen.keyboard.type("123");
    await page.locator(".tab-and-close.front .close").click();
    await screen.settled();
    assert.equal(await page.getByRole("tab", { name: "Tingimento de Botões" }).count(), 0);
    await screen.press("Control+k");
    await screen.keyboard.type("ting");
    await screen.press("Enter");
    await screen.hasText("edtPedido", "");
    await screen.hasFocus("edtPedido");
});

test("Ctrl+F6 goes to the next screen, Ctrl+F4 closes it", {}, async (screen, { page }) => {
    const titles = () => page.locator(".tab-and-close").allInnerTexts();
    const before = (await titles()).length;
    await screen.press("Control+F6");
    await screen.settled();
    assert.equal(await page.locator('.tab-and-close.front:has-text("Tingimento")').count(), 0);
    await screen.press("Control+F4");
    await screen.settled();
    assert.equal((await titles()).length, before - 1);
});

test("F1 shows the keys of this screen", {}, async (screen, { page }) => {
    await screen.press("F1");
    const text = await page.locator(".keys").innerText();
    assert.match(text, /Alt\+C\s+Confirmar/);
    assert.match(text, /F7, Alt\+E\s+Detalhe/);
    assert.match(text, /Ctrl\+Del\s+Zerar Quantidades/);
    await screen.press("Escape");
    await screen.settled();
    assert.equal(await page.locator(".keys").count(), 0);
});

test("holding Alt shows the letters", {}, async (screen, { page }) => {
    const shown = () => page.evaluate(() => document.documentElement.classList.contains("letters"));
    await screen.keyboard.down("Alt");
    assert.equal(await shown(), true);
    await screen.keyboard.up("Alt");
    assert.equal(await shown(), false);
});

test("long work shows for how long it goes on, and what is typed meanwhile is kept", { screen: "fmControles" }, async (screen, { page }) => {
    await screen.press("F9");
    await screen.keyboard.type("'77'");
    await page.locator(".busy", { hasText: /Processando há \d s/ }).getByRole("button", { name: "Cancelar" }).waitFor();
    await screen.says("lblFeito", "Demorou.");
    await screen.hasText("edtFaccoes", "'77'");
    assert.equal(await page.locator(".busy").count(), 0);
});

test("a good read sounds different from a bad one", { screen: "fmLeitura" }, async (screen, { page }) => {
    await page.evaluate(() => {
        window.heard = [];
        const start = OscillatorNode.prototype.start;
        OscillatorNode.prototype.start = function (...when) {
            window.heard.push(this.frequency.value);
            return start.apply(this, when);
        };
    });
    await screen.scan("7891234567895");
    await screen.hasText("EdtBarra", "");
    const good = await page.evaluate(() => window.heard.splice(0));
    assert.equal(good.length, 1);
    await screen.scan("0000000000000");
    await screen.asks("Código de barras desconhecido.");
    const bad = await page.evaluate(() => window.heard.splice(0));
    assert.ok(bad.length > 0 && bad.every((frequency) => frequency < good[0]));
});
