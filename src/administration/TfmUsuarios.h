#pragma once

#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRow.h"
#include "forms/TTabSheet.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"

#include <string>

namespace alinhavo {

/// The screens of the menu, with what the user on screen may do on each ("S" or "N"), now and as it is stored.
struct TTbDireitos final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Nivel{*this, "Nivel", 20};
    TStringField Menu{*this, "Menu", 80};
    TStringField Tela{*this, "Tela", 80};
    TStringField NomeForm{*this, "NomeForm", 60};
    TStringField Consulta{*this, "Consulta", 1};
    TStringField Altera{*this, "Altera", 1, {.title = "Inclui e altera"}};
    TStringField Exclui{*this, "Exclui", 1};
    TStringField ConsultaAntes{*this, "ConsultaAntes", 1};
    TStringField AlteraAntes{*this, "AlteraAntes", 1};
    TStringField ExcluiAntes{*this, "ExcluiAntes", 1};
};

/// The sectors, with those that the user's employee may move.
struct TTbSetoresPermitidos final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Permitido{*this, "Permitido", 1};
    TStringField Setor{*this, "Setor", 3};
    TStringField Descricao{*this, "Descricao", 80, {.title = "Descrição"}};
    TStringField Antes{*this, "Antes", 1};
};

/// "Usuários e permissões": who may come in and what he may do.
///
/// At rest it shows the user on whom the list stands; between Incluir or Alterar and Confirmar or Desistir his data, rights and
/// sectors are open and the list is locked. All of it is written at once, with a line of the log for whatever became another.
class TfmUsuarios final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmUsuarios";

    explicit TfmUsuarios(TApplication& application);

    TOrvQuery QryUsuarios{*this, "QryUsuarios", Database()};
    TTbDireitos TbDireitos{*this, "TbDireitos"};
    TTbSetoresPermitidos TbSetores{*this, "TbSetores"};

    TRow pnlControle{*this, "pnlControle"};
    TButton btnIncluir{pnlControle, "btnIncluir", {.caption = "&Incluir"}};
    TButton btnAlterar{pnlControle, "btnAlterar", {.caption = "&Alterar"}};
    TButton btnExcluir{pnlControle, "btnExcluir", {.caption = "&Excluir"}};
    TButton btnSenha{pnlControle, "btnSenha", {.caption = "Definir &senha"}};
    TButton btnLog{pnlControle, "btnLog", {.caption = "&Registro de alterações", .shortcut = "F3"}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "&Fechar", .role = TButtonRole::Cancel}};
    TRow pnlConfirma{*this, "pnlConfirma", {.visible = false}};
    TButton btnConfirmar{pnlConfirma, "btnConfirmar", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton btnDesistir{pnlConfirma, "btnDesistir", {.caption = "Desi&stir", .role = TButtonRole::Cancel}};

    TEdit edtProcura{*this, "edtProcura",
        {.caption = "Proc&urar", .hint = "Parte do código, do nome ou do funcionário.", .maxLength = 40}};
    TGrid dbgUsuarios{*this, "dbgUsuarios", QryUsuarios,
        {.columns = {{.field = "CODIGO", .title = "Código", .width = 11},
             {.field = "NOME", .title = "Nome", .width = 30}, {.field = "TIPO", .title = "Tipo", .width = 6},
             {.field = "SUPERVISOR", .title = "Supervisor", .width = 11, .tick = true},
             {.field = "BLOQUEADO", .title = "Bloqueado", .width = 11, .tick = true},
             {.field = "FUNCIONARIO", .title = "Funcionário", .width = 34},
             {.field = "SEM_SENHA", .title = "Sem senha", .width = 11, .tick = true}},
            .lines = 6,
            .readOnly = true}};

    TPageControl pgUsuario{*this, "pgUsuario"};
    TTabSheet tabDados{pgUsuario, "tabDados", {.caption = "Da&dos"}};
    TRow linhaNome{tabDados, "linhaNome"};
    TEdit edtCodigo{linhaNome, "edtCodigo", {.caption = "Código", .maxLength = 10, .upperCase = true}};
    TEdit edtNome{linhaNome, "edtNome",
        {.caption = "Nome",
            .hint = "Com o nome ou com o código o usuário entra no sistema.",
            .maxLength = 40,
            .upperCase = true}};
    TComboBox cbTipo{linhaNome, "cbTipo",
        {.caption = "Tipo",
            .hint
            = "Ao usuário comum a movimentação pede a senha de um supervisor quando as quantidades saem do permitido.",
            .items = {"0 |Comum", "1 |Dispensado de supervisor nas quantidades"}}};
    TRow linhaFuncionario{tabDados, "linhaFuncionario"};
    TEdit edtFuncionario{
        linhaFuncionario, "edtFuncionario", {.caption = "Funcionário", .maxLength = 8, .lookup = true}};
    TEdit edtNomeFuncionario{
        linhaFuncionario, "edtNomeFuncionario", {.caption = "Nome do funcionário", .readOnly = true, .tabStop = false}};
    TCheckBox chkSupervisor{linhaFuncionario, "chkSupervisor",
        {.caption = "Supervisor", .hint = "A sua senha libera o que pede um supervisor."}};
    TCheckBox chkBloqueado{linhaFuncionario, "chkBloqueado", {.caption = "Bloqueado", .hint = "Não entra no sistema."}};

    TTabSheet tabDireitos{pgUsuario, "tabDireitos", {.caption = "Per&missões"}};
    TRow linhaDireitos{tabDireitos, "linhaDireitos"};
    TButton btnCopiar{linhaDireitos, "btnCopiar", {.caption = "Copiar de &outro usuário"}};
    TEdit edtProcuraTela{linhaDireitos, "edtProcuraTela",
        {.caption = "Procurar te&la", .hint = "Parte do nome da tela ou do menu.", .maxLength = 40}};
    TLabel lblDireitos{linhaDireitos, "lblDireitos",
        {.caption = "Espaço marca. O menu da grade marca a linha ou a coluna inteira do que está na lista."}};
    TPopupMenu mnuDireitos{*this, "mnuDireitos"};
    TMenuItem itMarcaLinha{mnuDireitos, "itMarcaLinha", {.caption = "Marcar a linha", .shortcut = "Ctrl+L"}};
    TMenuItem itDesmarcaLinha{mnuDireitos, "itDesmarcaLinha", {.caption = "Desmarcar a linha"}};
    TMenuItem itMarcaColuna{mnuDireitos, "itMarcaColuna", {.caption = "Marcar a coluna"}};
    TMenuItem itDesmarcaColuna{mnuDireitos, "itDesmarcaColuna", {.caption = "Desmarcar a coluna"}};
    TGrid dbgDireitos{tabDireitos, "dbgDireitos", TbDireitos,
        {.columns = {{.field = "Menu", .width = 24, .readOnly = true}, {.field = "Tela", .width = 46, .readOnly = true},
             {.field = "Consulta", .width = 11, .tick = true}, {.field = "Altera", .width = 15, .tick = true},
             {.field = "Exclui", .width = 10, .tick = true}},
            .lines = 11}};

    TTabSheet tabSetores{pgUsuario, "tabSetores", {.caption = "Se&tores"}};
    TLabel lblSetores{tabSetores, "lblSetores"};
    TGrid dbgSetores{tabSetores, "dbgSetores", TbSetores,
        {.columns = {{.field = "Permitido", .width = 11, .tick = true},
             {.field = "Setor", .width = 8, .readOnly = true}, {.field = "Descricao", .width = 50, .readOnly = true}},
            .lines = 11}};

    TPesquisa PqFuncionario{*this, "PqFuncionario", {.BuscaTabela = "PESSOAL", .BuscaCampo = "CODIGO"}};
    TPesquisa PqCopia{*this, "PqCopia", {.BuscaCampo = "NOME", .caption = "Copiar permissões de"}};

    // Handlers, in the order of the controls.
    void QryUsuariosAfterScroll();
    void btnIncluirClick();
    void btnAlterarClick();
    void btnExcluirClick();
    void btnSenhaClick();
    void btnLogClick();
    void btnFecharClick();
    void btnConfirmarClick();
    void btnDesistirClick();
    void edtProcuraChange();
    void edtFuncionarioExit();
    void btnCopiarClick();
    void edtProcuraTelaChange();
    void itMarcaLinhaClick();
    void itDesmarcaLinhaClick();
    void itMarcaColunaClick();
    void itDesmarcaColunaClick();
    void dbgDireitosCellEdit();
    void PqFuncionarioFechaPesquisa();
    void PqCopiaFechaPesquisa();

private:
    enum class TModo { Repouso, Inclusao, Alteracao };

    // What is on screen
    std::string Codigo() const; ///< of the user on whom the list stands
    std::string Nome() const;
    bool Proprio(const std::string& codigo) const; ///< it is the user at the keyboard
    void CarregaUsuarios(const std::string& codigo);
    void MostraUsuario();
    void CarregaDireitos(const std::string& codigo);
    void CopiaDireitos(const std::string& codigo);
    void CarregaSetores(const std::string& funcionario);
    std::string NomeDoFuncionario() const;
    void Abre(TModo modo, TControl& primeiro);
    void Fecha();
    void LiberaEdicao(bool livre);
    void MarcaLinha(std::string_view marca);
    void MarcaColuna(std::string_view marca);

    // Checks, in the order in which they are made
    bool PodeConfirmar();
    bool PodeSerUsuario();
    bool PodeMudarASiMesmo();
    bool FicaComAcesso();
    bool FicaUmSupervisor(const std::string& codigo, bool continua);
    bool SupervisorAutoriza();

    // Writing
    void GravaUsuario();
    void GravaDireitos(const std::string& codigo);
    void GravaDireito(const std::string& codigo);
    void GravaSetores(const std::string& codigo);
    void Bloqueia(const std::string& codigo);
    void Exclui(const std::string& codigo);
    void Registra(const std::string& texto, TOperacaoLog operacao, const std::string& codigo);

    TModo modo_ = TModo::Repouso;
};

} // namespace alinhavo
