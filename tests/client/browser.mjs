// A browser and a server of the example screens for the tests.
import { chromium } from "playwright-core";
import { spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { createInterface } from "node:readline";

const root = fileURLToPath(new URL("../../", import.meta.url));
const presets = [process.env.ALINHAVO_BUILD, "release", "debug"].filter(Boolean);
const program = presets.map((preset) => `${root}build/${preset}/bin/exemplo_servidor`).find(existsSync);

/** Listens on a free port, or on the one given; `stop` returns when it has ended. */
export async function startServer(port = 0) {
    if (!program) throw new Error("exemplo_servidor is not built");
    const child = spawn(program, [`${root}client/dist`, String(port)], { stdio: ["pipe", "pipe", "inherit"] });
    const ended = new Promise((resolve) => child.once("exit", resolve));
    const [line] = await Promise.race([
        new Promise((resolve) => createInterface(child.stdout).once("line", (text) => resolve([text]))),
        ended.then((code) => Promise.reject(new Error(`exemplo_servidor ended with ${code}`))),
    ]);
    return {
        url: line,
        port: Number(new URL(line).port),
        async answers(path) {
            return (await fetch(`${line}${path}`)).status !== 404;
        },
        async kill() {
            child.kill("SIGKILL");
            await ended;
        },
        async stop() {
            child.stdin.end();
            await ended;
        },
    };
}

export const startBrowser = () =>
    chromium.launch({
        executablePath: "/usr/bin/chromium",
        args: [
            "--headless",
            "--no-sandbox",
            "--disable-gpu",
            "--disable-quic",
            "--no-first-run",
            "--disable-background-networking",
            "--disable-component-update",
            "--disable-sync",
        ],
    });
