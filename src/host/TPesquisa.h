#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"
#include "forms/TValue.h"
#include "host/TStatement.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TControl;
class TOrvForm;
class TOrvQuery;
class TOrvTable;
struct TDialog;
struct TKey;
struct TTableDecl;

struct TPesquisaOptions {
    std::string_view BuscaTabela = {}; ///< table to search ("CADFLUXO")
    std::string_view BuscaCampo = {}; ///< key column ("CODIGO"): shown, searched and ordered by
    bool MultiSelecao = false;
    std::string_view caption = {}; ///< of the dialog; empty: the table's caption
};

/// A lookup dialog over a table, a shared dataset or a SELECT of its own. What the user types is looked for, without
/// regard to case, anywhere in the codes and descriptions shown; the first 300 rows found are offered, in key order.
class TPesquisa : public TComponent {
public:
    TPesquisa(TOrvForm& owner, std::string name, TPesquisaOptions options = {});

    TPesquisaOptions Options;
    TOrvTable* BuscaTable = nullptr; ///< searched instead of a table when set; its cursor is placed on the row picked
    TStatement Filtro; ///< added as a condition; a screen may rewrite it before opening
    TStatement Select; ///< a SELECT of its own, instead of a table; no two of its columns have one name

    /// Fired once for each row picked; not at all when the user cancels.
    TEvent<> OnFechaPesquisa;

    void AbrePesquisa();
    /// F4 and F5 in the field open it; takes the field's OnKeyDown.
    void Serve(TControl& field);
    /// A column of the row picked, only inside OnFechaPesquisa; null for an unknown column.
    TValue RetornoPesquisa(std::string_view column) const;

private:
    class TRun;

    void FieldKeyDown(TKey& key);
    const TTableDecl& Table() const;
    std::string Title() const;
    TStatement RowsWith(std::string_view text) const;
    void Search(std::string_view text);
    void Find(std::string_view text);
    /// All cells of the rows that are picked.
    using TCells = std::vector<TValue>;
    std::vector<TCells> Picked() const;
    void PutInFront(const std::vector<TCells>& kept);
    TCells RowAt(std::size_t row) const;
    void ShowColumns();
    void PlaceShared();

    TOrvForm& form_;
    TOrvQuery* rows_ = nullptr; ///< of the run that is under way
    TDialog* dialog_ = nullptr; ///< likewise, while it is shown
    std::vector<std::string> searched_;
};

} // namespace alinhavo
