#pragma once

#include "platform/services/IPasswords.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// Passwords kept as Argon2id hashes, with their salt and cost in the text.
class THashedPasswords final : public IPasswords {
public:
    THashedPasswords();

    /// Takes some tenths of a second and tens of megabytes, on purpose. A stored text that is no hash matches nothing.
    bool Matches(std::string_view stored, std::string_view password) const override;
    /// Another text each time. std::runtime_error when there is not enough memory.
    std::string Hash(std::string_view password) const override;
};

} // namespace alinhavo
