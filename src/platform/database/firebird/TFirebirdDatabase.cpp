#include "platform/database/firebird/TFirebirdDatabase.h"

#include "host/EDatabaseError.h"
#include "platform/database/databaseErrors.h"
#include "platform/database/firebird/TFirebirdDialect.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <ibase.h>
#include <thread>

namespace alinhavo::firebird {
namespace {

constexpr std::size_t CachedStatements = 300;
constexpr int PageSize = 16384;
constexpr auto ConflictPause = std::chrono::milliseconds(5);

/// How the engine's client names the place.
std::string Place(const TDatabaseAddress& address)
{
    if (address.IsEmbedded())
        return std::filesystem::absolute(address.path).string();
    return address.host + (address.port.empty() ? "" : "/" + address.port) + ":" + address.path;
}

struct TParameters {
    TParameters(const TDatabaseAddress& address, const TDatabaseOptions& options)
        : builder(Master().getUtilInterface()->getXpbBuilder(&status, Firebird::IXpbBuilder::DPB, nullptr, 0))
    {
        status.Check();
        Add(isc_dpb_lc_ctype, "UTF8");
        Add(isc_dpb_user_name, address.user.empty() ? options.user : address.user);
        const auto& password = address.user.empty() ? options.password : address.password;
        if (!password.empty())
            Add(isc_dpb_password, password);
        if (address.IsEmbedded())
            Add(isc_dpb_num_buffers, options.cachePages);
    }
    ~TParameters() { builder->dispose(); }
    TParameters(const TParameters&) = delete;
    TParameters& operator=(const TParameters&) = delete;

    void Add(unsigned char tag, int value)
    {
        builder->insertInt(&status, tag, value);
        status.Check();
    }
    void Add(unsigned char tag, const std::string& value)
    {
        builder->insertString(&status, tag, value.c_str());
        status.Check();
    }
    unsigned Length() { return builder->getBufferLength(&status); }
    const unsigned char* Buffer() { return builder->getBuffer(&status); }

    TStatus status;
    Firebird::IXpbBuilder* builder;
};

TAttachmentPtr AttachRaw(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    TParameters parameters(address, options);
    TStatus status;
    TAttachmentPtr attachment(Master().getDispatcher()->attachDatabase(
        &status, Place(address).c_str(), parameters.Length(), parameters.Buffer()));
    status.Check();
    return attachment;
}

[[noreturn]] void RaiseNotOpened(const TDatabaseAddress& address)
{
    throw EDatabaseError(
        TDatabaseErrorKind::Connection, "Não foi possível abrir o banco de dados " + address.Text() + ".");
}

} // namespace

TAttachmentPtr Attach(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    try {
        return AttachRaw(address, options);
    } catch (const EFirebird& failure) {
        if (failure.Has(isc_already_opened))
            throw EDatabaseError(TDatabaseErrorKind::Connection,
                "O banco de dados " + address.Text() + " está em uso por outro processo do Alinhavo.");
        RaiseNotOpened(address);
    }
}

void Create(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    TParameters parameters(address, options);
    parameters.Add(isc_dpb_sql_dialect, 3);
    parameters.Add(isc_dpb_page_size, PageSize);
    parameters.Add(isc_dpb_force_write, options.forcedWrites ? 1 : 0);
    parameters.Add(isc_dpb_set_db_charset, "UTF8");
    TStatus status;
    const TAttachmentPtr attachment(Master().getDispatcher()->createDatabase(
        &status, Place(address).c_str(), parameters.Length(), parameters.Buffer()));
    if (status.Failed())
        throw EDatabaseError(
            TDatabaseErrorKind::Connection, "Não foi possível criar o banco de dados " + address.Text() + ".");

    TTransactionPtr transaction(attachment->startTransaction(&status, 0, nullptr));
    status.Check();
    attachment->execute(&status, transaction.get(), 0, "ALTER CHARACTER SET UTF8 SET DEFAULT COLLATION UNICODE", 3,
        nullptr, nullptr, nullptr, nullptr);
    status.Check();
    transaction->commit(&status);
    status.Check();
    static_cast<void>(transaction.release());
}

void ForceWrites(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    TParameters parameters(address, options);
    parameters.Add(isc_dpb_force_write, 1);
    TStatus status;
    const TAttachmentPtr attachment(Master().getDispatcher()->attachDatabase(
        &status, Place(address).c_str(), parameters.Length(), parameters.Buffer()));
    if (status.Failed())
        RaiseNotOpened(address);
}

bool Exists(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (address.IsEmbedded())
        return std::filesystem::exists(address.path);
    try {
        AttachRaw(address, options);
        return true;
    } catch (const EFirebird& failure) {
        if (failure.Has(isc_io_error))
            return false;
        RaiseNotOpened(address);
    }
}

void Drop(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    auto attachment = Attach(address, options);
    TStatus status;
    attachment->dropDatabase(&status);
    if (status.Failed())
        RaiseDatabaseError(EFirebird(*(&status)));
    static_cast<void>(attachment.release());
}

TFirebirdDatabase::TFirebirdDatabase(TDatabaseAddress address, TDatabaseOptions options)
    : TSqlDatabase(std::make_unique<TFirebirdDialect>(options.company), options.lockWait)
    , address_(std::move(address))
    , options_(std::move(options))
    , statements_(CachedStatements)
{
    EnsureConnected();
}

TFirebirdDatabase::~TFirebirdDatabase() { Disconnect(); }

void TFirebirdDatabase::EnsureConnected()
{
    if (attachment_)
        return;
    attachment_ = Attach(address_, options_);
    reading_ = Begin(false);
}

void TFirebirdDatabase::Disconnect()
{
    statements_.Clear();
    writing_.reset();
    reading_.reset();
    attachment_.reset();
}

TTransactionPtr TFirebirdDatabase::Begin(bool writes)
{
    const auto wait = static_cast<std::uint32_t>(LockWait().count());
    std::vector<unsigned char> parameters{isc_tpb_version3, isc_tpb_read_committed, isc_tpb_rec_version};
    parameters.push_back(writes ? isc_tpb_write : isc_tpb_read);
    parameters.push_back(wait > 0 ? isc_tpb_wait : isc_tpb_nowait);
    if (wait > 0 && writes)
        parameters.insert(parameters.end(),
            {isc_tpb_lock_timeout, 4, static_cast<unsigned char>(wait), static_cast<unsigned char>(wait >> 8),
                static_cast<unsigned char>(wait >> 16), static_cast<unsigned char>(wait >> 24)});
    return Begin(parameters);
}

TTransactionPtr TFirebirdDatabase::Begin(const std::vector<unsigned char>& parameters)
{
    TTransactionPtr transaction(
        attachment_->startTransaction(&status_, static_cast<unsigned>(parameters.size()), parameters.data()));
    status_.Check();
    return transaction;
}

void TFirebirdDatabase::HoldSnapshot()
try {
    EnsureConnected();
    reading_ = Begin({isc_tpb_version3, isc_tpb_concurrency, isc_tpb_read, isc_tpb_wait});
} catch (const EFirebird& failure) {
    RaiseFailure(failure);
}

Firebird::ITransaction& TFirebirdDatabase::CurrentTransaction() { return writing_ ? *writing_ : *reading_; }

void TFirebirdDatabase::RaiseFailure(const EFirebird& failure)
{
    Tell(failure.what());
    if (IsConnectionLost(failure)) {
        NoteNothingPending();
        Disconnect();
    }
    RaiseDatabaseError(failure);
}

std::int64_t TFirebirdDatabase::RunAtServer(
    const std::string& sql, const std::vector<TValue>& values, TTableData* result)
{
    try {
        return RunStatement(sql, values, result);
    } catch (const EFirebird& failure) {
        RaiseFailure(failure);
    }
}

std::int64_t TFirebirdDatabase::RunStatement(
    const std::string& sql, const std::vector<TValue>& values, TTableData* result)
{
    if (auto* prepared = Prepared(sql, !values.empty()); prepared && prepared->Bind(values))
        return RunPrepared(*prepared, result);
    auto once = Prepare(Dialect().TranslateWith(sql, values));
    return RunPrepared(once, result);
}

std::int64_t TFirebirdDatabase::RunPrepared(TFirebirdStatement& statement, TTableData* result)
{
    return statement.Kind() == TSqlKind::Read ? RunRead(statement, result) : RunWrite(statement, result);
}

TFirebirdStatement* TFirebirdDatabase::Prepared(const std::string& sql, bool hasValues)
{
    if (const auto* known = statements_.Find(sql))
        return known->get();

    auto translated = Dialect().Translate(sql);
    if (translated.kind == TSqlKind::Definition) {
        statements_.Clear(); // a prepared statement keeps its tables from being changed
        return nullptr;
    }
    try {
        return statements_.Add(sql, std::make_unique<TFirebirdStatement>(Prepare(std::move(translated)))).get();
    } catch (const EFirebird& failure) {
        if (!hasValues || IsConnectionLost(failure))
            throw;
        return statements_.Add(sql, nullptr).get(); // perhaps only the placeholders are not understood
    }
}

TFirebirdStatement TFirebirdDatabase::Prepare(TServerSql sql)
{
    return TFirebirdStatement(*attachment_, CurrentTransaction(), std::move(sql), status_);
}

std::int64_t TFirebirdDatabase::RunRead(TFirebirdStatement& statement, TTableData* result)
{
    return statement.Run(CurrentTransaction(), result);
}

std::int64_t TFirebirdDatabase::RunWrite(TFirebirdStatement& statement, TTableData* result)
{
    if (!writing_)
        writing_ = Begin(true);
    try {
        const auto touched = RunUntilFree(statement, result);
        if (touched > 0 || result || statement.Kind() == TSqlKind::Definition)
            NotePending();
        if (!Pending())
            writing_.reset();
        return touched;
    } catch (const EFirebird&) {
        if (!Pending())
            writing_.reset();
        throw;
    }
}

// The engine gives up a row that another user changed and committed after this statement had read it. The statement is undone
// then, and meets the new state when it runs again.
std::int64_t TFirebirdDatabase::RunUntilFree(TFirebirdStatement& statement, TTableData* result)
{
    const auto end = TClock::now() + LockWait();
    for (;;) {
        try {
            if (result)
                *result = TTableData();
            return statement.Run(*writing_, result);
        } catch (const EFirebird& failure) {
            if (!failure.Has(isc_update_conflict) || failure.Has(isc_lock_timeout) || TClock::now() >= end)
                throw;
            std::this_thread::sleep_for(ConflictPause);
        }
    }
}

void TFirebirdDatabase::CommitAtServer()
{
    writing_->commit(&status_);
    if (status_.Failed()) {
        const EFirebird failure(*(&status_));
        RaiseFailure(failure);
    }
    static_cast<void>(writing_.release());
}

void TFirebirdDatabase::RollbackAtServer() { writing_.reset(); }

void TFirebirdDatabase::CancelAtServer() { attachment_->cancelOperation(&cancelStatus_, fb_cancel_raise); }

void TFirebirdDatabase::ForgetCancel()
{
    if (!attachment_)
        return;
    attachment_->cancelOperation(&status_, fb_cancel_disable);
    attachment_->cancelOperation(&status_, fb_cancel_enable);
}

void TFirebirdDatabase::ForgetTranslations() { statements_.Clear(); }

} // namespace alinhavo::firebird
