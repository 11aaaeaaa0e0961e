#pragma once

#include "forms/TButton.h"
#include "forms/TDateEdit.h"
#include "forms/TDBMemo.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TLabel.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TOrvQuery.h"
#include "host/TPesquisa.h"

#include <string_view>

namespace alinhavo {

/// "Registro de alterações": the audit lines that the filters leave, the newest first. A menu opens it on all of them, F3 of
/// another screen on those of a module and a key.
///
/// It reads no more lines than a person looks at: the newest ones, and more of the older ones as they are asked for.
class TfmLog final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmLog";
    static constexpr int FirstLines = 500; ///< read at first; each further reading doubles them

    explicit TfmLog(TApplication& application);

    TOrvQuery QryLog{*this, "QryLog", Database()};

    TRow pnlFiltro{*this, "pnlFiltro"};
    TEdit edtModulo{pnlFiltro, "edtModulo",
        {.caption = "&Módulo", .hint = "O nome inteiro, como aparece na lista.", .maxLength = 60, .lookup = true}};
    TEdit edtChave{pnlFiltro, "edtChave",
        {.caption = "C&have",
            .hint = "O código a que a linha pertence: a ordem, o setor, o usuário.",
            .maxLength = 60}};
    TEdit edtUsuario{pnlFiltro, "edtUsuario", {.caption = "&Usuário", .maxLength = 40, .lookup = true}};
    TRow pnlPeriodo{*this, "pnlPeriodo"};
    TDateEdit edtDataDe{pnlPeriodo, "edtDataDe", {.caption = "&De"}};
    TDateEdit edtDataAte{pnlPeriodo, "edtDataAte", {.caption = "&Até"}};
    TEdit edtTexto{pnlPeriodo, "edtTexto",
        {.caption = "&Texto", .hint = "Qualquer parte do texto, sem distinguir maiúsculas.", .maxLength = 60}};
    TRow pnlControle{*this, "pnlControle"};
    TButton btnConsultar{pnlControle, "btnConsultar", {.caption = "&Consultar", .role = TButtonRole::Default}};
    TButton btnAnteriores{pnlControle, "btnAnteriores", {.caption = "Mais &linhas antigas"}};
    TButton btnLimpar{pnlControle, "btnLimpar", {.caption = "Limpar &filtros"}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "Fecha&r", .role = TButtonRole::Cancel}};
    TLabel lblLinhas{pnlControle, "lblLinhas"};
    TGrid dbgLog{*this, "dbgLog", QryLog,
        {.columns = {{.field = "DATA_HORA", .title = "Data e hora", .width = 20},
             {.field = "USUARIO", .title = "Usuário", .width = 14},
             {.field = "OPERACAO", .title = "Operação", .width = 11},
             {.field = "MODULO", .title = "Módulo", .width = 24}, {.field = "CHAVE", .title = "Chave", .width = 12},
             {.field = "TEXTO", .title = "Texto", .width = 76}},
            .lines = 14,
            .readOnly = true}};
    TDBMemo mmTexto{*this, "mmTexto", QryLog, "TEXTO", {.caption = "Texto da linha", .lines = 3, .readOnly = true}};

    TPesquisa PqModulo{*this, "PqModulo", {.BuscaCampo = "MODULO", .caption = "Módulos"}};
    TPesquisa PqUsuario{*this, "PqUsuario", {.BuscaTabela = "ACESSO_USUARIOS", .BuscaCampo = "NOME"}};

    /// Shows the lines of the module and the key; an empty one does not restrict.
    void Consulta(std::string_view modulo, std::string_view chave);

    void TelaShow();
    void btnConsultarClick();
    void btnAnterioresClick();
    void btnLimparClick();
    void btnFecharClick();
    void PqModuloFechaPesquisa();
    void PqUsuarioFechaPesquisa();

private:
    TStatement Filtro() const;
    void Mostra();

    int linhas_ = FirstLines; ///< that the grid holds at most
};

} // namespace alinhavo
