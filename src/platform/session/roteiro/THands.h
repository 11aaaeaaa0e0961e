#pragma once

#include "forms/TApplication.h"
#include "platform/session/roteiro/TStage.h"

#include <functional>
#include <string>

namespace alinhavo::roteiro {

/// Does with an application what a person's hands would do, one event after the other.
class THands {
public:
    /// Sends an event and returns when its handlers are done; throws when a person could not do it.
    using TSend = std::function<void(TUserEvent)>;

    THands(TApplication& application, TSend send);

    void operator()(const TOpen& action) const;
    void operator()(const TClose& action) const;
    void operator()(const TActivate& action) const;
    void operator()(const TClick& action) const;
    void operator()(const TFill& action) const;
    void operator()(const TPass& action) const;
    void operator()(const TWrite& action) const;
    void operator()(const TChoose& action) const;
    void operator()(const TCheck& action) const;
    void operator()(const TTurn& action) const;
    void operator()(const TPress& action) const;
    void operator()(const TFillCell& action) const;
    void operator()(const TGoToRow& action) const;
    void operator()(const TDoubleClick& action) const;
    void operator()(const TPaste& action) const;
    void operator()(const TMenu& action) const;
    void operator()(const TTitleClick& action) const;

    /// In a grid on the current row and the column, or the current one.
    void OpenMenu(const std::string& control, const std::string& column) const;

private:
    bool HasFocus(std::string_view control) const;
    /// EMismatch when a handler keeps the focus elsewhere.
    void Focus(const std::string& control) const;
    void Press(const std::string& control, const TKey& key) const;
    /// Enter, unless the focus went elsewhere by itself.
    void LeaveWithEnter(const std::string& control) const;
    /// True when the character may be typed: no handler swallowed its key.
    bool PressCharacter(const std::string& control, const std::string& character) const;
    void GoToCell(const std::string& grid, std::size_t row, const std::string& column) const;
    void FillTick(const TFillCell& action, std::size_t row, const std::string& column) const;
    void TypeIntoCell(const std::string& grid, const std::string& text) const;
    std::string ColumnField(const std::string& grid, const std::string& column) const;
    std::int64_t Place(const std::string& grid, std::size_t row) const;

    TApplication& application_;
    TStage stage_;
    TSend send_;
};

} // namespace alinhavo::roteiro
