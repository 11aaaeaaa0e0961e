// Runs named tests one after the other; each has a page of its own on a session of its own.
import assert from "node:assert/strict";
import { mkdir } from "node:fs/promises";
import { fileURLToPath } from "node:url";
import { startBrowser, startServer } from "./browser.mjs";
import { slowLine } from "./slowLine.mjs";
import { Screen } from "./Screen.mjs";

const tests = [];
const pictures = fileURLToPath(new URL("../../build/screenshots/", import.meta.url));

/** `options`: delay in milliseconds each way, colorScheme, screen (the one brought to the front), serves (the server's program). */
export function test(name, options, action) {
    tests.push({ name, options, action });
}

export async function runAll() {
    const only = process.argv[2];
    const servers = new Map();
    const served = async (name) => {
        if (!servers.has(name)) servers.set(name, await startServer(0, name));
        return servers.get(name);
    };
    const browser = await startBrowser();
    await mkdir(pictures, { recursive: true });
    const failures = [];
    let passed = 0;
    for (const { name, options, action } of tests.filter((each) => !only || each.name.includes(only))) {
        const began = performance.now();
        try {
            await runOne(browser, await served(options.serves ?? "exemplo_servidor"), options, action);
            ++passed;
            console.log(`ok      ${name} (${Math.round(performance.now() - began)} ms)`);
        } catch (error) {
            failures.push(name);
            console.log(`FAILED  ${name}\n        ${String(error.stack ?? error).replaceAll("\n", "\n        ")}`);
        }
    }
    await browser.close();
    for (const server of servers.values()) await server.stop();
    console.log(`${passed} passed, ${failures.length} failed`);
    process.exitCode = failures.length === 0 ? 0 : 1;
}

async function runOne(browser, server, { delay = 0, colorScheme = "light", screen: name = "fmExemplo" }, action) {
    const line = await slowLine(server.port, delay);
    const context = await browser.newContext({ viewport: { width: 1280, height: 800 }, colorScheme, locale: "pt-BR" });
    const errors = [];
    try {
        const page = await context.newPage();
        page.on("pageerror", (error) => errors.push(error.message));
        await page.goto(line.url);
        const screen = new Screen(page, name, pictures);
        await screen.ready();
        await action(screen, { page, line, context, server });
        assert.deepEqual(errors, [], "errors of the page");
    } finally {
        await context.close();
        await line.close();
    }
}
