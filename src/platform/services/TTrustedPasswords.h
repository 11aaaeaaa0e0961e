#pragma once

#include "platform/services/IPasswords.h"

namespace alinhavo {

/// Every password is good, and all are stored alike: for the scripted user, who has none that is worth keeping.
class TTrustedPasswords final : public IPasswords {
public:
    bool Matches(std::string_view, std::string_view) const override { return true; }
    std::string Hash(std::string_view) const override { return "de roteiro"; }
};

} // namespace alinhavo
