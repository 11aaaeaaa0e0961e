#pragma once

#include "platform/database/OpenDatabase.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/roteiro/IWorld.h"
#include "platform/session/roteiro/TDatabaseCopies.h"
#include "platform/session/roteiro/TRfidBatches.h"

#include <functional>
#include <map>
#include <string>

namespace alinhavo::roteiro {

/// Tells an application of the screens there are.
using TScreenRegistry = std::function<void(TApplication&)>;

/// The world of one roteiro: a database of its own, which ends with it, and one connection beside those of the sessions.
class TDatabaseWorld final : public IWorld {
public:
    TDatabaseWorld(TDatabaseCopies& copies, TScreenRegistry registerScreens);
    ~TDatabaseWorld() override;

    void Begin(TFactory factory) override;
    void Execute(const std::string& sql) override;
    TTableData Query(const std::string& sql) override;
    void SetParameter(const TParameter& parameter) override;
    void SetSetting(const TSetting& setting) override;
    void SetNow(TDateTime now) override;
    void SetRfid(const TRfid& rfid) override;
    std::unique_ptr<IPlayedSession> LogIn(const std::string& user) override;
    std::filesystem::path Upload(const std::filesystem::path& file) override;

private:
    void WriteSettings(const std::string& user);

    TDatabaseCopies& copies_;
    TScreenRegistry registerScreens_;
    TDatabaseCopy copy_;
    std::unique_ptr<TSqlDatabase> database_;
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    TRfidBatches rfid_;
    std::map<std::string, std::string> settings_;
    TDateTime now_;
};

} // namespace alinhavo::roteiro
