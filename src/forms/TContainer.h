#pragma once

#include "forms/TControl.h"

namespace alinhavo {

/// A control that holds others, in the order of their making: a form, a panel, a tab.
class TContainer : public TControl {
public:
    using TControl::TControl;

    const std::vector<TControl*>& Controls() const { return controls_; }

protected:
    bool Interactive() const override { return false; }

private:
    friend class TControl;
    std::vector<TControl*> controls_;
};

} // namespace alinhavo
