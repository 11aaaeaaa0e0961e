#include "movement/TfmFacMov.h"

#include "forms/TControl.h"
#include "forms/text.h"

#include <array>
#include <utility>

namespace alinhavo {

TfmFacMov::TfmFacMov(TApplication& application)
    : TOrvForm(application, "TfmFacMov", "Movimentação de Setores")
    , OrvRFIDMov(App().Host.rfid)
    , Precos(Tabela())
    , sParamFAC10(BuscaParametro("FAC", 10))
    , sParamFAC20(BuscaParametro("FAC", 20))
    , sParamFAC30(BuscaParametro("FAC", 30))
    , sParamFAC60(BuscaParametro("FAC", 60))
    , sParamFAC70(BuscaParametro("FAC", 70))
    , sParamFAC80(BuscaParametro("FAC", 80))
    , sParamFAC90(BuscaParametro("FAC", 90))
    , sParamFAC100(BuscaParametro("FAC", 100))
    , sParamFAC140(BuscaParametro("FAC", 140))
    , sParamFAC240(BuscaParametro("FAC", 240))
    , sParamFAC250(BuscaParametro("FAC", 250))
    , sParamFAC260(BuscaParametro("FAC", 260))
    , sParamEXP70(BuscaParametro("EXP", 70))
    , sParamPCP140(BuscaParametro("PCP", 140))
{
    OnKeyDown.connect(this, &TfmFacMov::TelaKeyDown);
    OnClose.connect(this, &TfmFacMov::TelaClose);
    edtOFNum.OnChange.connect(this, &TfmFacMov::edtOFNumChange);
    edtOFNum.OnExit.connect(this, &TfmFacMov::edtOFNumExit);
    CbParte.OnExit.connect(this, &TfmFacMov::CbParteExit);
    EdtSetor.OnExit.connect(this, &TfmFacMov::EdtSetorExit);
    EdtSetor.OnChange.connect(this, &TfmFacMov::EdtSetorChange);
    edtSetorProx.OnExit.connect(this, &TfmFacMov::edtSetorProxExit);
    edtSetorProx.OnChange.connect(this, &TfmFacMov::edtSetorProxChange);
    cbMovimento.OnExit.connect(this, &TfmFacMov::cbMovimentoExit);
    edtDtEntrada.OnExit.connect(this, &TfmFacMov::edtDtEntradaExit);
    edtDtProducao.OnExit.connect(this, &TfmFacMov::edtDtProducaoExit);
    EdtRetorno.OnExit.connect(this, &TfmFacMov::EdtRetornoExit);
    edtFluxo.OnChange.connect(this, &TfmFacMov::edtFluxoChange);
    edtFluxo.OnExit.connect(this, &TfmFacMov::edtFluxoExit);
    edtFaccao.OnChange.connect(this, &TfmFacMov::edtFaccaoChange);
    edtFaccao.OnExit.connect(this, &TfmFacMov::edtFaccaoExit);
    edtFacDest.OnChange.connect(this, &TfmFacMov::edtFacDestChange);
    edtFacDest.OnExit.connect(this, &TfmFacMov::edtFacDestExit);
    edtFacDest.OnKeyDown.connect(this, &TfmFacMov::edtFacDestKeyDown);
    cbBaixaBarras.OnClick.connect(this, &TfmFacMov::cbBaixaBarrasClick);
    EdtBarra.OnChange.connect(this, &TfmFacMov::EdtBarraChange);
    EdtBarra.OnEnter.connect(this, &TfmFacMov::EdtBarraEnter);
    EdtBarra.OnKeyDown.connect(this, &TfmFacMov::EdtBarraKeyDown);
    EdtBarra.OnExit.connect(this, &TfmFacMov::EdtBarraExit);
    edtQual.OnExit.connect(this, &TfmFacMov::edtQualExit);
    EdtCodTip.OnExit.connect(this, &TfmFacMov::EdtCodTipExit);
    edtCodDeposito.OnExit.connect(this, &TfmFacMov::edtCodDepositoExit);
    ZerarQuantidades1.OnClick.connect(this, &TfmFacMov::ZerarQuantidades1Click);
    Distribuirquantidade1.OnClick.connect(this, &TfmFacMov::Distribuirquantidade1Click);
    dbg00Grade.SetPopupMenu(&PopupMenu3);
    dbg00Grade.OnKeyDown.connect(this, &TfmFacMov::dbg00GradeKeyDown);
    dbg00Grade.OnRowColor.connect(this, &TfmFacMov::dbg00GradeRowColor);
    dbg00Grade.OnExit.connect(this, &TfmFacMov::dbg00GradeExit);
    btn00Incluir.OnClick.connect(this, &TfmFacMov::btn00IncluirClick);
    btn00Fechar.OnClick.connect(this, &TfmFacMov::btn00FecharClick);
    btn00Confirmar.OnClick.connect(this, &TfmFacMov::btn00ConfirmarClick);
    btn00Desiste.OnClick.connect(this, &TfmFacMov::btn00DesisteClick);
    PqFluxo.OnFechaPesquisa.connect(this, &TfmFacMov::PqFluxoFechaPesquisa);
    PqSetorProx.OnFechaPesquisa.connect(this, &TfmFacMov::PqSetorProxFechaPesquisa);
    pqRFluxo.OnFechaPesquisa.connect(this, &TfmFacMov::pqRFluxoFechaPesquisa);
    PqFaccao.OnFechaPesquisa.connect(this, &TfmFacMov::PqFaccaoFechaPesquisa);
    PqEntidadeDest.OnFechaPesquisa.connect(this, &TfmFacMov::PqEntidadeDestFechaPesquisa);
    TbTemp.BeforeInsert.connect(this, &TfmFacMov::TbTempBeforeInsert);
    TbTemp.BeforePost.connect(this, &TfmFacMov::TbTempBeforePost);
    TbTemp.AfterPost.connect(this, &TfmFacMov::TbTempAfterPost);

    LigaConsultas();
    OrvRFIDMov.Fornecedor = "Mozaiko";
    CbFormato.SetItemIndex(sParamFAC240 == "B" ? 1 : 0);
    edtQual.SetText("1");
    edtCodDeposito.SetText(DepositoInicial());
    EdtCodTip.SetText(App().Host.stock.CodigoTipoMovEstoque(TTipoMovimentoEstoque::EntradaProducao));
    PageControl2.SetActivePage(tbsNormal);
    Tabela().AbreTabela("TbProduto");
    EdtRetorno.SetDate(application.Today());
    edtDtEntrada.SetDate(application.Today());
    edtDtProducao.SetDate(application.Today());
    CarregaPartes();
    for (TComboBox* partes : {&CbConsParte, &CbEstorParte}) {
        partes->SetItems(CbParte.Items());
        partes->SetItemIndex(0);
    }
    edtDtEntrada.SetEnabled(sParamFAC140 != "S");
    edtDtProducao.SetEnabled(sParamFAC90 != "S");
    PqEntidadeDest.Filtro = TStatement("BLOQUEIO <> ?", "S");
    bLeitAutomatica = Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S") != "N";
    dbg00Grade.SetColumnVisible("Necessidade", sParamFAC20 == "N");
    MostraOcioso();
}

void TfmFacMov::TelaClose()
{
    Tabela().FechaTabela("TbProduto");
    sListaEtq.clear();
}

void TfmFacMov::CarregaPartes()
{
    PreenchePartes(CbParte, TStatement("SELECT CODIGO AS PARTE, DESCRICAO FROM {TIPO_APL} ORDER BY CODIGO"));
}

std::string TfmFacMov::DepositoDoUsuario()
{
    return Busca_Valor("VENDA_CAIXA", "USUARIO", "DEPOSITO", Aspas(Funcoes().vUsuario())).AsString();
}

std::string TfmFacMov::DepositoInicial()
{
    const std::string deposito = DepositoDoUsuario();
    return deposito.empty() ? Busca_Valor("DEPOSITO", "PRIORIDADE", "CODIGO", Aspas("1")).AsString() : deposito;
}

void TfmFacMov::btn00IncluirClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    AbreEntrada();
    edtOFNum.SetFocus();
}

void TfmFacMov::AbreEntrada()
{
    pnlCabecalho.SetEnabled(true);
    TravaCabecalho(false);
    pnlControle.SetVisible(false);
    pnlConfirma.SetVisible(true);
    edtMov.SetText("");
    cbBaixaBarras.SetChecked(false);
}

void TfmFacMov::btn00DesisteClick()
{
    MostraOcioso();
    Limpa_Normal();
    btn00Incluir.SetFocus();
}

void TfmFacMov::btn00FecharClick() { Close(); }

// At rest only the bar with include and close is live.
void TfmFacMov::MostraOcioso()
{
    TravaCabecalho(true);
    pnlCabecalho.SetEnabled(false);
    tbsAcesso.SetEnabled(true);
    pnlConfirma.SetVisible(false);
    pnlControle.SetVisible(true);
}

void TfmFacMov::TravaCabecalho(bool travado)
{
    edtOFNum.SetEnabled(!travado);
    CbParte.SetEnabled(!travado);
    EdtSetor.SetEnabled(!travado);
}

void TfmFacMov::Limpa_Normal()
{
    TbTemp.Tag = 0;
    TbTemp.EmptyTable();
    tbBaixaPartes.EmptyTable();
    for (TTextControl* field :
        std::array<TTextControl*, 14>{&edtOFNum, &edtCodproduto, &edtDescProduto, &EdtSetor, &EdtReprocesso,
            &edtSetorProx, &edtNota, &edtFaccao, &edtFacDest, &edtMov, &EdtPedido, &DtFatPed, &edtObs, &edtFluxo})
        field->SetText("");
    QryFluxo.Close();
    cbMovimento.ClearItems();
    cbMovimento.SetText("");
    imgFoto.SetFile("");
    CarregaPartes(); // the list may be the last order's
    CbProximo.SetChecked(true);
    cbBaixaBarras.SetChecked(false);
    GbBarra.SetVisible(false);
    EdtBarra.SetText("");
    GbEstoque.SetVisible(false);
    edtSetorProx.SetEnabled(false);
    edtFluxo.SetEnabled(true);
    edtFaccao.SetEnabled(true);
    edtDtEntrada.SetEnabled(sParamFAC140 != "S");
    EdtQtde.SetValue(0);
    if (const std::string deposito = DepositoDoUsuario(); !deposito.empty())
        edtCodDeposito.SetText(deposito);
}

void TfmFacMov::EdtSetorChange() { edtDescSetor.SetText(LigaSetor(EdtSetor.text(), "DESCRICAO")); }

void TfmFacMov::edtSetorProxChange() { edtDescSetorProx.SetText(LigaSetor(edtSetorProx.text(), "DESCRICAO")); }

void TfmFacMov::edtFaccaoChange()
{
    edtDescFaccao.SetText(Busca_Valor("ENTIDADE", "CODCLI", "NOME", Aspas(edtFaccao.text())).AsString());
}

void TfmFacMov::edtFacDestChange()
{
    edtDescFacDest.SetText(Busca_Valor("ENTIDADE", "CODCLI", "NOME", Aspas(edtFacDest.text())).AsString());
}

void TfmFacMov::PqFluxoFechaPesquisa() { EdtSetor.SetText(PqFluxo.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::PqSetorProxFechaPesquisa() { edtSetorProx.SetText(PqSetorProx.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::pqRFluxoFechaPesquisa() { edtFluxo.SetText(pqRFluxo.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::PqFaccaoFechaPesquisa() { edtFaccao.SetText(PqFaccao.RetornoPesquisa("CODCLI").AsString()); }

void TfmFacMov::PqEntidadeDestFechaPesquisa()
{
    edtFacDest.SetText(PqEntidadeDest.RetornoPesquisa("CODCLI").AsString());
}

void TfmFacMov::TelaKeyDown(TKey& key)
{
    if (key.name == "F3") {
        key.Swallow();
        Funcoes().AcessaLog(*this, "MOVIMENTO OF", edtOFNum.empty() ? edtM01OF.text() : edtOFNum.text());
    } else if (key.name == "F4") {
        AbrePesquisaDoCampo(key);
    } else if (key.name == "F7" && pnlConfirma.EffectivelyVisible()) {
        key.Swallow();
        Executa_Form("TFmFacProdFunc");
    } else if (key.name == "Esc" && edtDtProducao.Focused()) {
        key.Swallow();
    }
}

void TfmFacMov::AbrePesquisaDoCampo(TKey& key)
{
    const std::array<std::pair<TControl*, TPesquisa*>, 10> pesquisas{
        {{&EdtSetor, &PqFluxo}, {&edtSetorProx, &PqSetorProx}, {&edtFluxo, &pqRFluxo}, {&edtFaccao, &PqFaccao},
            {&edtFacDest, &PqEntidadeDest}, {&edtM01Produto, &PqMProduto}, {&edtM02Produto, &PqEProduto},
            {&edtRTipMov, &PqRTipMov}, {&edtRDeposito, &PqRDeposito}, {&edtDepositoRep, &PqDepositoRep}}};
    for (const auto& [field, pesquisa] : pesquisas) {
        if (!field->Focused())
            continue;
        key.Swallow();
        return pesquisa->AbrePesquisa();
    }
}

} // namespace alinhavo
