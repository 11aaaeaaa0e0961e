#pragma once

#include "host/TSenhas.h"
#include "platform/services/IPasswords.h"
#include "platform/services/TLoginGuard.h"

#include <string>

namespace alinhavo {

class TOrvDatabase;

/// The passwords in ACESSO_USUARIOS, for one user's screens. What it refers to outlives it.
class TUserPasswords final : public TSenhas {
public:
    TUserPasswords(TOrvDatabase& database, const IPasswords& passwords, TLoginGuard& guard, std::string userCode)
        : database_(database)
        , passwords_(passwords)
        , guard_(guard)
        , user_(std::move(userCode))
    {
    }

    std::string Confere(std::string_view senha) override;
    void Grava(std::string_view usuario, std::string_view senha) override;

private:
    TOrvDatabase& database_;
    const IPasswords& passwords_;
    TLoginGuard& guard_;
    std::string user_;
};

} // namespace alinhavo
