// Users, passwords and sessions, over the demonstration factory.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";
import { Screen } from "./Screen.mjs";

const users = { factory: true, user: "ADMIN", screen: "fmUsuarios", opens: "usuarios permissoes" };
const connected = { factory: true, user: "ADMIN", screen: "fmConectados", opens: "quem conectado" };

/** A window of its own, in which nobody has come in yet. */
async function elsewhere(browser, line, name) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 800 }, locale: "pt-BR" });
    const page = await context.newPage();
    await page.goto(line.url);
    return { context, page, screen: new Screen(page, name, "") };
}

/** By the login page, up to the menu. */
async function worksAs(screen, user, password) {
    await screen.comesIn(user, password);
    await screen.page.locator(".menu-entry").first().waitFor();
    await screen.settled();
}

/** What stands in the fields goes in one after the other. */
async function types(screen, ...texts) {
    for (const text of texts) {
        await screen.keyboard.type(text);
        await screen.press("Enter");
    }
}

async function vouches(screen, user, password) {
    await screen.asks("Esta operação precisa da senha de um supervisor.");
    await screen.keyboard.type(user);
    await screen.press("Tab");
    await screen.keyboard.type(password);
    await screen.press("Enter");
}

const loginOf = (context, line, user, password) =>
    context.request.post(`${line.url}entrar`, { data: { usuario: user, senha: password } }).then((answer) => answer.status());

test("a new user gets a first password, comes in with it, changes it, and is refused the old one", users, async (screen, { browser, line, context }) => {
    await screen.press("Alt+i");
    await screen.hasFocus("edtCodigo");
    await types(screen, "rosa", "rosa pinto");
    await screen.press("Control+Enter");
    await screen.hasFocus("dbgUsuarios");
    await screen.hasText("edtCodigo", "ROSA");
    assert.equal(await loginOf(context, line, "ROSA", ""), 401, "nobody comes in without a password");

    await screen.press("Alt+s");
    await vouches(screen, "MARIA", "demo");
    await screen.hasFocus("edtNova");
    assert.equal(await screen.field("edtNova").getAttribute("type"), "password");
    await types(screen, "agulha e dedal", "agulha e dedal");
    await screen.press("Control+Enter");
    await screen.asks("A senha de ROSA PINTO foi definida.");
    await screen.press("Enter");
    await screen.asksNothing();

    const rosa = await elsewhere(browser, line, "fmTrocaSenha");
    await worksAs(rosa.screen, "rosa", "agulha e dedal");
    await rosa.screen.open("trocar senha");
    await types(rosa.screen, "agulha e dedo", "tesoura sem ponta", "tesoura sem ponta");
    await rosa.screen.press("Control+Enter");
    await rosa.screen.asks("A senha atual não confere.");
    await rosa.screen.press("Enter");
    await rosa.screen.hasFocus("edtAtual");
    await rosa.screen.keyboard.type("agulha e dedal");
    await rosa.screen.press("Control+Enter");
    await rosa.screen.asks("A senha foi trocada.");
    await rosa.screen.press("Enter");
    await rosa.screen.asksNothing();

    assert.equal(await loginOf(rosa.context, line, "ROSA", "agulha e dedal"), 401);
    assert.equal(await loginOf(rosa.context, line, "ROSA", "tesoura sem ponta"), 200);
    await rosa.context.close();
});

test("a supervisor ends a session whose work waits: it is undone, and its user is told", connected, async (screen, { page, browser, line }) => {
    const paulo = await elsewhere(browser, line, "fmFacFluxo");
    await worksAs(paulo.screen, "PAULO", "demo");
    await paulo.screen.open("cadastro fluxos");
    await types(paulo.screen, "zzz");
    await paulo.screen.asks("Fluxo não Cadastrado. Deseja Cadastrar?");
    await paulo.screen.press("s");
    await paulo.screen.keyboard.type("passageiro");
    await paulo.screen.press("Control+Enter");
    await paulo.screen.hasFocus("EdtFluxo");
    await types(paulo.screen, "zzz");
    await paulo.screen.settled();
    await paulo.screen.press("Alt+e");
    await paulo.screen.asks("Deseja eliminar esse registro?");
    await paulo.screen.press("s");
    await paulo.screen.asksNothing();

    await screen.press("F5");
    await screen.settled();
    const row = screen.control("dbgConectados").locator('.ag-row:has([col-id="Codigo"]:text-is("PAULO"))');
    assert.match(await row.locator('[col-id="Pendente"]').innerText(), /^desde \d\d:\d\d, há menos de 1 min$/);
    assert.match(await row.locator('[col-id="Telas"]').innerText(), /Cadastro de Fluxos/);
    await row.locator('[col-id="Codigo"]').click();
    await screen.settled();
    await screen.picture("conectados_com_pendencia");
    await screen.press("Alt+e");
    await screen.until("the question is asked", async () => (await page.locator("#dialog-text").count()) > 0);
    assert.match(await page.locator("#dialog-text").innerText(), /^Encerrar a sessão de PAULO\?\s+O que não foi gravado desde as \d\d:\d\d será desfeito\.$/);
    assert.equal(await screen.defaultAnswer(), "no");
    await screen.press("s");
    await vouches(screen, "MARIA", "demo");
    await screen.asks("A sessão de PAULO foi encerrada.");
    await screen.press("Enter");
    await screen.asksNothing();
    assert.equal(await row.count(), 0);

    const farewell = paulo.page.getByRole("alert");
    await farewell.waitFor();
    assert.match(await farewell.innerText(), /A sessão foi encerrada por ADMIN\. O que não foi gravado desde as \d\d:\d\d foi desfeito\./);
    await paulo.context.close();

    await screen.press("Control+k");
    await screen.keyboard.type("registro alteracoes");
    await screen.press("Enter");
    const log = new Screen(page, "fmLog", "");
    await log.until("the log is open", async () => (await log.control("edtModulo").count()) === 1);
    await log.settled();
    await types(log, "FLUXO", "ZZZ");
    await log.press("Control+Enter");
    await log.says("lblLinhas", "1 linha.");
    await log.hasCell("dbgLog", 0, "TEXTO", "Inclusao//Alteracao Fluxo: ZZZ");
});

const views = [
    { name: "usuarios", screen: "fmUsuarios", opens: "usuarios permissoes", go: async (screen) => screen.press("ArrowDown") },
    {
        name: "permissoes",
        screen: "fmUsuarios",
        opens: "usuarios permissoes",
        go: async (screen) => {
            await screen.press("Alt+a", "Alt+m");
            await screen.settled();
            await screen.field("dbgDireitos").focus();
        },
        end: async (screen) => screen.press("Alt+s"),
    },
    { name: "parametros", screen: "fmParametros", opens: "parametros", go: async (screen) => screen.press("ArrowDown", "ArrowDown") },
    {
        name: "parametro_em_edicao",
        screen: "fmParametros",
        opens: "parametros",
        go: async (screen) => screen.press("ArrowDown", "ArrowDown", "Alt+a"),
        end: async (screen) => screen.press("Alt+d"),
    },
    { name: "registro", screen: "fmLog", opens: "registro alteracoes", go: async (screen) => screen.control("dbgLog").locator('[row-index="2"]').first().click() },
    { name: "conectados", screen: "fmConectados", opens: "quem conectado" },
    { name: "senha", screen: "fmTrocaSenha", opens: "trocar senha", go: async (screen) => screen.keyboard.type("demo") },
];

for (const colorScheme of ["light", "dark"]) {
    for (const { name, go, end, ...opening } of views) {
        const options = { factory: true, user: "ADMIN", colorScheme, size: { width: 1440, height: 900 }, ...opening };
        test(`picture of ${name}, ${colorScheme}`, options, async (screen) => {
            await go?.(screen);
            await screen.settled();
            await screen.picture(`${name}-${colorScheme}`);
            await end?.(screen);
            await screen.settled();
        });
    }
}

test("the own session is known, and is not ended here", { ...connected, user: "MARIA" }, async (screen) => {
    const own = screen.control("dbgConectados").locator('.ag-row:has([col-id="Navegador"]:text-is("este"))');
    // The newest stands last, below the rows in view where many are at work.
    await screen.control("dbgConectados").locator('.ag-row [col-id="Codigo"]').first().click();
    await screen.press("Control+End");
    await screen.until("the own session is listed", async () => (await own.count()) === 1);
    await own.locator('[col-id="Codigo"]').click();
    await screen.press("Alt+e");
    await screen.asks("Esta é a sua própria sessão. Para terminá-la, use Sair.");
    await screen.press("Enter");
    await screen.asksNothing();
});
