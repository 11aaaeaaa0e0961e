// A screen as its user sees it, by the names of its controls.
import assert from "node:assert/strict";

const titles = {
    fmExemplo: "Tingimento de Botões",
    fmLeitura: "Leitura de Código de Barras",
    fmControles: "Controles",
    fmFolhas: "Folhas",
    fmCadFluxo: "Cadastro de Setores",
    fmFacFluxo: "Cadastro de Fluxos",
    fmFacMov: "Movimentação de Setores",
    fmNovaOF: "Ordem de Fabricação",
    fmImportaExporta: "Importar e exportar tabelas",
    fmTabela_CADCOR: "Cores",
    fmTabela_FAIXA_ITEN: "Tamanhos da faixa",
    fmTabela_PRODUTO: "Produtos",
    fmUsuarios: "Usuários e permissões",
    fmParametros: "Parâmetros",
    fmLog: "Registro de alterações",
    fmConectados: "Quem está conectado",
    fmTrocaSenha: "Trocar senha",
    fmRelFacPen: "Pendente por Setor",
    fmRelFacDia: "Relatório de Produção Dia",
};

export class Screen {
    constructor(page, name, pictures) {
        this.page = page;
        this.name = name;
        this.pictures = pictures;
        this.keyboard = page.keyboard;
    }

    /** The screen is in front and its first field has the focus. */
    async ready() {
        const tab = this.page.getByRole("tab", { name: titles[this.name], exact: true });
        await tab.click();
        await this.until("the screen is in front", async () => (await tab.getAttribute("aria-selected")) === "true");
        await this.settled();
    }

    /** By the search of the menu; it is in front when this returns. */
    async open(words) {
        const tab = this.page.getByRole("tab", { name: titles[this.name], exact: true });
        await this.press("Control+k");
        await this.keyboard.type(words);
        await this.press("Enter");
        await this.until("the screen is open", async () => (await tab.count()) === 1 && (await tab.getAttribute("aria-selected")) === "true");
        await this.settled();
    }

    control(name) {
        return this.page.locator(`section:not([hidden]) [data-name="${name}"], .window [data-name="${name}"]`).first();
    }

    field(name) {
        return this.control(name).locator("[data-focus]");
    }

    async press(...keys) {
        for (const key of keys) await this.keyboard.press(key);
    }

    /** Every key at once, as a scanner does. */
    async scan(text) {
        await this.keyboard.type(text);
        await this.keyboard.press("Enter");
    }

    focused() {
        return this.page.evaluate(() => document.activeElement?.closest("[data-name]")?.dataset.name ?? document.activeElement?.tagName);
    }

    async until(what, condition, timeout = 15000) {
        const end = performance.now() + timeout;
        while (!(await condition())) {
            if (performance.now() > end) assert.fail(`not within ${timeout} ms: ${what}`);
            await this.page.waitForTimeout(10);
        }
    }

    /** What was done is answered: no key is held back and no message is under way. */
    async settled() {
        await this.until("everything is answered", () =>
            this.page.evaluate(() => document.querySelector("al-app")?.dataset.idle === "true"));
    }

    async hasFocus(name) {
        await this.settled();
        assert.equal(await this.focused(), name);
    }

    async hasText(name, text, why = name) {
        await this.settled();
        assert.equal(await this.field(name).inputValue(), text, why);
    }

    async says(name, text) {
        await this.settled();
        assert.equal((await this.control(name).innerText()).trim(), text);
    }

    /** By its login page. */
    async comesIn(user, password) {
        await this.page.getByLabel("Usuário").fill(user);
        await this.page.getByLabel("Senha").fill(password);
        await this.page.getByRole("button", { name: "Entrar" }).click();
    }

    /** The box on top says this. */
    async asks(text) {
        await this.settled();
        await this.until(`a box says "${text}"`, async () => (await this.page.locator("#dialog-text").count()) > 0);
        assert.equal((await this.page.locator("#dialog-text").last().innerText()).trim(), text);
    }

    async asksNothing() {
        await this.settled();
        assert.equal(await this.page.locator(".cover").count(), 0, "no box is open");
    }

    async defaultAnswer() {
        await this.settled();
        return this.page.evaluate(() => document.activeElement?.dataset.answer ?? document.activeElement?.tagName);
    }

    cell(grid, row, column) {
        return this.control(grid).locator(`[row-index="${row}"] [col-id="${column}"]`);
    }

    async hasCell(grid, row, column, text) {
        await this.settled();
        const cell = this.cell(grid, row, column);
        await this.until(`row ${row}, ${column} shows "${text}"`, async () => (await cell.innerText()).trim() === text, 3000).catch(
            async () => assert.equal((await cell.innerText()).trim(), text, `row ${row}, ${column}`),
        );
    }

    picture(name) {
        return this.page.screenshot({ path: `${this.pictures}${name}.png` });
    }
}
