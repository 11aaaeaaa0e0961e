#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"
#include "forms/TKey.h"

namespace alinhavo {

class TPopupMenu;

struct TMenuItemOptions {
    std::string caption = {};
    std::string shortcut = {}; ///< "Ctrl+Del": works while the focus is in a control of the menu
    bool enabled = true;
    bool visible = true;
    bool checked = false;
};

class TMenuItem final : public TComponent {
public:
    TMenuItem(TPopupMenu& menu, std::string name, TMenuItemOptions options = {});
    ~TMenuItem() override;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    const TKey& Shortcut() const { return shortcut_; }

    /// From code: runs OnClick.
    void Click() { OnClick(); }
    TEvent<> OnClick;

private:
    TPopupMenu& menu_;
    std::string caption_;
    TKey shortcut_;
    bool enabled_;
    bool visible_;
    bool checked_;
};

} // namespace alinhavo
