#pragma once

#include "forms/TApplication.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A person at the screens, for tests: each action is handled at once and gives the refusal, if any. What he will do
/// while an action waits for him, in a dialog or a modal screen, is said before it. A question that nobody told him to
/// answer, and an answer that nobody asked for, are failures of the test.
class TScriptedUser final : public IEventSource, public IView {
public:
    /// The application must live as long as he acts.
    void Uses(TApplication& application) { application_ = &application; }

    // Said before the action that raises it, in order
    void WillAnswer(TModalResult answer, std::string value = {});
    void WillPick(std::vector<std::int64_t> rows);
    void Will(TUserEvent event) { coming_.push_back(std::move(event)); }

    // Actions, on the screen in front
    std::string Do(const TUserEvent& event);
    std::string Focus(std::string control);
    /// One key after the other behind what stands there, without leaving.
    std::string Write(std::string control, std::string_view text);
    /// The text instead of what stands there, then Enter.
    std::string Type(std::string control, std::string_view text);
    std::string Press(std::string control, std::string_view key);
    std::string Click(std::string control);
    std::string Check(std::string control, bool checked);
    std::string Select(std::string control, int index);
    std::string Page(std::string control, int index);
    std::string Cell(std::string grid, std::int64_t row, std::string column);
    /// Goes to the cell, types digit by digit, leaves it with Enter.
    std::string TypeCell(std::string grid, std::int64_t row, std::string column, std::string_view text);
    std::string Open(std::string className);

    /// "title: text" of all boxes since the last call.
    std::vector<std::string> Heard();
    /// What he was to do and never came to.
    std::size_t Unused() const { return coming_.size(); }
    /// Names of the controls that changed since the last call, each as often as it did.
    std::vector<std::string> Changed();
    std::vector<std::string> ShownForms;
    std::vector<std::string> ClosedForms;
    TModalResult LastDefault = TModalResult::None;
    bool LastBeeped = false;
    bool Busy = false;

    /// What happens while a dialog has just opened, before it is answered.
    std::function<void()> OnDialog;
    /// Why what he did in dialogs and modal screens could not be done.
    std::vector<std::string> Refusals;

    TUserEvent Next() override;
    void Handled(const TUserEvent& event, std::string_view refusal) override;
    void FormShown(TForm& form) override { ShownForms.push_back(form.Name()); }
    void FormClosed(TForm& form) override { ClosedForms.push_back(form.Name()); }
    void ControlChanged(TControl& control) override { changed_.push_back(control.Name()); }
    void FocusChanged(TForm&) override { }
    void DialogOpened(TDialog& dialog) override;
    void DialogChanged(TDialog&) override { }
    void DialogClosed(TDialog&) override { }
    void BusyChanged(bool busy) override { Busy = busy; }

private:
    std::string Shown(const std::string& control) const;
    std::string WriteBehind(const std::string& control, std::string before, std::string_view text);

    TApplication* application_ = nullptr;
    std::deque<TUserEvent> coming_;
    std::vector<std::string> heard_;
    std::vector<std::string> changed_;
};

} // namespace alinhavo
