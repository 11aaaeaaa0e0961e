#pragma once

#include "forms/TApplication.h"
#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TDialog.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TMemTable.h"
#include "forms/TNumberEdit.h"
#include "forms/TRow.h"

namespace alinhavo {

/// What was read, one row a read.
struct TTbLidos : TMemTable {
    TIntegerField Ordem{*this, "Ordem", {.title = "Ordem"}};
    TStringField Barra{*this, "Barra", 25, {.title = "Código de barras"}};
    TFloatField Quant{*this, "Quant", {.title = "Quantidade"}};
};

/// "Leitura de Código de Barras": a field that reads by itself at the 13th digit, or on Enter, and stays ready.
class TfmLeitura final : public TForm {
public:
    explicit TfmLeitura(TApplication& app);

    TTbLidos TbLidos;

    TRow pnlLeitura{*this, "pnlLeitura"};
    TEdit EdtBarra{pnlLeitura, "EdtBarra", {.caption = "Código de &barras", .maxLength = 25}};
    TCheckBox cbAutomatica{pnlLeitura, "cbAutomatica", {.caption = "Leitura &automática"}};
    TNumberEdit edtLidos{pnlLeitura, "edtLidos", {.caption = "Lidos", .decimals = 0, .readOnly = true}};
    TButton btnPesquisar{pnlLeitura, "btnPesquisar", {.caption = "Pesquisar", .shortcut = "F6", .takesFocus = false}};
    TButton btnMuitas{pnlLeitura, "btnMuitas", {.caption = "Cem mil linhas"}};
    TGrid dbgLidos{*this, "dbgLidos", TbLidos,
        {.columns = {{.field = "Ordem", .readOnly = true}, {.field = "Barra", .readOnly = true}, {.field = "Quant"}}}};
    TLabel lblLido{*this, "lblLido"};

private:
    void EdtBarraChange();
    void EdtBarraExit();
    void btnPesquisarClick();
    void btnMuitasClick();
    void Le();
    void Alarma();
    void Procura(std::string_view text);

    TMemTable tbAchados_;
};

} // namespace alinhavo
