#pragma once

#include "forms/TButton.h"
#include "forms/TComboBox.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TOrvTable.h"
#include "tables/TColumnControl.h"
#include "tables/TRowCheck.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

struct TPasteRow;
class TPasteReader;

/// The rows of one table, as its declaration says: a list that is searched, filtered and sorted at the server, and the row
/// on which it stands, which a person who has the right changes. Each table has a screen class of its own (TableScreen), so
/// that several are open at once and each has its rights.
///
/// At rest the list leads; between Incluir or Alterar and Confirmar or Desistir one row is in edit and the list is locked. A
/// table that another screen keeps, or that work fills, is only looked at here.
class TfmTabela final : public TOrvForm {
    const TTableDecl& tabela_; // the controls are made after it

public:
    TfmTabela(TApplication& application, const TTableDecl& tabela);

    TOrvQuery QryLinhas{
        *this, "QryLinhas", Database()}; ///< the list: at most as many rows as a person would scroll through
    TOrvTable tbLinha; ///< the current one of them, whole

    TRow pnlControle{*this, "pnlControle"};
    TButton Btincluir{pnlControle, "Btincluir", {.caption = "&Incluir"}};
    TButton BtnAltera{pnlControle, "BtnAltera", {.caption = "&Alterar"}};
    TButton BtExcluir{pnlControle, "BtExcluir", {.caption = "&Excluir"}};
    TButton BtnCadastro{pnlControle, "BtnCadastro", {.caption = "Abrir o ca&dastro"}};
    TButton BtnLog{pnlControle, "BtnLog", {.caption = "&Log", .shortcut = "F3"}};
    TButton BtSaida{pnlControle, "BtSaida", {.caption = "&Fechar"}};
    TRow pnlConfirma{*this, "pnlConfirma", {.visible = false}};
    TButton BitBtn1{pnlConfirma, "BitBtn1", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton BtnDesistir{pnlConfirma, "BtnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};

    TRow pnlBusca{*this, "pnlBusca"};
    TEdit edtBusca{pnlBusca, "edtBusca",
        {.caption = "&Procurar",
            .hint = "Procura enquanto se digita; a seta para baixo leva à lista.",
            .maxLength = 60}};
    TComboBox CbFiltro{pnlBusca, "CbFiltro", {.caption = "Fil&trar por"}};
    TEdit edtFiltro{pnlBusca, "edtFiltro",
        {.caption = "Valor", .hint = "Números e datas aceitam >, >=, < e <= na frente.", .maxLength = 60}};
    TLabel lblAchados{pnlBusca, "lblAchados"};

    TGrid DBGrid1{*this, "DBGrid1", QryLinhas, {.lines = LinhasDaLista(tabela_), .readOnly = true}};

    TGroupBox pnlDados{*this, "pnlDados", {.enabled = false}};
    TRow linhaCampos{pnlDados, "linhaCampos"};
    TRow linhaMarcas{pnlDados, "linhaMarcas"};
    TRow linhaTextos{pnlDados, "linhaTextos"};
    std::vector<std::unique_ptr<TColumnControl>> Campos; ///< one for each column that a person sees

    // Handlers, in the order of the controls.
    void BtincluirClick();
    void BtnAlteraClick();
    void BtExcluirClick();
    void BtnCadastroClick();
    void BtnLogClick();
    void BtSaidaClick();
    void BitBtn1Click();
    void BtnDesistirClick();
    void edtBuscaChange();
    void edtBuscaExit();
    void edtBuscaKeyDown(TKey& key);
    void CbFiltroExit();
    void edtFiltroExit();
    void QryLinhasAfterScroll();
    void DBGrid1TitleClick(std::string_view field);
    void DBGrid1DoubleClick();
    void DBGrid1Paste(const TPastedRows& coladas);
    void TelaClose();

    // For the controls of the columns.
    TRowCheck Check() { return TRowCheck(Database(), tabela_); }
    bool GivesUp() const { return FocusGoesTo(BtnDesistir); }
    /// Why the column of the row in edit may not hold the value; empty when it may.
    std::string WhyNot(const TColumnDecl& coluna, const TValue& valor);

private:
    // A person's part in the table
    bool Mantida() const;
    bool DeOutraTela() const;
    void MontaCampos();
    TContainer& LugarDe(const TColumnDecl& coluna);
    void MontaColunas();

    // The list
    void Procura();
    TStatement Condicao() const;
    TStatement CondicaoDoFiltro() const;
    TStatement Linhas() const;
    TStatement Ordem() const;
    void MostraAchados();
    bool FiltroAceito();
    const TColumnDecl* ColunaDoFiltro() const;
    void MostraLinha();
    void VaiParaALinha(const std::vector<TValue>& chave);
    std::vector<TValue> ChaveDaLista() const;
    std::vector<TValue> ChaveDaLinha() const;
    TRowValues Valores() const;

    // One row in edit
    void AbreDados();
    void FechaDados();
    bool PodeConfirmar();
    void Grava();
    [[noreturn]] void RecusaRepetida(const EDatabaseError& erro);
    std::string TextoDoLog() const;
    std::string Modulo() const;
    void Registra(const std::string& texto, TOperacaoLog operacao, const TRowValues& linha);

    // Rows pasted
    bool AceitaColagem(const TPasteReader& leitura);
    void IncluiColadas(const std::vector<TPasteRow>& linhas);
    void IncluiColada(const TPasteRow& linha);

    /// A wide table needs the room for its form.
    static int LinhasDaLista(const TTableDecl& tabela);

    const std::string chave_; ///< as Locate takes it: "CODIGO;PARTE"
    std::string ordem_; ///< column of the title clicked last; empty: by key
    bool descendente_ = false;
    TStatement filtro_; ///< the condition accepted last
    std::string procurado_; ///< for what the list was last searched
    bool grande_ = false; ///< a search of every row takes longer than a keystroke may
};

/// Registers a screen for each table that a person may look at.
void RegisterTableScreens(TApplication& application);

} // namespace alinhavo
