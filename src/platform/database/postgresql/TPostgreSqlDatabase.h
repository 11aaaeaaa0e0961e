#pragma once

#include "platform/database/OpenDatabase.h"
#include "platform/database/postgresql/TPostgreSqlConnection.h"
#include "platform/database/TSqlDatabase.h"
#include "platform/database/TStatementCache.h"

#include <memory>

namespace alinhavo::postgresql {

/// A connection to a PostgreSQL server.
///
/// Reads with nothing pending run by themselves. The first write begins the transaction, in the message that carries it. While
/// something is pending each statement stands behind a savepoint, set in the same message, since the server gives up the whole
/// transaction for one failure; a savepoint behind which nothing was written serves the next statement too. Savepoints are nested
/// and released several at once, which is cheaper than one by one.
class TPostgreSqlDatabase final : public TSqlDatabase {
public:
    TPostgreSqlDatabase(TDatabaseAddress address, const TDatabaseOptions& options);

    void HoldSnapshot() override;

protected:
    std::int64_t RunAtServer(const std::string& sql, const std::vector<TValue>& values, TTableData* result) override;
    void CommitAtServer() override;
    void RollbackAtServer() override;
    void CancelAtServer() override;
    void ForgetCancel() override;
    void ForgetTranslations() override;
    void EnsureConnected() override;

private:
    /// The types that the server is told of the values. Which of them lets it understand a statement depends on the statement.
    enum class TTyping {
        ByValue, ///< numbers and dates by their kind, texts as the place wants them
        ByPlace, ///< all as the place wants them
        Strict, ///< all by their kind
    };

    using TNames = std::vector<std::string>;

    /// The statement's name at the server; when it is dropped here, the server is told with the next message.
    class TServerName {
    public:
        TServerName(std::string name, TNames& dropped)
            : name_(std::move(name))
            , dropped_(dropped)
        {
        }
        ~TServerName() { dropped_.push_back(name_); }
        TServerName(const TServerName&) = delete;
        TServerName& operator=(const TServerName&) = delete;
        const std::string& Text() const { return name_; }

    private:
        std::string name_;
        TNames& dropped_;
    };

    struct TPrepared {
        std::unique_ptr<TServerName> name; ///< null until the server knows the statement
        TServerSql sql;
        TTyping typing = TTyping::ByValue;
    };

    static std::vector<Oid> TypesOf(const std::vector<TValue>& values, TTyping typing);
    TPrepared& Prepared(const std::string& sql, const std::vector<TValue>& values);
    TParameters ParametersOf(const std::vector<TValue>& values);
    /// Finds the typing that the server understands, and runs.
    TResultPtr RunTyped(TPrepared& prepared, const std::vector<TValue>& values);
    TResultPtr RunGuarded(TPrepared& prepared, const std::vector<TValue>& values);
    void QueueGuard(TSqlKind kind);
    /// The statement that has failed.
    void Undo(TSqlKind kind);
    void NoteDone(TSqlKind kind, bool touched);
    void Command(TTransactionCommand command);
    [[noreturn]] void RaiseFailure(const EPostgreSql& failure);

    TDatabaseAddress address_;
    std::unique_ptr<TPostgreSqlConnection> connection_;
    TNames dropped_;
    TStatementCache<TPrepared> statements_;
    std::size_t lastName_ = 0;
    std::string key_; ///< these three only to keep their memory
    std::vector<std::string> texts_;
    std::vector<const char*> pointers_;
    int savepoints_ = 0; ///< that are nested
    bool fresh_ = false; ///< nothing was written behind the last of them
};

void Create(const TDatabaseAddress& address);
bool Exists(const TDatabaseAddress& address);
void Drop(const TDatabaseAddress& address);
void Rename(const TDatabaseAddress& from, const TDatabaseAddress& to);
void Copy(const TDatabaseAddress& from, const TDatabaseAddress& to);

} // namespace alinhavo::postgresql
