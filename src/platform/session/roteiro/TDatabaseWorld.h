#pragma once

#include "platform/services/TConfiguration.h"
#include "platform/services/TPreferences.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/roteiro/IWorld.h"
#include "platform/session/roteiro/TDatabaseCopies.h"
#include "platform/session/roteiro/TReportNotes.h"
#include "platform/session/roteiro/TRfidBatches.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace alinhavo::roteiro {

/// Tells an application of the screens there are.
using TScreenRegistry = std::function<void(TApplication&)>;

/// The world of one roteiro: a database of its own, which ends with it, and a connection beside those of its sessions.
class TDatabaseWorld final : public IWorld {
public:
    TDatabaseWorld(TDatabaseCopies& copies, TScreenRegistry registerScreens, TReportFolders reports);
    ~TDatabaseWorld() override;

    void Begin(TFactory factory) override;
    void Execute(const std::string& sql) override;
    TTableData Query(const std::string& sql) override { return database_->OpenText(sql); }
    std::vector<std::string> Violations() override;
    void SetParameter(const TParameter& parameter) override;
    void SetSetting(const TSetting& setting) override;
    void SetNow(TDateTime now) override;
    void SetRfid(const TRfid& rfid) override;
    std::unique_ptr<IPlayedSession> LogIn(const std::string& user) override;
    std::filesystem::path Upload(const std::filesystem::path& file) override;

private:
    void Commit(const std::function<void()>& write);
    void WriteSetting(const TSetting& setting, const std::string& user);

    TDatabaseCopies& copies_;
    TScreenRegistry registerScreens_;
    TReportFolders reports_;
    std::filesystem::path folder_;
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    TRfidBatches rfid_;
    std::vector<TSetting> settings_;
    std::vector<std::string> users_; ///< codes of those who have logged in
    TDateTime now_;
    std::optional<TDatabaseAddress> address_;
    std::unique_ptr<TSqlDatabase> database_;
    std::unique_ptr<TPreferences> preferences_;
};

} // namespace alinhavo::roteiro
