// Reports in their viewer.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { pathToFileURL } from "node:url";
import { cellsOf, pdfPages, unzipped } from "./files.mjs";
import { test } from "./harness.mjs";
import { Viewer } from "./Viewer.mjs";

const factory = { factory: true, user: "ADMIN", size: { width: 1440, height: 900 } };
const pending = { ...factory, screen: "fmRelFacPen", opens: "pendente" };
const perDay = { ...factory, screen: "fmRelFacDia", opens: "producao dia" };
const sheets = { screen: "fmFolhas", opens: "folhas", size: { width: 1440, height: 900 } };

/** What the screen finds, printed. */
async function printed(screen, page) {
    await screen.press("Alt+c");
    await screen.settled();
    await screen.press("Alt+i");
    return new Viewer(page, screen).complete();
}

async function onSheets(screen, page, button) {
    await screen.control(button).locator("button").click();
    return new Viewer(page, screen);
}

const shortPending = async (screen, page) => {
    await screen.field("edtR0Empresa").fill("'00115','00110'");
    return printed(screen, page);
};

test("a report stands on sheets of paper and is turned over by keys", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    const last = await viewer.count();
    assert.ok(last > 2, `${last} sheets`);
    await viewer.isOn(1);
    await screen.press("PageDown");
    await viewer.isOn(2);
    await screen.press("PageDown", "PageUp", "PageUp");
    await viewer.isOn(1);
    await screen.press("End");
    await viewer.isOn(last);
    await screen.press("Control+Home");
    await viewer.isOn(1);
    await screen.press("Control+g");
    await screen.keyboard.type("3");
    await screen.press("Enter");
    await viewer.isOn(3);
    await viewer.box.getByRole("button", { name: "Próxima página" }).click();
    await viewer.isOn(Math.min(4, last));
    const headless = await viewer.sheets.evaluateAll((all) => all.filter((sheet) => sheet.querySelector("table:has(tbody tr td:nth-child(14)):not(:has(thead))")).length);
    assert.equal(headless, 0, "the head of a table stands again on each of its sheets");
    assert.match((await viewer.sheets.nth(1).locator("thead tr.grupo").allInnerTexts())[0], /^00115/);
    const foot = await viewer.sheets.nth(1).evaluate((sheet) => {
        const box = sheet.querySelector('al-margin[data-place="bottom-right"]');
        const style = sheet.ownerDocument.defaultView.getComputedStyle(box, "::before");
        return `${style.content} ${sheet.querySelector("al-sheet").style.getPropertyValue("--page")}`;
    });
    assert.equal(foot, '"Página " counter(page) " de " counter(pages) 2');
    await page.frameLocator("al-report iframe").locator("al-frame").first().click();
    await screen.press("PageDown");
    await viewer.isOn(2);
    await screen.press("Escape");
    await viewer.closed();
    await screen.hasFocus("btnImprimir");
});

test("the sheets are larger and smaller, as wide as the window or wholly in it", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    const paper = (297 / 25.4) * 96;
    const near = (got, wanted, what) => assert.ok(Math.abs(got - wanted) < 2, `${what}: ${got}, not ${wanted}`);
    const { width, height } = await viewer.room();
    near(await viewer.sheetWidth(), width - 32, "as wide as the window");
    await screen.press("Control+-");
    near(await viewer.sheetWidth(), paper * 1.1, "the next smaller step");
    for (let step = 0; step < 12; ++step) await screen.press("Control+-");
    near(await viewer.sheetWidth(), paper * 0.5, "the smallest");
    for (let step = 0; step < 12; ++step) await screen.press("Control++");
    near(await viewer.sheetWidth(), paper * 2, "the largest");
    await viewer.box.getByRole("button", { name: "200 %" }).click();
    await page.getByRole("menuitemcheckbox", { name: "Página inteira" }).click();
    const sheet = await viewer.sheets.first().evaluate((each) => each.getBoundingClientRect().height);
    assert.ok(sheet <= height && sheet > height * 0.9, `${sheet} of ${height}`);
    await screen.press("End");
    await viewer.isOn(await viewer.count());
    await screen.press("Control+0", "Escape");
    await viewer.closed();
});

test("a text is found on the sheets, with or without its accents", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    await viewer.finds("atelie conceicao");
    const outcome = await viewer.found(/^\d+ de \d+$/);
    assert.match(outcome, /^1 de /);
    assert.deepEqual(await viewer.marked("current"), ["Ateliê Conceição"]);
    const page1 = Number(await viewer.pageField.inputValue());
    const others = (await viewer.marked("found")).length;
    assert.equal(others + 1, Number(outcome.split(" de ")[1]));
    await screen.press("Enter");
    await viewer.found(/^2 de /);
    await screen.press("Shift+F3", "Shift+F3");
    await viewer.found(new RegExp(`^${others + 1} de `));
    assert.ok(Number(await viewer.pageField.inputValue()) >= page1);
    await screen.press("Control+f", "Control+a");
    await screen.keyboard.type("zzz");
    await viewer.found(/^não encontrado$/);
    await screen.press("Escape");
    assert.equal(await viewer.box.count(), 1, "the first Esc leaves the search alone");
    await viewer.found(/^$/);
    await screen.press("Escape");
    await viewer.closed();
});

test("a report is printed as it is seen", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    await page.evaluate(() => {
        window.printed = 0;
        document.querySelector("al-report iframe").contentWindow.print = () => ++window.printed;
    });
    await screen.press("Control+p");
    await viewer.box.getByRole("button", { name: "Imprimir" }).click();
    assert.equal(await page.evaluate(() => window.printed), 2);
    await page.emulateMedia({ media: "print" });
    const sheet = await viewer.sheets.first().evaluate((each) => {
        const { width, height } = each.getBoundingClientRect();
        return { width: Math.round(width), height: Math.round(height), after: getComputedStyle(each).breakAfter };
    });
    assert.deepEqual(sheet, { width: 1123, height: 794, after: "page" });
    await page.emulateMedia({ media: "screen" });
    await screen.press("Escape");
    await viewer.closed();
});

test("a report is kept as PDF, as data for a spreadsheet and as a page", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    const pdf = await viewer.saves("PDF");
    assert.equal(pdf.name, "Pendente por Setor.pdf");
    assert.deepEqual(await pdfPages(pdf.path), { begins: "%PDF", pages: await viewer.count() });

    const files = await unzipped((await viewer.saves("Excel")).path);
    assert.match(files.get("xl/workbook.xml"), /name="TbRel"/);
    const cells = cellsOf(files, [...files.get("xl/workbook.xml").matchAll(/<sheet name="(\w+)"/g)].findIndex(([, name]) => name === "TbRel") + 1);
    assert.ok([...cells.values()].some((value) => String(value).startsWith("Ateliê")), "a subcontractor's name");
    assert.ok([...cells.values()].some((value) => typeof value === "number" && value > 0), "a number is a number");

    const saved = await viewer.saves("HTML");
    const html = await readFile(saved.path, "utf8");
    assert.match(html, /Ateliê/);
    assert.doesNotMatch(html, /<script|\son\w+=|javascript:/i);
    assert.match(html.slice(0, 300), /Content-Security-Policy/);
    await screen.press("Escape");
    await viewer.closed();
});

test("a report is sent to an address, and to nothing else", pending, async (screen, { page }) => {
    const viewer = await shortPending(screen, page);
    await viewer.box.getByRole("button", { name: "Enviar por e-mail" }).click();
    await screen.keyboard.type("ana@exemplo");
    await screen.press("Enter");
    await page.getByRole("alert").filter({ hasText: "Endereço de e-mail inválido." }).waitFor();
    await screen.keyboard.type("ana@exemplo.com.br");
    await screen.press("Enter");
    await viewer.says(/Na caixa de saída, para ana@exemplo\.com\.br\./);
    await viewer.box.getByRole("button", { name: "Enviar por e-mail" }).click();
    await screen.press("Escape");
    assert.equal(await viewer.box.count(), 1, "Esc gives up the mail, not the report");
    await screen.press("Escape");
    await viewer.closed();
});

test("the production report has the sheets that it is printed on", perDay, async (screen, { page }) => {
    await screen.field("DataDe").click();
    await screen.settled();
    await screen.keyboard.type("01112026");
    await screen.press("Tab");
    await screen.keyboard.type("20112026");
    await screen.press("Tab");
    await screen.settled();
    const viewer = await printed(screen, page);
    const pdf = await viewer.saves("PDF");
    assert.deepEqual(await pdfPages(pdf.path), { begins: "%PDF", pages: await viewer.count() });
    await screen.press("Escape");
    await viewer.closed();
});

for (const [screenName, words] of [["fmCadFluxo", "cadastro setores"], ["fmFacFluxo", "cadastro fluxos"]]) {
    test(`the sheets of ${screenName} are as many as those of its PDF`, { ...factory, screen: screenName, opens: words }, async (screen, { page }) => {
        if (screenName === "fmFacFluxo") await screen.press("F4", "Enter");
        await screen.settled();
        await screen.press("Control+p");
        const viewer = await new Viewer(page, screen).complete();
        const pdf = await viewer.saves("PDF");
        assert.deepEqual(await pdfPages(pdf.path), { begins: "%PDF", pages: await viewer.count() });
        await screen.press("Escape");
        await viewer.closed();
    });
}

test("a report of text stands in letters of one width, and is kept as it is", sheets, async (screen, { page }) => {
    const viewer = await (await onSheets(screen, page, "btnTexto")).complete();
    assert.equal(await viewer.count(), 3);
    const text = await viewer.sheets.nth(1).locator("pre").innerText();
    assert.match(text, /^Linha 67 {3}<b>Peças & partes<\/b>\n/);
    const family = await viewer.sheets.first().locator("pre").evaluate((each) => getComputedStyle(each).fontFamily);
    assert.match(family, /Mono/);
    const { path, name } = await viewer.saves("Texto (TXT)");
    assert.equal(name, "Ficha de corte.txt");
    assert.match(await readFile(path, "utf8"), /^Linha 1 {3}<b>Peças & partes<\/b>\n[^\f]*\nLinha 66 [^\n]*\n\fLinha 67 /);
});

test("a report of five hundred pages is read while its sheets are made", sheets, async (screen, { page }) => {
    await page.evaluate(() => {
        window.longest = 0;
        let last = performance.now();
        const beat = () => {
            const now = performance.now();
            window.longest = Math.max(window.longest, now - last);
            last = now;
            setTimeout(beat, 5);
        };
        beat();
    });
    const viewer = await onSheets(screen, page, "btnLonga");
    await screen.until("some sheets are made, and not all", async () => /^de ([3-9]|\d{2,})…$/.test(await viewer.countText()));
    await screen.press("PageDown");
    await viewer.isOn(2);
    assert.match(await viewer.countText(), /…$/, "the rest is still being made");
    await viewer.complete();
    assert.ok((await viewer.count()) >= 500, `${await viewer.count()} sheets`);
    await screen.press("Control+End");
    await viewer.isOn(await viewer.count());
    const rows = await viewer.sheets.last().locator("tbody tr td:first-child").allInnerTexts();
    assert.equal(rows.at(-1), "25000");
    const all = await viewer.frame.locator("tbody tr").count();
    assert.equal(all, 25000, "each row stands on one sheet");
    await viewer.finds("24999");
    await viewer.found(/^1 de 1$/);
    const longest = await page.evaluate(() => window.longest);
    assert.ok(longest < 1500, `the page stood still for ${Math.round(longest)} ms`);
    await screen.press("Escape", "Escape");
    await viewer.closed();
});

test("nothing of a report runs, fetches or leads away", sheets, async (screen, { page, context, line }) => {
    const asked = [];
    page.on("request", (request) => asked.push(request.url()));
    const viewer = await (await onSheets(screen, page, "btnHostil")).complete();
    await viewer.frame.getByText("Texto da folha").click();
    await viewer.frame.getByRole("button", { name: "Sair" }).click({ timeout: 500 }).catch(() => undefined);
    await page.waitForTimeout(300);
    assert.equal(await page.evaluate(() => window.invadido), undefined);
    const frame = await page.evaluate(() => {
        const { contentDocument: inner, contentWindow, sandbox } = document.querySelector("al-report iframe");
        return { sandbox: sandbox.value, invaded: contentWindow.invadido, address: inner.URL, elements: inner.querySelectorAll("script, iframe, object, form, base, link, meta[http-equiv=refresh]").length };
    });
    assert.deepEqual(frame, { sandbox: "allow-same-origin allow-modals", invaded: undefined, address: "about:srcdoc", elements: 0 });
    assert.deepEqual(asked.filter((url) => !url.includes("/relatorio/")), []);

    const { path } = await viewer.saves("HTML");
    const kept = await context.newPage();
    await kept.goto(pathToFileURL(path).href).catch(() => undefined);
    await kept.waitForTimeout(300);
    assert.equal(await kept.evaluate(() => window.invadido), undefined, "nor of the page that is kept");
    assert.match(kept.url(), /^file:/);
    await kept.close();
    assert.ok(line.url);
});
