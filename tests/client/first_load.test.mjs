// What a browser fetches before a user can come in.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

const limit = 500_000;

test("the first load is small", { screen: null }, async (screen, { page, line }) => {
    let bytes = 0;
    const network = await page.context().newCDPSession(page);
    await network.send("Network.enable");
    await network.send("Network.setCacheDisabled", { cacheDisabled: true });
    network.on("Network.loadingFinished", ({ encodedDataLength }) => (bytes += encodedDataLength));
    const began = performance.now();
    await page.goto(line.url);
    await page.getByLabel("Usuário").waitFor();
    const time = Math.round(performance.now() - began);
    await screen.until("the icon is there as well", async () => (await page.evaluate(() => document.readyState)) === "complete");
    console.log(`        first load: ${Math.round(bytes / 1000)} kB, ${time} ms until the login page`);
    assert.ok(bytes > 50_000 && bytes < limit, `${bytes} bytes`);
});
