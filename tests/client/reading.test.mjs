// A scanner on the movement screen, whose grid waits for six pieces of one order.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

const lines = [1, 2, 3, 4, 5, 6];
const ean = (line) => `789${String(line).padStart(9, "0")}0`;
const box = (line) => `1${ean(line)}`;
const label = (line) => `L${String(line).padStart(5, "0")}`;
/** So many readings in an order of their own, some pieces oftener than others. */
const pieces = (length) => Array.from({ length }, (_, number) => ((number * number + number) % 6) + 1);

async function hasRead(screen, read, each = 1) {
    await screen.hasText("EdtQtde", String(read.length * each));
    for (const line of lines)
        await screen.hasCell("dbg00Grade", line - 1, "Quant", String(read.filter((piece) => piece === line).length * each));
    await screen.hasText("EdtBarra", "");
    await screen.hasFocus("EdtBarra");
    await screen.asksNothing();
}

async function intoTheField(screen) {
    await screen.field("EdtBarra").click();
    await screen.hasFocus("EdtBarra");
}

for (const delay of [0, 200]) {
    const far = { delay, screen: "fmFacMov" };
    const read = pieces(delay === 0 ? 30 : 10); // two answers a code are waited for
    const howFar = `with ${delay} ms of delay each way`;

    test(`the movement screen reads codes with Enter, ${howFar}`, far, async (screen) => {
        await intoTheField(screen);
        for (const line of read) await screen.scan(ean(line));
        await hasRead(screen, read);
    });

    test(`the movement screen reads codes without Enter, ${howFar}`, far, async (screen) => {
        await intoTheField(screen);
        await screen.keyboard.type(read.map(ean).join(""));
        await hasRead(screen, read);
    });

    test(`the movement screen reads boxes between pieces, ${howFar}`, far, async (screen) => {
        await intoTheField(screen);
        for (const line of lines) {
            await screen.scan(box(line));
            await screen.keyboard.type(ean(line));
        }
        await hasRead(screen, lines, 13);
    });

    test(`the movement screen reads labels that only Enter ends, ${howFar}`, far, async (screen) => {
        await screen.field("CbFormato").click();
        await screen.press("ArrowDown", "Enter");
        await screen.hasText("CbFormato", "Barra 128");
        await intoTheField(screen);
        for (const line of read) await screen.scan(label(line));
        await hasRead(screen, read);
    });

    test(`what is scanned while an alarm waits is not read, ${howFar}`, far, async (screen) => {
        await intoTheField(screen);
        await screen.scan(ean(1));
        await screen.scan(ean(999));
        await screen.asks("Código de Barras não encontrado na OF ou já baixado.");
        await screen.scan(ean(2));
        await screen.asks("Código de Barras não encontrado na OF ou já baixado.");
        assert.equal(await screen.defaultAnswer(), "cancel");
        await screen.page.getByRole("button", { name: "OK" }).click();
        await screen.asksNothing();
        await screen.scan(ean(3));
        await hasRead(screen, [1, 3]);
    });
}
