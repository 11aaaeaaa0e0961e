#pragma once

#include "forms/TDateTime.h"
#include "forms/TTableData.h"
#include "platform/session/roteiro/TLine.h"
#include "platform/session/TSessionThread.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace alinhavo::roteiro {

/// One user's session in a roteiro.
class IPlayedSession {
public:
    virtual ~IPlayedSession() = default;
    virtual TSessionThread& Thread() = 0;
    /// Rows as the session itself sees them, with what it has pending.
    virtual TTableData Query(const std::string& sql) = 0;
    virtual void PlanFailure(const TPlannedFailure& failure) = 0;
    /// Name of the last report asked for; "" when none was.
    virtual std::string LastReport() = 0;
    /// The texts of the last report.
    virtual std::string LastReportText() = 0;
};

/// What stands around the applications of a roteiro. Failures are exceptions with a text.
class IWorld {
public:
    virtual ~IWorld() = default;
    /// A fresh database for what follows. Nobody is logged in.
    virtual void Begin(TFactory factory) = 0;
    /// Committed at once.
    virtual void Execute(const std::string& sql) = 0;
    /// Rows as others see them: what is committed.
    virtual TTableData Query(const std::string& sql) = 0;
    /// What is committed against the rules of movement, one text for each row that breaks one. Empty: all is well.
    virtual std::vector<std::string> Violations() = 0;
    virtual void SetParameter(const TParameter& parameter) = 0;
    /// For all users.
    virtual void SetSetting(const TSetting& setting) = 0;
    /// What day it is for statements and for those who log in from now on.
    virtual void SetNow(TDateTime now) = 0;
    virtual void SetRfid(const TRfid& rfid) = 0;
    virtual std::unique_ptr<IPlayedSession> LogIn(const std::string& user) = 0;
    /// A copy of a file, for an application to work with.
    virtual std::filesystem::path Upload(const std::filesystem::path& file) = 0;
};

} // namespace alinhavo::roteiro
