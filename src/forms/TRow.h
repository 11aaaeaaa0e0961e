#pragma once

#include "forms/TPanel.h"

namespace alinhavo {

/// A panel that arranges its controls in a line, and goes on in the next line where they do not fit.
class TRow final : public TPanel {
public:
    using TPanel::TPanel;
    std::string_view Kind() const override { return "row"; }
};

} // namespace alinhavo
