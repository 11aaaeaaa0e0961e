#pragma once

#include "forms/TControl.h"
#include "forms/TModalResult.h"

namespace alinhavo {

enum class TButtonRole {
    Plain,
    Default, ///< what the screen is for; Ctrl+Enter presses it
    Cancel, ///< Esc presses it
};

struct TButtonOptions {
    std::string caption = {};
    std::string hint = {};
    std::string shortcut = {}; ///< "F5", "Ctrl+P": a key that presses it from anywhere in the screen
    TButtonRole role = TButtonRole::Plain;
    std::string icon = {}; ///< name of a small picture that the client knows
    bool takesFocus = true; ///< false: pressed without leaving the focused control
    /// Ends the modal run of its screen with this result after OnClick.
    TModalResult modalResult = TModalResult::None;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// Pressed by a click, Enter, Space, Alt and its letter, or its shortcut. A person's press first leaves the focused
/// control, and is dropped when the focus does not arrive.
class TButton final : public TControl {
public:
    TButton(TContainer& parent, std::string name, TButtonOptions options = {});
    std::string_view Kind() const override { return "button"; }

    const TKey& Shortcut() const { return shortcut_; }
    TButtonRole Role() const { return role_; }
    bool TakesFocus() const { return takesFocus_; }

    /// From code: runs OnClick, whatever the state of the button.
    void Click();
    TEvent<> OnClick;

    void Describe(IPropertySink& sink) const override;

protected:
    friend class TForm;
    bool Interactive() const override { return takesFocus_; }
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    void Accelerate() override { Press(); }

private:
    /// As a person does it.
    void Press();
    bool CanBePressed() const { return EffectivelyEnabled() && EffectivelyVisible(); }

    TKey shortcut_;
    TButtonRole role_;
    std::string icon_;
    bool takesFocus_;
    TModalResult modalResult_;
};

} // namespace alinhavo
