#include "platform/session/roteiro/TStage.h"

#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/text.h"
#include "forms/TFileList.h"
#include "forms/TMenuItem.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioButton.h"
#include "forms/TRadioGroup.h"
#include "forms/TTabSheet.h"
#include "platform/session/roteiro/compare.h"
#include "platform/session/roteiro/EMismatch.h"

#include <algorithm>

namespace alinhavo::roteiro {
namespace {

std::string WithoutMark(std::string_view caption) { return Replace(caption, "&", ""); }

/// What stands in front of the bar, or of the first blank.
std::string CodeOf(std::string_view item)
{
    const auto bar = item.find('|');
    return Trim(item.substr(0, bar == std::string_view::npos ? item.find(' ') : bar));
}

std::string List(const std::vector<std::string>& texts)
{
    std::string list;
    for (const auto& text : texts)
        list.append(list.empty() ? "" : " ").append(Quoted(text));
    return list.empty() ? "none" : list;
}

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

const TField* FindField(const TDataSet& rows, std::string_view column) { return rows.FindField(column); }

} // namespace

TForm& TStage::Form() const
{
    if (auto* form = application_.ActiveForm())
        return *form;
    throw EMismatch{"a screen that is open", "none"};
}

TControl& TStage::Control(std::string_view name) const
{
    if (auto* control = dynamic_cast<TControl*>(Form().FindComponent(name)))
        return *control;
    throw EMismatch{"a control " + std::string(name), "none of that name in " + Form().ClassName()};
}

void TStage::WrongKind(std::string_view name, std::string_view kind) const
{
    throw EMismatch{
        std::string(kind) + " " + std::string(name), "a control of the kind " + std::string(Control(name).Kind())};
}

TGrid& TStage::Grid(std::string_view name) const { return ControlOf<TGrid>(name, "a grid"); }

TDataSet& TStage::Rows(std::string_view gridOrTable) const
{
    auto* component = Form().FindComponent(gridOrTable);
    if (auto* rows = dynamic_cast<TDataSet*>(component))
        return *rows;
    if (auto* grid = dynamic_cast<TGrid*>(component)) {
        if (auto* rows = grid->DataSet())
            return *rows;
        throw EMismatch{"rows in " + std::string(gridOrTable), "a grid without a table"};
    }
    throw EMismatch{"a grid or table " + std::string(gridOrTable), "none of that name in " + Form().ClassName()};
}

std::size_t TStage::Row(std::string_view gridOrTable, const TRowName& row, bool allowNew) const
{
    const auto& rows = Rows(gridOrTable);
    if (const auto* number = std::get_if<int>(&row)) {
        const auto index = static_cast<std::size_t>(*number - 1);
        if (index >= rows.RecordCount() + (allowNew ? 1 : 0))
            throw EMismatch{"a row " + std::to_string(*number), std::to_string(rows.RecordCount()) + " rows"};
        const auto* grid = dynamic_cast<const TGrid*>(Form().FindComponent(gridOrTable));
        return grid ? grid->DataRow(index) : index;
    }
    TMatches matches = std::get<TMatches>(row);
    for (auto& match : matches)
        match.column = Field(gridOrTable, match.column).Name();
    const auto found = FindRow(rows, matches);
    if (found < 0)
        throw EMismatch{"a row " + Written(row), "none among " + std::to_string(rows.RecordCount())};
    return static_cast<std::size_t>(found);
}

std::int64_t FindRow(const TDataSet& rows, const TMatches& matches)
{
    const auto matchesRow = [&](std::size_t row) {
        return std::ranges::all_of(matches, [&](const TMatch& match) {
            const auto* field = FindField(rows, match.column);
            if (!field)
                throw EMismatch{"a column " + match.column, "none of that name"};
            return SameCell({match.value, false}, rows.CellValue(row, *field));
        });
    };
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
        if (matchesRow(row))
            return static_cast<std::int64_t>(row);
    }
    return -1;
}

TField& TStage::Field(std::string_view gridOrTable, std::string_view column) const
{
    auto& rows = Rows(gridOrTable);
    if (auto* field = rows.FindField(column))
        return *field;
    const auto* grid = dynamic_cast<TGrid*>(Form().FindComponent(gridOrTable));
    if (const auto* found = grid ? FindColumn(*grid, column) : nullptr)
        return rows.FieldByName(found->field);
    throw EMismatch{"a column " + std::string(column), "none of that name in " + std::string(gridOrTable)};
}

const TGridColumn* TStage::FindColumn(const TGrid& grid, std::string_view fieldOrTitle) const
{
    if (const auto* column = grid.FindColumn(fieldOrTitle))
        return column;
    const auto titled = [&](const TGridColumn& column) {
        const auto* field = grid.DataSet() ? grid.DataSet()->FindField(column.field) : nullptr;
        const auto& title = column.title.empty() && field ? field->options.title : column.title;
        return SameText(title, fieldOrTitle);
    };
    const auto found = std::ranges::find_if(grid.Columns(), titled);
    return found == grid.Columns().end() ? nullptr : &*found;
}

const TGridColumn& TStage::Column(const TGrid& grid, std::string_view fieldOrTitle) const
{
    if (const auto* column = FindColumn(grid, fieldOrTitle))
        return *column;
    throw EMismatch{"a column " + std::string(fieldOrTitle), "none of that name in " + grid.Name()};
}

TMenuItem& TStage::MenuItem(std::string_view control, std::string_view caption) const
{
    auto* menu = Control(control).PopupMenu();
    if (!menu)
        throw EMismatch{"a menu of " + std::string(control), "none"};
    std::vector<std::string> captions;
    for (auto* item : menu->Items()) {
        captions.push_back(WithoutMark(item->Caption()));
        if (TextMatches(caption, captions.back()))
            return *item;
    }
    throw EMismatch{"the item " + Quoted(caption), List(captions)};
}

std::string TStage::Text(std::string_view control) const
{
    auto& found = Control(control);
    if (const auto* text = dynamic_cast<const TTextControl*>(&found))
        return text->text();
    if (const auto* group = dynamic_cast<const TRadioGroup*>(&found))
        return group->ItemText();
    if (const auto* list = dynamic_cast<const TFileList*>(&found))
        return FileName(list->File());
    return found.PlainCaption();
}

std::vector<std::string> TStage::Items(std::string_view control) const
{
    auto& found = Control(control);
    if (const auto* combo = dynamic_cast<const TComboBox*>(&found))
        return combo->Items();
    if (const auto* group = dynamic_cast<const TRadioGroup*>(&found))
        return group->Items();
    std::vector<std::string> names;
    for (const auto& file : ControlOf<TFileList>(control, "a list").Files())
        names.push_back(FileName(file));
    return names;
}

int TStage::Item(std::string_view control, std::string_view codeOrText) const
{
    const auto items = Items(control);
    auto found = std::ranges::find_if(items, [&](const auto& item) { return TextMatches(codeOrText, item); });
    if (found == items.end())
        found = std::ranges::find_if(items, [&](const auto& item) { return CodeOf(item) == codeOrText; });
    if (found == items.end())
        throw EMismatch{"the item " + Quoted(codeOrText), List(items)};
    return static_cast<int>(found - items.begin());
}

int TStage::Page(std::string_view control, std::string_view caption) const
{
    std::vector<std::string> captions;
    for (const auto* page : ControlOf<TPageControl>(control, "a page control").Pages()) {
        captions.push_back(page->PlainCaption());
        if (TextMatches(caption, captions.back()))
            return page->PageIndex();
    }
    throw EMismatch{"the page " + Quoted(caption), List(captions)};
}

bool TStage::Checked(std::string_view control) const
{
    if (const auto* radio = dynamic_cast<const TRadioButton*>(&Control(control)))
        return radio->Checked();
    return ControlOf<TCheckBox>(control, "a check box").Checked();
}

std::string TStage::FocusedControl() const
{
    const auto* form = application_.ActiveForm();
    const auto* control = form ? form->ActiveControl() : nullptr;
    return control ? control->Name() : std::string();
}

std::string TStage::Top() const
{
    const auto* dialog = application_.TopDialog();
    if (!dialog)
        return "the modal screen " + Form().ClassName();
    const auto titled = Quoted(dialog->title);
    switch (dialog->kind) {
    case TDialog::TKind::Message:
        return (dialog->buttons == TButtons::Ok ? "! " : "? ") + Quoted(dialog->text) + " titulo " + titled;
    case TDialog::TKind::Input:
    case TDialog::TKind::Date:
        return "> " + titled + " " + Quoted(dialog->text);
    case TDialog::TKind::Lookup:
        return "the lookup " + titled;
    case TDialog::TKind::File:
        return "the choice of a file " + titled;
    case TDialog::TKind::Supervisor:
        return "the supervisor's step";
    case TDialog::TKind::Picture:
        return "the picture " + titled;
    case TDialog::TKind::Report:
        return "the report " + titled;
    }
    return titled;
}

} // namespace alinhavo::roteiro
