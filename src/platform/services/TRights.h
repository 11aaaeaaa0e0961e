#pragma once

#include "forms/TForm.h"
#include "host/TFuncoes.h"
#include "host/TOrvDatabase.h"
#include "platform/services/IPasswords.h"
#include "platform/services/TLoginGuard.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// What a user may do on which screen, and the step in which a supervisor vouches for him.
class TRights {
public:
    TRights(TOrvDatabase& database, std::string userCode, const IPasswords& passwords, TLoginGuard& guard)
        : database_(database)
        , user_(std::move(userCode))
        , passwords_(passwords)
        , guard_(guard)
    {
    }

    /// Without a word to the user. Class names count without regard to case.
    bool Allowed(std::string_view screenClass, TDireito right);
    /// Tells the user when he may not.
    bool Check(TForm& screen, std::string_view screenClass, TDireito right);
    /// Asks for a supervisor's name or code and password; tells the user when they are none, or that too many were
    /// not. False also when he gives up.
    bool AskSupervisor(TForm& screen);

private:
    /// Empty, or what the user is told.
    std::string Refusal(std::string_view nameOrCode, std::string_view password);
    bool IsSupervisor(std::string_view nameOrCode, std::string_view password);

    TOrvDatabase& database_;
    std::string user_;
    const IPasswords& passwords_;
    TLoginGuard& guard_;
};

} // namespace alinhavo
