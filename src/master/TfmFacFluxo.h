#pragma once

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TPopupMenu.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"
#include "host/TprReport.h"

#include <string>

namespace alinhavo {

/// The lines of the flow on screen, in the order of the numbers that the user gives them.
struct TTbLinhasFluxo final : TMemTable {
    using TMemTable::TMemTable;

    TIntegerField Ordem{*this, "Ordem"};
    TStringField Setor{*this, "Setor", 3};
    TStringField Descricao{*this, "Descricao", 80, {.title = "Descrição"}}; ///< of the sector, as it was entered
};

/// "Cadastro de Fluxos": one flow at a time, its sectors edited in memory and written as a whole.
class TfmFacFluxo final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmFacFluxo";

    explicit TfmFacFluxo(TApplication& application);

    TTbLinhasFluxo TbTemp{*this, "TbTemp"};
    TOrvTable& tbFluxo; ///< lines of all flows, shared with the other screens
    TOrvQuery qryRelatorio{*this, "qryRelatorio", Database()};
    TprReport prReport;
    TprTxReport prTxReport;

    TRow linhaFluxo{*this, "linhaFluxo"};
    TEdit EdtFluxo{linhaFluxo, "EdtFluxo", {.caption = "Flu&xo", .maxLength = 3, .upperCase = true, .lookup = true}};
    TEdit EdtDescFluxo{linhaFluxo, "EdtDescFluxo", {.caption = "&Descrição", .maxLength = 150, .upperCase = true}};

    TPopupMenu PopupMenu1{*this, "PopupMenu1"};
    TMenuItem ExcluirSetor1{PopupMenu1, "ExcluirSetor1", {.caption = "Excluir Setor", .shortcut = "Ctrl+Del"}};
    TGrid DBGrid2{*this, "DBGrid2", TbTemp,
        {.caption = "&Setores do fluxo",
            .columns = {{.field = "Ordem", .width = 8}, {.field = "Setor", .width = 8, .lookup = true},
                {.field = "Descricao", .readOnly = true}},
            .lines = 14}};

    TRow pnlControle{*this, "pnlControle"};
    TButton BitBtn1{pnlControle, "BitBtn1", {.caption = "&Gravar", .role = TButtonRole::Default}};
    TButton BtExcluir{pnlControle, "BtExcluir", {.caption = "&Excluir"}};
    TButton btnImportar{pnlControle, "btnImportar", {.caption = "&Importar"}};
    TButton BtnImprimir{pnlControle, "BtnImprimir", {.caption = "&Imprimir", .shortcut = "Ctrl+P"}};
    TButton BitBtn2{pnlControle, "BitBtn2", {.caption = "&Fechar"}};

    TPesquisa PqFluxo{*this, "PqFluxo", {.BuscaTabela = "ROTEIRO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqSetor{*this, "PqSetor", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};
    TPesquisa pqDupFluxo{*this, "pqDupFluxo", {.BuscaTabela = "ROTEIRO", .BuscaCampo = "CODIGO"}};

    // Handlers, in the order of the controls.
    void EdtFluxoChange();
    void EdtFluxoExit();
    void ExcluirSetor1Click();
    void DBGrid2KeyDown(TKey& key);
    void BitBtn1Click();
    void BtExcluirClick();
    void btnImportarClick();
    void BtnImprimirClick();
    void BitBtn2Click();
    void PqFluxoFechaPesquisa();
    void PqSetorFechaPesquisa();
    void pqDupFluxoFechaPesquisa();
    void TelaKeyDown(TKey& key);
    void TelaClose();

    void VerificaSetor(); ///< aborts when the current line's sector stands in the flow twice, and takes the line away
    void GravaFluxo();
    void DeletaFluxo();
    void ExcluirSetor();

private:
    const std::string& Fluxo() const { return EdtFluxo.text(); }
    std::string DescricaoDoFluxo(const std::string& fluxo);
    void CarregaLinhas(TDataSet& linhas);
    void BuscaDescricaoDoSetor();
    void GravaCabecalho();
    bool ConfirmaGravacao();
    bool ConfirmaProdutos();
};

} // namespace alinhavo
