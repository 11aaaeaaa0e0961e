#include "platform/exchange/TImport.h"

#include "platform/exchange/EExchange.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <set>

namespace alinhavo {
namespace {

bool IsKeyOf(const TTableDecl& table, const TColumnDecl& column)
{
    return std::ranges::any_of(ColumnNames(table.key), [&](std::string_view name) { return name == column.name; });
}

/// The key of a row is never null.
TValue Stored(const TTableDecl& table, const TColumnDecl& column, const TValue& value)
{
    return value.IsEmpty() && column.kind == TColumnKind::Text && IsKeyOf(table, column) ? TValue("") : value;
}

/// What a column that the file lacks holds in a new row; null: nothing.
TValue Initial(const TColumnDecl& column)
{
    if (column.kept && column.kind == TColumnKind::Float)
        return 0;
    return column.initial.empty() ? TValue() : TColumnReader(column).Read(column.initial).value;
}

} // namespace

void TImport::Write()
try {
    InsertLines();
    UpdateLines();
    if (table_.name == "OF_ITEN")
        SettleOrders();
} catch (const EDatabaseError& error) {
    if (error.Kind() != TDatabaseErrorKind::Duplicate)
        throw;
    throw EExchange("Outro usuário acaba de gravar uma linha que também está no arquivo; confira o arquivo de novo.");
}

void TImport::InsertLines()
{
    std::string names;
    std::vector<TValue> values;
    const auto add = [&](const TColumnDecl& column, const TValue& value) {
        names.append(names.empty() ? "" : ",").append(column.name);
        values.push_back(value);
    };
    for (const TUsedColumn& column : columns_)
        add(column.Decl(), {});
    for (const TColumnDecl& column : table_.columns) {
        const auto initial = Initial(column);
        if (!initial.IsNull() && FindUsed(column.name) == columns_.size())
            add(column, initial);
    }

    TTableWriter rows(database_, table_.name, names);
    for (const TLine& line : lines_) {
        if (line.state != TLineState::New)
            continue;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            values[i] = Stored(table_, columns_[i].Decl(),
                columns_[i].Decl().kept && line.values[i].IsEmpty() ? Initial(columns_[i].Decl()) : line.values[i]);
        rows.Row(values);
    }
}

bool TImport::IsUpdated(std::size_t column) const { return !columns_[column].isKey && !columns_[column].Decl().kept; }

/// All lines set the same columns, so that the server prepares one statement.
void TImport::UpdateLines()
{
    for (const TLine& line : lines_) {
        if (line.state != TLineState::Changed)
            continue;
        TStatement sql("UPDATE {?} SET ", TName(table_.name));
        bool first = true;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (!IsUpdated(i))
                continue;
            if (!first)
                sql.Add(", ");
            sql.Add("? = ?", TName(columns_[i].Decl().name), Stored(table_, columns_[i].Decl(), line.values[i]));
            first = false;
        }
        if (hasIdentity_) {
            sql.Add(" WHERE ? = ?", TName(table_.key), line.identity);
        } else {
            sql.Add(" WHERE 1 = 1");
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                if (columns_[i].isKey)
                    sql.Add(" AND ? = ?", TName(columns_[i].Decl().name),
                        Stored(table_, columns_[i].Decl(), line.values[i]));
            }
        }
        if (database_.ExecSQL(sql) == 0)
            throw EExchange(
                "A linha " + std::to_string(line.number) + " perdeu o seu registro: outro usuário o excluiu.");
    }
}

/// The open pieces of an order are the sum of its grid, and its first quantities those with which the grid came.
void TImport::SettleOrders()
{
    const auto order = FindUsed("NUMERO");
    std::set<std::string> orders;
    for (const TLine& line : lines_) {
        if (line.state == TLineState::New || line.state == TLineState::Changed)
            orders.insert(line.values[order].AsString());
    }
    for (const std::string& number : orders) {
        database_.ExecSQL({"UPDATE {OF_ITEN} SET QTDE_OF = QTDE WHERE NUMERO = ? AND QTDE_OF IS NULL", number});
        database_.ExecSQL(
            {"UPDATE {OF1} SET ATIVOS = (SELECT SUM(QTDE) FROM {OF_ITEN} WHERE NUMERO = ?) WHERE NUMERO = ?", number,
                number});
    }
}

} // namespace alinhavo
