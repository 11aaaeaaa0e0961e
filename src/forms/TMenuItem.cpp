#include "forms/TMenuItem.h"

#include "forms/TPopupMenu.h"

namespace alinhavo {

TMenuItem::TMenuItem(TPopupMenu& menu, std::string name, TMenuItemOptions options)
    : TComponent(*menu.Owner(), std::move(name))
    , menu_(menu)
    , caption_(std::move(options.caption))
    , shortcut_(TKey::Parse(options.shortcut))
    , enabled_(options.enabled)
    , visible_(options.visible)
    , checked_(options.checked)
{
    menu.items_.push_back(this);
}

TMenuItem::~TMenuItem() { std::erase(menu_.items_, this); }

void TMenuItem::SetCaption(std::string_view caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    menu_.Changed();
}

void TMenuItem::SetEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    menu_.Changed();
}

void TMenuItem::SetVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    menu_.Changed();
}

void TMenuItem::SetChecked(bool checked)
{
    if (checked_ == checked)
        return;
    checked_ = checked;
    menu_.Changed();
}

} // namespace alinhavo
