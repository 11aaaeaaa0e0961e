#pragma once

#include "forms/TButton.h"
#include "forms/TComboBox.h"
#include "forms/TDBCheckBox.h"
#include "forms/TDBEdit.h"
#include "forms/TDBNumberEdit.h"
#include "forms/TDBRadioGroup.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"
#include "host/TprReport.h"

#include <exception>
#include <string>
#include <string_view>

namespace alinhavo {

/// "Cadastro de Setores": the sectors of production, with what each of them demands and allows of a movement.
///
/// At rest it shows the row on which the grid stands; between Incluir or Alterar and Confirmar or Desistir that row is in
/// edit, the grid is locked and the panel of data is open.
class TfmCadFluxo final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmCadFluxo";

    explicit TfmCadFluxo(TApplication& application);

    TOrvTable& tbCadFluxo; ///< shared with the other screens
    TOrvQuery QryAux{*this, "QryAux", Database()};
    TprReport prReport;

    TRow pnlControle{*this, "pnlControle"};
    TButton Btincluir{pnlControle, "Btincluir", {.caption = "&Incluir"}};
    TButton BtnAltera{pnlControle, "BtnAltera", {.caption = "&Alterar"}};
    TButton BtExcluir{pnlControle, "BtExcluir", {.caption = "&Excluir"}};
    TButton BtnConsultar{pnlControle, "BtnConsultar", {.caption = "&Consultar"}};
    TButton BtnImprimir{pnlControle, "BtnImprimir", {.caption = "&Imprimir", .shortcut = "Ctrl+P"}};
    TButton BtSaida{pnlControle, "BtSaida", {.caption = "&Fechar"}};
    TRow pnlConfirma{*this, "pnlConfirma", {.visible = false}};
    TButton BitBtn1{pnlConfirma, "BitBtn1", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton BtnDesistir{pnlConfirma, "BtnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};

    TGrid DBGrid1{*this, "DBGrid1", tbCadFluxo,
        {.columns = {{.field = "CODIGO", .title = "Código", .width = 7},
             {.field = "DESCRICAO", .title = "Descrição", .width = 30},
             {.field = "INVENTARIO", .title = "Inventário", .width = 10, .tick = true},
             {.field = "CUSTO", .title = "Custo", .width = 9}, {.field = "TIPO", .title = "Tipo", .width = 5},
             {.field = "DIAS", .title = "Dias", .width = 5}, {.field = "CONTA", .title = "Conta", .width = 12},
             {.field = "ALT_PRECO", .title = "Alt. preço", .width = 10, .tick = true},
             {.field = "PRECO", .title = "Preço", .width = 9}, {.field = "ORDEM", .title = "Ordem", .width = 6},
             {.field = "GRUPO", .title = "Grupo", .width = 6},
             {.field = "BAIXAMAIOR", .title = "Maior OF", .width = 9, .tick = true},
             {.field = "BAIXAMOV", .title = "Nº mov.", .width = 8, .tick = true},
             {.field = "BAIXALIVRE", .title = "Livre", .width = 6, .tick = true},
             {.field = "PECAS_DIA", .title = "Peças/dia", .width = 9},
             {.field = "IMP_FLUXO", .title = "Relatórios", .width = 10, .tick = true},
             {.field = "IND_PAG", .title = "Pagamento", .width = 10},
             {.field = "BAIXACONSUMO", .title = "Consumos", .width = 10, .tick = true},
             {.field = "BAIXADEFEITO", .title = "Defeitos", .width = 9, .tick = true},
             {.field = "CODSPED", .title = "SPED", .width = 10},
             {.field = "COMPLEMENTO", .title = "Complemento", .width = 30}},
            .lines = 7,
            .readOnly = true}};

    TGroupBox pnlDados{*this, "pnlDados", {.caption = "Setor", .enabled = false}};
    TRow linhaSetor{pnlDados, "linhaSetor"};
    TDBEdit DBEdit1{linhaSetor, "DBEdit1", tbCadFluxo, "CODIGO", {.caption = "Código", .maxLength = 3}};
    TDBEdit DBEdit2{
        linhaSetor, "DBEdit2", tbCadFluxo, "DESCRICAO", {.caption = "Descrição", .maxLength = 80, .upperCase = true}};
    TDBNumberEdit DbOrdem{linhaSetor, "DbOrdem", tbCadFluxo, "ORDEM", {.caption = "Ordem"}};
    TDBEdit EdtGrupo{linhaSetor, "EdtGrupo", tbCadFluxo, "GRUPO", {.caption = "Grupo", .maxLength = 3, .lookup = true}};
    TDBRadioGroup DBRadioGroup1{linhaSetor, "DBRadioGroup1", tbCadFluxo, "TIPO",
        {.caption = "Tipo", .items = {"Produto", "Material"}, .values = {"P", "M"}}};

    TRow linhaValores{pnlDados, "linhaValores"};
    TDBNumberEdit DBEdit3{linhaValores, "DBEdit3", tbCadFluxo, "PRECO", {.caption = "Preço"}};
    TDBNumberEdit DBEdit6{linhaValores, "DBEdit6", tbCadFluxo, "CUSTO", {.caption = "Custo"}};
    TDBNumberEdit DBEdit7{linhaValores, "DBEdit7", tbCadFluxo, "PECAS_DIA", {.caption = "Peças por dia"}};
    TDBEdit DBEdit4{
        linhaValores, "DBEdit4", tbCadFluxo, "CONTA", {.caption = "Conta", .maxLength = 20, .upperCase = true}};
    TDBEdit DBSped{linhaValores, "DBSped", tbCadFluxo, "CODSPED",
        {.caption = "Código SPED", .maxLength = 10, .upperCase = true, .lookup = true}};
    TDBEdit DBEdit8{linhaValores, "DBEdit8", tbCadFluxo, "COMPLEMENTO", {.caption = "Complemento", .maxLength = 100}};

    TRow linhaPrazo{pnlDados, "linhaPrazo"};
    TDBNumberEdit DBEdit5{linhaPrazo, "DBEdit5", tbCadFluxo, "DIAS", {.caption = "Dias"}};
    TButton SpeedButton1{linhaPrazo, "SpeedButton1",
        {.caption = "Aplicar &lead time",
            .hint = "Leva os dias do setor a todas as programações.",
            .takesFocus = false}};
    TComboBox CbSemana{linhaPrazo, "CbSemana",
        {.caption = "Dias da semana",
            .items = {"1 - Segunda", "2 - Segunda a Terça", "3 - Segunda a Quarta", "4 - Segunda a Quinta",
                "5 - Segunda a Sexta", "6 - Segunda a Sábado", "7 - Segunda a Domingo"}}};
    TDBCheckBox CBInv{linhaPrazo, "CBInv", tbCadFluxo, "INVENTARIO", {.caption = "Gera Inventário"}};
    TDBCheckBox DBCheckBox3{linhaPrazo, "DBCheckBox3", tbCadFluxo, "IMP_FLUXO", {.caption = "Mostrar em Relatórios"}};

    TDBRadioGroup DBRadioGroup2{pnlDados, "DBRadioGroup2", tbCadFluxo, "IND_PAG",
        {.caption = "Pagamento",
            .items = {"Somente peças de 1º qualidade", "Peças de 1º e 2º qualidade",
                "Peças de 1º e 2º qualidade e Incompletas", "Peças de 1º qualidade e Incompletas"},
            .values = {"1", "2", "3", "4"}}};
    TGroupBox gbParametros{pnlDados, "gbParametros", {.caption = "Parâmetros de Movimentação"}};
    TRow linhaQuantidades{gbParametros, "linhaQuantidades"};
    TDBCheckBox CbAltPreco{
        linhaQuantidades, "CbAltPreco", tbCadFluxo, "ALT_PRECO", {.caption = "Permite alterar Preço"}};
    TDBCheckBox cbBaixaMaior{linhaQuantidades, "cbBaixaMaior", tbCadFluxo, "BAIXAMAIOR",
        {.caption = "Permite baixar quantidade Maior OF",
            .hint = "Permite ou não Movimentar na facção quantidade maior do que está na OF."}};
    TDBCheckBox DBCheckBox1{
        linhaQuantidades, "DBCheckBox1", tbCadFluxo, "BAIXAMOV", {.caption = "Obriga a informar Número Movimento"}};
    TDBCheckBox DBCheckBox2{linhaQuantidades, "DBCheckBox2", tbCadFluxo, "BAIXALIVRE",
        {.caption = "Permite baixar fora da ordem do Fluxo"}};
    TRow linhaConferencias{gbParametros, "linhaConferencias"};
    TDBCheckBox DBCheckBox4{
        linhaConferencias, "DBCheckBox4", tbCadFluxo, "BAIXAPARCIAL", {.caption = "Permite Movimentação Parcial"}};
    TDBCheckBox CbBaixaConsumo{
        linhaConferencias, "CbBaixaConsumo", tbCadFluxo, "BAIXACONSUMO", {.caption = "Solicita baixa de consumos"}};
    TDBCheckBox CbBaixaDefeito{linhaConferencias, "CbBaixaDefeito", tbCadFluxo, "BAIXADEFEITO",
        {.caption = "Validar Apontamento de Defeitos"}};
    TDBCheckBox CbMovReprovados{
        linhaConferencias, "CbMovReprovados", tbCadFluxo, "MOVREPROVADO", {.caption = "Movimentar Estoque Reprovado"}};

    TPesquisa PqConsulta{*this, "PqConsulta", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqGrupo{*this, "PqGrupo", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};
    TPesquisa pqSped{*this, "pqSped", {.BuscaTabela = "TABSPED", .BuscaCampo = "CODIGO"}};

    // Handlers, in the order of the controls.
    void BtincluirClick();
    void BtnAlteraClick();
    void BtExcluirClick();
    void BtnConsultarClick();
    void BtnImprimirClick();
    void BtSaidaClick();
    void BitBtn1Click();
    void BtnDesistirClick();
    void DBGrid1Enter();
    void DBGrid1TitleClick(std::string_view field);
    void DBEdit1Change();
    void DBEdit1Exit();
    void SpeedButton1Click();
    void PqGrupoFechaPesquisa();
    void pqSpedFechaPesquisa();
    void TelaClose();

private:
    TField& Campo(std::string_view nome) const { return tbCadFluxo.FieldByName(nome); }
    std::string Codigo() const { return Campo("CODIGO").AsString(); }
    std::string Descricao() const { return Campo("DESCRICAO").AsString(); }
    std::string CodigoEDescricao() const { return Codigo() + " - " + Descricao(); }

    void AbreSetores();
    void AbreDados(TControl& primeiro);
    void FechaDados();
    void AtualizaSetores();
    void MostraSemana();
    void GravaSemana();
    void RegistraGravacao();
    void AtualizaDescricaoNosFluxos();
    [[noreturn]] void RecusaGravacao(const std::exception& erro);
    void RegistraLog(const std::string& texto, TOperacaoLog operacao);
};

} // namespace alinhavo
