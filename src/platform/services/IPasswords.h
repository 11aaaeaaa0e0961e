#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// Makes the text that is stored for a password (ACESSO_USUARIOS.SENHA), and tells whether it was made of a typed one.
class IPasswords {
public:
    virtual ~IPasswords() = default;
    virtual bool Matches(std::string_view stored, std::string_view password) const = 0;
    virtual std::string Hash(std::string_view password) const = 0;
};

} // namespace alinhavo
