// The main job, on the demonstration factory.
import assert from "node:assert/strict";
import { comeIn, test } from "./harness.mjs";
import { Movement } from "./Movement.mjs";
import { Screen } from "./Screen.mjs";

const factory = { factory: true, user: "ANA", screen: "fmFacMov" };

test("an order leaves cutting and stands in the next sector, by keyboard alone", factory, async (screen) => {
    const movement = new Movement(screen);
    await movement.open();
    await movement.include("026004", { enters: true });
    await movement.toQuantities("01");
    await screen.keyboard.type("3");
    await screen.press("Enter");
    await screen.settled();
    const leaving = await movement.amounts("Quant");
    assert.equal(leaving[0], "3");
    await movement.confirm();
    await movement.include("026004", { enters: false });
    await screen.hasFocus("EdtSetor");
    await movement.toQuantities("02");
    assert.deepEqual(await movement.amounts("Qt_Orig"), leaving);
    await screen.press("Escape", "Alt+t");
    await screen.settled();
});

for (const { delay, order } of [{ delay: 0, order: "026003" }, { delay: 50, order: "026005" }, { delay: 200, order: "026002" }]) {
    test(`quantities typed ahead stand where they belong, with ${delay} ms of delay each way`, { ...factory, delay }, async (screen) => {
        const movement = new Movement(screen);
        await movement.open();
        await movement.include(order, { enters: true });
        await movement.toQuantities("01");
        for (const amount of ["1", "2", "3", "4"]) {
            await screen.keyboard.type(amount);
            await screen.press("Enter");
        }
        await screen.settled();
        assert.deepEqual((await movement.amounts("Quant")).slice(0, 4), ["1", "2", "3", "4"]);
        await screen.press("Alt+t");
        await screen.settled();
    });
}

test("a reload in the middle of a header and of a question changes nothing", factory, async (screen, { page }) => {
    const movement = new Movement(screen);
    await movement.open();
    await screen.press("Alt+i");
    await screen.keyboard.type("026006");
    await screen.press("Enter");
    await screen.hasFocus("CbParte");
    await page.reload();
    await screen.settled();
    await screen.hasText("edtOFNum", "026006");
    await screen.hasFocus("CbParte");
    await screen.press("Enter");
    const asked = await movement.question();
    assert.notEqual(asked, "");
    await page.reload();
    await screen.settled();
    assert.equal(await movement.question(), asked);
    await screen.press("Escape", "Alt+t");
    await screen.settled();
});

test("two users move two orders at once", factory, async (screen, { browser, line }) => {
    const elsewhere = await browser.newContext({ viewport: { width: 1280, height: 800 }, locale: "pt-BR" });
    await comeIn(elsewhere, line.url, "MARIA");
    const page = await elsewhere.newPage();
    await page.goto(line.url);
    const other = new Screen(page, "fmFacMov", "");
    await other.settled();
    const [ana, maria] = [new Movement(screen), new Movement(other)];
    await Promise.all([ana.open(), maria.open()]);
    await Promise.all([ana.include("026010", { enters: true }), maria.include("026011", { enters: true })]);
    await Promise.all([ana.toQuantities("01"), maria.toQuantities("01")]);
    await Promise.all([ana.confirm(), maria.confirm()]);
    await elsewhere.close();
});

for (const colorScheme of ["light", "dark"]) {
    test(`pictures of the factory, ${colorScheme}`, { ...factory, colorScheme, size: { width: 1440, height: 960 } }, async (screen) => {
        const movement = new Movement(screen);
        await movement.open();
        await movement.include(colorScheme === "light" ? "026014" : "026015", { enters: true });
        await screen.press("F4");
        await screen.settled();
        await screen.picture(`setores-${colorScheme}`);
        await screen.press("Escape");
        await movement.toQuantities("01");
        await screen.keyboard.type("12");
        await screen.settled();
        await screen.picture(`movimentacao-${colorScheme}`);
        await screen.press("Escape", "Alt+t");
        await screen.settled();
    });
}
