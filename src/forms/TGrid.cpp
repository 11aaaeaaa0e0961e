#include "forms/TGrid.h"

#include "forms/IPropertySink.h"
#include "forms/numbers.h"
#include "forms/text.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {

namespace {

std::string_view KindName(const TGridColumn& column, const TField* field)
{
    if (column.tick)
        return "tick";
    if (!field)
        return "text";
    switch (field->Kind()) {
    case TFieldKind::Integer:
        return "integer";
    case TFieldKind::Float:
        return "float";
    case TFieldKind::Date:
        return "date";
    case TFieldKind::DateTime:
        return "datetime";
    case TFieldKind::Text:
        break;
    }
    return "text";
}

} // namespace

TGrid::TGrid(TContainer& parent, std::string name, TGridOptions options)
    : TControl(parent, std::move(name), CommonOptions(options))
    , columns_(std::move(options.columns))
    , ownColumns_(!columns_.empty())
    , onExit_(options.onExit)
    , lines_(options.lines)
    , totals_(options.totals)
{
}

TGrid::TGrid(TContainer& parent, std::string name, TDataSet& dataset, TGridOptions options)
    : TGrid(parent, std::move(name), std::move(options))
{
    SetDataSet(&dataset);
}

TGrid::~TGrid()
{
    if (dataset_)
        dataset_->RemoveListener(*this);
}

void TGrid::SetDataSet(TDataSet* dataset)
{
    if (dataset_ == dataset)
        return;
    if (dataset_)
        dataset_->RemoveListener(*this);
    dataset_ = dataset;
    if (dataset_)
        dataset_->AddListener(*this);
    SortRows(order_.Field(), order_.Direction());
}

// Columns

const std::vector<TGridColumn>& TGrid::Columns() const
{
    if (!ownColumns_)
        TakeFieldsAsColumns();
    return columns_;
}

/// Columns that were there before keep what the screen set in them.
void TGrid::TakeFieldsAsColumns() const
{
    std::vector<const TField*> fields;
    if (dataset_)
        std::ranges::copy_if(
            dataset_->Fields(), std::back_inserter(fields), [](const TField* field) { return field->options.visible; });
    if (std::ranges::equal(fields, columns_, {}, &TField::Name, &TGridColumn::field))
        return;
    std::vector<TGridColumn> columns;
    for (const auto* field : fields) {
        const auto before = std::ranges::find(columns_, field->Name(), &TGridColumn::field);
        columns.push_back(before == columns_.end() ? TGridColumn{.field = field->Name()} : *before);
    }
    columns_ = std::move(columns);
}

void TGrid::SetColumns(std::vector<TGridColumn> columns)
{
    columns_ = std::move(columns);
    ownColumns_ = !columns_.empty();
    column_ = 0;
    DataSetRowsChanged();
}

int TGrid::IndexOf(std::string_view fieldOrTitle) const
{
    const auto& columns = Columns();
    auto found = std::ranges::find_if(
        columns, [&](const TGridColumn& column) { return SameText(column.field, fieldOrTitle); });
    if (found == columns.end())
        found = std::ranges::find_if(
            columns, [&](const TGridColumn& column) { return SameText(TitleOf(column), fieldOrTitle); });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

const TGridColumn* TGrid::FindColumn(std::string_view field) const
{
    const int index = IndexOf(field);
    return index < 0 ? nullptr : &columns_[index];
}

TGridColumn& TGrid::Existing(std::string_view field)
{
    const int index = IndexOf(field);
    if (index < 0)
        throw std::out_of_range("A grade " + Name() + " não tem a coluna " + std::string(field) + ".");
    return columns_[index];
}

void TGrid::SetColumnReadOnly(std::string_view field, bool readOnly)
{
    Existing(field).readOnly = readOnly;
    Changed();
}

void TGrid::SetColumnVisible(std::string_view field, bool visible)
{
    Existing(field).visible = visible;
    Changed();
}

void TGrid::SetColumnTitle(std::string_view field, std::string_view title)
{
    Existing(field).title = title;
    Changed();
}

void TGrid::SetColumnPickList(std::string_view field, std::vector<std::string> items)
{
    Existing(field).pickList = std::move(items);
    Changed();
}

bool TGrid::ColumnReadOnly(std::string_view field) const { return !Editable(IndexOf(field)); }

bool TGrid::ColumnVisible(std::string_view field) const
{
    const auto* column = FindColumn(field);
    return column && column->visible;
}

TField* TGrid::FieldOf(int column) const
{
    const auto& columns = Columns();
    if (!dataset_ || column < 0 || column >= static_cast<int>(columns.size()))
        return nullptr;
    return dataset_->FindField(columns[column].field);
}

std::string TGrid::TitleOf(const TGridColumn& column) const
{
    if (!column.title.empty())
        return column.title;
    const auto* field = dataset_ ? dataset_->FindField(column.field) : nullptr;
    return field && !field->options.title.empty() ? field->options.title : column.field;
}

bool TGrid::Editable(int column) const
{
    const auto* field = FieldOf(column);
    return field && !ReadOnly() && !dataset_->ReadOnly && !columns_[column].readOnly && !field->options.readOnly;
}

/// The next visible column in that direction; -1 behind the last one.
int TGrid::NextColumn(int from, int step, bool editableOnly) const
{
    const auto& columns = Columns();
    for (int i = from + step; i >= 0 && i < static_cast<int>(columns.size()); i += step)
        if (columns[i].visible && (!editableOnly || Editable(i)))
            return i;
    return -1;
}

/// The first visible column takes the place of one that is gone or hidden.
int TGrid::CurrentIndex() const
{
    const auto& columns = Columns();
    if (column_ >= 0 && column_ < static_cast<int>(columns.size()) && columns[column_].visible)
        return column_;
    column_ = std::max(NextColumn(-1, 1, false), 0);
    return columns.empty() ? -1 : column_;
}

const std::string& TGrid::Column() const
{
    static const std::string none;
    const int index = CurrentIndex();
    return index < 0 ? none : columns_[index].field;
}

void TGrid::SetColumn(std::string_view field)
{
    const int index = IndexOf(field);
    if (index >= 0 && columns_[index].visible)
        GoToColumn(index);
}

void TGrid::SetFocusOn(std::string_view field)
{
    SetFocus();
    SetColumn(field);
}

// Rows

bool TGrid::HasRows() const { return dataset_ && dataset_->Active() && !dataset_->IsEmpty(); }

std::size_t TGrid::RowCount() const { return dataset_ && dataset_->Active() ? dataset_->RecordCount() : 0; }

std::int64_t TGrid::CurrentRow() const
{
    return HasRows() ? static_cast<std::int64_t>(PlaceOf(dataset_->RecNo() - 1)) : -1;
}

void TGrid::SortRows(std::string_view field, TDirection direction)
{
    order_.Choose(field, direction);
    DataSetRowsChanged();
}

std::size_t TGrid::DataRow(std::size_t place) const { return dataset_ ? order_.DataRow(*dataset_, place) : place; }

std::size_t TGrid::PlaceOf(std::size_t dataRow) const { return dataset_ ? order_.Place(*dataset_, dataRow) : dataRow; }

std::string TGrid::CellText(std::size_t row, const TGridColumn& column) const
{
    const auto* field = dataset_ ? dataset_->FindField(column.field) : nullptr;
    if (!field || row >= RowCount())
        return {};
    const auto dataRow = DataRow(row);
    if (column.tick)
        return dataset_->CellValue(dataRow, *field).AsString();
    if (column.decimals < 0)
        return dataset_->CellText(dataRow, *field);
    const auto value = dataset_->CellValue(dataRow, *field);
    return value.IsEmpty() ? std::string() : FormatDecimal(value.AsFloat(), column.decimals);
}

/// A row whose colour cannot be told has none: showing a grid never fails.
TRowColor TGrid::RowColor(std::size_t row) const
{
    TRowColor color = TRowColor::Normal;
    if (row >= RowCount())
        return color;
    try {
        OnRowColor(DataRow(row), color);
    } catch (...) {
        return TRowColor::Normal;
    }
    return color;
}

void TGrid::DataSetRowsChanged()
{
    ++rowsVersion_;
    order_.RowsChanged();
    DataSetCursorChanged();
}

void TGrid::DataSetCursorChanged()
{
    if (editing_ && !(dataset_ && dataset_->IsEditing()))
        CancelEditor();
    Changed();
}

void TGrid::DataSetRowChanged() { Changed(); }

void TGrid::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    std::vector<std::string> names, titles, kinds, widths, states;
    const auto& columns = Columns();
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const auto& column = columns[i];
        names.push_back(column.field);
        titles.push_back(TitleOf(column));
        kinds.emplace_back(KindName(column, FieldOf(i)));
        widths.push_back(std::to_string(column.width));
        states.push_back(
            std::string(column.visible ? "v" : "") + (Editable(i) ? "e" : "") + (column.lookup ? "l" : ""));
        if (!column.pickList.empty())
            sink.Texts("pickList." + column.field, column.pickList);
    }
    sink.Texts("columns", names);
    sink.Texts("titles", titles);
    sink.Texts("columnKinds", kinds);
    sink.Texts("columnWidths", widths);
    sink.Texts("columnStates", states);
    sink.Number("rowCount", static_cast<std::int64_t>(RowCount()));
    sink.Number("rowsVersion", static_cast<std::int64_t>(rowsVersion_));
    sink.Number("row", CurrentRow());
    sink.Text("column", Column());
    sink.Flag("sortable", SortsByTitle());
    sink.Text("sortColumn", order_.Field());
    sink.Flag("sortDescending", order_.Direction() == TDirection::Descending);
    sink.Flag("rowInEdit", dataset_ && dataset_->IsEditing());
    sink.Flag("editing", editing_);
    sink.Text("editorText", editorText_);
    sink.Flag("mayInsert", MayInsert());
    sink.Number("lines", lines_);
    sink.Flag("totals", totals_);
    sink.Flag("takesPaste", OnPaste.connected());
}

} // namespace alinhavo
