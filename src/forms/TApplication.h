#pragma once

#include "forms/TForm.h"
#include "forms/TUserEvent.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What shows the application to its user. Called on the session's thread; it only takes notes and shows them when the
/// event source is asked for the next event.
class IView {
public:
    virtual ~IView() = default;
    virtual void FormShown(TForm&) = 0;
    virtual void FormClosed(TForm&) = 0;
    virtual void ControlChanged(TControl&) = 0;
    virtual void FocusChanged(TForm&) = 0;
    virtual void DialogOpened(TDialog&) = 0;
    virtual void DialogClosed(TDialog&) = 0;
    virtual void BusyChanged(bool busy) = 0;
};

/// Makes a screen for an application.
using TFormMaker = std::function<std::unique_ptr<TForm>(class TApplication&)>;

/// One logged-in user's work: the screens by class and component name, the events, the modal runs. Everything runs on
/// one thread. There may be any number of applications in a process.
class TApplication {
public:
    TApplication(IEventSource& source, IView* view = nullptr);
    virtual ~TApplication();
    TApplication(const TApplication&) = delete;
    TApplication& operator=(const TApplication&) = delete;

    std::string Title = "Alinhavo";

    /// Handles events until the session ends.
    void Run();
    void Terminate() { terminated_ = true; }
    bool Terminated() const { return terminated_; }

    /// Handles one event. Empty when it was done (whatever its handlers said), else why a person could not have done
    /// it: no such control, disabled, hidden, read-only, not in the topmost screen. A refused event changes nothing.
    /// An exception of a handler is shown with its text; EAbort shows nothing.
    std::string Handle(const TUserEvent& event);

    // Screens
    void RegisterForm(std::string className, TFormMaker maker);
    bool KnowsForm(std::string_view className) const;
    /// Makes a screen, which stays until it is closed; throws std::runtime_error with a Portuguese text when the class is
    /// not known.
    TForm& LoadForm(std::string_view className);
    TForm* FindFormByClass(std::string_view className) const;     ///< the last one opened or shown; null when none
    TForm* FindFormByName(std::string_view componentName) const;
    const std::vector<std::unique_ptr<TForm>>& Forms() const { return forms_; }
    /// The modal screen on top, or the one in front; null when none is open.
    TForm* ActiveForm() const;
    void CloseForm(TForm& form);

    // Modal runs
    /// Waits for the answer on top of everything.
    TModalResult ShowDialog(TDialog& dialog);
    TDialog* TopDialog() const; ///< null when a screen is on top

    void ShowException(std::string_view text);
    void SetBusy(bool busy); ///< counted: pairs

    /// The application's day and hour; a scripted user may set another.
    TDateTime Now() const;
    TDateTime Today() const { return Now().Date(); }
    virtual void SetNow(TDateTime now); ///< blank: the clock's

private:
    friend class TForm;
    friend class TControl;
    IEventSource& source_;
    IView* view_;
    std::map<std::string, TFormMaker, std::less<>> makers_;
    std::vector<std::unique_ptr<TForm>> forms_;
    TDateTime now_;
    bool terminated_ = false;
};

} // namespace alinhavo
