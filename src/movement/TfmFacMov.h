#pragma once

#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TDateEdit.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TImage.h"
#include "forms/TMemo.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TNumberEdit.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioGroup.h"
#include "forms/TRow.h"
#include "forms/TTabSheet.h"
#include "host/IMovementScreens.h"
#include "host/TOrvForm.h"
#include "host/TOrvRFID.h"
#include "host/TPesquisa.h"
#include "movement/TfmFacMov_consultas.h"
#include "payment/TPrecos.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace alinhavo {

/// The lines that can leave the sector: one for each row of FACCAO. Tag is 0 while it is loaded and 2 when it is the
/// user's; its rules act only then.
struct TTbMovimento final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Numero{*this, "Numero", 6};
    TIntegerField Mov{*this, "Mov", {.title = "Mov."}};
    TStringField Pedido{*this, "Pedido", 12};
    TStringField Codigo{*this, "Codigo", 15};
    TStringField Codcli{*this, "Codcli", 5}; ///< destination
    TStringField Setor{*this, "Setor", 3};
    TStringField CodCli2{*this, "CodCli2", 5}; ///< holder, who earns the money
    TStringField Cor{*this, "Cor", 6};
    TStringField DescCor{*this, "DescCor", 80};
    TStringField Tam{*this, "Tam", 4, {.title = "Tam."}};
    TFloatField Qt_Orig{*this, "Qt_Orig", {.title = "Quant. Orig."}};
    TFloatField Quant{*this, "Quant", {.title = "Quant. Prod."}};
    TFloatField Quant_2{*this, "Quant_2", {.title = "Quant. Seg."}};
    TFloatField Quant_I{*this, "Quant_I", {.title = "Quant. Inc."}};
    TFloatField Quant_F{*this, "Quant_F", {.title = "Quant. Falt."}};
    TFloatField Quant_B{*this, "Quant_B", {.title = "Quant. Bai."}};
    TFloatField Saldo{*this, "Saldo"};
    TFloatField Necessidade{*this, "Necessidade", {.title = "Necess."}};
    TIntegerField ID{*this, "ID"};
    TStringField Est{*this, "Est", 1}; ///< "S" once stock was posted for the row
    TFloatField Preco{*this, "Preco"};
    TIntegerField Pos{*this, "Pos"};
    TStringField Reprocesso{*this, "Reprocesso", 3};

    double Leaving() const { return Quant.value() + Quant_2.value() + Quant_I.value() + Quant_F.value(); }
    double Losses() const { return Quant_2.value() + Quant_I.value() + Quant_F.value(); }
};

/// Lines of the order's other parts that leave the last sector together with the grid's.
struct TtbBaixaPartes final : TMemTable {
    using TMemTable::TMemTable;

    TFloatField QTDE{*this, "QTDE"}; ///< balance of the line
    TIntegerField IDENTIFICADOR{*this, "IDENTIFICADOR"};
    TStringField COR{*this, "COR", 6};
    TStringField TAM{*this, "TAM", 4};
    TStringField CODCLI{*this, "CODCLI", 5};
    TStringField PARTE{*this, "PARTE", 2};
    TStringField ULT_PARTE{*this, "ULT_PARTE", 1}; ///< "S" for the part that consumes the amounts
    TFloatField PRECO{*this, "PRECO"};
};

/// Amounts of the grid, by colour and size, still to be spread over the other parts.
struct TTbBaixa final : TMemTable {
    using TMemTable::TMemTable;

    TFloatField QUANT{*this, "QUANT"};
    TFloatField QUANT_I{*this, "QUANT_I"};
    TFloatField QUANT_2{*this, "QUANT_2"};
    TFloatField QUANT_F{*this, "QUANT_F"};
    TStringField COR{*this, "COR", 6};
    TStringField TAM{*this, "TAM", 4};
};

/// What an RFID reader found: one row a code.
struct TTbRFID final : TMemTable {
    using TMemTable::TMemTable;

    TStringField CODIGO{*this, "CODIGO", 25};
    TFloatField QTDE{*this, "QTDE"};
};

/// "Movimentação de Setores": moves one order out of a sector.
class TfmFacMov final : public TOrvForm, public IMovementScreen {
public:
    explicit TfmFacMov(TApplication& application);

    TTbMovimento TbTemp{*this, "TbTemp"};
    TtbBaixaPartes tbBaixaPartes{*this, "tbBaixaPartes"};
    TTbBaixa TbBaixa{*this, "TbBaixa"};
    TTbRFID TbRFID{*this, "TbRFID"};
    TOrvQuery QryFluxo{*this, "QryFluxo", Database()}; ///< rows of the chosen flow with their balances, in order

    TQryConsulta QryConsulta{*this, "QryConsulta", Database()};
    TTbFluxo TbFluxo{*this, "TbFluxo"};
    TQryEstorno QryEstorno{*this, "QryEstorno", Database()};
    TTbRastrear TbRastrear{*this, "TbRastrear"};

    TPageControl PageControl2{*this, "PageControl2"};

    TTabSheet tbsAcesso{PageControl2, "tbsAcesso", {.caption = "A&cesso"}};
    TRow linhaConsulta{tbsAcesso, "linhaConsulta"};
    TEdit edtM01OF{linhaConsulta, "edtM01OF", {.caption = "OF", .maxLength = 6}};
    TEdit edtM01Produto{linhaConsulta, "edtM01Produto", {.caption = "Produto", .maxLength = 15, .lookup = true}};
    TEdit edtM01DescProduto{linhaConsulta, "edtM01DescProduto", {.caption = "Descrição", .readOnly = true}};
    TComboBox CbConsParte{linhaConsulta, "CbConsParte", {.caption = "Parte"}};
    TButton BtnAConsultar{linhaConsulta, "BtnAConsultar", {.caption = "Consultar"}};
    TGrid DbGridGrade{tbsAcesso, "DbGridGrade", QryConsulta, {.caption = "Posição da OF", .readOnly = true}};
    TRow linhaFluxoConsulta{tbsAcesso, "linhaFluxoConsulta"};
    TEdit EdtCodFluxo{linhaFluxoConsulta, "EdtCodFluxo", {.caption = "Fluxo", .maxLength = 3, .readOnly = true}};
    TEdit EdtDesFluxo{linhaFluxoConsulta, "EdtDesFluxo", {.caption = "Descrição", .readOnly = true}};
    TButton SpeedButton1{linhaFluxoConsulta, "SpeedButton1", {.caption = "Gravar Endereços"}};
    TButton SpeedButton2{linhaFluxoConsulta, "SpeedButton2", {.caption = "Foto"}};
    TGrid DbgFluxo1{tbsAcesso, "DbgFluxo1", TbFluxo, {.caption = "Setores do fluxo", .lines = 6}};
    TRow linhaObservacoes{tbsAcesso, "linhaObservacoes"};
    TMemo mmObsOF{linhaObservacoes, "mmObsOF", {.caption = "Observação da OF", .readOnly = true}};
    TMemo MmObs{linhaObservacoes, "MmObs", {.caption = "Observações dos movimentos", .readOnly = true}};
    TMemo mmObsEnvio{linhaObservacoes, "mmObsEnvio", {.caption = "Observações de envio", .readOnly = true}};
    TRow pnlAcesso{tbsAcesso, "pnlAcesso"};
    TButton BitBtn5{pnlAcesso, "BitBtn5", {.caption = "Pacotes"}};
    TButton BitBtn7{pnlAcesso, "BitBtn7", {.caption = "Consumos"}};
    TButton BitBtn8{pnlAcesso, "BitBtn8", {.caption = "Ficha de Envio"}};
    TButton btnFichaCorte{pnlAcesso, "btnFichaCorte", {.caption = "Ficha de Corte"}};
    TButton BtnExclusao{pnlAcesso, "BtnExclusao", {.caption = "Excluir OF"}};

    TTabSheet tbsNormal{PageControl2, "tbsNormal", {.caption = "&Movimentação"}};

    TGroupBox pnlCabecalho{tbsNormal, "pnlCabecalho"};
    TRow linhaOF{pnlCabecalho, "linhaOF"};
    TEdit edtOFNum{linhaOF, "edtOFNum", {.caption = "&OF", .maxLength = 6}};
    TComboBox CbParte{linhaOF, "CbParte", {.caption = "&Parte"}};
    TEdit edtCodproduto{linhaOF, "edtCodproduto", {.caption = "Produto", .maxLength = 15, .readOnly = true}};
    TEdit edtDescProduto{linhaOF, "edtDescProduto", {.caption = "Descrição", .maxLength = 80, .readOnly = true}};

    TImage imgFoto{linhaOF, "imgFoto"};

    TRow linhaSetor{pnlCabecalho, "linhaSetor"};
    TEdit EdtSetor{linhaSetor, "EdtSetor", {.caption = "&Setor", .maxLength = 3, .lookup = true}};
    TEdit edtDescSetor{linhaSetor, "edtDescSetor", {.caption = "Descrição", .readOnly = true}};
    TEdit EdtReprocesso{linhaSetor, "EdtReprocesso", {.caption = "Reprocesso", .maxLength = 3, .readOnly = true}};
    TEdit edtSetorProx{linhaSetor, "edtSetorProx", {.caption = "Pró&ximo setor", .maxLength = 3, .lookup = true}};
    TEdit edtDescSetorProx{linhaSetor, "edtDescSetorProx", {.caption = "Descrição", .readOnly = true}};
    TComboBox cbMovimento{linhaSetor, "cbMovimento", {.caption = "Mo&vimento"}};

    TRow linhaDatas{pnlCabecalho, "linhaDatas"};
    TDateEdit edtDtEntrada{linhaDatas, "edtDtEntrada", {.caption = "Data de &envio"}};
    TDateEdit edtDtProducao{linhaDatas, "edtDtProducao", {.caption = "&Data de produção"}};
    TDateEdit EdtRetorno{linhaDatas, "EdtRetorno", {.caption = "P&rev. retorno"}};
    TEdit edtNota{linhaDatas, "edtNota", {.caption = "&Nota de retorno", .maxLength = 7}};

    TRow linhaFaccao{pnlCabecalho, "linhaFaccao"};
    TEdit edtFaccao{linhaFaccao, "edtFaccao", {.caption = "Fac&ção", .maxLength = 5, .lookup = true}};
    TEdit edtDescFaccao{linhaFaccao, "edtDescFaccao", {.caption = "Nome", .readOnly = true}};
    TEdit edtFacDest{linhaFaccao, "edtFacDest", {.caption = "Facção des&tino", .maxLength = 5, .lookup = true}};
    TEdit edtDescFacDest{linhaFaccao, "edtDescFacDest", {.caption = "Nome", .readOnly = true}};
    TEdit edtMov{linhaFaccao, "edtMov", {.caption = "Movimento aberto", .maxLength = 6, .readOnly = true}};
    TEdit EdtPedido{linhaFaccao, "EdtPedido", {.caption = "Pedido", .maxLength = 12, .readOnly = true}};
    TDateEdit DtFatPed{linhaFaccao, "DtFatPed", {.caption = "Faturamento", .readOnly = true}};

    TRow linhaObs{pnlCabecalho, "linhaObs"};
    TEdit edtObs{linhaObs, "edtObs", {.caption = "O&bservação", .maxLength = 200}};
    TEdit edtFluxo{linhaObs, "edtFluxo", {.caption = "F&luxo", .maxLength = 3, .lookup = true}};
    TEdit edtDescFluxo{linhaObs, "edtDescFluxo", {.caption = "Descrição", .readOnly = true}};
    TGrid dbgFluxo{
        tbsNormal, "dbgFluxo", QryFluxo, {.caption = "Fluxo da parte", .lines = 5, .readOnly = true, .tabStop = false}};

    TRow linhaOpcoes{tbsNormal, "linhaOpcoes"};
    TCheckBox CbProximo{linhaOpcoes, "CbProximo", {.caption = "Abrir Próximo Setor", .checked = true}};
    TCheckBox cbBaixaBarras{linhaOpcoes, "cbBaixaBarras", {.caption = "Movimentar por código de barras"}};
    TCheckBox CbGeraNotaFiscal{linhaOpcoes, "CbGeraNotaFiscal", {.caption = "Gerar Nota Fiscal"}};

    TGroupBox GbBarra{tbsNormal, "GbBarra", {.caption = "Leitura", .visible = false}};
    TEdit EdtBarra{GbBarra, "EdtBarra", {.caption = "Código de barras", .maxLength = 25}};
    TComboBox CbFormato{GbBarra, "CbFormato",
        {.caption = "Formato", .items = {"EAN 13 / DUN14 / Barra Cli.", "Barra 128"}, .itemIndex = 0}};

    TGroupBox GbEstoque{tbsNormal, "GbEstoque", {.caption = "Estoque", .visible = false}};
    TEdit edtQual{GbEstoque, "edtQual", {.caption = "Qualidade", .maxLength = 2}};
    TEdit EdtCodTip{GbEstoque, "EdtCodTip", {.caption = "Tipo de movimento", .maxLength = 3}};
    TEdit edtCodDeposito{GbEstoque, "edtCodDeposito", {.caption = "Depósito", .maxLength = 3}};

    TPopupMenu PopupMenu3{*this, "PopupMenu3"};
    TMenuItem ZerarQuantidades1{PopupMenu3, "ZerarQuantidades1", {.caption = "Zerar Quantidades"}};
    TMenuItem Distribuirquantidade1{PopupMenu3, "Distribuirquantidade1", {.caption = "Distribuir Quantidades"}};
    TGrid dbg00Grade{tbsNormal, "dbg00Grade", TbTemp,
        {.caption = "Quantidades",
            .columns = {{.field = "Mov", .readOnly = true}, {.field = "Cor", .readOnly = true},
                {.field = "DescCor", .title = "Descrição da cor", .readOnly = true}, {.field = "Tam", .readOnly = true},
                {.field = "Qt_Orig", .readOnly = true}, {.field = "Quant"}, {.field = "Quant_2"}, {.field = "Quant_I"},
                {.field = "Quant_F"}, {.field = "Quant_B", .readOnly = true}, {.field = "Saldo", .readOnly = true},
                {.field = "Necessidade", .readOnly = true}},
            .onExit = TGridExit::KeepsRow}};
    TNumberEdit EdtQtde{tbsNormal, "EdtQtde", {.caption = "Quantidade Total do Movimento", .readOnly = true}};

    TRow pnlControle{tbsNormal, "pnlControle"};
    TButton btn00Incluir{pnlControle, "btn00Incluir", {.caption = "&Incluir"}};
    TButton btn00Fechar{pnlControle, "btn00Fechar", {.caption = "&Fechar"}};
    TRow pnlConfirma{tbsNormal, "pnlConfirma"};
    TButton btn00Confirmar{pnlConfirma, "btn00Confirmar", {.caption = "Confirm&ar"}};
    TButton btn00Desiste{pnlConfirma, "btn00Desiste", {.caption = "Desis&tir", .role = TButtonRole::Cancel}};

    TTabSheet tbsEstorno{PageControl2, "tbsEstorno", {.caption = "Estornar Movimento"}};
    TRow linhaEstorno{tbsEstorno, "linhaEstorno"};
    TEdit edtM02OF{linhaEstorno, "edtM02OF", {.caption = "OF", .maxLength = 6}};
    TEdit edtM02Produto{linhaEstorno, "edtM02Produto", {.caption = "Produto", .maxLength = 15, .lookup = true}};
    TEdit edtM02DescProduto{linhaEstorno, "edtM02DescProduto", {.caption = "Descrição", .readOnly = true}};
    TComboBox CbEstorParte{linhaEstorno, "CbEstorParte", {.caption = "Parte"}};
    TComboBox cbEstorMov{linhaEstorno, "cbEstorMov", {.caption = "Movimento"}};
    TButton BitBtn1{linhaEstorno, "BitBtn1", {.caption = "Consultar"}};
    TGrid DBGrid3{tbsEstorno, "DBGrid3", QryEstorno, {.caption = "Movimentos", .readOnly = true}};
    TGroupBox pnlEstornoBaixa{tbsEstorno, "pnlEstornoBaixa", {.caption = "Estoque", .visible = false}};
    TRow linhaTipoEstorno{pnlEstornoBaixa, "linhaTipoEstorno"};
    TEdit edtRTipMov{linhaTipoEstorno, "edtRTipMov", {.caption = "Tipo de movimento", .maxLength = 3, .lookup = true}};
    TEdit edtRDescMov{linhaTipoEstorno, "edtRDescMov", {.caption = "Descrição", .readOnly = true}};
    TRow linhaDepositoEstorno{pnlEstornoBaixa, "linhaDepositoEstorno"};
    TEdit edtRDeposito{linhaDepositoEstorno, "edtRDeposito", {.caption = "Depósito", .maxLength = 3, .lookup = true}};
    TEdit edtRDescDeposito{linhaDepositoEstorno, "edtRDescDeposito", {.caption = "Descrição", .readOnly = true}};
    TRow linhaDepositoReprovado{pnlEstornoBaixa, "linhaDepositoReprovado"};
    TEdit edtDepositoRep{
        linhaDepositoReprovado, "edtDepositoRep", {.caption = "Depósito reprovado", .maxLength = 3, .lookup = true}};
    TEdit edtDescDepositoRep{linhaDepositoReprovado, "edtDescDepositoRep", {.caption = "Descrição", .readOnly = true}};
    TButton BitBtn6{tbsEstorno, "BitBtn6", {.caption = "&Estornar"}};

    TTabSheet tbsRastrear{PageControl2, "tbsRastrear", {.caption = "Rastrear"}};
    TRow linhaRastrear{tbsRastrear, "linhaRastrear"};
    TEdit Edit1{linhaRastrear, "Edit1", {.caption = "Número", .maxLength = 6}};
    TEdit Edit2{linhaRastrear, "Edit2", {.caption = "Setor", .maxLength = 3}};
    TEdit Edit3{linhaRastrear, "Edit3", {.caption = "Movimento", .maxLength = 6}};
    TEdit EdtCodCor{linhaRastrear, "EdtCodCor", {.caption = "Cor", .maxLength = 6}};
    TEdit EdtCodTam{linhaRastrear, "EdtCodTam", {.caption = "Tam.", .maxLength = 4}};
    TButton BitBtn9{linhaRastrear, "BitBtn9", {.caption = "Consultar"}};
    TGrid DBGrid2{tbsRastrear, "DBGrid2", TbRastrear, {.caption = "Caminho das peças", .readOnly = true}};

    TPesquisa PqMProduto{*this, "PqMProduto", {.BuscaTabela = "PRODUTO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqEProduto{*this, "PqEProduto", {.BuscaTabela = "PRODUTO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqRTipMov{*this, "PqRTipMov", {.BuscaTabela = "TABBAI", .BuscaCampo = "CODIGO"}};
    TPesquisa PqRDeposito{*this, "PqRDeposito", {.BuscaTabela = "DEPOSITO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqDepositoRep{*this, "PqDepositoRep", {.BuscaTabela = "DEPOSITO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqFluxo{*this, "PqFluxo", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqSetorProx{*this, "PqSetorProx", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};
    TPesquisa pqRFluxo{*this, "pqRFluxo", {.BuscaTabela = "ROTEIRO", .BuscaCampo = "CODIGO"}};
    TPesquisa PqFaccao{*this, "PqFaccao", {.BuscaTabela = "ENTIDADE", .BuscaCampo = "CODCLI"}};
    TPesquisa PqEntidadeDest{*this, "PqEntidadeDest", {.BuscaTabela = "ENTIDADE", .BuscaCampo = "CODCLI"}};

    void DefineReprovados(std::string_view deposito, std::string_view tipoMovimento) override;

    // Handlers, in the order of the controls.
    void edtOFNumChange();
    void edtOFNumExit();
    void CbParteExit();
    void EdtSetorExit();
    void EdtSetorChange();
    void edtSetorProxChange();
    void edtSetorProxExit();
    void cbMovimentoExit();
    void edtDtEntradaExit();
    void edtDtProducaoExit();
    void EdtRetornoExit();
    void edtFluxoChange();
    void edtFluxoExit();
    void edtFaccaoChange();
    void edtFaccaoExit();
    void edtFacDestChange();
    void edtFacDestExit();
    void edtFacDestKeyDown(TKey& key);
    void cbBaixaBarrasClick();
    void EdtBarraChange();
    void EdtBarraEnter();
    void EdtBarraKeyDown(TKey& key);
    void EdtBarraExit(); ///< the reading of a code
    void edtQualExit();
    void EdtCodTipExit();
    void edtCodDepositoExit();
    void ZerarQuantidades1Click();
    void Distribuirquantidade1Click();
    void dbg00GradeKeyDown(TKey& key);
    void dbg00GradeRowColor(std::size_t row, TRowColor& color);
    void dbg00GradeExit();
    void btn00IncluirClick();
    void btn00FecharClick();
    void btn00ConfirmarClick();
    void btn00DesisteClick();
    void PqFluxoFechaPesquisa();
    void PqSetorProxFechaPesquisa();
    void pqRFluxoFechaPesquisa();
    void PqFaccaoFechaPesquisa();
    void PqEntidadeDestFechaPesquisa();
    void TelaKeyDown(TKey& key);
    void TelaClose();

    // Consultation and removal of an order.
    void edtM01OFExit();
    void edtM01ProdutoChange();
    void edtFaccao_CodProd();
    void BtnAConsultarClick();
    void M01MostraDados();
    void ConsultaOF(std::string_view ordem); ///< a column that leads the order; empty: none
    void CarregaPartesBaixa();
    void EdtCodFluxoChange();
    void DbGridGradeTitleClick(std::string_view column);
    void DbGridGradeDblClick();
    void DbGridGradeRowColor(std::size_t row, TRowColor& color);
    void SpeedButton1Click();
    void SpeedButton2Click();
    void BitBtn5Click();
    void BitBtn7Click();
    void BitBtn8Click();
    void btnFichaCorteClick();
    void BtnExclusaoClick();
    void PqMProdutoFechaPesquisa();

    // Reversal of a movement.
    void edtM02OFExit();
    void edtM02ProdutoChange();
    void edtM02ProdutoExit();
    void BitBtn1Click();
    void edtRTipMovChange();
    void edtRTipMovExit();
    void edtRDepositoChange();
    void edtRDepositoExit();
    void edtDepositoRepChange();
    void edtDepositoRepExit();
    void BitBtn6Click();
    void PqEProdutoFechaPesquisa();
    void PqRTipMovFechaPesquisa();
    void PqRDepositoFechaPesquisa();
    void PqDepositoRepFechaPesquisa();
    void CarregaPartesBaixaEstorno();
    void BuscaMovOF();
    /// Of the current row of QryEstorno, whatever is named: this is wanted.
    bool PodeExtornar(std::string_view setor, std::string_view numero, std::string_view tam, std::string_view parte,
        std::string_view mov);
    bool SetorComReprocesso(
        std::string_view numero, std::string_view setor, std::string_view parte, std::string_view tam);

    void BitBtn9Click();

    // Rules of sectors and flows, of the order and part on screen.
    std::string PrimeiroSetor(std::string_view fluxo);
    std::string SetorAnterior(std::string_view setor);
    bool MovimentouSetor(std::string_view setor);
    bool MovimentouSetoresLivre();
    bool MovimentouTodosSetoresLivres(); ///< tells the user which are missing
    std::string Pega_Setor_Normal();
    std::vector<std::string> FluxosEquivalentes(std::string_view fluxo, std::string_view setor);
    bool PermissaoSetor(std::string_view setor);
    std::string FaccaoFuncionario(std::string_view usuario);
    bool BaixaSetorMaior(std::string_view setor);
    bool BaixaSetorParcial(std::string_view setor);
    bool ExisteQtdePendenteOP(std::string_view numero);
    bool ExisteQtdePendente(std::string_view numero, std::string_view setor, std::string_view parte,
        std::string_view mov, std::string& reprocesso);
    bool ValidaParte(std::string_view parte);
    bool PedidoCancelado(std::string_view pedido, std::string_view codigo);
    bool ExisteNotaRetorno(std::string_view nota, std::string_view numero, std::string_view faccao);
    void BuscaEmpDestPrincipal();
    void Proximo_Mov(std::string_view numero, std::string_view setor);
    void ValidaDataProducao();
    void CarregaPartesMov();
    void AtualizaFoto(std::string_view codigo);

    // The entry from the first field to the last commit.
    void Limpa_Normal();
    void Mostra_Normal();
    void Gera_Normal();
    void Retorno_Normal();
    void ProcessaPartesdaBaixa(std::string_view parte, bool ultima);
    double PrecoFaccao(std::string_view parte);
    /// Puts the unit's code in EdtBarra where the code is a box's; how many pieces it stands for, at least 1.
    void VerificaCodigoBarraEAN14(std::string_view codigo, std::int64_t& quantidade);
    void ValidarDefeitos();
    double BuscaQtdeDefCad(std::string_view mov);
    double BuscaQtdeDefMov(std::string_view mov);
    void AbrirLancamentoDefeitos();
    void AtualizaQtdeOF();
    void BaixaQtdeOF();
    void LancaEstoque();
    void AtualizaCodigoDeposito(std::string_view numero);
    void Grava_Normal();
    void Insere_Faccao3(std::string_view tipo, std::string_view parte, std::string_view reprocesso);
    void GravaPartesdaBaixa();
    void GeraNotaFiscal();

private:
    std::string Parte() const; ///< code of the part chosen
    std::string UltimoSetor() const;
    bool UltimoSetorDoFluxo(std::string_view setor) const;
    std::string LigaSetor(std::string_view setor, std::string_view coluna); ///< a switch of CADFLUXO
    bool SetorLivre(std::string_view setor) { return LigaSetor(setor, "BAIXALIVRE") == "S"; }
    bool ProdutoControlaEstoque();
    bool ParteControlaEstoque(std::string_view parte);
    void CarregaPartes();
    std::string DepositoDoUsuario();
    std::string DepositoInicial();
    void MostraOcioso();
    void AbrePesquisaDoCampo(TKey& key);
    void TravaCabecalho(bool travado);
    void Cancela() { btn00DesisteClick(); }
    void VoltaAoSetor();
    bool ForaDaOrdem(std::string_view numero, std::string_view setor, std::string_view parte);
    void LiberaDatas();
    void TravaFluxo();
    void PreencheMovimentos(std::string_view anterior);
    void EscolheProximoSetor();
    void AtualizaPrevRetorno();

    void TbTempBeforePost();
    void TbTempAfterPost();
    void TbTempBeforeInsert();
    void SomaQuantidades();
    void QuantSomenteLeitura(bool somenteLeitura);
    bool QuantSomenteLeitura() const;
    void CarregaGrade(bool precoZero);
    void BaixaConjunta();
    /// A pending line of another part.
    struct TLinhaDaParte {
        std::int64_t id = 0;
        std::string codcli;
        double qtde = 0;
        double unitario = 0;
    };
    using TCorTam = std::pair<std::string, std::string>;
    std::map<TCorTam, std::vector<TLinhaDaParte>> PendentesDaParte(
        std::string_view parte); ///< of each the oldest first
    void ReduzGrade(const std::string& cor, const std::string& tam, double disponivel);
    TStatement SelectPendentes();

    bool ConfereCabecalho();
    bool ConfereMovimentacaoParcial();
    bool ConfereTolerancias();
    bool ConfereEstoque();
    bool ConfereTipoMovimento();
    double Reprovados();
    bool MovimentaReprovados();
    bool RecebeReprovados();
    void BaixaConsumos();
    [[noreturn]] void CancelaMovimentacao();
    void ConfereConsumos();
    bool ConsumoPendente(bool desteSetor);
    void LancaReprovados();
    /// Posts warehouse, quality, type and cost as given, the rest from the screen.
    void EntraNoEstoque(TEstoque& estoque, double quantidade);
    void AcrescentaObservacao();
    void AtualizaAtivos();
    std::string Lote() const;
    void AbreProximoSetor(std::string_view reprocesso);

    void LigaConsultas();
    void PreenchePartes(TComboBox& partes, const TStatement& select);
    std::string ParteConsultada() const;
    void MostraObservacoes();
    void SomaFluxo(TOrvQuery linhas);
    bool ReservaPermiteExcluir();
    void ExcluiOF();
    void AbreEntrada();
    void RepeteConsulta(const TOrderPosition& posicao);
    bool TemPosicao();
    TOrderPosition PosicaoConsultada() const;

    bool ConfereEstorno();
    bool ConfereEstoqueEstorno();
    bool EstornaReprovados(); ///< the sector sends rejected goods to a warehouse of their own
    double EstoqueDoProduto(std::string_view deposito);
    std::string LoteEstorno() const;
    std::int64_t PosicaoAberta(); ///< by the selected movement; 0: none
    std::int64_t DestinoDoMovimento();
    void DevolveOrigem();
    void RetiraDestino();
    void EstornaEstoque(std::string_view deposito, double quantidade);
    void EstornaBaixa();
    void EstornaPerdas();
    void GravaEstorno();

    void AcrescentaPosicoes(const TStatement& condicao);

    /// The piece that a label stands for.
    struct TPeca {
        std::string codigo;
        std::string cor;
        std::string tam;
    };
    using TPecas = std::unordered_map<std::string, TPeca>; ///< by code read
    static constexpr std::string_view OrdemDaGrade = "mov;codigo;cor;pos;quant";
    enum class TPreenche { Zero, Saldo };
    void PreencheQuantidades(TPreenche valor);
    void SomaQuant(double quantidade);
    bool EhDaPeca(std::size_t row, const TPeca& peca) const;
    bool TemPendente(std::size_t row) const;

    void RetiraAspas();
    bool CodigoCompleto(const std::string& codigo);
    bool EtiquetaLiberada();
    bool LocalizaPeca(bool aMaior);
    void AlarmeDaBarra(std::string_view text);

    void LeRFID();
    void LancaRFID();
    void EncerraRFID(int formato);
    bool LancaTags(const TPecas& pecas, std::string& excedentes);
    bool LancaTag(const TPeca& peca, double quantidade, bool aMaior, std::string& excedentes);
    TPecas PecasDasTags();

    TOrvRFID& OrvRFIDMov;
    /// Labels read since the screen was opened, whatever became of the order.
    std::unordered_set<std::string> sListaEtq;

    TPrecos Precos;

    const std::string sParamFAC10; ///< "S": stock enters with the cost of the product
    const std::string sParamFAC20; ///< depth of lines: "N" colour and size, "T" size, "C" colour, "S" neither
    const std::string sParamFAC30; ///< "S": goods come back from a subcontractor with a return invoice
    const std::string sParamFAC60; ///< consumption settled before a movement: "S" each sector, "U" the last
    const std::string sParamFAC70; ///< tolerance in pieces where partial movement needs a supervisor
    const std::string sParamFAC80; ///< the factory's own code
    const std::string sParamFAC90; ///< "S": another production date needs a supervisor
    const std::string sParamFAC100; ///< read, without effect
    const std::string sParamFAC140; ///< "S": the dispatch date is locked
    const std::string sParamFAC240; ///< bar codes at the last sector: "N" not forced, "B" with labels of 128
    const std::string sParamFAC250; ///< "S": the movement number is mandatory off the first sector
    const std::string sParamFAC260; ///< "S": all parts leave the last sector together
    const std::string sParamEXP70; ///< labels of 128: "S" read once each and with the order, "N" as short as they are
    const std::string sParamPCP140; ///< "2": the stock lot is the order

    TIndPag indPag = TIndPag::Nenhuma; ///< of the sector, read once for a confirmation
    std::string sLancaEstoque; ///< of the part: goods enter stock at the last sector
    std::string sAtualizaOF; ///< of the part: losses and excess change the order
    std::string sBaixaOF; ///< of the part: finished goods lower the order
    std::string sDepositoReprovado; ///< where rejected goods enter stock, and the type they enter with
    std::string sTipoMovReprovado;
    bool bgUltimoSetor = false;
    bool bgNaoBipado = false;
    bool bLeitAutomatica = true;
};

} // namespace alinhavo
