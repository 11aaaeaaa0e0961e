#pragma once

#include "forms/TButton.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TMemTable.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"

namespace alinhavo {

/// What is wrong with pasted rows.
struct TTbErros : TMemTable {
    using TMemTable::TMemTable;
    TIntegerField Linha{*this, "Linha"};
    TStringField Conteudo{*this, "Conteudo", 80};
    TStringField Motivo{*this, "Motivo", 250};
};

/// "Linhas coladas": the rows that cannot be written, each with its reason. The user writes the right ones alone, or nothing.
class TfmColagem final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmColagem";

    explicit TfmColagem(TApplication& application);

    TTbErros TbErros{*this, "TbErros"};

    TLabel lblResumo{*this, "lblResumo", {.style = TLabelStyle::Strong}};
    TGrid dbgErros{*this, "dbgErros", TbErros,
        {.columns = {{.field = "Linha", .title = "Linha", .width = 7},
             {.field = "Conteudo", .title = "Conteúdo", .width = 24},
             {.field = "Motivo", .title = "Motivo", .width = 60}},
            .lines = 12,
            .readOnly = true}};
    TRow pnlBotoes{*this, "pnlBotoes"};
    TButton btnGravar{pnlBotoes, "btnGravar", {.caption = "&Gravar as certas"}};
    TButton btnDesistir{pnlBotoes, "btnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};

    /// Shows how many rows are right, and lets the user write them when there are any.
    void Resume(std::size_t certas);

    void btnGravarClick();
    void btnDesistirClick();
};

} // namespace alinhavo
