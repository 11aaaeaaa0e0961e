#pragma once

#include "forms/TApplication.h"
#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TDateEdit.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TNumberEdit.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioGroup.h"
#include "forms/TTabSheet.h"

#include <string>
#include <vector>

namespace alinhavo {

/// "Detalhe": a modal screen with one field.
class TfmDetalhe final : public TForm {
public:
    explicit TfmDetalhe(TApplication& application);

    TEdit edtNota{*this, "edtNota"};
    TButton btnOk{*this, "btnOk"};

    void btnOkClick();
};

struct TTbGrade : TMemTable {
    TTbGrade(TComponent& owner, std::string name);

    TStringField Cor{*this, "Cor", 6};
    TStringField Tam{*this, "Tam", 4};
    TFloatField Quant{*this, "Quant", {.title = "Quantidade"}};
    TFloatField Saldo{*this, "Saldo", {.readOnly = true}};
    TStringField Sel{*this, "Sel", 1};
};

/// "Tela": one control of each kind, with handlers that ask, tell and refuse.
class TfmTela final : public TForm {
public:
    explicit TfmTela(TApplication& application);

    TTbGrade TbGrade{*this, "TbGrade"};

    TEdit edtCodigo{*this, "edtCodigo", {.caption = "Código", .maxLength = 6}};
    TEdit edtSetor{*this, "edtSetor"};
    TEdit edtBarra{*this, "edtBarra"};
    TEdit edtTrancado{*this, "edtTrancado", {.enabled = false}};
    TEdit edtLeitura{*this, "edtLeitura", {.readOnly = true}};
    TEdit edtOculto{*this, "edtOculto", {.visible = false}};
    TNumberEdit edtPreco{*this, "edtPreco", {.decimals = 2}};
    TDateEdit edtData{*this, "edtData"};
    TComboBox CbParte{*this, "CbParte", {.items = {"01 |Corpo", "02 |Calça"}}};
    TRadioGroup rgTipo{*this, "rgTipo", {.items = {"Todos", "Pendentes"}}};
    TCheckBox CbProximo{*this, "CbProximo", {.caption = "Próximo"}};
    TGrid dbg00Grade{*this, "dbg00Grade", TbGrade,
        {.columns = {{.field = "Cor"}, {.field = "Tam"}, {.field = "Quant"}, {.field = "Saldo", .title = "A mover"},
             {.field = "Sel", .tick = true}}}};
    TPopupMenu pmGrade{*this, "pmGrade"};
    TMenuItem miZerar{pmGrade, "miZerar", {.caption = "&Zerar Quantidades"}};
    TMenuItem miQuant{pmGrade, "miQuant", {.caption = "Copiar coluna"}};
    TPageControl PageControl2{*this, "PageControl2"};
    TTabSheet tsGeral{PageControl2, "tsGeral", {.caption = "Geral"}};
    TTabSheet tsAcesso{PageControl2, "tsAcesso", {.caption = "Acesso"}};
    TEdit edtAcesso{tsAcesso, "edtAcesso"};
    TButton btnPergunta{*this, "btnPergunta"};
    TButton btnDuas{*this, "btnDuas"};
    TButton btnEntrada{*this, "btnEntrada"};
    TButton btnDetalhe{*this, "btnDetalhe"};
    TButton btnPesquisa{*this, "btnPesquisa"};
    TButton btnSupervisor{*this, "btnSupervisor"};
    TButton btnArquivo{*this, "btnArquivo"};
    TButton btnErro{*this, "btnErro"};
    TButton btnAlarme{*this, "btnAlarme"};

private:
    void edtSetorExit();
    void edtBarraChange();
    void edtCodigoKeyDown(TKey& key);
    void pmGradePopup(std::string_view column);
    void dbg00GradeTitleClick(std::string_view column);
    void dbg00GradeDoubleClick();
    void miZerarClick();
    void btnPerguntaClick();
    void btnDuasClick();
    void btnEntradaClick();
    void btnDetalheClick();
    void btnPesquisaClick();
    void btnSupervisorClick();
    void btnArquivoClick();
    void btnErroClick();
    void btnAlarmeClick();
};

} // namespace alinhavo
