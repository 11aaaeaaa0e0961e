// What a person finds in the files that the client keeps.
import { readFile } from "node:fs/promises";
import { inflateRawSync } from "node:zlib";

/** The files of a ZIP by their names, as texts; throws where it is none. */
export async function unzipped(path) {
    const bytes = await readFile(path);
    const end = bytes.lastIndexOf(Buffer.from("PK\u0005\u0006", "latin1"));
    if (end < 0) throw new Error("not a ZIP");
    const files = new Map();
    let at = bytes.readUInt32LE(end + 16);
    for (let count = bytes.readUInt16LE(end + 10); count > 0; --count) {
        const [method, size, nameSize, extraSize, commentSize] = [10, 20, 28, 30, 32].map((place, index) => (index === 1 ? bytes.readUInt32LE(at + place) : bytes.readUInt16LE(at + place)));
        const local = bytes.readUInt32LE(at + 42);
        const content = local + 30 + bytes.readUInt16LE(local + 26) + bytes.readUInt16LE(local + 28);
        const packed = bytes.subarray(content, content + size);
        files.set(bytes.toString("utf8", at + 46, at + 46 + nameSize), (method === 0 ? packed : inflateRawSync(packed)).toString("utf8"));
        at += 46 + nameSize + extraSize + commentSize;
    }
    return files;
}

/** Of a sheet of a spreadsheet: the value of each cell, by its place ("B2"). */
export function cellsOf(files, sheet = 1) {
    const texts = [...(files.get("xl/sharedStrings.xml") ?? "").matchAll(/<si>.*?<t[^>]*>(.*?)<\/t>.*?<\/si>/gs)].map(([, text]) => text);
    const cells = new Map();
    for (const [, place, type, inline, value] of files.get(`xl/worksheets/sheet${sheet}.xml`).matchAll(/<c r="([A-Z]+\d+)"(?: s="\d+")?(?: t="(\w+)")?>(?:<f>.*?<\/f>)?(?:<is><t[^>]*>(.*?)<\/t><\/is>|<v>(.*?)<\/v>)<\/c>/gs))
        cells.set(place, type === "s" ? texts[Number(value)] : (inline ?? Number(value)));
    return cells;
}

export async function pdfPages(path) {
    const bytes = await readFile(path);
    return { begins: bytes.toString("latin1", 0, 4), pages: bytes.toString("latin1").match(/\/Type\s*\/Page\b(?!s)/g)?.length ?? 0 };
}
