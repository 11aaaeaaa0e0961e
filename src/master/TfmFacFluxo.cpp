#include "master/TfmFacFluxo.h"

namespace alinhavo {

TfmFacFluxo::TfmFacFluxo(TApplication& application)
    : TOrvForm(application, Class, "Cadastro de Fluxos")
    , tbFluxo(Tabela().Tabela("tbFluxo"))
{
    OnKeyDown.connect(this, &TfmFacFluxo::TelaKeyDown);
    OnClose.connect(this, &TfmFacFluxo::TelaClose);
    EdtFluxo.OnChange.connect(this, &TfmFacFluxo::EdtFluxoChange);
    EdtFluxo.OnExit.connect(this, &TfmFacFluxo::EdtFluxoExit);
    ExcluirSetor1.OnClick.connect(this, &TfmFacFluxo::ExcluirSetor1Click);
    DBGrid2.SetPopupMenu(&PopupMenu1);
    DBGrid2.OnKeyDown.connect(this, &TfmFacFluxo::DBGrid2KeyDown);
    BitBtn1.OnClick.connect(this, &TfmFacFluxo::BitBtn1Click);
    BtExcluir.OnClick.connect(this, &TfmFacFluxo::BtExcluirClick);
    btnImportar.OnClick.connect(this, &TfmFacFluxo::btnImportarClick);
    BtnImprimir.OnClick.connect(this, &TfmFacFluxo::BtnImprimirClick);
    BitBtn2.OnClick.connect(this, &TfmFacFluxo::BitBtn2Click);
    PqFluxo.Serve(EdtFluxo);
    PqFluxo.OnFechaPesquisa.connect(this, &TfmFacFluxo::PqFluxoFechaPesquisa);
    PqSetor.OnFechaPesquisa.connect(this, &TfmFacFluxo::PqSetorFechaPesquisa);
    pqDupFluxo.OnFechaPesquisa.connect(this, &TfmFacFluxo::pqDupFluxoFechaPesquisa);

    prReport.Title = Caption();
    prReport.DataSets["qryRelatorio"] = &qryRelatorio;
    prTxReport.Title = Caption();
    prTxReport.DataSets["qryRelatorio"] = &qryRelatorio;
    for (const auto* tabela : {"tbFluxo", "tbCadfluxo", "TbTabela"})
        Tabela().AbreTabela(tabela);
}

void TfmFacFluxo::TelaClose()
{
    for (const auto* tabela : {"tbFluxo", "tbCadfluxo", "TbTabela"})
        Tabela().FechaTabela(tabela);
}

void TfmFacFluxo::TelaKeyDown(TKey& key)
{
    if (key.name != "F3")
        return;
    key.Swallow();
    Funcoes().AcessaLog(*this, "FLUXO", Fluxo());
}

std::string TfmFacFluxo::DescricaoDoFluxo(const std::string& fluxo)
{
    return Busca_Valor("ROTEIRO", "CODIGO", "DESCRICAO", Aspas(fluxo)).AsString();
}

void TfmFacFluxo::EdtFluxoChange() { EdtDescFluxo.SetText(DescricaoDoFluxo(Fluxo())); }

/// Opens are not counted, so another screen that closes may have closed the lines under this one.
void TfmFacFluxo::EdtFluxoExit()
{
    if (FocusGoesTo(BitBtn2))
        return;
    if (Existe("ROTEIRO", "CODIGO", Aspas(Fluxo()))) {
        Tabela().AbreTabela("tbFluxo");
        if (Fluxo().empty())
            tbFluxo.Unrestrict();
        else
            tbFluxo.Restrict("CODIGO", {Fluxo()});
        CarregaLinhas(tbFluxo);
    } else if (Pergunta("Fluxo não Cadastrado. Deseja Cadastrar?")) {
        EdtDescFluxo.SetFocus();
        TbTemp.EmptyTable();
    } else {
        EdtFluxo.Clear();
        return EdtFluxo.SetFocus();
    }
    TbTemp.SortBy("Ordem");
}

void TfmFacFluxo::CarregaLinhas(TDataSet& linhas)
{
    TbTemp.Load(linhas);
    TbTemp.First();
}

void TfmFacFluxo::DBGrid2KeyDown(TKey& key)
{
    if (key.name == "F4") {
        key.Swallow();
        PqSetor.AbrePesquisa();
    } else if (key.name == "Tab" && DBGrid2.Column() == TbTemp.Setor.Name()) {
        BuscaDescricaoDoSetor();
        VerificaSetor();
    }
}

/// An unknown sector keeps the description that the line had, and is not refused.
void TfmFacFluxo::BuscaDescricaoDoSetor()
{
    TbTemp.Post();
    const std::string setor = TbTemp.Setor.value();
    if (!Existe("CADFLUXO", "CODIGO", Aspas(setor)))
        return;
    TbTemp.Edit();
    TbTemp.Descricao = Busca_Valor("CADFLUXO", "CODIGO", "DESCRICAO", Aspas(setor)).AsString();
    TbTemp.Post();
}

void TfmFacFluxo::VerificaSetor()
{
    const std::string setor = TbTemp.Setor.value();
    if (setor.empty())
        return;
    int vezes = 0;
    TbTemp.ForEach([&] { vezes += TbTemp.Setor.value() == setor ? 1 : 0; });
    if (vezes <= 1)
        return;
    Mensagem("Setor já cadastrado no Fluxo.");
    TbTemp.Delete();
    Abort();
}

void TfmFacFluxo::BitBtn1Click()
{
    if (!ConfirmaGravacao())
        return;
    GravaFluxo();
    TbTemp.EmptyTable();
    EdtFluxo.SetFocus();
}

/// A flow that orders go through is warned of once: whether products name it as well is then not said.
bool TfmFacFluxo::ConfirmaGravacao()
{
    if (Existe("FACCAO", "FLUXO", Aspas(Fluxo())))
        return Pergunta("Atenção!\n"
                        "O Fluxo está sendo usado na Facção. \n"
                        "Se continuar poderá gerar erros irreversíveis nas movimentações de facção.\n"
                        "\n"
                        "Continuar?");
    return ConfirmaProdutos();
}

bool TfmFacFluxo::ConfirmaProdutos()
{
    return !Existe("PRO_FLUXO", "FLUXO", Aspas(Fluxo()))
        || Pergunta("Atenção!\n"
                    "O Fluxo está sendo usado em produto(s).\n"
                    "\n"
                    "Continuar?");
}

/// The old lines are gone for good before the new ones are written: a failure among these leaves the flow without lines.
void TfmFacFluxo::GravaFluxo()
{
    GravaCabecalho();
    DeletaFluxo();
    TbTemp.ForEach([&] {
        Executa("INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES (?, ?, ?, ?)", Fluxo(),
            TbTemp.Ordem.value(), TbTemp.Setor.value(), TbTemp.Descricao.value());
    });
    GeraLog("FLUXO", "Inclusao//Alteracao Fluxo: " + Fluxo(), TOperacaoLog::Alteracao, Fluxo());
    CommitRetaining();
}

void TfmFacFluxo::GravaCabecalho()
{
    if (Existe("ROTEIRO", "CODIGO", Aspas(Fluxo())))
        Executa("UPDATE {ROTEIRO} SET DESCRICAO = ? WHERE CODIGO = ?", EdtDescFluxo.text(), Fluxo());
    else
        Executa("INSERT INTO {ROTEIRO} (CODIGO, DESCRICAO, ORDEM) VALUES (?, ?, 0)", Fluxo(), EdtDescFluxo.text());
}

void TfmFacFluxo::DeletaFluxo()
{
    Executa("DELETE FROM {FLUXO} WHERE CODIGO = ?", Fluxo());
    CommitRetaining();
}

/// Asks for no right, unlike the deletion of a line. The products that name the flow go on naming it, and the line of the
/// log waits for the next commit.
void TfmFacFluxo::BtExcluirClick()
{
    if (!Pergunta("Deseja eliminar esse registro?"))
        return;
    if (Existe("FACCAO", "FLUXO", Aspas(Fluxo())))
        return Mensagem("Fluxo está sendo usado na Faccão, impossível deletar.");
    if (!ConfirmaProdutos())
        return;
    TbTemp.EmptyTable();
    Executa("DELETE FROM {ROTEIRO} WHERE CODIGO = ?", Fluxo());
    DeletaFluxo();
    GeraLog("FLUXO", "Exclusao Fluxo: " + Fluxo(), TOperacaoLog::Exclusao, Fluxo());
}

void TfmFacFluxo::ExcluirSetor1Click() { ExcluirSetor(); }

/// Written at once, while lines that were added wait for Gravar. What holds a sector in its flow is a position without any
/// movement; one from which something has left does not.
void TfmFacFluxo::ExcluirSetor()
{
    if (TbTemp.IsEmpty() || !Acessa(TDireito::Exclui) || !Pergunta("Deseja excluir setor do fluxo?"))
        return;
    const std::string setor = TbTemp.Setor.value();
    const TOrvQuery paradas = Consulta("SELECT DISTINCT NUMERO FROM {FACCAO}"
                                       " WHERE (QUANT+QUANT_2+QUANT_I+QUANT_F) = 0 AND FLUXO = ? AND OP = ?",
        Fluxo(), setor);
    if (!paradas.IsEmpty())
        return Mensagem("Setor com quantidades pendentes na facção. Impossível deletar.");

    Executa("DELETE FROM {FLUXO} WHERE SETOR = ? AND CODIGO = ?", setor, Fluxo());
    Executa("DELETE FROM {TABELA} WHERE SETOR = ?"
            " AND CODIGO IN (SELECT CODIGO FROM {PRO_FLUXO} WHERE FLUXO = ?)",
        setor, Fluxo());
    GeraLog("FLUXO", "Exclusao do Setor: " + setor + " Fluxo: " + Fluxo(), TOperacaoLog::Exclusao, Fluxo());
    TbTemp.Delete();
    CommitRetaining();
}

void TfmFacFluxo::btnImportarClick() { pqDupFluxo.AbrePesquisa(); }

void TfmFacFluxo::BtnImprimirClick()
{
    qryRelatorio.SQL = TStatement("SELECT * FROM {FLUXO} ORDER BY CODIGO, ORDEM");
    qryRelatorio.Open();
    if (!qryRelatorio.IsEmpty())
        App().Host.reports.Chama_Relatorio(prReport, prTxReport, "WRelFluxo", *this, "");
}

void TfmFacFluxo::BitBtn2Click() { Close(); }

void TfmFacFluxo::PqFluxoFechaPesquisa() { EdtFluxo.SetText(PqFluxo.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacFluxo::PqSetorFechaPesquisa()
{
    TbTemp.Edit();
    TbTemp.Setor.Set(PqSetor.RetornoPesquisa("CODIGO"));
    TbTemp.Descricao.Set(PqSetor.RetornoPesquisa("DESCRICAO"));
}

/// Nothing is written until the flow is.
void TfmFacFluxo::pqDupFluxoFechaPesquisa()
{
    const std::string origem = pqDupFluxo.RetornoPesquisa("CODIGO").AsString();
    TOrvQuery linhas = Consulta("SELECT ORDEM, SETOR, DESCRICAO FROM {FLUXO} WHERE CODIGO = ?", origem);
    CarregaLinhas(linhas);
    if (EdtDescFluxo.empty())
        EdtDescFluxo.SetText(DescricaoDoFluxo(origem));
}

} // namespace alinhavo
