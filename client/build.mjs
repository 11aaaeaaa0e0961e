// Bundles the client into dist/: files under assets/ change their name with their content, and each has a compressed twin.
import { build } from "esbuild";
import { cp, mkdir, readdir, readFile, rm, writeFile } from "node:fs/promises";
import { basename, join } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";
import { gzip } from "node:zlib";

const root = fileURLToPath(new URL(".", import.meta.url));
const dist = join(root, "dist");
const compress = promisify(gzip);

await rm(dist, { recursive: true, force: true });
await mkdir(dist);
const result = await build({
    absWorkingDir: root,
    entryPoints: { app: "src/main.ts", style: "src/style/main.css" },
    entryNames: "assets/[name]-[hash]",
    outdir: "dist",
    bundle: true,
    minify: true,
    format: "esm",
    target: "es2022",
    metafile: true,
    legalComments: "linked",
    logLevel: "warning",
});

const outputs = Object.keys(result.metafile.outputs).map((file) => basename(file));
const asset = (pattern) => `/assets/${outputs.find((file) => pattern.test(file))}`;
const page = await readFile(join(root, "index.html"), "utf8");
await writeFile(
    join(dist, "index.html"),
    page.replace("/src/main.ts", asset(/^app-.*\.js$/)).replace("/src/style/main.css", asset(/^style-.*\.css$/)),
);
await cp(join(root, "public"), dist, { recursive: true });

for (const entry of await readdir(dist, { recursive: true, withFileTypes: true })) {
    if (!entry.isFile()) continue;
    const file = join(entry.parentPath, entry.name);
    await writeFile(`${file}.gz`, await compress(await readFile(file), { level: 9 }));
}
