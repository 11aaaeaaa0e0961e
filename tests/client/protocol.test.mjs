// The protocol's page is enough to write another client: this one moves an order without a browser.
import assert from "node:assert/strict";
import { test } from "./harness.mjs";
import { connect } from "./ProtocolClient.mjs";

const form = "fmFacMov";

test("a program moves an order by the names of screen and controls", { factory: true, user: "MARIA", screen: null }, async (_screen, { server }) => {
    const client = await connect(server.url, "MARIA", "demo");
    assert.ok(client.menu.some((entry) => entry.class === "TfmFacMov"));
    await client.open("TfmFacMov");
    assert.equal(client.property(form, "btn00Incluir", "visible"), true);
    await client.click(form, "btn00Incluir");
    await client.fill(form, "edtOFNum", "026016");
    await client.key(form, "CbParte", "Enter");
    assert.match(client.dialogs.at(-1).text, /não está lançada na Facção/);
    assert.equal(client.dialogs.at(-1).default, "no");
    await client.answer("yes");
    assert.deepEqual(client.focus, { form, control: "EdtSetor" });
    await client.fill(form, "EdtSetor", "01");
    for (let step = 0; step < 15 && client.focus.control !== "dbg00Grade"; ++step) {
        if (client.dialogs.length > 0) await client.answer("ok");
        else await client.key(form, client.focus.control, "Enter");
    }
    const column = "Quant";
    await client.fillCell(form, "dbg00Grade", 0, column, "2");
    assert.equal(client.cell(form, "dbg00Grade", 0, column), "2");
    await client.click(form, "btn00Confirmar");
    assert.deepEqual(client.dialogs, []);
    assert.equal(client.property(form, "dbg00Grade", "rowCount"), 0);
    assert.equal(client.property(form, "btn00Incluir", "visible"), true);
    client.close();
});

test("what no person could do is refused with its reason", { factory: true, user: "MARIA", screen: null }, async (_screen, { server }) => {
    const client = await connect(server.url, "MARIA", "demo");
    await client.open("TfmFacMov");
    await assert.rejects(client.do({ event: "text", form, control: "edtOFNum", text: "026017" }), /edtOFNum/);
    await assert.rejects(client.do({ event: "click", form, control: "btnNaoExiste" }), /btnNaoExiste/);
    await assert.rejects(connect(server.url, "MARIA", "errada"), /inválid/);
    client.close();
});
