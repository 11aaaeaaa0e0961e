#include "host/TPesquisa.h"

#include "forms/text.h"
#include "host/searchText.h"
#include "host/TOrvForm.h"
#include "host/TOrvTable.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr std::size_t shownColumns = 6;
constexpr int widestShown = 150;

bool Suits(const TColumnDecl& column)
{
    return !column.caption.empty() && (column.kind != TColumnKind::Text || column.width <= widestShown);
}

/// The key and the first columns that fit a list: a table declares what matters most first.
std::vector<const TColumnDecl*> ShownColumns(const TTableDecl& table, std::string_view key)
{
    std::vector<const TColumnDecl*> shown;
    if (const auto* keyColumn = FindColumn(table, key))
        shown.push_back(keyColumn);
    for (const auto& column : table.columns) {
        if (shown.size() < shownColumns && Suits(column) && std::ranges::find(shown, &column) == shown.end())
            shown.push_back(&column);
    }
    return shown;
}

/// Codes and descriptions are searched; flags would match nearly everything.
bool Searchable(const TColumnDecl& column) { return column.kind == TColumnKind::Text && column.width > 1; }

void AddCondition(TStatement& sql, bool& first, const TStatement& condition)
{
    if (condition.IsEmpty())
        return;
    sql.Add(first ? TFragment(" WHERE ") : TFragment(" AND ")).Add(condition);
    first = false;
}

TStatement InParentheses(const TStatement& condition)
{
    return condition.IsEmpty() ? TStatement() : TStatement("(").Add(condition).Add(")");
}

} // namespace

/// The rows of a run are the lookup's until the run ends; a run within a handler of another gives them back to it.
class TPesquisa::TRun {
public:
    TRun(TPesquisa& lookup, TOrvQuery& rows, TDialog& dialog)
        : lookup_(lookup)
        , outer_(std::exchange(lookup.rows_, &rows))
        , outerDialog_(std::exchange(lookup.dialog_, &dialog))
    {
    }
    ~TRun()
    {
        lookup_.rows_ = outer_;
        lookup_.dialog_ = outerDialog_;
    }
    TRun(const TRun&) = delete;
    TRun& operator=(const TRun&) = delete;

private:
    TPesquisa& lookup_;
    TOrvQuery* outer_;
    TDialog* outerDialog_;
};

TPesquisa::TPesquisa(TOrvForm& owner, std::string name, TPesquisaOptions options)
    : TComponent(owner, std::move(name))
    , Options(options)
    , form_(owner)
{
}

void TPesquisa::AbrePesquisa()
{
    TOrvQuery rows(form_.Database());
    TDialog dialog;
    const TRun run(*this, rows, dialog);
    Find("");
    ShowColumns();

    dialog.kind = TDialog::TKind::Lookup;
    dialog.title = Title();
    dialog.rows = &rows;
    dialog.multiple = Options.MultiSelecao;
    dialog.keepsPicks = Options.MultiSelecao;
    dialog.OnSearch.connect(this, &TPesquisa::Search);
    if (form_.Application().ShowDialog(dialog) != TModalResult::Ok)
        return;

    for (const auto row : dialog.picked) {
        rows.GoToRow(static_cast<std::size_t>(row));
        PlaceShared();
        OnFechaPesquisa();
    }
}

void TPesquisa::Serve(TControl& field) { field.OnKeyDown.connect(this, &TPesquisa::FieldKeyDown); }

void TPesquisa::FieldKeyDown(TKey& key)
{
    if (key.name != "F4" && key.name != "F5")
        return;
    key.Swallow();
    AbrePesquisa();
}

TValue TPesquisa::RetornoPesquisa(std::string_view column) const
{
    const auto* field = rows_ ? rows_->FindField(column) : nullptr;
    return field ? field->Value() : TValue();
}

const TTableDecl& TPesquisa::Table() const
{
    if (BuscaTable)
        return BuscaTable->Table();
    if (const auto* table = FindTable(Options.BuscaTabela))
        return *table;
    throw std::logic_error("the lookup " + Name() + " has nothing to search");
}

std::string TPesquisa::Title() const
{
    if (!Options.caption.empty())
        return std::string(Options.caption);
    return Select.IsEmpty() ? std::string(Table().caption) : form_.Caption();
}

TStatement TPesquisa::RowsWith(std::string_view text) const
{
    TStatement sql("SELECT * FROM ");
    if (Select.IsEmpty())
        sql.Add("{?}", TName(Table().name));
    else
        sql.Add("(").Add(Select).Add(") PESQUISA");

    bool first = true;
    AddCondition(sql, first, InParentheses(Filtro));
    AddCondition(sql, first, InParentheses(StandsIn(searched_, text)));
    if (!Options.BuscaCampo.empty())
        sql.Add(" ORDER BY ?", TName(Options.BuscaCampo));
    return sql.Add(" FETCH FIRST 300 ROWS ONLY");
}

/// Anew: what was picked before stays picked, in front of what is found.
void TPesquisa::Search(std::string_view text)
{
    const auto kept = Picked();
    Find(text);
    PutInFront(kept);
}

std::vector<TPesquisa::TCells> TPesquisa::Picked() const
{
    std::vector<TCells> picked;
    for (const auto row : dialog_->picked)
        picked.push_back(RowAt(static_cast<std::size_t>(row)));
    return picked;
}

TPesquisa::TCells TPesquisa::RowAt(std::size_t row) const
{
    TCells cells;
    for (const auto* field : rows_->Fields())
        cells.push_back(rows_->CellValue(row, *field));
    return cells;
}

void TPesquisa::PutInFront(const std::vector<TCells>& kept)
{
    if (kept.empty())
        return;
    const auto quiet = rows_->DisableControls();
    for (std::size_t row = rows_->RecordCount(); row-- > 0;) {
        if (std::ranges::find(kept, RowAt(row)) == kept.end())
            continue;
        rows_->GoToRow(row);
        rows_->Delete();
    }
    for (auto cells = kept.rbegin(); cells != kept.rend(); ++cells) {
        rows_->First();
        rows_->Insert();
        for (std::size_t index = 0; index < cells->size(); ++index)
            rows_->Fields()[index]->Set((*cells)[index]);
        rows_->Post();
    }
    rows_->First();
}

void TPesquisa::Find(std::string_view text)
{
    rows_->SQL = RowsWith(text);
    rows_->Open();
}

/// The columns that the dialog shows, and with them those that are searched.
void TPesquisa::ShowColumns()
{
    searched_.clear();
    if (!Select.IsEmpty()) {
        for (const auto* field : rows_->Fields()) {
            if (field->Kind() == TFieldKind::Text)
                searched_.push_back(field->Name());
        }
        return;
    }
    const auto shown = ShownColumns(Table(), Options.BuscaCampo);
    for (auto* field : rows_->Fields())
        field->options.visible = false;
    for (const auto* column : shown) {
        auto& field = rows_->FieldByName(column->name);
        field.options.visible = true;
        field.options.title = column->caption;
        if (Searchable(*column))
            searched_.emplace_back(column->name);
    }
}

/// The shared dataset stands on the row picked when the event is fired.
void TPesquisa::PlaceShared()
{
    if (!BuscaTable)
        return;
    std::string columns;
    std::vector<TValue> values;
    for (const auto column : ColumnNames(Table().key)) {
        columns.append(columns.empty() ? "" : ";").append(column);
        values.push_back(rows_->FieldByName(column).Value());
    }
    BuscaTable->Locate(columns, values);
}

} // namespace alinhavo
