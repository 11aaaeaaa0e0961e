// The movement screen as a clerk works on it, at the keyboard alone.
import assert from "node:assert/strict";

export class Movement {
    constructor(screen) {
        this.screen = screen;
    }

    open() {
        return this.screen.open("movimentacao setores");
    }

    /** Begins an entry with the order, and says that its part enters production now. */
    async include(order, { enters }) {
        const { screen } = this;
        await screen.press("Alt+i");
        await screen.settled();
        await screen.keyboard.type(order);
        await screen.press("Enter", "Enter");
        if (!enters) return screen.settled();
        await screen.until("the question is asked", async () => (await this.question()) !== "");
        assert.match(await this.question(), /não está lançada na Facção/);
        assert.equal(await screen.defaultAnswer(), "no");
        await screen.press("s");
        await screen.hasFocus("EdtSetor");
    }

    /** From the sector on to the quantities; what the dates say is read and dismissed. */
    async toQuantities(sector) {
        const { screen } = this;
        await screen.keyboard.type(sector);
        for (let step = 0; step < 15; ++step) {
            await screen.press("Enter");
            await screen.settled();
            if ((await screen.focused()) === "dbg00Grade") return;
        }
        assert.fail(`the grid is not reached: ${await screen.focused()}, "${await this.question()}"`);
    }

    async question() {
        await this.screen.settled();
        return (await this.screen.page.locator("#dialog-text").allInnerTexts()).join();
    }

    async confirm() {
        await this.screen.press("Alt+a");
        await this.screen.settled();
        assert.equal(await this.question(), "");
        await this.screen.until("the entry is stored", async () => this.screen.control("btn00Incluir").isVisible());
    }

    /** Of the rows in view, from the first. */
    async amounts(column) {
        const cells = this.screen.control("dbg00Grade").locator(`.ag-row:not(.ag-row-pinned) [col-id="${column}"]`);
        const rows = await cells.evaluateAll((all) => all.map((cell) => [Number(cell.closest("[row-index]").getAttribute("row-index")), cell.innerText]));
        return rows.sort(([one], [other]) => one - other).map(([, text]) => text);
    }
}
