#include "platform/exchange/headers.h"

#include "forms/text.h"
#include "forms/utf8.h"

#include <algorithm>

namespace alinhavo {
namespace {

/// Letters of Latin-1 from À to Ý without their accents; a blank where there is no letter.
constexpr std::string_view Unaccented = "AAAAAAACEEEEIIIIDNOOOOO OUUUUY";
constexpr char32_t FirstAccented = 0xC0;

std::string_view BeforeBrackets(std::string_view caption) { return caption.substr(0, caption.find('(')); }

/// The only column of which `text` gives that title; null when there is none or more than one.
template <typename TText>
const TColumnDecl* OnlyColumn(const TTableDecl& table, const std::string& title, TText text)
{
    const TColumnDecl* found = nullptr;
    for (const TColumnDecl* column : ExchangedColumns(table)) {
        if (Plain(text(*column)) != title)
            continue;
        if (found)
            return nullptr;
        found = column;
    }
    return found;
}

} // namespace

std::string Plain(std::string_view text)
{
    const auto upper = UpperCase(text);
    std::string plain;
    for (std::string_view rest = upper; !rest.empty();) {
        const auto [code, bytes, wellFormed] = utf8::First(rest);
        const auto accented = code - FirstAccented;
        if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'))
            plain += static_cast<char>(code);
        else if (code >= FirstAccented && accented < Unaccented.size() && Unaccented[accented] != ' ')
            plain += Unaccented[accented];
        rest.remove_prefix(bytes);
    }
    return plain;
}

const TColumnDecl* ColumnOfTitle(const TTableDecl& table, std::string_view title)
{
    const auto plain = Plain(title);
    if (plain.empty())
        return nullptr;
    if (const auto* column = OnlyColumn(table, plain, [](const TColumnDecl& one) { return one.name; }))
        return column;
    if (const auto* column = OnlyColumn(table, plain, [](const TColumnDecl& one) { return one.caption; }))
        return column;
    return OnlyColumn(table, plain, [](const TColumnDecl& one) { return BeforeBrackets(one.caption); });
}

std::string_view TitleOfColumn(const TTableDecl& table, const TColumnDecl& column)
{
    return ColumnOfTitle(table, column.caption) == &column ? column.caption : column.name;
}

std::vector<const TColumnDecl*> ExchangedColumns(const TTableDecl& table)
{
    std::vector<const TColumnDecl*> columns;
    for (const TColumnDecl& column : table.columns) {
        if (!column.caption.empty() && column.kind != TColumnKind::Identity)
            columns.push_back(&column);
    }
    return columns;
}

} // namespace alinhavo
