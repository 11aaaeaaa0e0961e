import assert from "node:assert/strict";
import { test } from "./harness.mjs";

test("a lookup searches as one types and gives the row that is picked", { screen: "fmLeitura" }, async (screen, { page }) => {
    await screen.press("F6");
    await screen.settled();
    assert.equal(await page.locator(".lookup .count").innerText(), "500 linhas");
    await screen.keyboard.type("camisa 12");
    await screen.settled();
    assert.equal(await page.locator(".lookup .count").innerText(), "11 linhas");
    await screen.press("ArrowDown", "Enter");
    await screen.hasText("EdtBarra", "000120");
});

test("Enter in a lookup is for what the search finds", { screen: "fmLeitura", delay: 100 }, async (screen) => {
    await screen.press("F6");
    await screen.keyboard.type("camisa 321");
    await screen.press("Enter");
    await screen.hasText("EdtBarra", "000321");
});

test("Esc closes a lookup without an answer", { screen: "fmLeitura" }, async (screen) => {
    await screen.press("F6", "Escape");
    await screen.asksNothing();
    await screen.hasText("EdtBarra", "");
});

const factory = { factory: true, user: "ADMIN", size: { width: 1440, height: 900 } };

test("what is picked stays picked when another text is searched", { ...factory, screen: "fmRelFacPen", opens: "pendente" }, async (screen, { page }) => {
    await screen.field("edtR0Empresa").click();
    await screen.press("F4");
    await screen.settled();
    const picked = () => page.locator(".lookup .picked td:first-child").allInnerTexts();
    const picks = async (text) => {
        await screen.keyboard.type(text);
        await screen.settled();
        for (let kept = (await picked()).length; kept > 0; --kept) await screen.press("ArrowDown");
        await screen.press("Space");
        await screen.press("Control+a", "Backspace");
        await screen.settled();
    };
    await picks("jeans");
    await picks("camisaria");
    assert.deepEqual(await picked(), ["00117", "00112"]);
    assert.match(await page.locator(".lookup .count").innerText(), /2 marcadas/);
    await screen.press("Enter");
    await screen.hasText("edtR0Empresa", "'00117','00112'");
});

test("the bar by which a grid is scrolled to the side hides no row", { ...factory, screen: "fmCadFluxo", opens: "cadastro setores" }, async (screen) => {
    const grid = screen.control("DBGrid1");
    await grid.locator(".ag-row").first().click();
    await screen.press("Control+End");
    await screen.settled();
    const last = await grid.locator(".ag-row.current").first().boundingBox();
    const bar = await grid.locator(".ag-body-horizontal-scroll").boundingBox();
    assert.ok(bar.height > 0, "it can be scrolled to the side");
    assert.ok(last.y + last.height <= bar.y + 1, `the last row ends at ${last.y + last.height}, the bar begins at ${bar.y}`);
    const { lines, height } = await grid.evaluate((each) => ({ lines: each.control.number("lines"), height: each.querySelector(".ag-row").offsetHeight }));
    const room = bar.y - (await grid.locator(".ag-header").boundingBox()).y;
    assert.ok(room >= (lines + 1) * height, `${lines} rows of ${height} and the titles have room in ${room}`);
    await screen.press("Escape");
});
