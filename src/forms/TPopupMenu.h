#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"

namespace alinhavo {

class IPropertySink;
class TControl;
class TMenuItem;

/// The menu of a control, or of several (TControl::SetPopupMenu).
class TPopupMenu final : public TComponent {
public:
    TPopupMenu(TComponent& form, std::string name);
    ~TPopupMenu() override;
    /// By name, else by caption; null when there is none.
    TMenuItem* FindItem(std::string_view text) const;

    const std::vector<TMenuItem*>& Items() const { return items_; }
    /// About to open, also by a shortcut of an item: shows, hides and enables items.
    TEvent<> OnPopup;

private:
    friend class TControl;
    friend class TMenuItem;
    void Changed() const;
    std::vector<TMenuItem*> items_;
    std::vector<TControl*> users_;
};

} // namespace alinhavo
