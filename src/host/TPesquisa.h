#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"
#include "host/TOrvQuery.h"
#include "host/TStatement.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TOrvForm;
class TOrvTable;

struct TPesquisaOptions {
    std::string_view BuscaTabela = {};  ///< table to search ("CADFLUXO")
    std::string_view BuscaCampo = {};   ///< key column ("CODIGO")
    int BuscaTipo = 1;
    bool MultiSelecao = false;
    int LarguraTela = 0;
    std::string_view caption = {};      ///< of the dialog; empty: the table's caption
};

/// A lookup dialog over a table, a shared dataset or a SELECT of its own, with search as one types.
class TPesquisa : public TComponent {
public:
    TPesquisa(TOrvForm& owner, std::string name, TPesquisaOptions options = {});

    TPesquisaOptions Options;
    TOrvTable* BuscaTable = nullptr; ///< searched instead of a table when set; its cursor is placed on the row picked
    TStatement Filtro;               ///< added as a condition; a screen may rewrite it before opening
    TStatement Select;               ///< a SELECT of its own, instead of the table

    /// Fired once for each row picked; none when the user cancels.
    TEvent<> OnFechaPesquisa;

    void AbrePesquisa();
    /// A column of the row picked; only inside OnFechaPesquisa. Null for an unknown column.
    TValue RetornoPesquisa(std::string_view column) const;

private:
    TOrvForm& form_;
    TOrvQuery* rows_ = nullptr;
};

} // namespace alinhavo
