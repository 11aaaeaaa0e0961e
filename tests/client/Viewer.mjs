// The viewer of a report, as its user sees it.
import assert from "node:assert/strict";

export class Viewer {
    constructor(page, screen) {
        this.page = page;
        this.screen = screen;
        this.box = page.locator("al-report");
        this.frame = page.frameLocator("al-report iframe");
        this.sheets = this.frame.locator("al-frame");
    }

    /** Every sheet is made. */
    async complete() {
        await this.screen.settled();
        await this.screen.until("the sheets are made", async () => /^de \d+$/.test(await this.countText()), 90000);
        return this;
    }

    async countText() {
        const count = this.box.locator(".page-count");
        return (await count.count()) === 0 ? "" : count.innerText();
    }

    async count() {
        return Number((await this.countText()).replace(/\D/g, ""));
    }

    get pageField() {
        return this.box.getByLabel("Página", { exact: true });
    }

    async isOn(page) {
        await this.screen.until(`page ${page} is shown`, async () => Number(await this.pageField.inputValue()) === page, 5000);
        const top = await this.sheets.nth(page - 1).evaluate((sheet) => sheet.getBoundingClientRect().top);
        assert.ok(top < 450, `the top of sheet ${page} is in view, at ${top}`);
    }

    sheetWidth() {
        return this.sheets.first().evaluate((sheet) => sheet.getBoundingClientRect().width);
    }

    /** Pixels that the frame has for sheets. */
    room() {
        return this.page.evaluate(() => {
            const { clientWidth, clientHeight } = document.querySelector("al-report iframe").contentDocument.documentElement;
            return { width: clientWidth, height: clientHeight };
        });
    }

    async finds(text) {
        await this.screen.press("Control+f");
        await this.screen.keyboard.type(text);
    }

    async found(expected) {
        const outcome = this.box.locator(".found");
        await this.screen.until(`the search says ${expected}`, async () => expected.test(await outcome.innerText()), 10000);
        return outcome.innerText();
    }

    /** The texts that are marked. */
    marked(name) {
        return this.page.evaluate((which) => {
            const { contentWindow } = document.querySelector("al-report iframe");
            return [...(contentWindow.CSS.highlights.get(which) ?? [])].map(({ startContainer, startOffset, endOffset }) => startContainer.data.slice(startOffset, endOffset));
        }, name);
    }

    async says(expected) {
        await this.screen.until(`the viewer says ${expected}`, async () => expected.test(await this.box.locator(".report-head .hint").innerText()), 90000);
    }

    /** The file that the menu's item gives. */
    async saves(item) {
        await this.screen.press("Control+s");
        const given = this.page.waitForEvent("download", { timeout: 120000 });
        await this.page.getByRole("menuitem", { name: item }).click();
        const download = await given;
        return { path: await download.path(), name: download.suggestedFilename() };
    }

    async closed() {
        await this.screen.settled();
        await this.screen.until("the viewer is closed", async () => (await this.box.count()) === 0, 5000);
    }
}
