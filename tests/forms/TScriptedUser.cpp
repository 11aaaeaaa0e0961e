#include "TScriptedUser.h"

#include "forms/text.h"
#include "forms/TTextControl.h"

#include <gtest/gtest.h>
#include <utility>

namespace alinhavo {

using enum TUserEvent::TKind;

void TScriptedUser::WillAnswer(TModalResult answer, std::string value)
{
    Will({.kind = Answer, .text = std::move(value), .answer = answer});
}

void TScriptedUser::WillPick(std::vector<std::int64_t> rows)
{
    Will({.kind = Answer, .answer = TModalResult::Ok, .rows = std::move(rows)});
}

TUserEvent TScriptedUser::Next()
{
    const auto* dialog = application_->TopDialog();
    if (dialog && OnDialog)
        OnDialog();
    const bool mayCome = !dialog || coming_.empty() || coming_.front().kind == Answer || coming_.front().kind == Search
        || coming_.front().kind == Terminate;
    if (coming_.empty() || !mayCome) {
        ADD_FAILURE() << "nobody told what to do about "
                      << (dialog ? dialog->text : application_->ActiveForm()->Name());
        return {.kind = Terminate};
    }
    auto event = std::move(coming_.front());
    coming_.pop_front();
    return event;
}

void TScriptedUser::Handled(const TUserEvent&, std::string_view refusal)
{
    if (!refusal.empty())
        Refusals.emplace_back(refusal);
}

std::string TScriptedUser::Do(const TUserEvent& event) { return application_->Handle(event); }

std::string TScriptedUser::Focus(std::string control)
{
    return Do({.kind = TUserEvent::TKind::Focus, .control = std::move(control)});
}

std::string TScriptedUser::WriteBehind(const std::string& control, std::string before, std::string_view text)
{
    for (std::size_t i = 1; i <= Length(text); ++i) {
        const auto character = Copy(text, i, 1);
        auto refusal = Press(control, character);
        if (refusal.empty() && !application_->KeySwallowed())
            refusal = Do({.kind = Text, .control = control, .text = before + character});
        if (!refusal.empty())
            return refusal;
        before = Shown(control);
    }
    return {};
}

std::string TScriptedUser::Shown(const std::string& control) const
{
    const auto* edit = dynamic_cast<TTextControl*>(application_->ActiveForm()->FindComponent(control));
    return edit ? edit->text() : std::string();
}

std::string TScriptedUser::Write(std::string control, std::string_view text)
{
    return WriteBehind(control, Shown(control), text);
}

std::string TScriptedUser::Type(std::string control, std::string_view text)
{
    auto refusal = Focus(control);
    if (refusal.empty())
        refusal = text.empty() ? Do({.kind = Text, .control = control}) : WriteBehind(control, {}, text);
    return refusal.empty() ? Press(control, "Enter") : refusal;
}

std::string TScriptedUser::Press(std::string control, std::string_view key)
{
    return Do({.kind = Key, .control = std::move(control), .key = TKey::Parse(key)});
}

std::string TScriptedUser::Click(std::string control)
{
    return Do({.kind = TUserEvent::TKind::Click, .control = std::move(control)});
}

std::string TScriptedUser::Check(std::string control, bool checked)
{
    return Do({.kind = TUserEvent::TKind::Check, .control = std::move(control), .flag = checked});
}

std::string TScriptedUser::Select(std::string control, int index)
{
    return Do({.kind = TUserEvent::TKind::Select, .control = std::move(control), .index = index});
}

std::string TScriptedUser::Page(std::string control, int index)
{
    return Do({.kind = TUserEvent::TKind::Page, .control = std::move(control), .index = index});
}

std::string TScriptedUser::Cell(std::string grid, std::int64_t row, std::string column)
{
    return Do({.kind = GridCell, .control = std::move(grid), .column = std::move(column), .row = row});
}

std::string TScriptedUser::TypeCell(std::string grid, std::int64_t row, std::string column, std::string_view text)
{
    auto refusal = Cell(grid, row, std::move(column));
    for (std::size_t i = 1; refusal.empty() && i <= Length(text); ++i) {
        refusal = Press(grid, Copy(text, i, 1));
        if (refusal.empty() && !application_->KeySwallowed())
            refusal = Do({.kind = GridText, .control = grid, .text = Left(text, i)});
    }
    return refusal.empty() ? Press(grid, "Enter") : refusal;
}

std::string TScriptedUser::Open(std::string className) { return Do({.kind = OpenForm, .text = std::move(className)}); }

void TScriptedUser::DialogOpened(TDialog& dialog)
{
    heard_.push_back(dialog.title + ": " + dialog.text);
    LastDefault = dialog.defaultButton;
    LastBeeped = dialog.beep;
}

std::vector<std::string> TScriptedUser::Heard() { return std::exchange(heard_, {}); }

std::vector<std::string> TScriptedUser::Changed() { return std::exchange(changed_, {}); }

} // namespace alinhavo
