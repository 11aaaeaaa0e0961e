#pragma once

#include "forms/TApplication.h"
#include "forms/TDataSet.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace alinhavo {

/// A person who answers the questions that a test's code raises, in the order in which he was told how. A question for
/// which he was told nothing he answers with Esc; what he reads is kept.
class TAnsweringUser final : public IEventSource, public IView {
public:
    /// Runs the code as a handler of the application.
    void Do(TApplication& application, std::function<void()> code);

    void Says(TModalResult answer, std::string text = {}, std::string password = {});
    void Searches(std::string text);
    void Does(TUserEvent event) { coming_.push_back(std::move(event)); }
    /// The rows of the lookup, from 0.
    void Picks(std::vector<std::int64_t> rows);

    std::vector<std::string> Read; ///< the texts of the boxes
    std::vector<std::string> Titles; ///< of all dialogs
    std::vector<std::string> Offered; ///< codes in the first column of each lookup, as it stood when it was answered
    std::vector<std::string> Files; ///< of the pictures shown

    TUserEvent Next() override;
    void FormShown(TForm&) override { }
    void FormClosed(TForm&) override { }
    void ControlChanged(TControl&) override { }
    void FocusChanged(TForm&) override { }
    void DialogOpened(TDialog& dialog) override;
    void DialogChanged(TDialog&) override { }
    void DialogClosed(TDialog&) override { open_.pop_back(); }
    void BusyChanged(bool busy) override { Busy = busy; }
    bool Busy = false;

private:
    void KeepOffer(const TDataSet& rows);

    std::deque<TUserEvent> coming_;
    std::vector<TDialog*> open_;
};

} // namespace alinhavo
