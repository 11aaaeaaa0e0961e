// A browser and the servers of screens for the tests.
import { chromium } from "playwright-core";
import { execFile, spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { promisify } from "node:util";
import { fileURLToPath } from "node:url";
import { createInterface } from "node:readline";

const root = fileURLToPath(new URL("../../", import.meta.url));
const presets = [process.env.ALINHAVO_BUILD, "release", "debug"].filter(Boolean);
const built = (name) => presets.map((preset) => `${root}build/${preset}/bin/${name}`).find(existsSync) ?? name;
const program = built("exemplo_servidor");
const product = built("alinhavo");
const today = "20/11/2026";

/** Listens on a free port, or on the one given; `stop` returns when it has ended. */
export async function startServer(port = 0) {
    return serve(program, [`${root}client/dist`, String(port)], (child) => child.stdin.end());
}

/** The product on a demonstration factory of its own, on a fixed day. */
export async function startFactory() {
    const folder = await mkdtemp(join(tmpdir(), "alinhavo-"));
    const database = join(folder, "demo.fdb");
    process.env.FIREBIRD_LOCK ??= folder;
    await promisify(execFile)(product, ["demo", "--banco", database, "--hoje", today]);
    return serveFactory(folder, database);
}

/** The product on a database that holds nothing but ADMIN, with the password of every test. */
export async function startEmpty(password) {
    const folder = await mkdtemp(join(tmpdir(), "alinhavo-"));
    const database = join(folder, "fabrica.fdb");
    process.env.FIREBIRD_LOCK ??= folder;
    await promisify(execFile)(product, ["prepara", "--banco", database]);
    const setting = promisify(execFile)(product, ["senha", "ADMIN", "--banco", database]);
    setting.child.stdin.end(`${password}\n`);
    await setting;
    return serveFactory(folder, database);
}

async function serveFactory(folder, database) {
    const options = ["servir", "--banco", database, "--porta", "0", "--cliente", `${root}client/dist`, "--hoje", today];
    const server = await serve(product, options, (child) => child.kill("SIGTERM"));
    return {
        ...server,
        async stop() {
            await server.stop();
            await rm(folder, { recursive: true });
        },
    };
}

async function serve(file, options, end) {
    const child = spawn(file, options, { stdio: ["pipe", "pipe", "inherit"] });
    const ended = new Promise((resolve) => child.once("exit", resolve));
    const line = await Promise.race([
        new Promise((resolve) => createInterface(child.stdout).once("line", (text) => resolve(/http:\S+/.exec(text)[0]))),
        ended.then((code) => Promise.reject(new Error(`${file} ended with ${code}`))),
    ]);
    return {
        url: line,
        port: Number(new URL(line).port),
        async kill() {
            child.kill("SIGKILL");
            await ended;
        },
        async stop() {
            end(child);
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
