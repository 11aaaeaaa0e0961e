#include "platform/database/postgresql/TPostgreSqlDatabase.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/EDatabaseError.h"
#include "platform/database/databaseErrors.h"
#include "platform/database/postgresql/postgresqlResult.h"
#include "platform/database/postgresql/TPostgreSqlDialect.h"
#include "platform/database/sqlValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace alinhavo::postgresql {
namespace {

constexpr std::size_t CachedStatements = 300;
constexpr int NestedSavepoints = 16;
constexpr const char* AdministrationDatabase = "postgres";

bool FitsInt4(std::int64_t number)
{
    return number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
}

Oid TypeOf(const TValue& value)
{
    if (value.IsInteger())
        return FitsInt4(value.AsInteger()) ? oid::Int4 : oid::Int8;
    if (value.IsFloat())
        return oid::Float8;
    if (value.IsDate())
        return value.AsDateTime().HasHour() ? oid::Timestamp : oid::Date;
    return oid::Unknown;
}

/// Which statement is prepared for these values: one text may stand for several, by the kinds of its values.
void WriteKey(const std::string& sql, const std::vector<TValue>& values, std::string& key)
{
    key = sql;
    key += '\0';
    for (const auto& value : values)
        key += static_cast<char>('A' + TypeOf(value) % 64);
}

/// Without the blanks at its end, which a column does not hold: its own text, or one written to `buffer`.
const char* TextOf(const TValue& value, std::string& buffer)
{
    if (!value.IsText()) {
        buffer = value.IsDate() ? value.AsDateTime().SqlText() : value.AsString();
        return buffer.c_str();
    }
    CheckText(value.Text());
    if (!value.Text().ends_with(' '))
        return value.Text().c_str();
    buffer.assign(value.Text(), 0, value.Text().find_last_not_of(' ') + 1);
    return buffer.c_str();
}

/// The server did not find out what the values are.
bool IsOfTyping(const std::string& state)
{
    constexpr std::array states{"42P18", "42883", "42804", "42P08", "42725", "42846"};
    return std::ranges::find(states, state) != states.end();
}

[[noreturn]] void RaiseNotOpened(const TDatabaseAddress& address)
{
    throw EDatabaseError(
        TDatabaseErrorKind::Connection, "Não foi possível abrir o banco de dados " + address.Text() + ".");
}

TPostgreSqlConnection Administration(const TDatabaseAddress& address)
{
    try {
        return TPostgreSqlConnection(address.uri, AdministrationDatabase);
    } catch (const EPostgreSql&) {
        RaiseNotOpened(address);
    }
}

void Administrate(const TDatabaseAddress& address, auto command)
{
    auto connection = Administration(address);
    try {
        connection.Execute(command(connection));
    } catch (const EPostgreSql& failure) {
        if (failure.State() == "42P04")
            throw EDatabaseError(TDatabaseErrorKind::Duplicate, "the database exists already");
        RaiseDatabaseError(failure);
    }
}

} // namespace

TPostgreSqlDatabase::TPostgreSqlDatabase(TDatabaseAddress address, const TDatabaseOptions& options)
    : TSqlDatabase(std::make_unique<TPostgreSqlDialect>(options.company), options.lockWait)
    , address_(std::move(address))
    , statements_(CachedStatements)
{
    EnsureConnected();
}

void TPostgreSqlDatabase::EnsureConnected()
{
    if (connection_ && connection_->IsAlive())
        return;
    ForgetTranslations();
    dropped_.clear();
    try {
        connection_ = std::make_unique<TPostgreSqlConnection>(address_.uri);
        const auto wait = std::max<long long>(1, std::chrono::milliseconds(LockWait()).count());
        connection_->Execute("SET lock_timeout = " + std::to_string(wait)
            + "; SET datestyle = 'ISO, MDY'; SET standard_conforming_strings = on; SET jit = off;"
              " SET default_transaction_isolation = 'read committed';"
              " SET search_path = alinhavo, pg_catalog, emp"
            + LowerName(Dialect().Company()) + ", public");
    } catch (const EPostgreSql& failure) {
        connection_.reset();
        Tell(failure.what());
        RaiseNotOpened(address_);
    }
}

// The server takes the snapshot with the first statement.
void TPostgreSqlDatabase::HoldSnapshot()
{
    EnsureConnected();
    try {
        connection_->Queue("BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY");
        connection_->Queue("SELECT 1");
        connection_->Flush();
    } catch (const EPostgreSql& failure) {
        RaiseFailure(failure);
    }
}

void TPostgreSqlDatabase::RaiseFailure(const EPostgreSql& failure)
{
    Tell(failure.what());
    if (!connection_->IsAlive())
        NoteNothingPending();
    RaiseDatabaseError(failure);
}

std::int64_t TPostgreSqlDatabase::RunAtServer(
    const std::string& sql, const std::vector<TValue>& values, TTableData* result)
{
    auto& prepared = Prepared(sql, values);
    const auto kind = prepared.sql.kind;
    const auto answer = RunTyped(prepared, values);
    const std::string_view count = PQcmdTuples(answer.get());
    std::int64_t touched = 0;
    std::from_chars(count.data(), count.data() + count.size(), touched);
    NoteDone(kind, touched > 0 || kind == TSqlKind::Definition);
    if (result)
        *result = ReadResult(*answer);
    return kind == TSqlKind::Read ? 0 : touched;
}

TPostgreSqlDatabase::TPrepared& TPostgreSqlDatabase::Prepared(const std::string& sql, const std::vector<TValue>& values)
{
    WriteKey(sql, values, key_);
    if (auto* known = statements_.Find(key_))
        return *known;
    TPrepared prepared;
    prepared.sql = Dialect().Translate(sql);
    return statements_.Add(key_, std::move(prepared));
}

/// Valid as long as the values, until it is asked for again.
TParameters TPostgreSqlDatabase::ParametersOf(const std::vector<TValue>& values)
{
    texts_.resize(std::max(texts_.size(), values.size()));
    pointers_.clear();
    for (std::size_t i = 0; i < values.size(); ++i)
        pointers_.push_back(values[i].IsNull() ? nullptr : TextOf(values[i], texts_[i]));
    return pointers_;
}

TResultPtr TPostgreSqlDatabase::RunTyped(TPrepared& prepared, const std::vector<TValue>& values)
{
    for (const auto typing : {TTyping::ByValue, TTyping::ByPlace}) {
        if (!prepared.name)
            prepared.typing = typing;
        try {
            return RunGuarded(prepared, values);
        } catch (const EPostgreSql& failure) {
            Undo(prepared.sql.kind);
            if (prepared.name || !IsOfTyping(failure.State()))
                RaiseFailure(failure);
        }
    }
    try {
        prepared.typing = TTyping::Strict;
        return RunGuarded(prepared, values);
    } catch (const EPostgreSql& failure) {
        Undo(prepared.sql.kind);
        RaiseFailure(failure);
    }
}

TResultPtr TPostgreSqlDatabase::RunGuarded(TPrepared& prepared, const std::vector<TValue>& values)
{
    const auto parameters = ParametersOf(values);
    for (const auto& name : std::exchange(dropped_, {}))
        connection_->Queue(("DEALLOCATE " + name).c_str());
    QueueGuard(prepared.sql.kind);
    if (prepared.name) {
        connection_->QueueRun(prepared.name->Text().c_str(), parameters);
        return connection_->Flush();
    }

    const auto name = "s" + std::to_string(++lastName_);
    const int before = connection_->QueueLength();
    connection_->QueuePrepare(name, prepared.sql.text, TypesOf(values, prepared.typing));
    connection_->QueueRun(name.c_str(), parameters);
    try {
        auto answer = connection_->Flush();
        prepared.name = std::make_unique<TServerName>(name, dropped_);
        return answer;
    } catch (const EPostgreSql& failure) {
        if (failure.Done() > before)
            prepared.name = std::make_unique<TServerName>(name, dropped_);
        throw;
    }
}

std::vector<Oid> TPostgreSqlDatabase::TypesOf(const std::vector<TValue>& values, TTyping typing)
{
    std::vector<Oid> types;
    for (const auto& value : values) {
        const bool isStrictText = typing == TTyping::Strict && value.IsText();
        types.push_back(typing == TTyping::ByPlace ? oid::Unknown : isStrictText ? oid::Text : TypeOf(value));
    }
    return types;
}

void TPostgreSqlDatabase::QueueGuard(TSqlKind kind)
{
    if (!Pending()) {
        if (kind != TSqlKind::Read)
            connection_->Queue(TTransactionCommand::Begin);
        return;
    }
    if (fresh_)
        return;
    if (savepoints_ == NestedSavepoints) {
        connection_->Queue(TTransactionCommand::ReleaseOuter);
        savepoints_ = 0;
    }
    connection_->Queue(savepoints_ == 0 ? TTransactionCommand::OuterSavepoint : TTransactionCommand::InnerSavepoint);
    ++savepoints_;
    fresh_ = true;
}

void TPostgreSqlDatabase::Undo(TSqlKind kind)
{
    if (!connection_->IsAlive())
        return;
    if (Pending())
        Command(savepoints_ == 1 ? TTransactionCommand::RollbackToOuter : TTransactionCommand::RollbackToInner);
    else if (kind != TSqlKind::Read)
        Command(TTransactionCommand::Rollback);
}

void TPostgreSqlDatabase::NoteDone(TSqlKind kind, bool touched)
{
    if (kind == TSqlKind::Read)
        return;
    if (!touched) {
        if (!Pending())
            Command(TTransactionCommand::Rollback);
        return;
    }
    if (!Pending())
        savepoints_ = 0;
    fresh_ = false;
    NotePending();
}

void TPostgreSqlDatabase::Command(TTransactionCommand command)
{
    try {
        connection_->Queue(command);
        connection_->Flush();
    } catch (const EPostgreSql& failure) {
        RaiseFailure(failure);
    }
}

void TPostgreSqlDatabase::CommitAtServer() { Command(TTransactionCommand::Commit); }

void TPostgreSqlDatabase::RollbackAtServer()
{
    if (connection_->IsAlive())
        Command(TTransactionCommand::Rollback);
}

void TPostgreSqlDatabase::CancelAtServer() { connection_->Cancel(); }

// The signal may be on its way still: a statement without effect draws it.
void TPostgreSqlDatabase::ForgetCancel()
{
    try {
        RunAtServer("SELECT 1", {}, nullptr);
    } catch (const EDatabaseError&) {
        return;
    }
}

void TPostgreSqlDatabase::ForgetTranslations() { statements_.Clear(); }

void Create(const TDatabaseAddress& address)
{
    Administrate(address, [&](const TPostgreSqlConnection& connection) {
        return "CREATE DATABASE " + connection.Quoted(address.name)
            + " TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C.UTF-8' LOCALE_PROVIDER icu ICU_LOCALE 'und'";
    });
}

bool Exists(const TDatabaseAddress& address)
{
    auto connection = Administration(address);
    connection.QueuePrepare("", "SELECT 1 FROM pg_database WHERE datname = $1", {});
    connection.QueueRun("", std::array{address.name.c_str()});
    return PQntuples(connection.Flush().get()) > 0;
}

void Drop(const TDatabaseAddress& address)
{
    Administrate(address,
        [&](const TPostgreSqlConnection& connection) { return "DROP DATABASE " + connection.Quoted(address.name); });
}

void Rename(const TDatabaseAddress& from, const TDatabaseAddress& to)
{
    Administrate(to, [&](const TPostgreSqlConnection& connection) {
        return "ALTER DATABASE " + connection.Quoted(from.name) + " RENAME TO " + connection.Quoted(to.name);
    });
}

void Copy(const TDatabaseAddress& from, const TDatabaseAddress& to)
{
    Administrate(to, [&](const TPostgreSqlConnection& connection) {
        return "CREATE DATABASE " + connection.Quoted(to.name) + " TEMPLATE " + connection.Quoted(from.name);
    });
}

} // namespace alinhavo::postgresql
