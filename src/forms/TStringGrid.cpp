#include "forms/TStringGrid.h"

#include <stdexcept>

namespace alinhavo {

namespace {

std::string FieldName(std::size_t column) { return "C" + std::to_string(column); }

TGridOptions GridOptions(const TStringGridOptions& options)
{
    return {.caption = options.caption,
        .hint = options.hint,
        .lines = options.lines,
        .readOnly = options.readOnly,
        .enabled = options.enabled,
        .visible = options.visible,
        .tabStop = options.tabStop};
}

} // namespace

TStringGrid::TStringGrid(TContainer& parent, std::string name, TStringGridOptions options)
    : TGrid(parent, std::move(name), rows, GridOptions(options))
{
    rows.CanInsert = false;
    SetTitles(options.titles);
}

void TStringGrid::SetTitles(const std::vector<std::string>& titles)
{
    rows.EmptyTable();
    rows.RemoveAddedFields();
    for (std::size_t i = 0; i < titles.size(); ++i)
        rows.AddField(FieldName(i), TFieldKind::Text, 0, {.title = titles[i]});
}

void TStringGrid::SetRowCount(std::size_t count)
{
    const auto quiet = rows.DisableControls();
    while (rows.RecordCount() < count) {
        rows.Append();
        rows.Post();
    }
    while (rows.RecordCount() > count) {
        rows.Last();
        rows.Delete();
    }
    rows.First();
}

std::string TStringGrid::Cell(std::size_t column, std::size_t row) const
{
    return rows.CellValue(CheckedRow(row), rows.FieldByName(FieldName(column))).AsString();
}

void TStringGrid::SetCell(std::size_t column, std::size_t row, std::string_view text)
{
    auto& field = rows.FieldByName(FieldName(column));
    const auto quiet = rows.DisableControls();
    const auto current = rows.RecNo();
    rows.GoToRow(CheckedRow(row));
    rows.Edit();
    field.Set(TValue(text));
    rows.Post();
    rows.GoToRow(current - 1);
}

std::size_t TStringGrid::CheckedRow(std::size_t row) const
{
    if (row >= rows.RecordCount())
        throw std::out_of_range("A grade " + Name() + " não tem a linha " + std::to_string(row) + ".");
    return row;
}

} // namespace alinhavo
