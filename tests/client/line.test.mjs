// The line to the server: lost, taken over, gone with the server.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";
import { startServer } from "./browser.mjs";
import { Screen } from "./Screen.mjs";

test("a reload shows the same work", {}, async (screen, { page }) => {
    await screen.keyboard.type("123");
    await screen.press("Enter");
    await screen.settled();
    await page.reload();
    await screen.settled();
    await screen.hasText("edtPedido", "123");
    await screen.hasFocus("cbCor");
    await screen.says("lblSituacao", "Pedido 123.");
});

test("a reload in the middle of a question asks it again", {}, async (screen, { page }) => {
    await screen.keyboard.type("987");
    await screen.press("Enter");
    await screen.asks("Pedido não encontrado.");
    await page.reload();
    await screen.asks("Pedido não encontrado.");
    await screen.press("Enter");
    await screen.hasFocus("edtPedido");
});

test("another window takes the session over, and the first can take it back", {}, async (screen, { page, context, line }) => {
    await screen.keyboard.type("55");
    await screen.settled();
    const second = await context.newPage();
    await second.goto(line.url);
    const other = new Screen(second, "fmExemplo", "");
    await other.settled();
    await other.hasText("edtPedido", "55");
    await page.getByText("Esta sessão foi aberta em outra janela.").waitFor();
    await page.getByRole("button", { name: "Usar aqui" }).click();
    await second.getByText("Esta sessão foi aberta em outra janela.").waitFor();
    await screen.hasText("edtPedido", "55");
});

test("two browsers have sessions of their own", {}, async (screen, { page, line }) => {
    const context = await page.context().browser().newContext();
    const second = await context.newPage();
    await second.goto(line.url);
    const other = new Screen(second, "fmExemplo", "");
    await other.ready();
    await screen.keyboard.type("111");
    await other.keyboard.type("222");
    await screen.hasText("edtPedido", "111");
    await other.hasText("edtPedido", "222");
    await context.close();
});

test("a server that goes away and comes back begins a new session by itself", {}, async (_screen, { context }) => {
    const first = await startServer();
    const page = await context.newPage();
    await page.goto(first.url);
    const screen = new Screen(page, "fmExemplo", "");
    await screen.ready();
    await first.stop();
    await page.getByText("A sessão terminou.").waitFor();
    const second = await startServer(first.port);
    await page.getByRole("button", { name: "Entrar novamente" }).click();
    await screen.ready();
    await screen.hasText("edtPedido", "");
    assert.equal(second.port, first.port);
    await page.close();
    await second.stop();
});

test("the cookie is out of reach for scripts and other sites", {}, async (_screen, { context }) => {
    const [cookie] = await context.cookies();
    assert.equal(cookie.name, "alinhavo");
    assert.equal(cookie.httpOnly, true);
    assert.equal(cookie.sameSite, "Strict");
});
