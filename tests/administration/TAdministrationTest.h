#pragma once

#include "TAnsweringUser.h"
#include "TConnectedList.h"
#include "TDatabaseTest.h"

#include "host/TOrvForm.h"
#include "platform/services/THashedPasswords.h"
#include "platform/services/TSessionServices.h"

#include <memory>
#include <string>

namespace alinhavo {

/// ANA's session with real passwords, in a server whose other sessions the test makes up. MARIA is a supervisor.
class TAdministrationTest : public TDatabaseTest {
protected:
    static constexpr const char* PasswordOfAna = "linha de costura";
    static constexpr const char* PasswordOfMaria = "botão de osso";

    void SetUp() override;
    void TearDown() override;

    std::string Cell(TFragment fragment, auto&&... arguments)
    {
        return Value(*db, TStatement(fragment, std::forward<decltype(arguments)>(arguments)...));
    }
    bool IsPassword(const char* user, std::string_view password);
    /// Runs the code as a handler of the session.
    void Do(std::function<void()> code) { user.Do(*app, std::move(code)); }
    TSenhas& Senhas() { return app->Host.senhas; }
    /// What nobody may find a password in.
    std::string Log();

    TConnectedList connected;
    TAnsweringUser user;
    std::unique_ptr<TOrvApplication> app;

private:
    std::unique_ptr<TSqlDatabase> preferencesDatabase_;
    std::unique_ptr<TPreferences> preferences_;
    TConfiguration configuration_;
    THashedPasswords passwords_;
    std::unique_ptr<TSessionServices> services_;
};

} // namespace alinhavo
