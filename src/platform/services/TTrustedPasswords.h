#pragma once

#include "platform/services/IPasswords.h"

namespace alinhavo {

/// Every password is good: for the scripted user, who names a supervisor and has no password to type.
class TTrustedPasswords final : public IPasswords {
public:
    bool Matches(std::string_view, std::string_view) const override { return true; }
};

} // namespace alinhavo
