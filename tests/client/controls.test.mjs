// Every kind of control and dialog that the other tests do not use.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

const controls = { screen: "fmControles" };
const red = Buffer.from("iVBORw0KGgoAAAANSUhEUgAAAAoAAAAKCAIAAAACUFjqAAAAEklEQVR4nGP8z4APMOGVHbHSAEEsAROxCnMTAAAAAElFTkSuQmCC", "base64");

async function paste(screen, page, text) {
    await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
    await page.evaluate((copied) => navigator.clipboard.writeText(copied), text);
    await screen.press("Control+v");
}

const copied = (page) => page.evaluate(() => navigator.clipboard.readText());

test("several lines that are pasted into a list become its codes", controls, async (screen, { page }) => {
    await paste(screen, page, "00012\n00045\tFacção\n\n00077\n");
    await screen.hasText("edtFaccoes", "'00012','00045','00077'");
});

test("a number is marked when its field is entered, and takes a comma", controls, async (screen) => {
    await screen.press("Alt+v");
    await screen.keyboard.type("1234,5");
    await screen.press("Tab");
    await screen.hasText("edtValor", "1.234,50");
    await screen.press("Shift+Tab");
    await screen.settled();
    await screen.keyboard.type("7");
    await screen.hasText("edtValor", "7");
});

for (const [typed, shown] of [["201126", "20/11/2026"], ["20/11", `20/11/${new Date().getFullYear()}`]]) {
    test(`a date takes ${typed}`, controls, async (screen) => {
        await screen.press("Alt+d");
        await screen.keyboard.type(typed);
        await screen.press("Enter");
        await screen.hasText("edtData", shown);
    });
}

test("a day is picked from the calendar", controls, async (screen) => {
    await screen.press("Alt+d");
    await screen.keyboard.type("311026");
    await screen.press("Alt+ArrowDown", "PageDown", "ArrowLeft", "Enter");
    await screen.hasText("edtData", "29/11/2026");
    await screen.hasFocus("edtData");
});

test("Enter and Tab skip what is read-only", controls, async (screen) => {
    await screen.press("Alt+d", "Tab");
    await screen.hasFocus("rbSim");
});

test("radio buttons, and a memo of several lines", controls, async (screen) => {
    await screen.press("Alt+n");
    await screen.settled();
    assert.ok(await screen.control("rbNao").locator("input").isChecked());
    await screen.press("Alt+t");
    await screen.keyboard.type("uma");
    await screen.press("Control+Enter");
    await screen.keyboard.type("outra");
    await screen.hasText("mmNota", "uma\noutra");
});

test("a supervisor gives name and password", controls, async (screen) => {
    await screen.press("F7");
    await screen.asks("Informe o supervisor.");
    await screen.keyboard.type("MARIA");
    await screen.press("Tab");
    await screen.keyboard.type("segredo");
    await screen.press("Enter");
    await screen.says("lblFeito", "Supervisor MARIA/segredo.");
});

test("several rows of a lookup are picked", controls, async (screen, { page }) => {
    await screen.press("F6");
    await screen.settled();
    assert.deepEqual(await page.locator(".lookup th").allInnerTexts(), ["Cor", "Descrição"]);
    await screen.press("Space", "ArrowDown", "Space", "Enter");
    await screen.says("lblFeito", "Cores Az Ci.");
});

test("a file goes to the server, is shown, and opens in the viewer", { ...controls }, async (screen, { page }) => {
    await screen.press("F5");
    await screen.settled();
    await page.locator('input[type="file"]').setInputFiles({ name: "vermelho.png", mimeType: "image/png", buffer: red });
    await page.getByRole("button", { name: "OK" }).click();
    await screen.until("the name is listed", async () => (await screen.control("lstFotos").locator("li").allInnerTexts()).includes("vermelho.png"));
    await loaded(screen, screen.control("imgFoto").locator("img"));
    await screen.press("F8");
    await loaded(screen, page.locator(".viewer img"));
    await screen.press("+", "Escape");
    await screen.asksNothing();
});

const loaded = (screen, image) => screen.until("the picture is loaded", () => image.evaluate((shown) => shown.naturalWidth === 10));

test("cells are marked, copied, and pasted as a spreadsheet gives them", controls, async (screen, { page }) => {
    await screen.cell("dbgPecas", 0, "Cor").click();
    await screen.settled();
    await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
    await screen.press("Shift+ArrowDown", "Shift+ArrowRight", "Control+c");
    assert.equal(await copied(page), "Azul\t10\nBranco\t10");
    await screen.press("ArrowRight");
    await paste(screen, page, "70\t1,25\n80\t2\n");
    await screen.hasCell("dbgPecas", 1, "Preco", "2");
    await screen.hasCell("dbgPecas", 0, "Qtde", "70");
    await screen.hasCell("dbgPecas", 0, "Preco", "1,25");
    await screen.hasCell("dbgPecas", 1, "Qtde", "80");
    assert.ok(await screen.control("dbgPecas").locator('[row-index="0"].warning').count() > 0, "the row has its colour");
});

test("a date in a grid takes h, F2 changes a text", controls, async (screen) => {
    await screen.cell("dbgPecas", 0, "Entrega").click();
    await screen.settled();
    await screen.keyboard.type("h");
    await screen.press("Enter");
    await screen.hasCell("dbgPecas", 0, "Entrega", new Date().toLocaleDateString("pt-BR"));
    await screen.cell("dbgPecas", 1, "Cor").click();
    await screen.settled();
    await screen.press("F2");
    await screen.keyboard.type("!");
    await screen.press("Enter");
    await screen.hasCell("dbgPecas", 1, "Cor", "Branco!");
});

test("a pick list gives its text to the cell", {}, async (screen) => {
    await screen.press("Enter");
    await screen.keyboard.type("01");
    await screen.press("Enter", "Enter", "Enter", "Enter");
    await screen.settled();
    await screen.cell("dbgBotoes", 0, "Obs").click();
    await screen.settled();
    await screen.press("F4");
    await screen.settled();
    await screen.press("ArrowDown", "Enter", "Enter");
    await screen.hasCell("dbgBotoes", 0, "Obs", "Amostra");
});

test("a popup menu offers the screen's items and the grid's own", {}, async (screen, { page }) => {
    await screen.press("Enter");
    await screen.keyboard.type("01");
    await screen.press("Enter", "Enter", "Enter", "Enter", "ArrowRight");
    await screen.keyboard.type("5");
    await screen.press("Enter", "ArrowUp", "Shift+F10");
    await page.getByRole("menuitem", { name: "Zerar Quantidades" }).waitFor();
    await page.getByRole("menuitem", { name: "Localizar…" }).waitFor();
    await screen.press("Enter");
    await screen.hasCell("dbgBotoes", 0, "Qtde", "0");
});

test("numbers are added up below the grid", controls, async (screen, { page }) => {
    await screen.cell("dbgPecas", 0, "Qtde").click();
    await screen.press("Shift+F10");
    await page.getByRole("menuitemcheckbox", { name: "Somar as colunas" }).click();
    const sum = screen.control("dbgPecas").locator('.ag-row-pinned [col-id="Qtde"]');
    await screen.until("the sum is shown", async () => (await sum.count()) > 0 && (await sum.innerText()) === "50");
    await screen.cell("dbgPecas", 0, "Qtde").click();
    await screen.settled();
    await screen.keyboard.type("30");
    await screen.press("Enter");
    await screen.until("the sum follows", async () => (await sum.innerText()) === "70");
});

test("a text is found in a grid", controls, async (screen, { page }) => {
    await screen.cell("dbgPecas", 0, "Cor").click();
    await screen.settled();
    await screen.press("Control+f");
    await screen.keyboard.type("ver");
    await page.getByText("linha 5").waitFor();
    await screen.press("Escape");
    await screen.settled();
    assert.equal(await screen.control("dbgPecas").locator(".ag-row.current").first().getAttribute("row-index"), "4");
});

test("order and width of the columns are kept for their user", { ...controls }, async (screen, { page }) => {
    const header = (column) => screen.control("dbgPecas").locator(`.ag-header-cell[col-id="${column}"]`);
    const left = async (column) => (await header(column).boundingBox()).x;
    const from = await header("Entrega").boundingBox();
    const to = await header("Cor").boundingBox();
    await page.mouse.move(from.x + 30, from.y + 10);
    await page.mouse.down();
    await page.mouse.move(from.x, from.y + 10, { steps: 4 });
    await page.mouse.move(to.x + 5, to.y + 10, { steps: 12 });
    await Promise.all([
        page.waitForRequest((request) => request.url().endsWith("/preferencias") && request.method() === "PUT"),
        page.mouse.up(),
    ]);
    assert.ok((await left("Entrega")) < (await left("Cor")));
    await page.reload();
    await screen.settled();
    await screen.until("the columns stand as they were left", async () => (await left("Entrega")) < (await left("Cor")));
});

test("a grid is given as a file for a spreadsheet", { ...controls }, async (screen, { page }) => {
    await screen.cell("dbgPecas", 0, "Cor").click();
    await screen.press("Shift+F10");
    const [csv] = await Promise.all([page.waitForEvent("download"), page.getByRole("menuitem", { name: "Exportar como texto" }).click()]);
    const text = await (await import("node:fs/promises")).readFile(await csv.path(), "utf8");
    assert.match(text, /Cor;Quantidade;Preço;Entrega\r?\nAzul;10;/);
    await screen.press("Shift+F10");
    const [xlsx] = await Promise.all([page.waitForEvent("download"), page.getByRole("menuitem", { name: "Exportar para planilha" }).click()]);
    assert.match(xlsx.suggestedFilename(), /\.xlsx$/);
});

const colors = async (screen) => {
    const cells = await screen.control("dbgPecas").locator('.ag-row [col-id="Cor"]').all();
    const rows = await Promise.all(cells.map(async (cell) => [Number(await cell.locator("xpath=ancestor::*[@row-index]").getAttribute("row-index")), await cell.innerText()]));
    return rows.sort(([a], [b]) => a - b).map(([, text]) => text);
};
const standing = (screen, expected) =>
    screen.until(`the rows stand ${expected}`, async () => (await colors(screen)).join() === expected, 5000).catch(async () => assert.equal((await colors(screen)).join(), expected));
const title = (screen, column) => screen.control("dbgPecas").locator(`.ag-header-cell[col-id="${column}"]`);

test("a click on a title sorts the rows, up, down and not at all", controls, async (screen) => {
    await standing(screen, "Azul,Branco,Cinza,Preto,Verde");
    await title(screen, "Cor").click();
    await screen.settled();
    await standing(screen, "Azul,Branco,Cinza,Preto,Verde");
    assert.match(await title(screen, "Cor").innerText(), /Cor ▲/);
    await title(screen, "Cor").click();
    await screen.settled();
    await standing(screen, "Verde,Preto,Cinza,Branco,Azul");
    assert.match(await title(screen, "Cor").innerText(), /Cor ▼/);
    await title(screen, "Cor").click();
    await screen.settled();
    await standing(screen, "Azul,Branco,Cinza,Preto,Verde");
    assert.equal((await title(screen, "Cor").innerText()).trim(), "Cor");
});

test("what is done in a sorted grid reaches the row that is seen", controls, async (screen, { page }) => {
    await title(screen, "Cor").click();
    await screen.settled();
    await title(screen, "Cor").click();
    await screen.settled();
    await screen.cell("dbgPecas", 0, "Qtde").click();
    await screen.settled();
    for (const amount of ["11", "22", "33"]) {
        await screen.keyboard.type(amount);
        await screen.press("Enter");
    }
    await screen.settled();
    await standing(screen, "Verde,Preto,Cinza,Branco,Azul");
    await screen.hasCell("dbgPecas", 0, "Qtde", "11");
    await screen.hasCell("dbgPecas", 2, "Qtde", "33");
    await screen.press("Shift+F10");
    const [csv] = await Promise.all([page.waitForEvent("download"), page.getByRole("menuitem", { name: "Exportar como texto" }).click()]);
    const text = await (await import("node:fs/promises")).readFile(await csv.path(), "utf8");
    assert.match(text, /Verde;11;[^]*Preto;22;[^]*Cinza;33;[^]*Branco;10;[^]*Azul;10;/);
    await title(screen, "Cor").click();
    await screen.settled();
    await screen.hasCell("dbgPecas", 4, "Qtde", "11");
    assert.equal(await screen.cell("dbgPecas", 4, "Cor").innerText(), "Verde");
});

test("the order of the rows is kept for their user", { ...controls }, async (screen, { page }) => {
    await title(screen, "Cor").click();
    await screen.settled();
    await Promise.all([
        page.waitForRequest((request) => request.url().endsWith("/preferencias") && request.method() === "PUT"),
        title(screen, "Cor").click(),
    ]);
    await standing(screen, "Verde,Preto,Cinza,Branco,Azul");
    await page.evaluate(() => sessionStorage.setItem("sessao", "nova"));
    await page.reload();
    await screen.ready();
    await standing(screen, "Verde,Preto,Cinza,Branco,Azul");
    await screen.cell("dbgPecas", 0, "Cor").click();
    await screen.press("Shift+F10");
    await page.getByRole("menuitem", { name: "Colunas como no início" }).click();
    await screen.settled();
    await standing(screen, "Azul,Branco,Cinza,Preto,Verde");
});

test("rows are sorted by the keyboard as well", controls, async (screen, { page }) => {
    await screen.cell("dbgPecas", 0, "Cor").click();
    await screen.settled();
    for (let click = 0; click < 2; ++click) {
        await screen.press("Shift+F10");
        await page.getByRole("menuitem", { name: "Ordenar por Cor" }).waitFor();
        await screen.press("Enter");
        await screen.settled();
    }
    await standing(screen, "Verde,Preto,Cinza,Branco,Azul");
});

for (const way of ["mouse", "menu key"]) {
    test(`a popup menu of a field opens by the ${way}`, controls, async (screen, { page }) => {
        const field = screen.field("edtFaccoes");
        if (way === "mouse") await field.click({ button: "right" });
        else await screen.press("Alt+f", "ContextMenu");
        const item = page.getByRole("menuitem", { name: "Todas as facções" });
        await item.waitFor();
        assert.ok(await page.getByRole("menuitem", { name: "Nenhuma" }).isDisabled());
        await screen.press("Enter");
        await screen.hasText("edtFaccoes", "'00001','00002'");
        await screen.hasFocus("edtFaccoes");
    });
}

test("a field without a menu of its screen opens none", controls, async (screen, { page }) => {
    await screen.press("Alt+v", "Shift+F10");
    await screen.settled();
    assert.equal(await page.getByRole("menu").count(), 0);
});
