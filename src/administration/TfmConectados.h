#pragma once

#include "forms/TButton.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TMemTable.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"

#include <string>

namespace alinhavo {

/// The sessions at work when the list was read.
struct TTbConectados final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Id{*this, "Id", 100};
    TStringField Codigo{*this, "Codigo", 10, {.title = "Usuário"}};
    TStringField Nome{*this, "Nome", 40};
    TStringField Desde{*this, "Desde", 20, {.title = "Entrou"}};
    TStringField UltimoUso{*this, "UltimoUso", 40, {.title = "Último uso"}};
    TStringField Pendente{*this, "Pendente", 60, {.title = "Trabalho sem gravar"}};
    TStringField PendenteDesde{*this, "PendenteDesde", 20};
    TStringField Navegador{*this, "Navegador", 20};
    TStringField Telas{*this, "Telas", 2000, {.title = "Telas abertas"}};
    TStringField Propria{*this, "Propria", 1};
};

/// "Quem está conectado": the sessions of this server. A supervisor ends one that holds others up; what it has not written is
/// undone, and its user is told.
class TfmConectados final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmConectados";

    explicit TfmConectados(TApplication& application);

    TTbConectados TbConectados{*this, "TbConectados"};

    TRow pnlControle{*this, "pnlControle"};
    TButton btnAtualizar{pnlControle, "btnAtualizar", {.caption = "&Atualizar", .shortcut = "F5"}};
    TButton btnEncerrar{pnlControle, "btnEncerrar",
        {.caption = "&Encerrar sessão", .hint = "Pede a senha de um supervisor. O que não foi gravado é desfeito."}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "&Fechar", .role = TButtonRole::Cancel}};
    TLabel lblQuantos{pnlControle, "lblQuantos"};
    TGrid dbgConectados{*this, "dbgConectados", TbConectados,
        {.columns = {{.field = "Codigo", .width = 10}, {.field = "Nome", .width = 22}, {.field = "Desde", .width = 18},
             {.field = "UltimoUso", .width = 18}, {.field = "Pendente", .width = 34},
             {.field = "Navegador", .width = 12}, {.field = "Telas", .width = 44}},
            .lines = 16,
            .readOnly = true}};
    TLabel lblLegenda{*this, "lblLegenda",
        {.caption = "Em destaque, quem tem trabalho sem gravar: pode estar segurando registros que outros esperam."}};

    void btnAtualizarClick();
    void btnEncerrarClick();
    void btnFecharClick();
    void dbgConectadosRowColor(std::size_t linha, TRowColor& cor);

private:
    void Carrega();
    void Encerra();
};

} // namespace alinhavo
