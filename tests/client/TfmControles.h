#pragma once

#include "forms/TApplication.h"
#include "forms/TButton.h"
#include "forms/TDateEdit.h"
#include "forms/TDialog.h"
#include "forms/TEdit.h"
#include "forms/TFileList.h"
#include "forms/TGrid.h"
#include "forms/TImage.h"
#include "forms/TLabel.h"
#include "forms/TMemo.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TNumberEdit.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioButton.h"
#include "forms/TRow.h"

namespace alinhavo {

/// Pieces to be sewn, one row a colour.
struct TTbPecas : TMemTable {
    TStringField Cor{*this, "Cor", 10, {.title = "Cor"}};
    TFloatField Qtde{*this, "Qtde", {.title = "Quantidade"}};
    TFloatField Preco{*this, "Preco", {.title = "Preço"}};
    TDateField Entrega{*this, "Entrega", {.title = "Entrega"}};
};

/// "Controles": the kinds of controls and dialogs that the other screens lack.
class TfmControles final : public TForm {
public:
    explicit TfmControles(TApplication& app);

    TTbPecas TbPecas;

    TPopupMenu menuFaccoes{*this, "menuFaccoes"};
    TMenuItem itTodas{menuFaccoes, "itTodas", {.caption = "&Todas as facções"}};
    TMenuItem itNenhuma{menuFaccoes, "itNenhuma", {.caption = "&Nenhuma"}};
    TRow pnlCampos{*this, "pnlCampos"};
    TEdit edtFaccoes{pnlCampos, "edtFaccoes", {.caption = "&Facções", .lookup = true}};
    TNumberEdit edtValor{pnlCampos, "edtValor", {.caption = "&Valor", .decimals = 2}};
    TDateEdit edtData{pnlCampos, "edtData", {.caption = "&Data"}};
    TEdit edtFixo{pnlCampos, "edtFixo", {.caption = "Fixo", .readOnly = true}};
    TRadioButton rbSim{pnlCampos, "rbSim", {.caption = "&Sim"}};
    TRadioButton rbNao{pnlCampos, "rbNao", {.caption = "&Não"}};
    TRow pnlTabela{*this, "pnlTabela"};
    TGrid dbgPecas{pnlTabela, "dbgPecas", TbPecas, {.lines = 6}};
    TMemo mmNota{pnlTabela, "mmNota", {.caption = "No&ta"}};
    TRow pnlArquivos{*this, "pnlArquivos"};
    TFileList lstFotos{pnlArquivos, "lstFotos", {.caption = "F&otos"}};
    TImage imgFoto{pnlArquivos, "imgFoto", {.caption = "Foto"}};
    TRow pnlBotoes{*this, "pnlBotoes"};
    TButton btnArquivo{pnlBotoes, "btnArquivo", {.caption = "&Arquivo", .shortcut = "F5", .takesFocus = false}};
    TButton btnVer{pnlBotoes, "btnVer", {.caption = "V&er", .shortcut = "F8", .takesFocus = false}};
    TButton btnSupervisor{
        pnlBotoes, "btnSupervisor", {.caption = "Su&pervisor", .shortcut = "F7", .takesFocus = false}};
    TButton btnVarios{pnlBotoes, "btnVarios", {.caption = "Vár&ios", .shortcut = "F6", .takesFocus = false}};
    TButton btnDemora{pnlBotoes, "btnDemora", {.caption = "De&mora", .shortcut = "F9", .takesFocus = false}};
    TLabel lblFeito{pnlBotoes, "lblFeito"};

private:
    void dbgPecasRowColor(std::size_t row, TRowColor& color);
    void itTodasClick();
    void lstFotosChange();
    void btnArquivoClick();
    void btnVerClick();
    void btnSupervisorClick();
    void btnVariosClick();
    void btnDemoraClick();

    TMemTable tbCores_;
};

} // namespace alinhavo
