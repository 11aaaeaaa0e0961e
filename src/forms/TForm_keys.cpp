#include "forms/TButton.h"
#include "forms/text.h"
#include "forms/TForm.h"
#include "forms/TMenuItem.h"
#include "forms/TPopupMenu.h"

namespace alinhavo {

void TForm::HandleKey(TKey& key)
{
    auto* const control = activeControl_;
    if (control && control->CommitsOn(key))
        control->CommitInput();
    OnKeyDown(key);
    if (control && !key.Swallowed())
        control->OnKeyDown(key);
    if (key.Swallowed())
        return;
    if (activeControl_ != control || !showing_ || (modal_ && ModalResult != TModalResult::None))
        return key.Swallow();
    KeyDefault(key);
}

void TForm::KeyDefault(const TKey& key)
{
    auto* const control = activeControl_;
    if (control && (control->KeyEffect(key) || PressMenuShortcut(*control, key)))
        return;
    if (PressShortcut(key))
        return;
    if (key.alt && Length(key.name) == 1)
        PressAccelerator(key);
    else if (key.name == "Enter" && key.ctrl)
        PressRole(TButtonRole::Default);
    else if (key.name == "Enter" || key.name == "Tab")
        MoveOn(!key.shift);
    else if (key.name == "Esc")
        Escape();
}

bool TForm::PressMenuShortcut(TControl& control, const TKey& key)
{
    auto* const menu = control.PopupMenu();
    if (!menu)
        return false;
    for (auto* item : menu->Items()) {
        if (!item->Shortcut().Matches(key))
            continue;
        control.CommitInput();
        control.MenuOpens();
        if (item->Visible() && item->Enabled())
            item->Click();
        return true;
    }
    return false;
}

bool TForm::PressShortcut(const TKey& key)
{
    for (auto* control : ControlsInOrder()) {
        auto* const button = dynamic_cast<TButton*>(control);
        if (!button || !button->Shortcut().Matches(key) || !button->CanBePressed())
            continue;
        button->Press();
        return true;
    }
    return false;
}

bool TForm::PressAccelerator(const TKey& key)
{
    const auto letter = LowerCase(key.name);
    for (auto* control : ControlsInOrder()) {
        if (control->AcceleratorLetter() != letter || !control->EffectivelyEnabled() || !control->EffectivelyVisible())
            continue;
        control->Accelerate();
        return true;
    }
    return false;
}

bool TForm::PressRole(TButtonRole role)
{
    for (auto* control : ControlsInOrder()) {
        auto* const button = dynamic_cast<TButton*>(control);
        if (!button || button->Role() != role || !button->CanBePressed())
            continue;
        button->Press();
        return true;
    }
    return false;
}

void TForm::Escape()
{
    if (!PressRole(TButtonRole::Cancel) && modal_)
        Close();
}

} // namespace alinhavo
