#pragma once

#include "host/TOrvDatabase.h"
#include "platform/database/TDialect.h"

#include <chrono>
#include <memory>
#include <mutex>

namespace alinhavo {

/// What both drivers share: the hook before a statement, the state of the pending work, cancelling.
class TSqlDatabase : public TOrvDatabase {
public:
    TSqlDatabase(std::unique_ptr<TDialect> dialect, std::chrono::seconds lockWait);

    TTableData Open(const TStatement& statement) final;
    std::int64_t ExecSQL(const TStatement& statement) final;

    /// A whole statement as a person or a tool wrote it, its values in it. Marks and notations hold; OnStatement is not
    /// called.
    TTableData OpenText(const std::string& sql);
    std::int64_t ExecText(const std::string& sql);
    /// The same with placeholders for the values.
    TTableData OpenText(const std::string& sql, const std::vector<TValue>& values);
    std::int64_t ExecText(const std::string& sql, const std::vector<TValue>& values);

    /// From now on the connection reads what is committed at this moment, whatever others commit, and writes nothing.
    virtual void HoldSnapshot() = 0;

    void CommitRetaining() final;
    void RollbackRetaining() final;
    bool Pending() const final { return pending_; }
    std::chrono::steady_clock::time_point PendingSince() const final { return pendingSince_; }

    std::string DBLocal(std::string_view table) const final { return dialect_->LocalName(table); }
    void SetNow(TDateTime now) final;
    void Cancel() final;

    const TDialect& Dialect() const { return *dialect_; }

    /// Called with what the server itself says of a failure: for a log, not for a screen, since it may quote the statement.
    std::function<void(std::string_view)> OnServerMessage;

protected:
    /// Runs the statement and answers the rows touched. A first statement that fails, or a write that touches nothing, leaves
    /// nothing open; after any other write the driver calls NotePending.
    virtual std::int64_t RunAtServer(const std::string& sql, const std::vector<TValue>& values, TTableData* result) = 0;
    virtual void CommitAtServer() = 0;
    virtual void RollbackAtServer() = 0;
    /// From any thread, while a statement runs.
    virtual void CancelAtServer() = 0;
    /// A cancel came too late for its statement: it must not hit the next one.
    virtual void ForgetCancel() = 0;
    /// Statements mean something else from now on.
    virtual void ForgetTranslations() = 0;
    /// Opens the connection again when it was lost.
    virtual void EnsureConnected() = 0;

    void NotePending();
    void NoteNothingPending() { pending_ = false; }
    void Tell(std::string_view serverMessage) const;
    std::chrono::seconds LockWait() const { return lockWait_; }

private:
    class TRunning;

    std::int64_t Run(const std::string& sql, const std::vector<TValue>& values, TTableData* result);

    std::unique_ptr<TDialect> dialect_;
    std::chrono::seconds lockWait_;
    bool pending_ = false;
    std::chrono::steady_clock::time_point pendingSince_;

    std::mutex cancelGuard_; ///< of the two below
    bool running_ = false;
    bool cancelled_ = false;
};

} // namespace alinhavo
