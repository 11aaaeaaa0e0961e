#include "forms/TPastedRows.h"

#include "forms/text.h"

#include <algorithm>
#include <utility>

namespace alinhavo {
namespace {

/// Takes one cell off the text, up to what ends it.
std::string TakeCell(std::string_view& text)
{
    std::string cell;
    const bool quoted = text.starts_with('"');
    if (quoted)
        text.remove_prefix(1);
    while (quoted && !text.empty()) {
        const char character = text.front();
        text.remove_prefix(1);
        if (character == '"' && !text.starts_with('"'))
            break;
        if (character == '"')
            text.remove_prefix(1);
        cell += character;
    }
    const auto end = std::min(text.find_first_of("\t\n"), text.size());
    cell += text.substr(0, end);
    text.remove_prefix(end);
    return Trim(cell);
}

void Add(TPastedRows& rows, std::vector<std::string>& row)
{
    if (!std::ranges::all_of(row, &std::string::empty))
        rows.push_back(std::move(row));
    row.clear();
}

} // namespace

TPastedRows PastedRows(std::string_view text)
{
    TPastedRows rows;
    std::vector<std::string> row;
    while (!text.empty()) {
        row.push_back(TakeCell(text));
        if (text.starts_with('\n'))
            Add(rows, row);
        text.remove_prefix(std::min<std::size_t>(text.size(), 1));
    }
    Add(rows, row);
    return rows;
}

} // namespace alinhavo
