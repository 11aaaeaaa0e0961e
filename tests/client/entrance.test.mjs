// Coming in, going on with what was left, going out.
import assert from "node:assert/strict";
import { comeIn, password, test } from "./harness.mjs";
import { Screen } from "./Screen.mjs";

test("nobody works without coming in, and a wrong password is refused", { screen: null }, async (screen, { page, context, line, user }) => {
    assert.equal((await context.request.get(`${line.url}quem`)).status(), 401);
    await screen.comesIn(user, "errada");
    await page.getByText("Usuário ou senha inválidos.").waitFor();
    assert.equal(await page.locator(".screen").count(), 0);
    await page.getByLabel("Senha").fill(password);
    await page.keyboard.press("Enter");
    const tab = page.getByRole("tab", { name: "Tingimento de Botões" });
    await tab.waitFor();
    assert.equal(await tab.getAttribute("aria-selected"), "true");
});

test("a user is offered his open work when he comes in at another place", {}, async (screen, { page, browser, line, user }) => {
    await screen.keyboard.type("123");
    await screen.press("Enter");
    await screen.settled();
    await page.close();
    const elsewhere = await browser.newContext();
    const second = await elsewhere.newPage();
    await second.goto(line.url);
    const other = new Screen(second, "fmExemplo", "");
    await other.comesIn(user, password);
    const offer = second.getByRole("button", { name: "Continuar de onde parou" });
    await offer.waitFor();
    assert.match(await offer.innerText(), /Tingimento de Botões/);
    await other.press("Enter");
    await other.hasText("edtPedido", "123");
    await elsewhere.close();
});

test("a second place of work has a session of its own when its user wants one", {}, async (screen, { page, browser, line, user }) => {
    await screen.keyboard.type("123");
    await screen.settled();
    const elsewhere = await browser.newContext();
    const second = await elsewhere.newPage();
    await second.goto(line.url);
    const other = new Screen(second, "fmExemplo", "");
    await other.comesIn(user, password);
    await second.getByRole("button", { name: "Começar outra sessão" }).click();
    await other.ready();
    await other.hasText("edtPedido", "");
    assert.equal(await page.getByText("outra janela").count(), 0);
    await elsewhere.close();
});

test("who goes out finds the login page, and his session is gone", {}, async (screen, { page, context, line }) => {
    await page.locator(".user-button").click();
    await screen.press("s");
    await page.getByLabel("Usuário").waitFor();
    assert.equal((await context.request.get(`${line.url}quem`)).status(), 401);
});

test("theme and size of the letters follow their user to another place", {}, async (_screen, { page, browser, line, user }) => {
    const choose = async (caption) => {
        await page.locator(".user-button").click();
        await Promise.all([
            page.waitForRequest((request) => request.url().endsWith("/preferencias") && request.method() === "PUT"),
            page.getByRole("menuitemcheckbox", { name: caption }).click(),
        ]);
    };
    await choose("Aparência: Escuro");
    await choose("Letra: Grande");
    const elsewhere = await browser.newContext({ colorScheme: "light" });
    await comeIn(elsewhere, line.url, user);
    const second = await elsewhere.newPage();
    await second.goto(line.url);
    const other = new Screen(second, "fmExemplo", "");
    await other.ready();
    const style = await second.evaluate(() => {
        const { backgroundColor, fontSize } = getComputedStyle(document.body);
        return { backgroundColor, fontSize };
    });
    assert.deepEqual(style, { backgroundColor: "rgb(20, 25, 28)", fontSize: "17px" });
    await elsewhere.close();
});
