#pragma once

#include "platform/database/TSqlDatabase.h"
#include "platform/session/roteiro/IWorld.h"
#include "platform/session/roteiro/TPlannedFailures.h"
#include "platform/session/roteiro/TReportNotes.h"
#include "platform/session/TSession.h"

namespace alinhavo::roteiro {

/// A session over a database, with a connection of its own.
class TPlayedSession final : public IPlayedSession {
public:
    /// What it stands on, its connection and its reports aside.
    struct TGround {
        TPreferences& preferences;
        const TConfiguration& configuration;
        const IPasswords& passwords;
        TOrvRFID* rfid; ///< null: the reader service itself
        std::function<void(TApplication&)> registerScreens;
        TDateTime now; ///< blank: the clock's
        TReportFolders reports;
    };

    TPlayedSession(
        std::unique_ptr<TSqlDatabase> database, TSessionUser user, const std::string& company, const TGround& ground);

    TSessionThread& Thread() override { return *thread_; }
    TTableData Query(const std::string& sql) override { return database_->OpenText(sql); }
    void PlanFailure(const TPlannedFailure& failure) override { failures_.Plan(failure); }
    std::string LastReport() override { return reports_.Layout(); }
    std::string LastReportText() override { return reports_.Text(); }

private:
    std::unique_ptr<TSqlDatabase> database_;
    TPlannedFailures failures_;
    TReportNotes reports_;
    std::unique_ptr<TSessionThread> thread_;
};

} // namespace alinhavo::roteiro
