#include "example/TfmExemplo.h"

#include "forms/numbers.h"

namespace alinhavo {

TfmExemplo::TfmExemplo(TApplication& app)
    : TForm(app, "TfmExemplo", "Tingimento de Botões")
{
    dbgBotoes.SetPopupMenu(&PopupMenu1);
    edtPedido.OnExit.connect(this, &TfmExemplo::edtPedidoExit);
    cbCor.OnExit.connect(this, &TfmExemplo::cbCorExit);
    edtEntrega.OnExit.connect(this, &TfmExemplo::edtEntregaExit);
    dbgBotoes.OnKeyDown.connect(this, &TfmExemplo::dbgBotoesKeyDown);
    dbgBotoes.OnRowColor.connect(this, &TfmExemplo::dbgBotoesRowColor);
    ZerarQuantidades1.OnClick.connect(this, &TfmExemplo::ZerarQuantidades1Click);
    btnConfirmar.OnClick.connect(this, &TfmExemplo::btnConfirmarClick);
    btnDesistir.OnClick.connect(this, &TfmExemplo::btnDesistirClick);
    btnDetalhe.OnClick.connect(this, &TfmExemplo::btnDetalheClick);
    TbBotoes.BeforePost.connect(this, &TfmExemplo::TbBotoesBeforePost);
    TbBotoes.AfterPost.connect(this, &TfmExemplo::TbBotoesAfterPost);
    TbBotoes.CanInsert = false;
    edtEntrega.SetDate(app.Today());
}

void TfmExemplo::edtPedidoExit()
{
    if (FocusGoesTo(btnDesistir) || edtPedido.empty())
        return;
    if (edtPedido.text().starts_with("9"))
        return Recusa("Pedido não encontrado.", edtPedido);
    lblSituacao.SetCaption("Pedido " + edtPedido.text() + ".");
}

void TfmExemplo::cbCorExit()
{
    if (FocusGoesTo(btnDesistir) || cbCor.ItemIndex() < 0)
        return;
    if (TbBotoes.IsEmpty() || Pergunta("Deseja carregar os tamanhos de novo?"))
        CarregaTamanhos();
}

void TfmExemplo::CarregaTamanhos()
{
    const auto quiet = TbBotoes.DisableControls();
    TbBotoes.EmptyTable();
    for (const auto* tam : {"P", "M", "G"}) {
        TbBotoes.Append();
        TbBotoes.Tam = tam;
        TbBotoes.Qtde = 0;
        TbBotoes.Post();
    }
    TbBotoes.First();
}

void TfmExemplo::edtEntregaExit()
{
    if (edtEntrega.empty() || edtEntrega.Date() >= Application().Today())
        return;
    if (!Pergunta("Data de entrega menor que a data atual. Deseja continuar?"))
        Abort();
}

void TfmExemplo::dbgBotoesKeyDown(TKey& key)
{
    if (key.name == "F4" && dbgBotoes.Column() == "Qtde") {
        std::string quantidade;
        if (InputBox("Quantidade", "Quantidade:", quantidade)) {
            TbBotoes.Edit();
            TbBotoes.Qtde.SetTyped(quantidade);
        }
        key.Swallow();
    }
}

void TfmExemplo::dbgBotoesRowColor(std::size_t row, TRowColor& color)
{
    if (TbBotoes.CellValue(row, TbBotoes.Perda).AsFloat() > 0)
        color = TRowColor::Warning;
    else if (TbBotoes.CellValue(row, TbBotoes.Qtde).AsFloat() > 0)
        color = TRowColor::Good;
}

void TfmExemplo::TbBotoesBeforePost()
{
    if (TbBotoes.Perda.value() <= TbBotoes.Qtde.value())
        return;
    Alarme("Perda maior que a quantidade.");
    TbBotoes.Perda = 0;
}

void TfmExemplo::TbBotoesAfterPost() { edtTotal.SetValue(TbBotoes.Sum("Qtde")); }

void TfmExemplo::ZerarQuantidades1Click()
{
    TbBotoes.ForEach([&] {
        TbBotoes.Edit();
        TbBotoes.Qtde = 0;
        TbBotoes.Perda = 0;
    });
}

// One check after the other: the first refusal is the one that the user sees.
bool TfmExemplo::PodeConfirmar()
{
    if (edtPedido.empty())
        return Recusa("Informe o pedido.", edtPedido), false;
    if (edtEntrega.empty())
        return Recusa("Informe a data de entrega.", edtEntrega), false;
    if (TbBotoes.Sum("Qtde") <= 0)
        return Recusa("Nenhuma quantidade para tingir.", dbgBotoes), false;
    return true;
}

void TfmExemplo::btnConfirmarClick()
{
    if (!PodeConfirmar() || !Pergunta("Confirma o tingimento?"))
        return;
    ++nConfirmados;
    Limpa();
    lblSituacao.SetCaption("Pedidos confirmados: " + std::to_string(nConfirmados) + ".");
}

void TfmExemplo::btnDesistirClick()
{
    Limpa();
    lblSituacao.SetCaption("Nenhum pedido.");
}

void TfmExemplo::btnDetalheClick() { Mensagem("Total: " + FormatDecimal(TbBotoes.Sum("Qtde"), 0)); }

void TfmExemplo::Limpa()
{
    TbBotoes.Cancel();
    TbBotoes.EmptyTable();
    edtPedido.Clear();
    cbCor.SetItemIndex(-1);
    edtTotal.Clear();
    mmObs.Clear();
    edtPedido.SetFocus();
}

} // namespace alinhavo
