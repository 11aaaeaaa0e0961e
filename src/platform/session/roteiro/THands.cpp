#include "platform/session/roteiro/THands.h"

#include "forms/text.h"
#include "forms/TFileList.h"
#include "forms/TMenuItem.h"
#include "forms/TTextControl.h"
#include "forms/utf8.h"
#include "platform/session/roteiro/compare.h"
#include "platform/session/roteiro/EMismatch.h"

#include <utility>
#include <vector>

namespace alinhavo::roteiro {
namespace {

using enum TUserEvent::TKind;

std::vector<std::string> Characters(std::string_view text)
{
    std::vector<std::string> characters;
    while (!text.empty()) {
        const auto bytes = utf8::First(text).bytes;
        characters.emplace_back(text.substr(0, bytes));
        text.remove_prefix(bytes);
    }
    return characters;
}
} // namespace

THands::THands(TApplication& application, TSend send)
    : application_(application)
    , stage_(application)
    , send_(std::move(send))
{
}

// Screens

void THands::operator()(const TOpen& action) const { send_({.kind = OpenForm, .text = action.screen}); }
void THands::operator()(const TClose& action) const { send_({.kind = CloseForm, .form = action.screen}); }
void THands::operator()(const TActivate& action) const { send_({.kind = ActivateForm, .form = action.screen}); }

// Controls

void THands::operator()(const TClick& action) const { send_({.kind = Click, .control = action.control}); }

void THands::operator()(const TFill& action) const
{
    Focus(action.control);
    send_({.kind = Text, .control = action.control, .text = action.text});
    LeaveWithEnter(action.control);
}

void THands::operator()(const TPass& action) const
{
    Focus(action.control);
    Press(action.control, {.name = "Enter"});
}

/// What stands in a control that is just entered is marked, and so replaced by the first character.
void THands::operator()(const TWrite& action) const
{
    bool replaces = !HasFocus(action.control);
    Focus(action.control);
    for (const auto& character : Characters(action.text)) {
        if (!HasFocus(action.control))
            throw EMismatch{
                "the focus in " + action.control + " until all is typed", "the focus in " + stage_.FocusedControl()};
        if (!PressCharacter(action.control, character))
            continue;
        const auto before = std::exchange(replaces, false) ? std::string() : stage_.Text(action.control);
        send_({.kind = Text, .control = action.control, .text = before + character});
    }
}

void THands::operator()(const TChoose& action) const
{
    Focus(action.control);
    send_({.kind = Select, .control = action.control, .index = stage_.Item(action.control, action.item)});
    LeaveWithEnter(action.control);
}

void THands::operator()(const TCheck& action) const
{
    send_({.kind = Check, .control = action.control, .flag = action.checked});
}

void THands::operator()(const TTurn& action) const
{
    send_({.kind = Page, .control = action.control, .index = stage_.Page(action.control, action.page)});
}

void THands::operator()(const TPress& action) const
{
    const auto key = TKey::Parse(action.key);
    Focus(action.control);
    if (!key.IsTyped())
        return Press(action.control, key);
    const auto character = key.name == "Space" ? " " : key.name;
    if (!PressCharacter(action.control, character))
        return;
    if (const auto* grid = dynamic_cast<const TGrid*>(&stage_.Control(action.control))) {
        const auto text = grid->EditorText() + character;
        return send_({.kind = GridText, .control = action.control, .text = text});
    }
    if (const auto* text = dynamic_cast<const TTextControl*>(&stage_.Control(action.control)))
        send_({.kind = Text, .control = action.control, .text = text->text() + character});
}

// Grids

std::string THands::ColumnField(const std::string& grid, const std::string& column) const
{
    return stage_.Column(stage_.Grid(grid), column).field;
}

/// Where the row of the grid's table stands on the screen.
std::int64_t THands::Place(const std::string& grid, std::size_t row) const
{
    return static_cast<std::int64_t>(stage_.Grid(grid).PlaceOf(row));
}

void THands::operator()(const TFillCell& action) const
{
    const auto row = stage_.Row(action.grid, action.row, true);
    const auto column = ColumnField(action.grid, action.column);
    if (stage_.Column(stage_.Grid(action.grid), column).tick)
        return FillTick(action, row, column);
    GoToCell(action.grid, row, column);
    TypeIntoCell(action.grid, action.text);
    LeaveWithEnter(action.grid);
}

void THands::FillTick(const TFillCell& action, std::size_t row, const std::string& column) const
{
    if (action.text != "S" && action.text != "N")
        throw EMismatch{"S or N in a column to tick", Quoted(action.text)};
    send_({.kind = GridTick,
        .control = action.grid,
        .column = column,
        .row = Place(action.grid, row),
        .flag = action.text == "S"});
}

void THands::GoToCell(const std::string& grid, std::size_t row, const std::string& column) const
{
    Focus(grid);
    send_({.kind = GridCell, .control = grid, .column = column, .row = Place(grid, row)});
    const auto& there = stage_.Grid(grid);
    const bool arrived
        = HasFocus(grid) && there.CurrentRow() == Place(grid, row) && alinhavo::SameText(there.Column(), column);
    if (!arrived)
        throw EMismatch{"the cell " + std::to_string(row + 1) + " " + column + " of " + grid,
            "the cell " + std::to_string(there.CurrentRow() + 1) + " " + there.Column() + ", the focus in "
                + stage_.FocusedControl()};
}

/// Keys that a handler swallows type nothing. A cell that is emptied gets no key of its own.
void THands::TypeIntoCell(const std::string& grid, const std::string& text) const
{
    if (text.empty())
        return send_({.kind = GridText, .control = grid});
    std::string typed;
    for (const auto& character : Characters(text)) {
        if (!PressCharacter(grid, character))
            continue;
        typed += character;
        send_({.kind = GridText, .control = grid, .text = typed});
    }
}

void THands::operator()(const TGoToRow& action) const
{
    const auto row = stage_.Row(action.grid, action.row, true);
    const auto column = stage_.Grid(action.grid).Column();
    send_({.kind = GridCell, .control = action.grid, .column = column, .row = Place(action.grid, row)});
}

void THands::operator()(const TDoubleClick& action) const
{
    if (dynamic_cast<const TFileList*>(&stage_.Control(action.grid)) && std::holds_alternative<int>(action.row))
        return send_({.kind = DoubleClick, .control = action.grid, .index = std::get<int>(action.row) - 1});
    const auto row = stage_.Row(action.grid, action.row);
    const auto column = stage_.Grid(action.grid).Column();
    send_({.kind = GridDouble, .control = action.grid, .column = column, .row = Place(action.grid, row)});
}

void THands::operator()(const TTitleClick& action) const
{
    const auto column = ColumnField(action.grid, action.column);
    send_({.kind = GridTitle, .control = action.grid, .column = column});
}

/// What a spreadsheet puts into the clipboard.
void THands::operator()(const TPaste& action) const
{
    std::string text;
    for (const auto& row : action.rows)
        text += alinhavo::Replace(row, "|", "\t") + "\n";
    send_({.kind = GridPaste, .control = action.grid, .text = std::move(text)});
}

void THands::operator()(const TMenu& action) const
{
    OpenMenu(action.control, action.column);
    const auto caption = stage_.MenuItem(action.control, action.item).Caption();
    send_({.kind = MenuItem, .control = action.control, .text = caption});
}

void THands::OpenMenu(const std::string& control, const std::string& column) const
{
    TUserEvent event{.kind = TUserEvent::TKind::OpenMenu, .control = control};
    if (const auto* grid = dynamic_cast<const TGrid*>(&stage_.Control(control))) {
        event.row = grid->CurrentRow();
        event.column = column.empty() ? grid->Column() : ColumnField(control, column);
    }
    send_(std::move(event));
}

// Focus and keys

bool THands::HasFocus(std::string_view control) const { return alinhavo::SameText(stage_.FocusedControl(), control); }

void THands::Focus(const std::string& control) const
{
    send_({.kind = TUserEvent::TKind::Focus, .control = control});
    if (!HasFocus(control))
        throw EMismatch{"the focus in " + control, "the focus in " + stage_.FocusedControl()};
}

void THands::Press(const std::string& control, const TKey& key) const
{
    send_({.kind = Key, .control = control, .key = key});
}

void THands::LeaveWithEnter(const std::string& control) const
{
    if (HasFocus(control))
        Press(control, {.name = "Enter"});
}

bool THands::PressCharacter(const std::string& control, const std::string& character) const
{
    Press(control, TKey::Parse(character));
    return !application_.KeySwallowed() && HasFocus(control);
}

} // namespace alinhavo::roteiro
