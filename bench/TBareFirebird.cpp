#include "bench/TBareFirebird.h"

#include "platform/database/firebird/TFirebirdDatabase.h"

#include <cstring>
#include <ibase.h>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr ISC_DATE DayZero = 40587; ///< 1970-01-01 in the engine's count of days
constexpr std::int64_t SecondsPerDay = 86400;

template <class T>
void Put(unsigned char* at, T value)
{
    std::memcpy(at, &value, sizeof value);
}

} // namespace

TBareFirebird::TBareFirebird(const TDatabaseAddress& address, const TDialect& dialect)
    : dialect_(dialect)
    , attachment_(firebird::Attach(address, {}))
    , reading_(Begin(false))
{
}

firebird::TTransactionPtr TBareFirebird::Begin(bool writes)
{
    const unsigned char parameters[] = {isc_tpb_version3, isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_wait,
        static_cast<unsigned char>(writes ? isc_tpb_write : isc_tpb_read)};
    firebird::TTransactionPtr transaction(attachment_->startTransaction(&status_, sizeof parameters, parameters));
    status_.Check();
    return transaction;
}

void TBareFirebird::Learn(const std::vector<TStatement>& trace)
{
    steps_.clear();
    for (const auto& statement : trace) {
        auto& prepared = Prepared(statement.Text());
        steps_.push_back({&prepared, Message(prepared, statement.Values())});
    }
}

TBareFirebird::TPrepared& TBareFirebird::Prepared(const std::string& sql)
{
    const auto known = prepared_.find(sql);
    if (known != prepared_.end())
        return known->second;

    using Firebird::IStatement;
    TPrepared prepared;
    const auto translated = dialect_.Translate(sql);
    prepared.writes = translated.kind == TSqlKind::Write;
    prepared.statement.reset(attachment_->prepare(
        &status_, reading_.get(), 0, translated.text.c_str(), 3, IStatement::PREPARE_PREFETCH_METADATA));
    status_.Check();
    prepared.hasCursor = (prepared.statement->getFlags(&status_) & IStatement::FLAG_HAS_CURSOR) != 0;
    prepared.input.reset(prepared.statement->getInputMetadata(&status_));
    prepared.output.reset(prepared.statement->getOutputMetadata(&status_));
    status_.Check();
    for (unsigned i = 0; i < prepared.input->getCount(&status_); ++i)
        prepared.parameters.push_back(
            {prepared.input->getType(&status_, i) & ~1U, prepared.input->getLength(&status_, i),
                prepared.input->getOffset(&status_, i), prepared.input->getNullOffset(&status_, i)});
    prepared.row.resize(prepared.output->getMessageLength(&status_));
    status_.Check();
    return prepared_.emplace(sql, std::move(prepared)).first->second;
}

std::vector<unsigned char> TBareFirebird::Message(const TPrepared& prepared, const std::vector<TValue>& values)
{
    firebird::TStatus status;
    std::vector<unsigned char> message(prepared.input->getMessageLength(&status));
    for (std::size_t i = 0; i < values.size(); ++i)
        Write(prepared.parameters[i], values[i], message.data());
    return message;
}

void TBareFirebird::Write(const TParameter& parameter, const TValue& value, unsigned char* message)
{
    auto* at = message + parameter.offset;
    Put<ISC_SHORT>(message + parameter.nullOffset, value.IsNull() ? -1 : 0);
    if (value.IsNull())
        return;
    switch (parameter.type) {
    case SQL_VARYING: {
        const auto text = value.IsDate() ? value.AsDateTime().SqlText() : value.AsString();
        if (text.size() > parameter.length)
            throw std::runtime_error("a value is longer than its place: " + text);
        Put(at, static_cast<ISC_USHORT>(text.size()));
        std::memcpy(at + sizeof(ISC_USHORT), text.data(), text.size());
        break;
    }
    case SQL_SHORT:
        Put(at, static_cast<ISC_SHORT>(value.AsInteger()));
        break;
    case SQL_LONG:
        Put(at, static_cast<ISC_LONG>(value.AsInteger()));
        break;
    case SQL_INT64:
        Put(at, static_cast<ISC_INT64>(value.AsInteger()));
        break;
    case SQL_DOUBLE:
        Put(at, value.AsFloat());
        break;
    case SQL_TYPE_DATE:
        Put(at, static_cast<ISC_DATE>(value.AsDateTime().Seconds() / SecondsPerDay) + DayZero);
        break;
    default:
        throw std::runtime_error("no value of this type is known here");
    }
}

void TBareFirebird::Replay()
{
    firebird::TTransactionPtr writing;
    for (auto& step : steps_) {
        if (step.prepared->writes && !writing)
            writing = Begin(true);
        Run(step, writing ? *writing : *reading_);
    }
    if (!writing)
        return;
    writing->commit(&status_);
    status_.Check();
    static_cast<void>(writing.release());
}

void TBareFirebird::Run(TStep& step, Firebird::ITransaction& transaction)
{
    auto& prepared = *step.prepared;
    if (!prepared.hasCursor) {
        prepared.statement->execute(
            &status_, &transaction, prepared.input.get(), step.message.data(), nullptr, nullptr);
        return status_.Check();
    }
    auto* cursor = prepared.statement->openCursor(
        &status_, &transaction, prepared.input.get(), step.message.data(), prepared.output.get(), 0);
    status_.Check();
    while (cursor->fetchNext(&status_, prepared.row.data()) == Firebird::IStatus::RESULT_OK)
        ;
    status_.Check();
    cursor->close(&status_);
    status_.Check();
}

} // namespace alinhavo
