// The registers of sectors and flows over the demonstration factory, by the keyboard alone.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";

const sectors = { factory: true, user: "ADMIN", screen: "fmCadFluxo", opens: "cadastro setores" };
const flows = { factory: true, user: "ADMIN", screen: "fmFacFluxo", opens: "cadastro fluxos" };

test("A sector is added, altered and deleted without a mouse", sectors, async (screen) => {
    await screen.hasFocus("DBGrid1");
    await screen.press("ArrowDown");
    await screen.hasText("DBEdit1", "02");

    await screen.press("Alt+i");
    await screen.hasFocus("DBEdit1");
    await screen.press("Tab");
    await screen.keyboard.type("pregas");
    await screen.press("Enter");
    await screen.keyboard.type("55");
    await screen.press("Enter", "F4");
    await screen.settled();
    await screen.keyboard.type("jeans");
    await screen.press("Enter");
    await screen.hasText("EdtGrupo", "07");
    await screen.hasText("DBEdit2", "PREGAS");
    await screen.picture("sectors_in_edit");
    await screen.press("Control+Enter");
    await screen.hasFocus("DBGrid1");
    const code = await screen.field("DBEdit1").inputValue();
    assert.match(code, /^\d{2}$/);

    await screen.press("Alt+a");
    await screen.hasFocus("DBEdit2");
    await screen.keyboard.type("CORTE");
    await screen.press("Control+Enter");
    await screen.asks("Deseja atualizar a descrição do setor nos fluxos cadastrados?");
    await screen.press("Enter");
    await screen.asks("Setor CORTE já cadastrado.");
    await screen.press("Enter", "Escape");
    await screen.hasFocus("DBGrid1");
    await screen.hasText("DBEdit2", "PREGAS");

    await screen.press("Alt+e");
    await screen.asks("Deseja eliminar este Registro?");
    assert.equal(await screen.defaultAnswer(), "no");
    await screen.press("s");
    await screen.settled();
    await screen.until("the sector is gone", async () => (await screen.field("DBEdit1").inputValue()) !== code);
    await screen.picture("sectors");
});

test("All data of a sector are in view without scrolling", sectors, async (screen) => {
    await screen.settled();
    for (const name of ["DBEdit1", "DBRadioGroup1", "DBEdit8", "CbSemana", "DBRadioGroup2", "CbAltPreco", "CbMovReprovados"]) {
        const box = await screen.control(name).boundingBox();
        assert.ok(box.y + box.height < 775, `${name} ends at ${box.y + box.height}`);
    }
});

test("A flow is loaded, corrected, copied and saved without a mouse", flows, async (screen, { page }) => {
    await screen.hasFocus("EdtFluxo");
    await screen.press("F4");
    await screen.settled();
    await page.getByText("MALHA BÁSICA").first().waitFor();
    await screen.press("Enter");
    await screen.hasText("EdtFluxo", "001");
    await screen.press("Enter");
    await screen.hasText("EdtDescFluxo", "MALHA BÁSICA");
    await screen.hasCell("DBGrid2", 0, "Descricao", "CORTE");
    await screen.picture("flow");

    await screen.press("Alt+x");
    await screen.keyboard.type("z99");
    await screen.press("Enter");
    await screen.asks("Fluxo não Cadastrado. Deseja Cadastrar?");
    await screen.press("s");
    await screen.hasFocus("EdtDescFluxo");
    await screen.keyboard.type("prova");
    await screen.press("Enter");
    await screen.hasFocus("DBGrid2");
    await screen.keyboard.type("10");
    await screen.press("Tab");
    await screen.keyboard.type("01");
    await screen.press("Tab");
    await screen.hasCell("DBGrid2", 0, "Descricao", "CORTE");
    await screen.keyboard.type("20");
    await screen.press("Tab");
    await screen.keyboard.type("01");
    await screen.press("Tab");
    await screen.asks("Setor já cadastrado no Fluxo.");
    await screen.press("Enter");
    await screen.hasFocus("DBGrid2");
    await screen.press("Alt+i");
    await screen.settled();
    await screen.press("Enter");
    await screen.hasCell("DBGrid2", 1, "Descricao", "SEPARAÇÃO E PREPARAÇÃO");
    await screen.press("Control+Enter");
    await screen.hasFocus("EdtFluxo");
    await screen.hasText("EdtDescFluxo", "PROVA");
    await screen.press("Enter");
    await screen.hasCell("DBGrid2", 1, "Setor", "02");

    await screen.press("Alt+e");
    await screen.asks("Deseja eliminar esse registro?");
    await screen.press("s");
    await screen.settled();
    await screen.until("the lines are gone", async () => (await screen.cell("DBGrid2", 0, "Setor").count()) === 0);
});
