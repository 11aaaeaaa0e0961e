// Runs named tests one after the other; each has a page of its own on a session of its own.
import assert from "node:assert/strict";
import { mkdir } from "node:fs/promises";
import { fileURLToPath } from "node:url";
import { factoryCanServe, startBrowser, startFactory, startServer } from "./browser.mjs";
import { slowLine } from "./slowLine.mjs";
import { Screen } from "./Screen.mjs";

/** Of every user of the example server. */
export const password = "demo";

const tests = [];
const pictures = fileURLToPath(new URL("../../build/screenshots/", import.meta.url));

/**
 * `options`: delay in milliseconds each way, colorScheme, size of the window, screen (the one brought to the front; null: nobody has come
 * in yet), needs (a path: without it at the server the test is skipped, and counted as such), serves (the server's program),
 * factory (the demonstration factory instead of the example screens) and who works in it.
 */
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
    const canServe = await factoryCanServe();
    let factory = null;
    const browser = await startBrowser();
    await mkdir(pictures, { recursive: true });
    const failures = [];
    const skipped = [];
    let passed = 0;
    const began = performance.now();
    for (const { name, options, action } of tests.filter((each) => !only || each.name.includes(only))) {
        const start = performance.now();
        const lacking = options.factory ? !canServe : options.needs && !(await (await served("exemplo_servidor")).answers(options.needs));
        if (lacking) {
            skipped.push(name);
            console.log(`skipped ${name}: the server has no ${options.needs ?? "factory"}`);
            continue;
        }
        try {
            const server = options.factory ? (factory ??= await startFactory()) : await served(options.serves ?? "exemplo_servidor");
            await runOne(browser, server, options, action);
            ++passed;
            console.log(`ok      ${name} (${Math.round(performance.now() - start)} ms)`);
        } catch (error) {
            failures.push(name);
            console.log(`FAILED  ${name}\n        ${String(error.stack ?? error).replaceAll("\n", "\n        ")}`);
        }
    }
    await browser.close();
    for (const server of servers.values()) await server.stop();
    await factory?.stop();
    console.log(`${passed} passed, ${failures.length} failed, ${skipped.length} skipped (${Math.round((performance.now() - began) / 1000)} s)`);
    process.exitCode = failures.length === 0 ? 0 : 1;
}

let users = 0;

/** Each test has a user of its own: nobody finds what another has arranged, or left open. */
async function runOne(browser, server, { delay = 0, colorScheme = "light", size = { width: 1280, height: 800 }, screen: name = "fmExemplo", factory, user = `USER${++users}` }, action) {
    const line = await slowLine(server.port, delay);
    const context = await browser.newContext({ viewport: size, colorScheme, locale: "pt-BR" });
    const errors = [];
    try {
        const page = await context.newPage();
        page.on("pageerror", (error) => errors.push(error.message));
        if (name && (await server.answers("quem"))) await comeIn(context, line.url, user);
        await page.goto(line.url);
        const screen = new Screen(page, name, pictures);
        if (factory) await screen.settled();
        else if (name) await screen.ready();
        await action(screen, { page, line, context, server, user, browser });
        assert.deepEqual(errors, [], "errors of the page");
    } finally {
        await context.close();
        await line.close();
    }
}

/** As the login page does it. */
export async function comeIn(context, url, user) {
    const answer = await context.request.post(`${url}entrar`, { data: { usuario: user, senha: password } });
    assert.equal(answer.status(), 200, await answer.text());
}
