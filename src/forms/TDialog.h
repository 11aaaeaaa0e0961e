#pragma once

#include "forms/TEvent.h"
#include "forms/TModalResult.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class IShownReport;
class TDataSet;
struct TUserEvent;

enum class TIcon { Information, Warning, Question, Stop };
enum class TButtons { Ok, OkCancel, YesNo, YesNoCancel };

/// Something modal that is not a screen: it waits on top of everything until it is answered.
struct TDialog {
    enum class TKind { Message, Input, Date, Lookup, File, Supervisor, Picture, Report };

    TKind kind = TKind::Message;
    std::string title = {};
    std::string text = {};
    TIcon icon = TIcon::Information;
    TButtons buttons = TButtons::Ok;
    TModalResult defaultButton = TModalResult::Ok;

    // Input, Date, File, Supervisor: what stands in the field at first, and then what was answered.
    std::string value = {};
    std::string password = {}; ///< Supervisor; cleared as soon as it was checked
    std::string filter = {}; ///< File: "*.png;*.jpg"
    // Lookup: what can be picked. The columns are the dataset's visible fields.
    TDataSet* rows = nullptr;
    bool multiple = false;
    bool keepsPicks = false; ///< OnSearch puts the rows picked in front of those that it finds
    /// Asked for anew with each change of the search text; the lookup refills `rows`.
    TEvent<std::string_view> OnSearch = {};
    std::vector<std::int64_t> picked = {}; ///< rows of `rows`, from 0; in OnSearch those picked so far
    std::vector<std::string> files = {}; ///< Picture: to show
    IShownReport* report = nullptr; ///< Report

    TModalResult result = TModalResult::None;
    bool beep = false; ///< an alarm: to be heard

    /// The answers that its buttons give.
    bool Offers(TModalResult answer) const;
    /// What Esc answers: Cancel where it is offered, else No, else OK.
    TModalResult EscAnswer() const;
    /// Takes an answer. Empty, or why a person could not have given it; then nothing is changed.
    std::string Answer(const TUserEvent& event);
    /// Another search text, with the rows that are picked. Empty, or why a person could not have done so.
    std::string Search(const TUserEvent& event);

private:
    bool HasRows(const std::vector<std::int64_t>& wanted) const;
    std::string TakeRows(const TUserEvent& event);
    std::string TakeValue(const TUserEvent& event);
    static bool IsBlankDate(std::string_view text);
};

} // namespace alinhavo
