#pragma once

#include "TAnsweringUser.h"
#include "TDatabaseTest.h"

#include "host/TOrvForm.h"
#include "platform/services/TSessionServices.h"
#include "platform/services/TTrustedPasswords.h"

#include <memory>
#include <string>

namespace alinhavo {

/// One user's session, ANA's, over a database with the schema alone. Its files lie in a folder of its own.
class TServicesTest : public TDatabaseTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Set-up, committed at once.
    void Sql(const std::string& text);
    std::string Cell(TFragment fragment, auto&&... arguments)
    {
        return Value(*db, TStatement(fragment, std::forward<decltype(arguments)>(arguments)...));
    }
    /// What the code, run as a handler, throws: its text, or "".
    std::string Failure(const std::function<void()>& code);
    THostFunctions& Funcoes() { return services->Functions(); }
    /// Runs the code as a handler of the session.
    void Do(std::function<void()> code) { user.Do(*app, std::move(code)); }

    std::unique_ptr<TSqlDatabase> preferencesDatabase;
    std::unique_ptr<TPreferences> preferences;
    std::filesystem::path folder;
    TConfiguration configuration;
    TTrustedPasswords passwords;
    TAnsweringUser user;
    std::unique_ptr<TSessionServices> services;
    std::unique_ptr<TOrvApplication> app;
    std::unique_ptr<TOrvForm> form;
};

} // namespace alinhavo
