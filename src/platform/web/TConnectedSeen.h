#pragma once

#include "host/TConectados.h"

#include <string>

namespace alinhavo {

/// Who is at work, as one of the sessions sees it: it knows itself in the list, and does not end itself.
class TConnectedSeen final : public TConectados {
public:
    TConnectedSeen(TConectados& everybody, std::string own)
        : everybody_(everybody)
        , own_(std::move(own))
    {
    }

    std::vector<TConectado> Lista() const override;
    TDateTime Agora() const override { return everybody_.Agora(); }
    bool Encerra(std::string_view id, std::string_view motivo) override;

private:
    TConectados& everybody_;
    const std::string own_;
};

} // namespace alinhavo
