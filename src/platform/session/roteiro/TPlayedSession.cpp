#include "platform/session/roteiro/TPlayedSession.h"

#include "platform/database/OpenDatabase.h"

#include <utility>

namespace alinhavo::roteiro {

TPlayedSession::TPlayedSession(
    std::unique_ptr<TSqlDatabase> database, TSessionUser user, const std::string& company, const TGround& ground)
    : database_(std::move(database))
    , reports_(ground.reports, ground.configuration.SharedRoot())
{
    database_->OnStatement = [this](const TStatement& statement) { failures_.Count(statement); };
    thread_ = std::make_unique<TSessionThread>([&](IEventSource& source) {
        auto session = std::make_unique<TSession>(source, nullptr,
            TSessionSetup{
                .database = *database_,
                .preferences = ground.preferences,
                .configuration = ground.configuration,
                .user = std::move(user),
                .company = company,
                .passwords = ground.passwords,
                .openDatabase
                = [](const std::string& address) { return OpenDatabase(TDatabaseAddress::Parse(address)); },
                .rfid = ground.rfid,
                .reports = &reports_,
            });
        ground.registerScreens(*session);
        session->SetNow(ground.now);
        return session;
    });
}

} // namespace alinhavo::roteiro
