#pragma once

#include "forms/ETerminated.h"
#include "forms/IView.h"
#include "forms/TDateTime.h"
#include "forms/TForm.h"
#include "forms/TUserEvent.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Makes a screen for an application.
using TFormMaker = std::function<std::unique_ptr<TForm>(class TApplication&)>;

/// One logged-in user's work: the screens by class and component name, the events, the modal runs. Everything runs on
/// one thread. There may be any number of applications in a process.
class TApplication {
public:
    explicit TApplication(IEventSource& source, IView* view = nullptr);
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
    /// An exception of a handler is shown with its text; EAbort shows nothing; nothing escapes.
    std::string Handle(const TUserEvent& event);
    /// The last Key event was swallowed by a handler, so that it types nothing.
    bool KeySwallowed() const { return keySwallowed_; }

    // Screens
    void RegisterForm(std::string className, TFormMaker maker);
    bool KnowsForm(std::string_view className) const;
    /// Makes a screen, which stays until it is closed; throws std::runtime_error with a Portuguese text when the class is
    /// not known.
    TForm& LoadForm(std::string_view className);
    TForm* FindFormByClass(std::string_view className) const; ///< the last one opened or shown; null when none
    TForm* FindFormByName(std::string_view componentName) const; ///< likewise
    /// Those that are not closed, the last one opened or shown at the end.
    std::vector<TForm*> Forms() const;
    /// The modal screen on top, or the one in front; null when none is open.
    TForm* ActiveForm() const;
    void CloseForm(TForm& form) { form.Close(); }

    // Modal runs
    /// Waits for the answer on top of everything.
    TModalResult ShowDialog(TDialog& dialog);
    TDialog* TopDialog() const; ///< null when a screen is on top

    void ShowException(std::string_view text);
    /// Runs the action as a handler's: shows the text of its exception, nothing for EAbort. Only ETerminated escapes.
    void Guarded(const std::function<void()>& action);
    void SetBusy(bool busy); ///< counted: pairs

    /// The application's day and hour; a scripted user may set another.
    virtual TDateTime Now() const;
    TDateTime Today() const { return Now().Date(); }
    virtual void SetNow(TDateTime now); ///< blank: the clock's

private:
    friend class TForm;
    friend class TControl;

    /// One modal screen or dialog; the last one is on top.
    struct TModal {
        TForm* form = nullptr;
        TDialog* dialog = nullptr;
    };
    class TModalScope;

    std::string Perform(const TUserEvent& event);
    std::string PerformOnForm(const TUserEvent& event);
    std::string PerformOnControl(TForm& form, TControl* control, const TUserEvent& event);
    std::string PerformAnswer(const TUserEvent& event);
    std::string PerformSearch(const TUserEvent& event);
    std::string PerformOpen(const TUserEvent& event);
    std::string PerformActivate(const TUserEvent& event);
    std::string PerformClose(const TUserEvent& event);
    std::string PerformKey(TForm& form, const TUserEvent& event);
    void SettleFocus();
    void ControlChanged(TControl& control);
    void FocusChanged(TForm& form);
    void FormShown(TForm& form);
    void FormHidden(TForm& form);
    void HandleNext();
    TModalResult RunModal(TForm& form);
    void EndModal(TForm& form);
    TForm* TopModalForm() const;
    TForm* FindForm(const std::function<bool(const TForm&)>& matches) const;
    TForm* FindOpenForm(std::string_view name) const;
    void BringToFront(TForm& form);
    void Enlist(TForm& form);
    void Delist(TForm& form);
    void DestroyClosedForms();
    void HandlersBelowResume();

    IEventSource& source_;
    IView* view_;
    std::map<std::string, TFormMaker, std::less<>> makers_;
    std::vector<TForm*> forms_; ///< every screen alive, by last showing
    std::vector<std::unique_ptr<TForm>> loaded_; ///< those made by LoadForm
    std::vector<TModal> modals_;
    TDateTime now_;
    int depth_ = 0; ///< events being handled, one inside the other
    int busy_ = 0;
    bool terminated_ = false;
    bool keySwallowed_ = false;
};

} // namespace alinhavo
