#pragma once

#include "forms/TApplication.h"
#include "forms/TGrid.h"
#include "platform/session/roteiro/TLine.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {
class TMenuItem;
}

namespace alinhavo::roteiro {

/// What a person sees of an application while it waits. What is not there raises EMismatch.
class TStage {
public:
    explicit TStage(TApplication& application)
        : application_(application)
    {
    }

    /// The screen in front.
    TForm& Form() const;
    TControl& Control(std::string_view name) const;
    TGrid& Grid(std::string_view name) const;
    /// The control, when it is of that kind.
    template <typename TKind>
    TKind& ControlOf(std::string_view name, std::string_view kind) const
    {
        auto* control = dynamic_cast<TKind*>(&Control(name));
        if (!control)
            WrongKind(name, kind);
        return *control;
    }

    /// What the screen in front holds under the name of a grid or of a table.
    TDataSet& Rows(std::string_view gridOrTable) const;
    /// The row's number, from 0. `allowNew`: the one behind the last too.
    std::size_t Row(std::string_view gridOrTable, const TRowName& row, bool allowNew = false) const;
    /// By name, or by the title of the grid's column.
    TField& Field(std::string_view gridOrTable, std::string_view column) const;
    /// Its field, by which events name the column.
    const TGridColumn& Column(const TGrid& grid, std::string_view fieldOrTitle) const;
    TMenuItem& MenuItem(std::string_view control, std::string_view caption) const;

    /// What stands in a control: its text, chosen item or caption.
    std::string Text(std::string_view control) const;
    std::vector<std::string> Items(std::string_view control) const;
    /// The item of that text, or of that code in front of its " |".
    int Item(std::string_view control, std::string_view codeOrText) const;
    int Page(std::string_view control, std::string_view caption) const;
    bool Checked(std::string_view control) const;
    std::string FocusedControl() const;

    /// The dialog or modal screen on top, for reports.
    std::string Top() const;

private:
    [[noreturn]] void WrongKind(std::string_view name, std::string_view kind) const;
    const TGridColumn* FindColumn(const TGrid& grid, std::string_view fieldOrTitle) const;

    TApplication& application_;
};

/// The row of the dataset that shows these values, from 0; -1 when there is none. EMismatch for an unknown column.
std::int64_t FindRow(const TDataSet& rows, const TMatches& matches);

} // namespace alinhavo::roteiro
