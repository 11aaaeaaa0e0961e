#pragma once

#include "host/TConectados.h"

#include <algorithm>
#include <string>
#include <vector>

namespace alinhavo {

/// Sessions as a test wants them; one that is ended is gone, and why is kept.
class TConnectedList final : public TConectados {
public:
    std::vector<TConectado> Sessions;
    TDateTime Now = TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0);
    std::vector<std::string> Ended; ///< "id: reason"

    std::vector<TConectado> Lista() const override { return Sessions; }
    TDateTime Agora() const override { return Now; }
    bool Encerra(std::string_view id, std::string_view motivo) override
    {
        const auto gone = std::erase_if(Sessions, [&](const auto& session) { return session.id == id; });
        if (gone > 0)
            Ended.push_back(std::string(id) + ": " + std::string(motivo));
        return gone > 0;
    }
};

} // namespace alinhavo
