#pragma once

#include "platform/database/TSqlDatabase.h"

#include <functional>
#include <memory>

namespace alinhavo {

/// A connection that tells of each moment at which something may go wrong: before and after each statement, commit and rollback.
class TWatchedDatabase final : public TOrvDatabase {
public:
    explicit TWatchedDatabase(std::unique_ptr<TSqlDatabase> database)
        : database_(std::move(database))
    {
    }

    TTableData Open(const TStatement& statement) override;
    std::int64_t ExecSQL(const TStatement& statement) override;
    void CommitRetaining() override;
    void RollbackRetaining() override;
    bool Pending() const override { return database_->Pending(); }
    std::chrono::steady_clock::time_point PendingSince() const override { return database_->PendingSince(); }
    std::string DBLocal(std::string_view table) const override { return database_->DBLocal(table); }
    void SetNow(TDateTime now) override { database_->SetNow(now); }
    void Cancel() override { database_->Cancel(); }

    TSqlDatabase& Connection() { return *database_; }

    std::function<void()> OnMoment;
    std::function<void()> OnCommitted; ///< something pending was committed

private:
    void Moment() const;

    std::unique_ptr<TSqlDatabase> database_;
};

} // namespace alinhavo
