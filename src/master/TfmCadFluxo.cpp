#include "master/TfmCadFluxo.h"

#include "forms/text.h"

#include <stdexcept>

namespace alinhavo {

namespace {

/// Monday to Friday, among the items of CbSemana.
constexpr int segundaASexta = 4;

/// Without regard to case.
bool Menciona(const std::exception& erro, std::string_view texto)
{
    return UpperCase(erro.what()).find(UpperCase(texto)) != std::string::npos;
}

} // namespace

TfmCadFluxo::TfmCadFluxo(TApplication& application)
    : TOrvForm(application, Class, "Cadastro de Setores")
    , tbCadFluxo(Tabela().Tabela("tbCadFluxo"))
{
    OnClose.connect(this, &TfmCadFluxo::TelaClose);
    Btincluir.OnClick.connect(this, &TfmCadFluxo::BtincluirClick);
    BtnAltera.OnClick.connect(this, &TfmCadFluxo::BtnAlteraClick);
    BtExcluir.OnClick.connect(this, &TfmCadFluxo::BtExcluirClick);
    BtnConsultar.OnClick.connect(this, &TfmCadFluxo::BtnConsultarClick);
    BtnImprimir.OnClick.connect(this, &TfmCadFluxo::BtnImprimirClick);
    BtSaida.OnClick.connect(this, &TfmCadFluxo::BtSaidaClick);
    BitBtn1.OnClick.connect(this, &TfmCadFluxo::BitBtn1Click);
    BtnDesistir.OnClick.connect(this, &TfmCadFluxo::BtnDesistirClick);
    DBGrid1.OnEnter.connect(this, &TfmCadFluxo::DBGrid1Enter);
    DBGrid1.OnTitleClick.connect(this, &TfmCadFluxo::DBGrid1TitleClick);
    DBEdit1.OnChange.connect(this, &TfmCadFluxo::DBEdit1Change);
    DBEdit1.OnExit.connect(this, &TfmCadFluxo::DBEdit1Exit);
    SpeedButton1.OnClick.connect(this, &TfmCadFluxo::SpeedButton1Click);
    PqGrupo.Serve(EdtGrupo);
    PqGrupo.OnFechaPesquisa.connect(this, &TfmCadFluxo::PqGrupoFechaPesquisa);
    pqSped.Serve(DBSped);
    pqSped.OnFechaPesquisa.connect(this, &TfmCadFluxo::pqSpedFechaPesquisa);

    PqConsulta.BuscaTable = &tbCadFluxo;
    prReport.Title = Caption();
    prReport.DataSets["tbCadFluxo"] = &tbCadFluxo;
    AbreSetores();
    DBGrid1.SetFocus();
}

/// A row in edit is given up with the screen.
void TfmCadFluxo::TelaClose()
{
    tbCadFluxo.Cancel();
    Tabela().FechaTabela("tbCadFluxo");
}

/// Opens are not counted, so another screen that closes may have closed the sectors under this one.
void TfmCadFluxo::AbreSetores()
{
    Tabela().AbreTabela("tbCadFluxo");
    MostraSemana();
}

void TfmCadFluxo::BtincluirClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    AbreSetores();
    tbCadFluxo.Append();
    Campo("IND_PAG").Set(1);
    MostraSemana();
    AbreDados(DBEdit1);
}

void TfmCadFluxo::BtnAlteraClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    AbreSetores();
    if (tbCadFluxo.IsEmpty())
        return;
    tbCadFluxo.Edit();
    DBEdit1.SetEnabled(false);
    AbreDados(DBEdit2);
}

void TfmCadFluxo::AbreDados(TControl& primeiro)
{
    pnlControle.SetVisible(false);
    pnlConfirma.SetVisible(true);
    pnlDados.SetEnabled(true);
    primeiro.SetFocus();
    DBGrid1.SetEnabled(false);
}

void TfmCadFluxo::FechaDados()
{
    DBGrid1.SetEnabled(true);
    DBGrid1.SetFocus();
    DBEdit1.SetEnabled(true);
    pnlDados.SetEnabled(false);
    pnlConfirma.SetVisible(false);
    pnlControle.SetVisible(true);
}

/// What other users did meanwhile shows from here on.
void TfmCadFluxo::AtualizaSetores()
{
    tbCadFluxo.Refresh();
    MostraSemana();
}

/// Whether the sector is in use is for the database to say; that it refused is not told, and the line of the log stays.
void TfmCadFluxo::BtExcluirClick()
{
    AbreSetores();
    if (!Acessa(TDireito::Exclui) || !Pergunta("Deseja eliminar este Registro?"))
        return;
    try {
        RegistraLog("EXCLUSAO SETOR " + CodigoEDescricao(), TOperacaoLog::Exclusao);
        tbCadFluxo.Delete();
        CommitRetaining();
    } catch (const std::exception& erro) {
        if (Menciona(erro, tbCadFluxo.Name()))
            Mensagem("Todo o Cadastro Foi excluído.");
    }
}

void TfmCadFluxo::BtnConsultarClick()
{
    AbreSetores();
    PqConsulta.AbrePesquisa();
}

void TfmCadFluxo::BtnImprimirClick()
{
    AbreSetores();
    App().Host.reports.Chama_RelatorioWin(prReport, "WCadFluxo", *this);
}

void TfmCadFluxo::BtSaidaClick() { Close(); }

/// The line of the log comes before the row: a confirmation that the database refuses leaves it all the same.
void TfmCadFluxo::BitBtn1Click()
{
    GravaSemana();
    RegistraGravacao();
    try {
        AtualizaDescricaoNosFluxos();
        tbCadFluxo.Post();
    } catch (const std::exception& erro) {
        RecusaGravacao(erro);
    }
    FechaDados();
    CommitRetaining();
    AtualizaSetores();
}

/// A sector of which nothing is known stays so.
void TfmCadFluxo::GravaSemana()
{
    if (!Trim(CbSemana.text()).empty())
        Campo("DIAS_SEMANA").Set(Left(CbSemana.text(), 1));
}

void TfmCadFluxo::RegistraGravacao()
{
    if (Existe("CADFLUXO", "CODIGO", Aspas(Codigo())))
        RegistraLog("ALTERACAO SETOR " + CodigoEDescricao(), TOperacaoLog::Alteracao);
    else
        RegistraLog("INCLUSAO SETOR " + CodigoEDescricao(), TOperacaoLog::Inclusao);
}

/// The flows keep a copy of each sector's description, which follows the sector only when the user wants it so.
void TfmCadFluxo::AtualizaDescricaoNosFluxos()
{
    if (tbCadFluxo.State() != TDataSetState::Edit)
        return;
    const std::string anterior = Trim(Busca_Valor("CADFLUXO", "CODIGO", "DESCRICAO", Aspas(Codigo())).AsString());
    if (anterior == Trim(Descricao()) || !Pergunta("Deseja atualizar a descrição do setor nos fluxos cadastrados?"))
        return;
    QryAux.SQL = TStatement("UPDATE {FLUXO} SET DESCRICAO = ? WHERE SETOR = ?", Descricao(), Codigo());
    QryAux.ExecSQL();
    RegistraLog(
        "ATUALIZADO DESCRICAO SETOR " + Codigo() + " - " + anterior + " PARA " + Descricao(), TOperacaoLog::Alteracao);
}

/// The row stays in edit, to be corrected.
void TfmCadFluxo::RecusaGravacao(const std::exception& erro)
{
    if (Menciona(erro, "Descricao") && Menciona(erro, "duplicate"))
        Mensagem("Setor " + Descricao() + " já cadastrado.");
    else
        Mensagem("Não foi possível gravar. " + std::string(erro.what()));
    Abort();
}

void TfmCadFluxo::RegistraLog(const std::string& texto, TOperacaoLog operacao)
{
    GeraLog("CADASTRO DE SETORES", texto, operacao, Codigo());
}

void TfmCadFluxo::BtnDesistirClick()
{
    tbCadFluxo.Cancel();
    FechaDados();
    AtualizaSetores();
}

void TfmCadFluxo::DBGrid1Enter() { AbreSetores(); }

void TfmCadFluxo::DBGrid1TitleClick(std::string_view field) { tbCadFluxo.SortBy(field); }

/// The code changes with the row: this is how the week, which is bound to no field, follows it.
void TfmCadFluxo::DBEdit1Change() { MostraSemana(); }

/// A new sector works from Monday to Friday unless told otherwise.
void TfmCadFluxo::MostraSemana()
{
    CbSemana.SetItemIndex(static_cast<int>(Campo("DIAS_SEMANA").AsInteger()) - 1);
    if (tbCadFluxo.State() == TDataSetState::Insert && CbSemana.ItemIndex() < 0)
        CbSemana.SetItemIndex(segundaASexta);
}

/// A code that exists is said to be so, and that is all: who goes on to Confirmar or Desistir gets there.
void TfmCadFluxo::DBEdit1Exit()
{
    if (Trim(Codigo()).empty())
        Campo("CODIGO").Set(Funcoes().Proximo("CADFLUXO", "CODIGO", 2));
    if (!Existe("CADFLUXO", "CODIGO", Aspas(Codigo())))
        return;
    Mensagem("Código já Existente.");
    if (!FocusGoesTo(BitBtn1) && !FocusGoesTo(BtnDesistir))
        DBEdit1.SetFocus();
}

/// The days are those on screen, whether the row is saved or not.
void TfmCadFluxo::SpeedButton1Click()
{
    const std::string dias = Trim(DBEdit5.text());
    if (dias.empty())
        return Mensagem("Cadastro de dias inválido.");
    if (!Pergunta("Deseja alterar todos lead time deste setor?"))
        return;
    QryAux.SQL = TStatement("UPDATE {PCP_MOV} SET DIAS = ? WHERE SETOR = ?", BareNumber(dias), Codigo());
    QryAux.ExecSQL();
    RegistraLog("ALTERADO LEAD TIME DO SETOR: " + Codigo() + " DIAS: " + dias, TOperacaoLog::Alteracao);
    CommitRetaining();
}

void TfmCadFluxo::PqGrupoFechaPesquisa() { Campo("GRUPO").Set(PqGrupo.RetornoPesquisa("CODIGO")); }

void TfmCadFluxo::pqSpedFechaPesquisa() { Campo("CODSPED").Set(pqSped.RetornoPesquisa("CODIGO")); }

} // namespace alinhavo
