#pragma once

#include "forms/TContainer.h"
#include "forms/TDialog.h"
#include "forms/TModalResult.h"

#include <exception>
#include <string>
#include <string_view>

namespace alinhavo {

class TApplication;
enum class TButtonRole;

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
    /// Runs it modally: returns when ModalResult is set or it is closed (Cancel). It may then still be asked for its
    /// results, until the caller's event is done.
    TModalResult ShowModal();
    /// Asks OnCloseQuery, then takes it away; false when it stays open. A screen made by LoadForm is destroyed when no
    /// handler is running that could know it, and is found no more until then, unless it is shown again.
    bool Close();
    bool Showing() const { return showing_; }
    bool Modal() const { return modal_; }

    /// Set by the screen itself, or by another that it runs: ends the modal run.
    TModalResult ModalResult = TModalResult::None;

    /// The control that has, or is just getting, the focus; where it will stand before the screen is shown.
    TControl* ActiveControl() const { return activeControl_; }
    /// While an OnExit runs: the user went to this control.
    bool FocusGoesTo(const TControl& control) const { return activeControl_ == &control; }
    /// All controls, each before those that it holds: the order in which they stand on the screen.
    std::vector<TControl*> ControlsInOrder() const;
    /// SetFocus of the first control, in that order, that a person can fill.
    void FocusFirst();
    /// SetFocus of the first one within the container; nothing when there is none.
    void FocusFirstIn(const TContainer& container);
    /// SetFocus of the control behind another one.
    void FocusBehind(const TControl& control);
    /// What was typed into the focused control goes to where it belongs, without leaving it.
    void CommitFocused();
    /// SetFocus of the next (or previous) control that a person can fill.
    void SelectNext(bool forward = true);

    TEvent<> OnShow;
    TEvent<bool&> OnCloseQuery; ///< false keeps it open
    TEvent<> OnClose;

    void Describe(IPropertySink& sink) const override;

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
    friend class TPageControl;

    enum class TMove { To, Forward, Back };

    /// As a person moves it: leaves, asks, enters. True when the focus arrived.
    bool MoveFocus(TControl& target);
    bool MoveOn(bool forward);
    bool Move(TControl& target, TMove move);
    /// What its leaving raised; null when it was left well.
    std::exception_ptr Leave(TControl& old);
    void Arrive(TControl* old);
    void SetFocusFromCode(TControl& target);
    /// A focused control that no longer can be moves the focus on, without being left.
    void SettleFocus();
    TControl* NextToFill(const TControl* from, bool forward) const;
    TControl* NextFocusable(const TControl& from) const;
    std::vector<TControl*> Around(const TControl* from, bool forward) const;
    void Forget(const TControl& control);

    void HandleKey(TKey& key);
    void KeyDefault(const TKey& key);
    bool PressMenuShortcut(TControl& control, const TKey& key);
    bool PressShortcut(const TKey& key);
    bool PressAccelerator(const TKey& key);
    bool PressRole(TButtonRole role);
    void Escape();

    void BeginShowing();
    bool MayClose();
    void EndShowing();
    void Hide();
    bool AskValue(TDialog::TKind kind, std::string_view title, std::string_view text, std::string& value);
    std::string TitleOr(std::string_view title) const;

    TApplication& application_;
    std::string className_;
    TControl* activeControl_ = nullptr;
    bool entered_ = false; ///< the active control was entered, and is left before another one is
    bool leaving_ = false;
    bool focusSaid_ = false; ///< an OnExit has said where the focus goes
    bool showing_ = false;
    bool modal_ = false;
    bool closed_ = false;
    int loadedDepth_ = 1; ///< handlers below this depth began before the screen was made
};

} // namespace alinhavo
