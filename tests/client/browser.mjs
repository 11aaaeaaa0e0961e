// A browser and the servers of screens for the tests.
import { chromium } from "playwright-core";
import { spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { createInterface } from "node:readline";

const root = fileURLToPath(new URL("../../", import.meta.url));
const presets = [process.env.ALINHAVO_BUILD, "release", "debug"].filter(Boolean);

/** Listens on a free port, or on the one given; `stop` returns when it has ended. */
export async function startServer(port = 0, name = "exemplo_servidor") {
    const program = presets.map((preset) => `${root}build/${preset}/bin/${name}`).find(existsSync);
    if (!program) throw new Error(`${name} is not built`);
    const child = spawn(program, [`${root}client/dist`, String(port)], { stdio: ["pipe", "pipe", "inherit"] });
    const ended = new Promise((resolve) => child.once("exit", resolve));
    const [line] = await Promise.race([
        new Promise((resolve) => createInterface(child.stdout).once("line", (text) => resolve([text]))),
        ended.then((code) => Promise.reject(new Error(`${name} ended with ${code}`))),
    ]);
    return {
        url: line,
        port: Number(new URL(line).port),
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
