#pragma once

#include "forms/TControl.h"
#include "forms/TDialog.h"

#include <memory>
#include <string>
#include <string_view>

namespace alinhavo {

class TApplication;
class TButton;

/// A screen. Its class name is what it is loaded by, its component name what it is found by; both are given once.
class TForm : public TContainer {
public:
    /// The component name is the class name without its leading "T" ("fmFacMov" of "TfmFacMov").
    TForm(TApplication& application, std::string className, std::string caption);
    ~TForm() override;

    TApplication& Application() const { return application_; }
    const std::string& ClassName() const { return className_; }
    std::string_view Kind() const override { return "form"; }

    /// Shows it as a tab of the main window and brings it to the front.
    void Show();
    /// Runs it modally: returns when ModalResult is set or it is closed (Cancel).
    TModalResult ShowModal();
    /// Asks OnCloseQuery, then hides it; a screen that was loaded to be freed is destroyed when the event is done.
    void Close();
    bool Showing() const { return showing_; }

    /// Set by the screen itself, or by another that it runs: ends the modal run.
    TModalResult ModalResult = TModalResult::None;

    /// The control that has, or is just getting, the focus; null before the screen is shown.
    TControl* ActiveControl() const { return activeControl_; }
    /// Where the focus is going while an OnExit runs is the same as ActiveControl().
    bool FocusGoesTo(const TControl& control) const { return activeControl_ == &control; }
    /// First control in the order of their making that can take the focus.
    void FocusFirst();
    /// The next (or previous) control in the order of their making that can take the focus and is a tab stop.
    void SelectNext(bool forward = true);

    TEvent<> OnShow;
    TEvent<bool&> OnCloseQuery; ///< false keeps it open
    TEvent<> OnClose;
    TEvent<TKey&> OnKeyDown;    ///< before the focused control's; emptying the key's name swallows it

    // What screens say to their user. Titles are the screen's caption unless given.
    void Mensagem(std::string_view text, std::string_view title = {}, TIcon icon = TIcon::Information);
    /// Information, then the focus on the control where one is given: the usual end of a failed check.
    void Recusa(std::string_view text);
    void Recusa(std::string_view text, TControl& focus);
    /// Yes or No, No being the default.
    bool Pergunta(std::string_view text, std::string_view title = {});
    TModalResult PerguntaCancelar(std::string_view text, std::string_view title = {}); ///< default: Cancel
    /// Beep, OK and Cancel with Cancel as default, and again until OK is pressed: a scanner's Enter can't dismiss it.
    void Alarme(std::string_view text, std::string_view title = {});
    /// False when cancelled; `value` holds the first and then the answered text.
    bool InputBox(std::string_view caption, std::string_view prompt, std::string& value);
    bool InputBoxData(std::string_view caption, std::string_view prompt, std::string& value);
    /// A file chosen by the user: the path of its copy on the server; empty when cancelled.
    std::string EscolheArquivo(std::string_view title, std::string_view filter = {});

private:
    friend class TApplication;
    friend class TControl;
    TApplication& application_;
    std::string className_;
    TControl* activeControl_ = nullptr;
    bool leaving_ = false;
    bool showing_ = false;
};

} // namespace alinhavo
