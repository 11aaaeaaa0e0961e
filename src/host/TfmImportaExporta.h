#pragma once

#include "forms/TButton.h"
#include "forms/TComboBox.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TMemTable.h"
#include "forms/TPageControl.h"
#include "forms/TRadioGroup.h"
#include "forms/TRow.h"
#include "forms/TTabSheet.h"
#include "host/ITableExchange.h"
#include "host/TOrvForm.h"
#include "host/TOrvQuery.h"

#include <memory>
#include <string>
#include <vector>

namespace alinhavo {

/// What a file would do to its table, line by line.
struct TTbLinhas : TMemTable {
    using TMemTable::TMemTable;

    TIntegerField Linha{*this, "Linha", {.title = "Linha"}};
    TStringField Situacao{*this, "Situacao", 10, {.title = "Situação"}};
    TStringField Chave{*this, "Chave", 200, {.title = "Chave"}};
    TStringField Coluna{*this, "Coluna", 200, {.title = "Coluna"}};
    TStringField Conteudo{*this, "Conteudo", 200, {.title = "Conteúdo"}};
    TStringField Motivo{*this, "Motivo", 8000, {.title = "Motivo ou mudança"}};

    void Mostra(const std::vector<TImportRemark>& linhas);
};

/// "Importar e exportar tabelas": a file is compared with its table as soon as both are chosen, and written when that is
/// confirmed; a table is shown whole, to be taken away from its grid. What a person may not do on a table's own screen, he may
/// not do here.
class TfmImportaExporta final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmImportaExporta";

    TfmImportaExporta(TApplication& application, std::unique_ptr<ITableExchange> exchange);

    TTbLinhas TbLinhas{*this, "TbLinhas"};
    TOrvQuery QryTabela{*this, "QryTabela", Database()};

    TRow pnlTabela{*this, "pnlTabela"};
    TComboBox CbTabela{pnlTabela, "CbTabela", {.caption = "&Tabela"}};
    TButton BtSaida{pnlTabela, "BtSaida", {.caption = "&Fechar", .role = TButtonRole::Cancel}};

    TPageControl PageControl1{*this, "PageControl1"};

    TTabSheet pgImportar{PageControl1, "pgImportar", {.caption = "Importar"}};
    TRow pnlArquivo{pgImportar, "pnlArquivo"};
    TButton btnArquivo{pnlArquivo, "btnArquivo", {.caption = "&Escolher arquivo", .shortcut = "F6"}};
    TEdit edtArquivo{pnlArquivo, "edtArquivo", {.caption = "Arquivo", .readOnly = true, .tabStop = false}};
    TRadioGroup rgExistentes{pnlArquivo, "rgExistentes",
        {.caption = "Linhas que a tabela já tem", .items = {"Atualiza", "Ignora"}, .itemIndex = 0}};
    TButton btnGravar{pnlArquivo, "btnGravar", {.caption = "&Gravar", .role = TButtonRole::Default, .enabled = false}};
    TLabel lblResumo{pgImportar, "lblResumo", {.style = TLabelStyle::Strong}};
    TLabel lblForma{pgImportar, "lblForma"};
    TRadioGroup rgMostrar{pgImportar, "rgMostrar",
        {.caption = "Mostrar",
            .items = {"Todas", "Novas", "Alteradas", "Iguais", "Ignoradas", "Erradas"},
            .itemIndex = 0}};
    TGrid dbgLinhas{pgImportar, "dbgLinhas", TbLinhas, {.lines = 14, .readOnly = true}};

    TTabSheet pgExportar{PageControl1, "pgExportar", {.caption = "Exportar"}};
    TRow pnlMostrar{pgExportar, "pnlMostrar"};
    TButton btnMostrar{pnlMostrar, "btnMostrar", {.caption = "&Mostrar a tabela"}};
    TLabel lblExportar{pnlMostrar, "lblExportar"};
    TGrid dbgTabela{pgExportar, "dbgTabela", QryTabela, {.lines = 18, .readOnly = true}};

    // Handlers, in the order of the controls.
    void CbTabelaChange();
    void BtSaidaClick();
    void btnArquivoClick();
    void rgExistentesClick();
    void btnGravarClick();
    void rgMostrarClick();
    void dbgLinhasRowColor(std::size_t linha, TRowColor& cor);
    void btnMostrarClick();
    void TelaClose();

private:
    const TTableDecl* Tabela() const; ///< chosen; null when none is
    bool EscolheuTabela();
    bool PodeImportar(const TTableDecl& tabela);
    void Confere();
    void Esquece();
    bool Confirma(const TTableDecl& tabela);
    void Grava(const TTableDecl& tabela);

    std::unique_ptr<ITableExchange> exchange_;
    std::vector<const TTableDecl*> tabelas_; ///< one for each item of CbTabela
    std::string arquivo_; ///< full path; empty: none is chosen
    std::unique_ptr<IImport> import_; ///< compared and not written yet
};

} // namespace alinhavo
