#include "platform/report/commaSeparated.h"

#include "forms/TGrid.h"

namespace alinhavo {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view FormulaSigns = "=+-@\t\r";

bool IsNumber(const TGrid& grid, const TGridColumn& column)
{
    const auto* field = grid.DataSet() ? grid.DataSet()->FindField(column.field) : nullptr;
    return field && (field->Kind() == TFieldKind::Integer || field->Kind() == TFieldKind::Float);
}

std::string Harmless(std::string text)
{
    if (!text.empty() && FormulaSigns.find(text.front()) != std::string_view::npos)
        text.insert(0, "'");
    return text;
}

std::string Quoted(const std::string& text)
{
    if (text.find_first_of(";\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char letter : text)
        quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return quoted + '"';
}

/// One line: of each visible column what `text` gives for it.
template <typename TText>
void AppendLine(std::string& lines, const TGrid& grid, TText text)
{
    bool first = true;
    for (const auto& column : grid.Columns()) {
        if (!column.visible)
            continue;
        lines += (first ? "" : ";") + Quoted(text(column));
        first = false;
    }
    lines += "\r\n";
}

} // namespace

std::string CommaSeparated(const TGrid& grid)
{
    std::string lines(ByteOrderMark);
    AppendLine(lines, grid, [&](const TGridColumn& column) { return Harmless(grid.TitleOf(column)); });
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
        AppendLine(lines, grid, [&](const TGridColumn& column) {
            auto text = grid.CellText(row, column);
            return IsNumber(grid, column) ? text : Harmless(std::move(text));
        });
    }
    return lines;
}

} // namespace alinhavo
