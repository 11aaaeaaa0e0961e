#pragma once

#include "platform/database/OpenDatabase.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/THashedPasswords.h"
#include "platform/services/TLoginGuard.h"
#include "platform/services/TPreferences.h"
#include "platform/session/ISessionHost.h"

#include <filesystem>
#include <functional>
#include <mutex>

namespace alinhavo {

struct TDatabaseHostOptions {
    TDatabaseAddress address;
    TDatabaseOptions database = {};
    TConfiguration configuration = {};
    std::function<void(TApplication&)> registerScreens;
    std::filesystem::path layouts = {}; ///< the delivered templates of reports
    TDateTime today = {}; ///< of every session; blank: the clock's
};

/// The factory in a database: its users come in with their passwords, and each session has a connection of its own.
class TDatabaseHost final : public ISessionHost {
public:
    /// Raises EDatabaseError when the database cannot be opened.
    explicit TDatabaseHost(TDatabaseHostOptions options);

    std::optional<TSessionUser> LogIn(std::string_view nameOrCode, std::string_view password) override;
    std::unique_ptr<IWorkplace> Open(
        const TSessionUser& user, IEventSource& source, IView& view, TConectados& connected) override;
    TClientSettings Settings(const TSessionUser& user) override;
    void WriteSettings(const TSessionUser& user, const TClientSettings& settings) override;
    void LeaveNotice(const TSessionUser& user, std::string_view text) override;
    std::string TakeNotice(const TSessionUser& user) override;

private:
    const TDatabaseHostOptions options_;
    const THashedPasswords passwords_;
    TLoginGuard guard_; ///< of the passwords that are asked for within the sessions
    const std::string nobodysPassword_; ///< what the password of a user who does not exist is compared with
    std::unique_ptr<TSqlDatabase> preferencesDatabase_;
    TPreferences preferences_;
    std::mutex usersMutex_;
    std::unique_ptr<TSqlDatabase> users_; ///< guarded by the mutex
};

} // namespace alinhavo
