#pragma once

#include "forms/TPanel.h"

namespace alinhavo {

/// A panel with a frame and its caption.
class TGroupBox final : public TPanel {
public:
    using TPanel::TPanel;
    std::string_view Kind() const override { return "group"; }
};

} // namespace alinhavo
