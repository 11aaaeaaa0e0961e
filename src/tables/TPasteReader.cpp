#include "tables/TPasteReader.h"

#include "forms/text.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

/// A person pastes what he may type.
std::vector<const TColumnDecl*> TypedColumns(std::vector<const TColumnDecl*> columns)
{
    std::erase_if(columns, [](const TColumnDecl* column) { return column->kept; });
    return columns;
}

} // namespace

TRowValues TPasteRow::Values() const
{
    return [this](const TColumnDecl& column) {
        const auto found = values.find(&column);
        return found == values.end() ? TValue() : found->second;
    };
}

TPasteReader::TPasteReader(TOrvDatabase& database, const TTableDecl& table, const TPastedRows& pasted)
    : table_(table)
    , check_(database, table)
    , columns_(TypedColumns(ListedColumns(table)))
{
    if (pasted.empty())
        return;
    const bool hasHeading = TakeHeading(pasted.front());
    if (!refusal_.empty())
        return;
    for (std::size_t index = hasHeading ? 1 : 0; index < pasted.size(); ++index)
        TakeRow(static_cast<int>(index) + 1, pasted[index]);
}

const TColumnDecl* TPasteReader::ColumnOf(std::string_view heading) const
{
    for (const auto* column : TypedColumns(SeenColumns(table_))) {
        if (SameText(column->caption, heading) || SameText(column->name, heading))
            return column;
    }
    return nullptr;
}

/// The first cell tells whether the first row is one.
bool TPasteReader::TakeHeading(const std::vector<std::string>& cells)
{
    if (!ColumnOf(cells.front()))
        return false;
    columns_.clear();
    for (const auto& cell : cells) {
        const auto* column = ColumnOf(cell);
        if (!column)
            refusal_ = "A coluna \"" + cell + "\" não existe em " + std::string(table_.caption) + ".";
        else if (std::ranges::find(columns_, column) != columns_.end())
            refusal_ = "A coluna \"" + cell + "\" está duas vezes no cabeçalho.";
        if (!refusal_.empty())
            return true;
        columns_.push_back(column);
    }
    return true;
}

void TPasteReader::TakeRow(int number, const std::vector<std::string>& cells)
{
    TPasteRow row;
    if (Fill(row, number, cells) && IsRight(row, number))
        rows_.push_back(std::move(row));
}

/// A new row holds its first values where nothing was pasted over them.
bool TPasteReader::Fill(TPasteRow& row, int number, const std::vector<std::string>& cells)
{
    for (const auto& column : table_.columns) {
        if (!column.initial.empty())
            row.values[&column] = column.initial;
    }
    for (std::size_t index = 0; index < cells.size(); ++index) {
        if (index >= columns_.size()) {
            if (!cells[index].empty())
                return Complain(number, cells[index], "Há mais células do que colunas."), false;
            continue;
        }
        try {
            const auto& column = *columns_[index];
            row.values[&column] = check_.Completed(column, check_.Typed(column, cells[index]));
        } catch (const std::invalid_argument& refusal) {
            return Complain(number, cells[index], refusal.what()), false;
        }
    }
    return true;
}

bool TPasteReader::IsRight(const TPasteRow& row, int number)
{
    const auto values = row.Values();
    for (const auto& column : table_.columns) {
        const auto value = values(column);
        auto reason = check_.Missing(column, value);
        if (reason.empty())
            reason = check_.Wrong(column, value);
        if (!reason.empty())
            return Complain(number, value.AsString(), std::move(reason)), false;
    }
    if (auto reason = check_.Duplicate(values); !reason.empty())
        return Complain(number, {}, std::move(reason)), false;
    const auto key = check_.KeyText(values);
    if (!PersonKey(table_).empty() && !keys_.insert(key).second)
        return Complain(number, {}, "Repetida nas linhas coladas: " + key + "."), false;
    return true;
}

void TPasteReader::Complain(int number, std::string_view text, std::string reason)
{
    problems_.push_back({number, std::string(text), std::move(reason)});
}

} // namespace alinhavo
