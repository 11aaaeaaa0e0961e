// The line to the server: lost, taken over, gone with the server.
import assert from "node:assert/strict";
import { comeIn, password, test } from "./harness.mjs";
import { startServer } from "./browser.mjs";
import { Screen } from "./Screen.mjs";

/** The same numbers for the same seed: from 0 to below the limit. */
function numbers(seed) {
    let state = seed;
    return (limit) => {
        state = (state * 1103515245 + 12345) % 2147483648;
        return Math.floor((state / 2147483648) * limit);
    };
}

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
    await comeIn(context, line.url, "OUTRO");
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

test("what is typed while the line is cut is not lost", { screen: "fmLeitura" }, async (screen, { line }) => {
    await screen.keyboard.type("789");
    await screen.settled();
    line.cut();
    await screen.keyboard.type("12345");
    await screen.press("Enter");
    await screen.keyboard.type("42");
    await screen.hasText("EdtBarra", "42");
    await screen.hasCell("dbgLidos", 0, "Barra", "78912345");
});

for (const { delay, reads, ...how } of [
    { delay: 0, reads: "on Enter", digits: 7, end: ["Enter"] },
    { delay: 60, reads: "on Enter", digits: 7, end: ["Enter"] },
    { delay: 60, reads: "at their last digit", digits: 13, begin: ["Alt+a", "Alt+b"] },
]) {
    test(`codes typed while the line is cut again and again are read ${reads}, with ${delay} ms of delay each way`,
        { delay, screen: "fmLeitura" }, async (screen, { page, line }) => {
            const seed = Number(process.env.SEED ?? Date.now() % 100000);
            const random = numbers(seed);
            const codes = Array.from({ length: 10 }, () => String(10 ** (how.digits - 1) + random(9 * 10 ** (how.digits - 1))));
            await screen.press(...(how.begin ?? []));
            for (const code of codes) {
                for (const digit of code) {
                    await screen.keyboard.type(digit);
                    if (random(100) < 30) await page.waitForTimeout(random(40));
                    if (random(100) < 4) line.cut();
                }
                await screen.press(...(how.end ?? []));
                if (random(100) < 30) line.cut();
            }
            await screen.hasText("edtLidos", String(codes.length), `SEED=${seed}`);
            for (const [row, code] of codes.entries()) await screen.hasCell("dbgLidos", row, "Barra", code);
        });
}

test("a server that goes away says so, and when it is back its users come in again", {}, async (_screen, { context }) => {
    const first = await startServer();
    const page = await context.newPage();
    await comeIn(context, first.url, "ANA");
    await page.goto(first.url);
    const screen = new Screen(page, "fmExemplo", "");
    await screen.ready();
    await first.stop();
    await page.getByText("A sessão terminou.").waitFor();
    const second = await startServer(first.port);
    await page.getByRole("button", { name: "Entrar novamente" }).click();
    await screen.comesIn("ANA", password);
    await screen.ready();
    await screen.hasText("edtPedido", "");
    assert.equal(second.port, first.port);
    await page.close();
    await second.stop();
});

test("a server that is gone without a word and comes back knows nobody", {}, async (_screen, { context }) => {
    const first = await startServer();
    const page = await context.newPage();
    await comeIn(context, first.url, "ANA");
    await page.goto(first.url);
    await new Screen(page, "fmExemplo", "").ready();
    await first.kill();
    await page.getByText("Conexão perdida").waitFor();
    const second = await startServer(first.port);
    await page.getByText("A sessão terminou.").waitFor();
    await page.close();
    await second.stop();
});

test("the cookie is out of reach for scripts and other sites", {}, async (_screen, { context }) => {
    const [cookie] = await context.cookies();
    assert.equal(cookie.name, "alinhavo");
    assert.equal(cookie.httpOnly, true);
    assert.equal(cookie.sameSite, "Strict");
});
