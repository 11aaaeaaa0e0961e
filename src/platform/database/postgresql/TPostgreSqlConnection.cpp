#include "platform/database/postgresql/TPostgreSqlConnection.h"

#include <array>
#include <utility>

namespace alinhavo::postgresql {
namespace {

constexpr int Binary = 1;

/// By their number.
constexpr std::array TransactionCommands{"BEGIN", "COMMIT", "ROLLBACK", "SAVEPOINT o", "SAVEPOINT i",
    "RELEASE SAVEPOINT o", "ROLLBACK TO SAVEPOINT o", "ROLLBACK TO SAVEPOINT i"};

std::string Field(const PGresult* result, int field)
{
    const char* text = result ? PQresultErrorField(result, field) : nullptr;
    return text ? text : "";
}

bool Succeeded(const PGresult* result)
{
    switch (PQresultStatus(result)) {
    case PGRES_COMMAND_OK:
    case PGRES_TUPLES_OK:
    case PGRES_PIPELINE_SYNC:
    case PGRES_PIPELINE_ABORTED:
        return true;
    default:
        return false;
    }
}

} // namespace

EPostgreSql::EPostgreSql(const PGresult* result, const char* message, int done)
    : std::runtime_error(message)
    , state_(Field(result, PG_DIAG_SQLSTATE))
    , constraint_(Field(result, PG_DIAG_CONSTRAINT_NAME))
    , table_(Field(result, PG_DIAG_TABLE_NAME))
    , column_(Field(result, PG_DIAG_COLUMN_NAME))
    , primary_(Field(result, PG_DIAG_MESSAGE_PRIMARY))
    , done_(done)
{
}

TPostgreSqlConnection::TPostgreSqlConnection(const std::string& uri, const char* database)
{
    const std::array keywords{"application_name", "connect_timeout", "tcp_user_timeout", "dbname", "client_encoding",
        database ? "dbname" : static_cast<const char*>(nullptr), static_cast<const char*>(nullptr)};
    const std::array<const char*, 7> values{"alinhavo", "10", "30000", uri.c_str(), "UTF8", database, nullptr};
    constexpr int ExpandUri = 1;
    connection_.reset(PQconnectdbParams(keywords.data(), values.data(), ExpandUri));
    if (!IsAlive())
        Raise();
    PQsetNoticeProcessor(
        connection_.get(), [](void*, const char*) {}, nullptr);
    cancel_.reset(PQgetCancel(connection_.get()));
    for (const auto* command : TransactionCommands)
        TResultPtr(PQprepare(connection_.get(), command, command, 0, nullptr));
}

void TPostgreSqlConnection::Execute(const std::string& commands)
{
    const TResultPtr result(PQexec(connection_.get(), commands.c_str()));
    if (!Succeeded(result.get()))
        throw EPostgreSql(result.get(), PQresultErrorMessage(result.get()));
}

std::string TPostgreSqlConnection::Quoted(const std::string& name) const
{
    const std::unique_ptr<char, decltype(&PQfreemem)> quoted(
        PQescapeIdentifier(connection_.get(), name.c_str(), name.size()), &PQfreemem);
    return quoted.get();
}

void TPostgreSqlConnection::Queue(const char* command)
{
    BeginQueue();
    Queued(PQsendQueryParams(connection_.get(), command, 0, nullptr, nullptr, nullptr, nullptr, Binary));
}

void TPostgreSqlConnection::Queue(TTransactionCommand command)
{
    QueueRun(TransactionCommands[static_cast<std::size_t>(command)], {});
}

void TPostgreSqlConnection::QueuePrepare(const std::string& name, const std::string& sql, std::span<const Oid> types)
{
    BeginQueue();
    Queued(PQsendPrepare(connection_.get(), name.c_str(), sql.c_str(), static_cast<int>(types.size()), types.data()));
}

void TPostgreSqlConnection::QueueRun(const char* name, TParameters parameters)
{
    BeginQueue();
    Queued(PQsendQueryPrepared(
        connection_.get(), name, static_cast<int>(parameters.size()), parameters.data(), nullptr, nullptr, Binary));
}

void TPostgreSqlConnection::BeginQueue()
{
    if (PQpipelineStatus(connection_.get()) == PQ_PIPELINE_OFF)
        PQenterPipelineMode(connection_.get());
}

void TPostgreSqlConnection::Queued(int sent)
{
    if (sent != 1)
        Raise();
    ++queued_;
}

// In the pipeline each queued command gives its results and a null, and the message's end a result of its own.
TResultPtr TPostgreSqlConnection::Flush()
{
    const int count = std::exchange(queued_, 0);
    if (PQpipelineSync(connection_.get()) != 1)
        Raise();
    TResultPtr last;
    TResultPtr failed;
    int done = 0;
    for (int i = 0; i < count; ++i) {
        auto result = NextResult();
        const bool succeeded = Succeeded(result.get());
        if (!failed && succeeded)
            ++done;
        if (failed || succeeded)
            last = std::move(result);
        else
            failed = std::move(result);
    }
    NextResult();
    if (failed)
        throw EPostgreSql(failed.get(), PQresultErrorMessage(failed.get()), done);
    if (!IsAlive())
        Raise();
    return last;
}

TResultPtr TPostgreSqlConnection::NextResult()
{
    TResultPtr result(PQgetResult(connection_.get()));
    if (!result || PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC)
        return result;
    while (const TResultPtr rest{PQgetResult(connection_.get())})
        ;
    return result;
}

void TPostgreSqlConnection::Cancel()
{
    std::array<char, 256> message{};
    PQcancel(cancel_.get(), message.data(), static_cast<int>(message.size()));
}

void TPostgreSqlConnection::Raise() const { throw EPostgreSql(nullptr, PQerrorMessage(connection_.get())); }

} // namespace alinhavo::postgresql
