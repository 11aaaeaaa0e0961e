#include "forms/TPopupMenu.h"

#include "forms/TControl.h"
#include "forms/text.h"
#include "forms/TMenuItem.h"

namespace alinhavo {

TPopupMenu::TPopupMenu(TComponent& form, std::string name)
    : TComponent(form, std::move(name))
{
}

TPopupMenu::~TPopupMenu()
{
    for (auto* user : users_)
        user->popupMenu_ = nullptr;
}

TMenuItem* TPopupMenu::FindItem(std::string_view text) const
{
    for (auto* item : items_)
        if (SameText(item->Name(), text))
            return item;
    for (auto* item : items_)
        if (item->Caption() == text || Replace(item->Caption(), "&", "") == text)
            return item;
    return nullptr;
}

void TPopupMenu::Changed() const
{
    for (auto* user : users_)
        user->Changed();
}

} // namespace alinhavo
