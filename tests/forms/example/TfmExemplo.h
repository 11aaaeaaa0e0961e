#pragma once

#include "forms/TApplication.h"
#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TDateEdit.h"
#include "forms/TDBEdit.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TMemo.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TNumberEdit.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioGroup.h"
#include "forms/TRow.h"
#include "forms/TTabSheet.h"

namespace alinhavo {

/// Buttons to be dyed, by size. Filled when the colour is left; never stored.
struct TTbBotoes : TMemTable {
    TStringField Tam{*this, "Tam", 4, {.title = "Tam.", .readOnly = true}};
    TFloatField Qtde{*this, "Qtde", {.title = "Quantidade"}};
    TFloatField Perda{*this, "Perda", {.title = "Perda"}};
    TStringField Conferido{*this, "Conferido", 1, {.title = "Conf."}};
    TStringField Obs{*this, "Obs", 20, {.title = "Observação"}};
};

/// "Tingimento de Botões": an order of buttons is dyed in one colour. Shows how a screen is written.
class TfmExemplo final : public TForm {
public:
    explicit TfmExemplo(TApplication& app);

    TTbBotoes TbBotoes;

    TPageControl PageControl1{*this, "PageControl1"};
    TTabSheet tbsPedido{PageControl1, "tbsPedido", {.caption = "&Pedido"}};
    TGroupBox GbPedido{tbsPedido, "GbPedido", {.caption = "Pedido"}};
    TRow pnlPedido{GbPedido, "pnlPedido"};
    TEdit edtPedido{pnlPedido, "edtPedido", {.caption = "Pedido", .maxLength = 6}};
    TComboBox cbCor{pnlPedido, "cbCor", {.caption = "Cor", .items = {"01 |Azul", "02 |Verde"}}};
    TDateEdit edtEntrega{pnlPedido, "edtEntrega", {.caption = "Entrega"}};
    TRow pnlOpcoes{GbPedido, "pnlOpcoes"};
    TCheckBox cbUrgente{pnlOpcoes, "cbUrgente", {.caption = "&Urgente"}};
    TRadioGroup rgBanho{pnlOpcoes, "rgBanho", {.caption = "Banho", .items = {"Simples", "Duplo"}, .itemIndex = 0}};
    TGrid dbgBotoes{tbsPedido, "dbgBotoes", TbBotoes,
        {.columns = {{.field = "Tam"}, {.field = "Qtde"}, {.field = "Perda", .decimals = 2},
             {.field = "Conferido", .tick = true}, {.field = "Obs", .pickList = {"Urgente", "Amostra"}}}}};
    TPopupMenu PopupMenu1{*this, "PopupMenu1"};
    TMenuItem ZerarQuantidades1{
        PopupMenu1, "ZerarQuantidades1", {.caption = "Zerar Quantidades", .shortcut = "Ctrl+Del"}};
    TRow pnlTotal{tbsPedido, "pnlTotal"};
    TNumberEdit edtTotal{pnlTotal, "edtTotal", {.caption = "Total", .decimals = 0, .readOnly = true}};
    TDBEdit edtObsLinha{pnlTotal, "edtObsLinha", TbBotoes.Obs, {.caption = "Obs. da linha", .maxLength = 20}};
    TTabSheet tbsNotas{PageControl1, "tbsNotas", {.caption = "&Notas"}};
    TMemo mmObs{tbsNotas, "mmObs", {.caption = "Observações"}};
    TRow pnlBotoes{*this, "pnlBotoes"};
    TButton btnConfirmar{pnlBotoes, "btnConfirmar", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton btnDesistir{pnlBotoes, "btnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};
    TButton btnDetalhe{pnlBotoes, "btnDetalhe", {.caption = "D&etalhe", .shortcut = "F7", .takesFocus = false}};
    TLabel lblSituacao{pnlBotoes, "lblSituacao", {.caption = "Nenhum pedido."}};

    void edtPedidoExit();
    void cbCorExit();
    void edtEntregaExit();
    void ZerarQuantidades1Click();
    void btnConfirmarClick();
    void btnDesistirClick();
    void btnDetalheClick();

private:
    void dbgBotoesKeyDown(TKey& key);
    void dbgBotoesRowColor(std::size_t row, TRowColor& color);
    void TbBotoesBeforePost();
    void TbBotoesAfterPost();
    bool PodeConfirmar();
    void CarregaTamanhos();
    void Limpa();

    int nConfirmados = 0;
};

} // namespace alinhavo
