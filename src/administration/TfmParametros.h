#pragma once

#include "administration/parametros.h"
#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TMemo.h"
#include "forms/TMemTable.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"

#include <string>

namespace alinhavo {

/// The parameters that the search leaves, with their present values.
struct TTbParametros final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Parametro{*this, "Parametro", 12, {.title = "Parâmetro"}};
    TStringField Grupo{*this, "Grupo", 6};
    TIntegerField Numero{*this, "Numero"};
    TStringField Titulo{*this, "Titulo", 80, {.title = "O que define"}};
    TStringField Valor{*this, "Valor", 250};
    TStringField Significado{*this, "Significado", 250, {.title = "Significa"}};
};

/// "Parâmetros": what tunes the module, with what each value means. Between Alterar and Confirmar or Desistir the list is locked.
/// The user's own settings stand below and are written as they are ticked.
class TfmParametros final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmParametros";

    explicit TfmParametros(TApplication& application);

    TTbParametros TbParametros{*this, "TbParametros"};

    TRow pnlControle{*this, "pnlControle"};
    TButton btnAlterar{pnlControle, "btnAlterar", {.caption = "&Alterar"}};
    TButton btnLog{pnlControle, "btnLog", {.caption = "&Registro de alterações", .shortcut = "F3"}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "&Fechar", .role = TButtonRole::Cancel}};
    TRow pnlConfirma{*this, "pnlConfirma", {.visible = false}};
    TButton btnConfirmar{pnlConfirma, "btnConfirmar", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton btnDesistir{pnlConfirma, "btnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};

    TEdit edtProcura{*this, "edtProcura",
        {.caption = "&Procurar", .hint = "Parte do nome, do título ou da explicação.", .maxLength = 40}};
    TGrid dbgParametros{*this, "dbgParametros", TbParametros,
        {.columns = {{.field = "Parametro", .width = 11}, {.field = "Titulo", .width = 44},
             {.field = "Valor", .width = 10}, {.field = "Significado", .width = 44}},
            .lines = 10,
            .readOnly = true}};

    TGroupBox pnlParametro{*this, "pnlParametro"};
    TMemo mmSignificado{pnlParametro, "mmSignificado", {.caption = "O que faz", .lines = 4, .readOnly = true}};
    TLabel lblTelas{pnlParametro, "lblTelas"};
    TRow linhaValor{pnlParametro, "linhaValor"};
    TComboBox cbValor{linhaValor, "cbValor", {.caption = "&Valor", .readOnly = true}};
    TEdit edtValor{linhaValor, "edtValor", {.caption = "&Valor", .maxLength = 20, .readOnly = true, .visible = false}};
    TEdit edtNome{linhaValor, "edtNome", {.caption = "Cliente", .readOnly = true, .visible = false, .tabStop = false}};
    TLabel lblVale{pnlParametro, "lblVale", {.caption = "Vale na próxima abertura da tela."}};

    TGroupBox pnlMinhas{*this, "pnlMinhas"};
    TCheckBox chkLeitura{pnlMinhas, "chkLeitura",
        {.caption = "&Ler o código de barras assim que estiver completo",
            .hint = "Desmarcado, a leitura espera o Enter. Vale na próxima abertura da tela."}};

    TPesquisa PqCliente{*this, "PqCliente", {.BuscaTabela = "ENTIDADE", .BuscaCampo = "CODCLI"}};

    // Handlers, in the order of the controls.
    void btnAlterarClick();
    void btnLogClick();
    void btnFecharClick();
    void btnConfirmarClick();
    void btnDesistirClick();
    void edtProcuraChange();
    void edtValorChange();
    void chkLeituraClick();
    void PqClienteFechaPesquisa();
    void TbParametrosAfterScroll();
    void edtValorKeyDown(TKey& key);

private:
    const TParametroDecl* Atual() const; ///< null while the search finds none
    std::string ValorNaTela() const;
    std::string Significado(const TParametroDecl& parametro, const std::string& valor);
    std::string NomeDoCliente(const std::string& codigo);
    void Carrega();
    void Mostra();
    void EscreveValor(const std::string& valor);
    void AbreValor();
    void FechaValor();
    /// True when the value may stand in the parameter; otherwise the user was told.
    bool Confere(const TParametroDecl& parametro, const std::string& valor);
    void Grava(const TParametroDecl& parametro, const std::string& valor);
};

} // namespace alinhavo
