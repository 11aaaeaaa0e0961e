#pragma once

#include "forms/TContainer.h"

namespace alinhavo {

struct TPanelOptions {
    std::string caption = {};
    std::string hint = {};
    bool enabled = true;
    bool visible = true;
};

/// Holds controls one below the other. Disabling or hiding it does so to all that it holds.
class TPanel : public TContainer {
public:
    TPanel(TContainer& parent, std::string name, TPanelOptions options = {});
    std::string_view Kind() const override { return "panel"; }
};

} // namespace alinhavo
