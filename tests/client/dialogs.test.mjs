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
