#pragma once

#include <string_view>

namespace alinhavo {

/// Tells whether a typed password is the one that a stored text (ACESSO_USUARIOS.SENHA) was made of.
class IPasswords {
public:
    virtual ~IPasswords() = default;
    virtual bool Matches(std::string_view stored, std::string_view password) const = 0;
};

} // namespace alinhavo
