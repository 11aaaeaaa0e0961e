// Runs named tests one after the other; each has a page of its own on a session of its own.
import assert from "node:assert/strict";
import { mkdir } from "node:fs/promises";
import { fileURLToPath } from "node:url";
import { startBrowser, startEmpty, startFactory, startServer } from "./browser.mjs";
import { slowLine } from "./slowLine.mjs";
import { Screen } from "./Screen.mjs";

/** Of every user of the example server. */
export const password = "demo";

const tests = [];
const pictures = fileURLToPath(new URL("../../build/screenshots/", import.meta.url));

/**
 * `options`: delay in milliseconds each way, colorScheme, size of the window, screen (the one brought to the front; null: nobody has come
 * in yet), factory (the demonstration factory instead of the example screens), user (who works in it), empty (an empty
 * database, where ADMIN alone works, instead of the example screens) and opens (what is searched in
 * the menu for the screen).
 */
export function test(name, options, action) {
    tests.push({ name, options, action });
}

export async function runAll() {
    const only = process.argv[2];
    const outcome = { passed: 0, failed: 0 };
    const began = performance.now();
    const servers = new Servers();
    const browser = await startBrowser();
    await mkdir(pictures, { recursive: true });
    const chosen = tests.filter(({ name }) => !only || name.includes(only));
    const lanes = new Map();
    for (const each of chosen) lanes.set(laneOf(each.options), [...(lanes.get(laneOf(each.options)) ?? []), each]);
    await Promise.all([...lanes.values()].map((lane) => runLane(lane, browser, servers, outcome)));
    await browser.close();
    await servers.stop();
    const seconds = Math.round((performance.now() - began) / 1000);
    console.log(`${outcome.passed} passed, ${outcome.failed} failed (${seconds} s)`);
    process.exitCode = outcome.failed === 0 ? 0 : 1;
}

/** Tests of different lanes run side by side: those that wait for a slow line, those on the factory, and the others. */
function laneOf({ factory, empty, delay }) {
    if (factory || empty) return "factory";
    return delay ? "slow" : "";
}

async function runLane(lane, browser, servers, outcome) {
    for (const { name, options, action } of lane) {
        const server = await servers.of(options);
        const start = performance.now();
        try {
            await runOne(browser, server, options, action);
            ++outcome.passed;
            console.log(`ok      ${name} (${Math.round(performance.now() - start)} ms)`);
        } catch (error) {
            ++outcome.failed;
            console.log(`FAILED  ${name}\n        ${String(error.stack ?? error).replaceAll("\n", "\n        ")}`);
        }
    }
}

/** The servers of the tests' screens, each started when the first test wants it. Lanes ask at the same time: promises are kept. */
class Servers {
    #example = null;
    #factory = null;
    #empty = null;

    of({ factory, empty }) {
        if (empty) return (this.#empty ??= startEmpty(password));
        return factory ? (this.#factory ??= startFactory()) : (this.#example ??= startServer());
    }

    async stop() {
        for (const server of [this.#example, this.#factory, this.#empty]) await (await server)?.stop();
    }
}

let users = 0;

/** Each test has a user of its own: nobody finds what another has arranged, or left open. */
async function runOne(browser, server, { delay = 0, colorScheme = "light", size = { width: 1280, height: 800 }, screen: name = "fmExemplo", factory, empty, opens, user = `USER${++users}` }, action) {
    const line = await slowLine(server.port, delay);
    const context = await browser.newContext({ viewport: size, colorScheme, locale: "pt-BR" });
    const errors = [];
    try {
        const page = await context.newPage();
        page.on("pageerror", (error) => errors.push(error.message));
        if (name) await comeIn(context, line.url, user);
        await page.goto(line.url);
        const screen = new Screen(page, name, pictures);
        if (factory || empty || opens) await screen.settled();
        if (opens) await screen.open(opens);
        if (!factory && !empty && name) await screen.ready();
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
