#include "platform/database/TSqlDatabase.h"

namespace alinhavo {

/// Stands for the time in which a statement may be cancelled.
class TSqlDatabase::TRunning {
public:
    explicit TRunning(TSqlDatabase& database)
        : database_(database)
    {
        const std::lock_guard lock(database_.cancelGuard_);
        database_.running_ = true;
    }
    ~TRunning()
    {
        bool cancelled = false;
        {
            const std::lock_guard lock(database_.cancelGuard_);
            database_.running_ = false;
            cancelled = std::exchange(database_.cancelled_, false);
        }
        if (cancelled)
            database_.ForgetCancel();
    }
    TRunning(const TRunning&) = delete;
    TRunning& operator=(const TRunning&) = delete;

private:
    TSqlDatabase& database_;
};

TSqlDatabase::TSqlDatabase(std::unique_ptr<TDialect> dialect, std::chrono::seconds lockWait)
    : dialect_(std::move(dialect))
    , lockWait_(lockWait)
{
}

TTableData TSqlDatabase::Open(const TStatement& statement)
{
    if (OnStatement)
        OnStatement(statement);
    TTableData result;
    Run(statement.Text(), statement.Values(), &result);
    return result;
}

std::int64_t TSqlDatabase::ExecSQL(const TStatement& statement)
{
    if (OnStatement)
        OnStatement(statement);
    return Run(statement.Text(), statement.Values(), nullptr);
}

TTableData TSqlDatabase::OpenText(const std::string& sql)
{
    TTableData result;
    Run(sql, {}, &result);
    return result;
}

std::int64_t TSqlDatabase::ExecText(const std::string& sql) { return Run(sql, {}, nullptr); }

TTableData TSqlDatabase::OpenText(const std::string& sql, const std::vector<TValue>& values)
{
    TTableData result;
    Run(sql, values, &result);
    return result;
}

std::int64_t TSqlDatabase::ExecText(const std::string& sql, const std::vector<TValue>& values)
{
    return Run(sql, values, nullptr);
}

std::int64_t TSqlDatabase::Run(const std::string& sql, const std::vector<TValue>& values, TTableData* result)
{
    EnsureConnected();
    const TRunning running(*this);
    return RunAtServer(sql, values, result);
}

void TSqlDatabase::CommitRetaining()
{
    if (!pending_)
        return;
    CommitAtServer();
    pending_ = false;
}

void TSqlDatabase::RollbackRetaining()
{
    if (!pending_)
        return;
    pending_ = false;
    RollbackAtServer();
}

void TSqlDatabase::SetNow(TDateTime now)
{
    dialect_->SetNow(now);
    ForgetTranslations();
}

void TSqlDatabase::Cancel()
{
    const std::lock_guard lock(cancelGuard_);
    if (!running_)
        return;
    cancelled_ = true;
    CancelAtServer();
}

void TSqlDatabase::NotePending()
{
    if (!pending_)
        pendingSince_ = std::chrono::steady_clock::now();
    pending_ = true;
}

void TSqlDatabase::Tell(std::string_view serverMessage) const
{
    if (OnServerMessage)
        OnServerMessage(serverMessage);
}

} // namespace alinhavo
