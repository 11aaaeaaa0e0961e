#pragma once

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TOrvQuery.h"

#include <string_view>

namespace alinhavo {

/// "Log de alterações": the audit lines of a module and a key, the newest first.
class TfmLog final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmLog";

    explicit TfmLog(TApplication& application);

    TOrvQuery QryLog{*this, "QryLog", Database()};

    TRow pnlFiltro{*this, "pnlFiltro"};
    TEdit edtModulo{pnlFiltro, "edtModulo", {.caption = "Módulo", .maxLength = 60}};
    TEdit edtChave{pnlFiltro, "edtChave", {.caption = "Chave", .maxLength = 60}};
    TButton btnConsultar{pnlFiltro, "btnConsultar", {.caption = "&Consultar"}};
    TButton btnFechar{pnlFiltro, "btnFechar", {.caption = "&Fechar", .role = TButtonRole::Cancel}};
    TGrid dbgLog{*this, "dbgLog", QryLog,
        {.columns = {{.field = "DATA_HORA", .title = "Data e hora"}, {.field = "USUARIO", .title = "Usuário"},
             {.field = "OPERACAO", .title = "Operação"}, {.field = "MODULO", .title = "Módulo"},
             {.field = "CHAVE", .title = "Chave"}, {.field = "TEXTO", .title = "Texto"}},
            .readOnly = true}};

    /// Shows the lines of the module and the key; an empty one does not restrict.
    void Consulta(std::string_view modulo, std::string_view chave);

    void btnConsultarClick();
    void btnFecharClick();
};

} // namespace alinhavo
