#pragma once

#include "platform/database/firebird/TFirebirdStatement.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/TSqlDatabase.h"
#include "platform/database/TStatementCache.h"

namespace alinhavo::firebird {

/// A connection to a Firebird database, embedded or on a server.
///
/// Reads with nothing pending run in one long transaction that is read-only and read committed: it sees each commit and holds
/// back no garbage collection. The first write begins the read-write transaction, which then serves the reads as well. A failing
/// statement is undone by the engine alone.
class TFirebirdDatabase final : public TSqlDatabase {
public:
    TFirebirdDatabase(TDatabaseAddress address, TDatabaseOptions options);
    ~TFirebirdDatabase() override;

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
    using TClock = std::chrono::steady_clock;

    /// A statement of the cache. One that the engine cannot prepare with placeholders is run as text.
    using TCached = std::unique_ptr<TFirebirdStatement>;

    void Disconnect();
    [[noreturn]] void RaiseFailure(const EFirebird& failure);
    std::int64_t RunStatement(const std::string& sql, const std::vector<TValue>& values, TTableData* result);
    /// Null for a statement that is run as text.
    TFirebirdStatement* Prepared(const std::string& sql, bool hasValues);
    std::int64_t RunPrepared(TFirebirdStatement& statement, TTableData* result);
    TFirebirdStatement Prepare(TServerSql sql);
    std::int64_t RunRead(TFirebirdStatement& statement, TTableData* result);
    std::int64_t RunWrite(TFirebirdStatement& statement, TTableData* result);
    std::int64_t RunUntilFree(TFirebirdStatement& statement, TTableData* result);
    Firebird::ITransaction& CurrentTransaction();
    TTransactionPtr Begin(bool writes);
    TTransactionPtr Begin(const std::vector<unsigned char>& parameters);

    TDatabaseAddress address_;
    TDatabaseOptions options_;
    TStatus status_;
    TStatus cancelStatus_;
    TAttachmentPtr attachment_;
    TTransactionPtr reading_;
    TTransactionPtr writing_;
    TStatementCache<TCached> statements_;
};

/// Attaches to the database.
TAttachmentPtr Attach(const TDatabaseAddress& address, const TDatabaseOptions& options);
/// Creates an empty database of the system's page size, character set and order of text.
void Create(const TDatabaseAddress& address, const TDatabaseOptions& options);
void ForceWrites(const TDatabaseAddress& address, const TDatabaseOptions& options);
bool Exists(const TDatabaseAddress& address, const TDatabaseOptions& options);
void Drop(const TDatabaseAddress& address, const TDatabaseOptions& options);

} // namespace alinhavo::firebird
