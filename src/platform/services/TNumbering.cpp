#include "platform/services/TNumbering.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/TTableDecl.h"
#include "platform/services/singleValue.h"

#include <algorithm>

namespace alinhavo {
namespace {

bool IsNumber(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// The column holds no codes longer than that, so that the largest text of full width is the largest number.
bool IsFullWidth(std::string_view table, std::string_view column, std::size_t width)
{
    const auto* declared = FindTable(table);
    const auto* found = declared ? FindColumn(*declared, column) : nullptr;
    return found && found->kind == TColumnKind::Text && static_cast<std::size_t>(found->width) == width;
}

} // namespace

std::string TNumbering::Next(std::string_view table, std::string_view column, int width)
{
    const auto digits = static_cast<std::size_t>(width);
    const TName tableName(table);
    const TName columnName(column);
    const auto largest = IsFullWidth(table, column, digits) ? Largest(tableName, columnName, digits)
                                                            : LargestOfAll(tableName, columnName);
    return LeftPad(std::to_string(largest + 1), '0', digits);
}

/// An index answers this at once. A largest text that is no padded number says nothing: then all codes are looked at.
std::int64_t TNumbering::Largest(const TName& table, const TName& column, std::size_t width)
{
    const std::string bound(width, '9');
    const auto text
        = SingleValue(database_, TStatement("SELECT MAX(?) FROM {?} WHERE ? <= ?", column, table, column, bound))
              .AsString();
    if (text.empty())
        return 0;
    return text.size() == width && IsNumber(text) ? StrToIntDef(text, 0) : LargestOfAll(table, column);
}

std::int64_t TNumbering::LargestOfAll(const TName& table, const TName& column)
{
    const auto codes = database_.Open(TStatement("SELECT ? FROM {?}", column, table));
    std::int64_t largest = 0;
    for (std::size_t row = 0; row < codes.RowCount(); ++row) {
        const auto code = codes.Column(0).Value(row).AsString();
        if (IsNumber(code))
            largest = std::max(largest, StrToIntDef(code, 0));
    }
    return largest;
}

std::string TNumbering::NextMovement(std::string_view order, std::string_view sector, std::string_view part)
{
    const auto largest = SingleValue(database_,
        TStatement("SELECT MAX(MOV) FROM {FACCAO} WHERE NUMERO = ? AND OP = ? AND PARTE = ?", order, sector, part));
    return std::to_string(largest.AsInteger() + 1);
}

} // namespace alinhavo
