#pragma once

#include <libpq-fe.h>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace alinhavo::postgresql {

struct TResultCleaner {
    void operator()(PGresult* result) const { PQclear(result); }
};
using TResultPtr = std::unique_ptr<PGresult, TResultCleaner>;

/// What the server refused, as it says it.
class EPostgreSql : public std::runtime_error {
public:
    EPostgreSql(const PGresult* result, const char* message, int done = 0);

    /// Five characters; empty when the line is cut.
    const std::string& State() const { return state_; }
    const std::string& Constraint() const { return constraint_; }
    const std::string& Table() const { return table_; }
    const std::string& Column() const { return column_; }
    /// The server's message without its details.
    const std::string& Primary() const { return primary_; }
    /// How many of the message's commands were carried out before.
    int Done() const { return done_; }

private:
    std::string state_;
    std::string constraint_;
    std::string table_;
    std::string column_;
    std::string primary_;
    int done_;
};

/// Raises the EDatabaseError that the failure stands for.
[[noreturn]] void RaiseDatabaseError(const EPostgreSql& failure);

/// The values of one execution, as text; null for a null.
using TParameters = std::span<const char* const>;

/// The outer savepoint takes the inner ones along when it is released.
enum class TTransactionCommand {
    Begin,
    Commit,
    Rollback,
    OuterSavepoint,
    InnerSavepoint,
    ReleaseOuter,
    RollbackToOuter,
    RollbackToInner,
};

/// A line to the server. What is queued goes out in one message with Flush.
class TPostgreSqlConnection {
public:
    /// Another database than the URI's when `database` is given. Raises EPostgreSql.
    explicit TPostgreSqlConnection(const std::string& uri, const char* database = nullptr);

    /// Several statements at once, outside of any queue; only before the first Queue.
    void Execute(const std::string& commands);
    std::string Quoted(const std::string& name) const;

    void Queue(const char* command);
    /// A command that the constructor has prepared, which is cheaper.
    void Queue(TTransactionCommand command);
    void QueuePrepare(const std::string& name, const std::string& sql, std::span<const Oid> types);
    /// The result comes in binary form.
    void QueueRun(const char* name, TParameters parameters);
    /// Sends the queue and waits; the result of what was queued last. When one fails, those behind it are not carried out and
    /// the failure is raised.
    TResultPtr Flush();
    int QueueLength() const { return queued_; }

    bool IsAlive() const { return PQstatus(connection_.get()) == CONNECTION_OK; }
    /// From any thread.
    void Cancel();

private:
    struct TCleaner {
        void operator()(PGconn* connection) const { PQfinish(connection); }
        void operator()(PGcancel* cancel) const { PQfreeCancel(cancel); }
    };

    void BeginQueue();
    void Queued(int sent);
    TResultPtr NextResult();
    [[noreturn]] void Raise() const;

    std::unique_ptr<PGconn, TCleaner> connection_;
    std::unique_ptr<PGcancel, TCleaner> cancel_;
    int queued_ = 0;
};

} // namespace alinhavo::postgresql
