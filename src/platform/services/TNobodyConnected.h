#pragma once

#include "host/TConectados.h"

namespace alinhavo {

/// For a session that no server holds: there is nobody else.
class TNobodyConnected final : public TConectados {
public:
    std::vector<TConectado> Lista() const override { return {}; }
    TDateTime Agora() const override { return {}; }
    bool Encerra(std::string_view, std::string_view) override { return false; }
};

} // namespace alinhavo
