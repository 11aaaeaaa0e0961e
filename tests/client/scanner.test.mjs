// A scanner types thirteen digits and Enter within a few milliseconds, whatever the line is like.
import { test } from "./harness.mjs";

const codes = Array.from({ length: 10 }, (_, number) => String(7891234567890 + number));

for (const delay of [0, 50, 200]) {
    test(`ten codes and Enter give ten reads, with ${delay} ms of delay each way`, { delay, screen: "fmLeitura" }, async (screen) => {
        for (const code of codes) await screen.scan(code);
        await screen.hasText("edtLidos", "10");
        await screen.hasText("EdtBarra", "");
        await screen.hasFocus("EdtBarra");
        for (const [row, code] of codes.entries()) await screen.hasCell("dbgLidos", row, "Barra", code);
    });

    test(`ten codes are read at their last digit, with ${delay} ms of delay each way`, { delay, screen: "fmLeitura" }, async (screen) => {
        await screen.press("Alt+a", "Alt+b");
        await screen.keyboard.type(codes.join(""));
        await screen.hasText("edtLidos", "10");
        await screen.hasText("EdtBarra", "");
        for (const [row, code] of codes.entries()) await screen.hasCell("dbgLidos", row, "Barra", code);
    });
}
