#include "TFakeDatabase.h"

#include "forms/text.h"

namespace alinhavo {
namespace {

TFieldKind KindOf(const TValue& value)
{
    if (value.IsInteger())
        return TFieldKind::Integer;
    if (value.IsFloat())
        return TFieldKind::Float;
    return value.IsDate() ? TFieldKind::Date : TFieldKind::Text;
}

} // namespace

TTableData TFakeDatabase::Rows(
    std::initializer_list<const char*> columns, std::initializer_list<std::initializer_list<TValue>> rows)
{
    TTableData data;
    auto first = rows.size() > 0 ? rows.begin()->begin() : nullptr;
    for (const auto* column : columns)
        data.AddColumn(column, first ? KindOf(*first++) : TFieldKind::Text);
    for (const auto& row : rows) {
        std::size_t column = 0;
        for (const auto& value : row)
            data.Column(column++).Append(value);
    }
    return data;
}

TTableData TFakeDatabase::Open(const TStatement& statement)
{
    Statements.push_back(statement.Rendered());
    return OnOpen(statement);
}

std::int64_t TFakeDatabase::ExecSQL(const TStatement& statement)
{
    Statements.push_back(statement.Rendered());
    return OnExec(statement);
}

} // namespace alinhavo
