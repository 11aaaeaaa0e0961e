#pragma once

#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TDateEdit.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TMemo.h"
#include "forms/TMemTable.h"
#include "forms/TNumberEdit.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// The parts in which the order's product is made, each with its way through the sectors.
struct TTbPartes : TMemTable {
    using TMemTable::TMemTable;
    TStringField Parte{*this, "Parte", 2};
    TStringField DescParte{*this, "DescParte", 60};
    TStringField Fluxo{*this, "Fluxo", 3};
    TStringField DescFluxo{*this, "DescFluxo", 150};
    TStringField Setores{*this, "Setores", 250}; ///< in their order
    TStringField Pendencia{*this, "Pendencia", 80}; ///< why the part cannot enter production; empty when it can
};

/// The order's grid: a row for each colour, a column made for each size.
struct TTbGrade : TMemTable {
    using TMemTable::TMemTable;
    TStringField Cor{*this, "Cor", 6};
    TStringField DescCor{*this, "DescCor", 80};
    TFloatField Total{*this, "Total"};
};

/// "Ordem de Fabricação": a new production order with its grid of colours and sizes, or the change of one that has not
/// entered production.
///
/// At rest it shows the order whose number is typed; between Incluir or Alterar and Confirmar or Desistir that order is open
/// to changes. Nothing is written before it is confirmed.
class TfmNovaOF final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmNovaOF";

    explicit TfmNovaOF(TApplication& application);

    TTbPartes TbPartes{*this, "TbPartes"};
    TTbGrade TbGrade{*this, "TbGrade"};

    TRow pnlControle{*this, "pnlControle"};
    TButton btnIncluir{pnlControle, "btnIncluir", {.caption = "&Incluir"}};
    TButton btnAlterar{pnlControle, "btnAlterar", {.caption = "&Alterar"}};
    TButton btnExcluir{pnlControle, "btnExcluir", {.caption = "&Excluir"}};
    TButton btnLog{pnlControle, "btnLog", {.caption = "&Log", .shortcut = "F3"}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "&Fechar"}};
    TRow pnlConfirma{*this, "pnlConfirma", {.visible = false}};
    TButton btnConfirmar{pnlConfirma, "btnConfirmar", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton btnDesistir{pnlConfirma, "btnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};
    TLabel lblSituacao{*this, "lblSituacao", {.style = TLabelStyle::Strong}};

    TGroupBox gbOrdem{*this, "gbOrdem", {.caption = "Ordem"}};
    TRow linhaProduto{gbOrdem, "linhaProduto"};
    TEdit edtNumero{linhaProduto, "edtNumero", {.caption = "OF", .maxLength = 6, .lookup = true}};
    TEdit edtProduto{linhaProduto, "edtProduto", {.caption = "Produto", .maxLength = 15, .lookup = true}};
    TLabel lblProduto{linhaProduto, "lblProduto"};
    TEdit edtCliente{linhaProduto, "edtCliente", {.caption = "Cliente", .maxLength = 5, .lookup = true}};
    TLabel lblCliente{linhaProduto, "lblCliente"};
    TRow linhaPedido{gbOrdem, "linhaPedido"};
    TEdit edtPedido{linhaPedido, "edtPedido", {.caption = "Pedido", .maxLength = 12, .lookup = true}};
    TCheckBox cbPedido{linhaPedido, "cbPedido",
        {.caption = "Gerar o &pedido com esta grade",
            .hint = "Grava também o pedido de venda do cliente. Sem número, recebe o próximo livre."}};
    TDateEdit edtDtInicio{linhaPedido, "edtDtInicio", {.caption = "Início"}};
    TDateEdit edtDtEntrega{linhaPedido, "edtDtEntrega", {.caption = "Entrega"}};
    TEdit edtPeriodo{linhaPedido, "edtPeriodo", {.caption = "Período", .maxLength = 6, .lookup = true}};
    TLabel lblPeriodo{linhaPedido, "lblPeriodo"};
    TRow linhaPreco{gbOrdem, "linhaPreco"};
    TEdit edtProgramacao{linhaPreco, "edtProgramacao", {.caption = "Programação", .maxLength = 8}};
    TEdit edtTipoOP{linhaPreco, "edtTipoOP", {.caption = "Tipo de OP", .maxLength = 3, .lookup = true}};
    TLabel lblTipoOP{linhaPreco, "lblTipoOP"};
    TEdit edtTabela{linhaPreco, "edtTabela", {.caption = "Tabela de preços", .maxLength = 3, .lookup = true}};
    TLabel lblTabela{linhaPreco, "lblTabela"};
    TMemo edtObs{linhaPreco, "edtObs", {.caption = "Observação", .maxLength = 8000, .lines = 1}};
    TNumberEdit edtTotal{linhaPreco, "edtTotal", {.caption = "Total de peças", .readOnly = true}};

    TGrid dbgPartes{*this, "dbgPartes", TbPartes,
        {.caption = "Partes e fluxos do produto",
            .columns = {{.field = "Parte", .title = "Parte", .width = 6},
                {.field = "DescParte", .title = "Descrição", .width = 20},
                {.field = "Fluxo", .title = "Fluxo", .width = 6},
                {.field = "DescFluxo", .title = "Descrição do fluxo", .width = 24},
                {.field = "Setores", .title = "Setores", .width = 40},
                {.field = "Pendencia", .title = "Pendência", .width = 30}},
            .lines = 2,
            .readOnly = true,
            .tabStop = false}};
    TGrid dbgGrade{*this, "dbgGrade", TbGrade,
        {.caption = "&Grade: cores por tamanho",
            .hint = "F4 na cor procura uma ou várias cores. Uma grade copiada da planilha pode ser colada.",
            .onExit = TGridExit::KeepsRow,
            .lines = 8,
            .totals = true}};

    TPesquisa PqOF{*this, "PqOF", {.BuscaTabela = "OF1", .BuscaCampo = "NUMERO"}};
    TPesquisa PqProduto{*this, "PqProduto", {.BuscaTabela = "PRODUTO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqCliente{*this, "PqCliente", {.BuscaTabela = "ENTIDADE", .BuscaCampo = "CODCLI"}};
    TPesquisa PqPedido{*this, "PqPedido", {.BuscaTabela = "PEDIDO", .BuscaCampo = "NUMERO"}};
    TPesquisa PqPeriodo{*this, "PqPeriodo", {.BuscaTabela = "TABPRZ", .BuscaCampo = "PRAZO"}};
    TPesquisa PqTipoOP{*this, "PqTipoOP", {.BuscaTabela = "TIPO_OP", .BuscaCampo = "CODIGO"}};
    TPesquisa PqTabela{*this, "PqTabela", {.BuscaTabela = "REGIAO", .BuscaCampo = "REGIAO"}};
    TPesquisa PqCor{*this, "PqCor", {.BuscaTabela = "CADCOR", .BuscaCampo = "COR", .MultiSelecao = true}};

    // Handlers, in the order of the controls.
    void btnIncluirClick();
    void btnAlterarClick();
    void btnExcluirClick();
    void btnLogClick();
    void btnFecharClick();
    void btnConfirmarClick();
    void btnDesistirClick();
    void edtNumeroExit();
    void edtProdutoExit();
    void edtClienteExit();
    void edtPedidoExit();
    void edtPeriodoExit();
    void edtTipoOPExit();
    void edtTabelaExit();
    void dbgGradeKeyDown(TKey& key);
    void dbgGradeCellEdit();
    void dbgGradePaste(const TPastedRows& coladas);
    void dbgPartesRowColor(std::size_t row, TRowColor& color);
    void TbGradeBeforePost();
    void PqOFFechaPesquisa();
    void PqProdutoFechaPesquisa();
    void PqClienteFechaPesquisa();
    void PqPedidoFechaPesquisa();
    void PqPeriodoFechaPesquisa();
    void PqTipoOPFechaPesquisa();
    void PqTabelaFechaPesquisa();
    void PqCorFechaPesquisa();

private:
    enum class TModo { Consulta, Inclusao, Alteracao };

    // Modes
    void Abre(TModo modo);
    void Fecha();
    void Limpa();
    bool Desiste() const { return FocusGoesTo(btnDesistir); }
    bool EmProducao();

    // The order on screen
    void MostraOF();
    void MostraDescricoes();
    void Descreve(TLabel& label, std::string_view tabela, std::string_view chave, std::string_view coluna, TEdit& edt);
    void ConfereCodigo(
        TLabel& label, std::string_view tabela, std::string_view chave, TEdit& edt, std::string_view recusa);
    std::string ProximoNumero();

    // Parts
    void CarregaPartes();
    std::string Pendencia(const std::string& fluxo, const std::string& setores);
    std::string Setores(const std::string& fluxo);
    std::string PartesPendentes();

    // Grid
    void MontaGrade(const std::string& produto);
    void MontaColunas();
    void CarregaGrade();
    std::vector<std::string> TamanhosDoProduto(const std::string& produto);
    void IncluiTamanho(const std::string& tamanho);
    std::string CampoDe(std::string_view tamanho) const { return "Tam_" + std::string(tamanho); }
    double Quantidade(std::string_view tamanho) const { return TbGrade.FieldByName(CampoDe(tamanho)).AsFloat(); }
    void SomaLinha();
    void SomaGrade();
    std::string DescricaoDaCor(std::string_view cor);
    void VaiParaACor(std::string_view cor);
    bool CorRepetida(const std::string& cor) const;

    // Paste
    struct TCelula {
        std::string cor; ///< empty: of the row on which the paste begins, and those below it
        std::size_t linha = 0;
        std::string tamanho;
        double quantidade = 0;
    };
    std::vector<std::string> CabecalhoColado(const TPastedRows& coladas) const;
    std::vector<TCelula> LeColagem(const TPastedRows& coladas, std::string& erros);
    void LeLinhaColada(std::size_t linha, const std::vector<std::string>& celulas,
        const std::vector<std::string>& colunas, std::vector<TCelula>& lidas, std::string& erros);
    std::string CorDe(const std::string& texto);
    void Escreve(const std::vector<TCelula>& celulas);

    // Confirmation
    bool PodeConfirmar();
    bool CabecalhoCompleto();
    bool GradeCompleta();
    bool PedidoPodeSerGerado();
    void Grava();
    void GravaOF();
    void GravaItens();
    void GravaPedido();
    void NumeroJaUsado();
    void Registra(const std::string& texto, TOperacaoLog operacao);
    std::string Pecas() const;

    TModo modo_ = TModo::Consulta;
    std::string numero_; ///< of the order shown; empty when none is
    std::string produtoDaGrade_;
    std::string pecasAntes_; ///< of the order that is being changed
    std::vector<std::string> tamanhos_; ///< of the grid, in its order
};

} // namespace alinhavo
