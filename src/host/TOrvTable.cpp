#include "host/TOrvTable.h"

#include "forms/text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace alinhavo {
namespace {

const TTableDecl& Declared(std::string_view table)
{
    if (const auto* found = FindTable(table))
        return *found;
    throw std::logic_error("no table is declared as " + std::string(table));
}

TFieldKind FieldKindOf(TColumnKind kind)
{
    switch (kind) {
    case TColumnKind::Text:
        return TFieldKind::Text;
    case TColumnKind::Float:
        return TFieldKind::Float;
    case TColumnKind::Date:
        return TFieldKind::Date;
    case TColumnKind::DateTime:
        return TFieldKind::DateTime;
    case TColumnKind::Integer:
    case TColumnKind::Identity:
        break;
    }
    return TFieldKind::Integer;
}

const TColumnDecl* IdentityOf(const TTableDecl& table)
{
    const auto found = std::ranges::find(table.columns, TColumnKind::Identity, &TColumnDecl::kind);
    return found == table.columns.end() ? nullptr : &*found;
}

/// "WHERE A = 1 AND B IS NULL", or going on with AND where a condition stands already.
void AddConditions(
    TStatement& sql, const std::vector<std::string>& columns, const std::vector<TValue>& values, bool first)
{
    if (columns.size() != values.size())
        throw std::logic_error("there are not as many values as columns");
    for (std::size_t index = 0; index < columns.size(); ++index) {
        sql.Add(std::exchange(first, false) ? TFragment(" WHERE ") : TFragment(" AND "));
        if (values[index].IsNull())
            sql.Add("? IS NULL", TName(columns[index]));
        else
            sql.Add("? = ?", TName(columns[index]), values[index]);
    }
}

} // namespace

TOrvTable::TOrvTable(TComponent& owner, std::string name, TOrvDatabase& database, std::string_view table)
    : TDataSet(owner, std::move(name))
    , database_(database)
    , table_(Declared(table))
    , key_(Replace(table_.key, ",", ";"))
{
    for (const auto& column : table_.columns) {
        const bool isIdentity = column.kind == TColumnKind::Identity;
        AddField(std::string(column.name), FieldKindOf(column.kind), column.width,
            {.title = std::string(column.caption), .readOnly = isIdentity, .visible = !isIdentity});
    }
}

void TOrvTable::Open()
{
    if (Active())
        return;
    TDataSet::Open();
    if (HasListeners())
        ReadEverything();
}

void TOrvTable::Close()
{
    extent_ = TExtent::Nothing;
    TDataSet::Close();
}

void TOrvTable::Refresh()
{
    if (!Active())
        return;
    CheckBrowse();
    const auto current = extent_ == TExtent::Nothing || IsEmpty() ? std::vector<TValue>() : KeyValues();
    const auto off = DisableControls();
    ForgetRows();
    if (!current.empty())
        Locate(key_, current);
}

void TOrvTable::Restrict(std::string_view columns, const std::vector<TValue>& values)
{
    CheckBrowse();
    restrictedColumns_ = Explode(UpperCase(columns), ";");
    restrictedValues_ = values;
    ForgetRows();
}

void TOrvTable::Unrestrict() { Restrict({}, {}); }

bool TOrvTable::Locate(std::string_view columns, const std::vector<TValue>& values)
{
    if (!Active() || extent_ == TExtent::Everything || Filtered() || !IsKey(columns))
        return TDataSet::Locate(columns, values);

    CheckBrowse();
    auto sql = Rows();
    AddConditions(sql, Explode(UpperCase(columns), ";"), values, restrictedColumns_.empty());
    auto found = database_.Open(sql);
    if (found.RowCount() == 0)
        return false;
    extent_ = TExtent::LocatedRow;
    Adopt(std::move(found), false);
    return true;
}

void TOrvTable::NeedAllRows()
{
    if (!Active() || extent_ == TExtent::Everything || IsEditing())
        return;
    const auto current = extent_ == TExtent::LocatedRow ? KeyValues() : std::vector<TValue>();
    ReadEverything();
    if (!current.empty())
        TDataSet::Locate(key_, current);
}

/// With no row located, the current one is the first of them all.
void TOrvTable::NeedCurrentRow()
{
    if (extent_ == TExtent::Nothing)
        NeedAllRows();
}

void TOrvTable::ListenerAdded() { NeedAllRows(); }

void TOrvTable::ReadEverything()
{
    auto sql = Rows();
    bool first = true;
    for (const auto column : ColumnNames(table_.key)) {
        sql.Add(first ? TFragment(" ORDER BY ?") : TFragment(", ?"), TName(column));
        first = false;
    }
    auto rows = database_.Open(sql);
    extent_ = TExtent::Everything;
    Adopt(std::move(rows), false);
}

void TOrvTable::ForgetRows()
{
    extent_ = TExtent::Nothing;
    if (Active() && HasListeners())
        ReadEverything();
    else if (Active())
        Adopt(EmptyData(), false);
}

TStatement TOrvTable::Rows() const
{
    TStatement sql;
    for (const auto& column : table_.columns)
        sql.Add(sql.IsEmpty() ? TFragment("SELECT ?") : TFragment(", ?"), TName(column.name));
    sql.Add(" FROM {?}", TName(table_.name));
    AddConditions(sql, restrictedColumns_, restrictedValues_, true);
    return sql;
}

bool TOrvTable::IsKey(std::string_view columns) const
{
    const auto asked = Explode(UpperCase(columns), ";");
    const auto key = ColumnNames(table_.key);
    return asked.size() == key.size() && std::ranges::is_permutation(asked, key);
}

std::vector<TValue> TOrvTable::KeyValues() const
{
    std::vector<TValue> values;
    for (const auto column : ColumnNames(table_.key))
        values.push_back(FieldByName(column).Value());
    return values;
}

void TOrvTable::WriteRow()
{
    if (State() == TDataSetState::Insert)
        InsertRow();
    else
        UpdateRow();
}

void TOrvTable::InsertRow()
{
    TStatement sql("INSERT INTO {?} (", TName(table_.name));
    TStatement values;
    for (const auto& column : table_.columns) {
        if (column.kind == TColumnKind::Identity)
            continue;
        sql.Add(values.IsEmpty() ? TFragment("?") : TFragment(", ?"), TName(column.name));
        values.Add(values.IsEmpty() ? TFragment("?") : TFragment(", ?"), FieldByName(column.name).Value());
    }
    sql.Add(") VALUES (").Add(values).Add(")");

    const auto* identity = IdentityOf(table_);
    if (!identity) {
        database_.ExecSQL(sql);
        return;
    }
    const auto given = database_.Open(sql.Add(" RETURNING ?", TName(identity->name)));
    FieldByName(identity->name).Set(given.Column(0).Value(0));
}

/// Only what was changed is written, so that what another user changed meanwhile in the other columns stays.
void TOrvTable::UpdateRow()
{
    TStatement sql;
    for (const auto& column : table_.columns) {
        const auto& field = FieldByName(column.name);
        if (field.Value() == field.OldValue())
            continue;
        if (sql.IsEmpty())
            sql.Add("UPDATE {?} SET ? = ?", TName(table_.name), TName(column.name), field.Value());
        else
            sql.Add(", ? = ?", TName(column.name), field.Value());
    }
    if (sql.IsEmpty())
        return;
    AddOldKey(sql);
    if (database_.ExecSQL(sql) == 0)
        throw std::runtime_error("O registro foi excluído por outro usuário.");
}

void TOrvTable::EraseRow()
{
    TStatement sql("DELETE FROM {?}", TName(table_.name));
    AddOldKey(sql);
    database_.ExecSQL(sql);
}

void TOrvTable::AddOldKey(TStatement& sql) const
{
    std::vector<std::string> columns;
    std::vector<TValue> values;
    for (const auto column : ColumnNames(table_.key)) {
        columns.emplace_back(column);
        values.push_back(FieldByName(column).OldValue());
    }
    AddConditions(sql, columns, values, true);
}

} // namespace alinhavo
