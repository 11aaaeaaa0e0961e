#include "platform/report/commaSeparated.h"

#include "forms/TGrid.h"
#include "platform/report/separatedCell.h"

namespace alinhavo {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool IsNumber(const TGrid& grid, const TGridColumn& column)
{
    const auto* field = grid.DataSet() ? grid.DataSet()->FindField(column.field) : nullptr;
    return field && (field->Kind() == TFieldKind::Integer || field->Kind() == TFieldKind::Float);
}

/// One line: of each visible column what `text` gives for it.
template <typename TText>
void AppendLine(std::string& lines, const TGrid& grid, TText text)
{
    bool first = true;
    for (const auto& column : grid.Columns()) {
        if (!column.visible)
            continue;
        lines += (first ? "" : ";") + QuotedCell(text(column));
        first = false;
    }
    lines += "\r\n";
}

} // namespace

std::string CommaSeparated(const TGrid& grid)
{
    std::string lines(ByteOrderMark);
    AppendLine(lines, grid, [&](const TGridColumn& column) { return WithFormulaMark(grid.TitleOf(column)); });
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
        AppendLine(lines, grid, [&](const TGridColumn& column) {
            auto text = grid.CellText(row, column);
            return IsNumber(grid, column) ? text : WithFormulaMark(text);
        });
    }
    return lines;
}

} // namespace alinhavo
