#include "platform/database/firebird/TFirebirdStatement.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/EDatabaseError.h"
#include "platform/database/databaseErrors.h"
#include "platform/database/sqlValues.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <ibase.h>

namespace alinhavo::firebird {
namespace {

using Firebird::IMessageMetadata;
using Firebird::IStatement;

constexpr unsigned Dialect3 = 3;
constexpr unsigned Utf8 = 4;
constexpr unsigned BytesOfUtf8 = 4;
constexpr ISC_DATE DayZero = 40587; ///< 1970-01-01 in the engine's count of days
constexpr std::int64_t SecondsPerDay = 86400;

template <class T>
T Read(const unsigned char* at)
{
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

template <class T>
void Write(unsigned char* at, T value)
{
    std::memcpy(at, &value, sizeof value);
}

TWireType TypeOf(unsigned wire, int scale)
{
    switch (wire) {
    case SQL_VARYING:
    case SQL_TEXT:
        return TWireType::Text;
    case SQL_SHORT:
    case SQL_LONG:
    case SQL_INT64:
        return scale == 0 ? TWireType::Whole : TWireType::Double;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return TWireType::Double;
    case SQL_TYPE_DATE:
        return TWireType::Date;
    case SQL_TIMESTAMP:
        return TWireType::Timestamp;
    case SQL_BLOB:
        return TWireType::Blob;
    case SQL_BOOLEAN:
        return TWireType::Boolean;
    default:
        return TWireType::Text;
    }
}

std::int64_t ReadWhole(unsigned wire, const unsigned char* at)
{
    switch (wire) {
    case SQL_SHORT:
        return Read<ISC_SHORT>(at);
    case SQL_LONG:
        return Read<ISC_LONG>(at);
    case SQL_BOOLEAN:
        return Read<FB_BOOLEAN>(at);
    default:
        return Read<ISC_INT64>(at);
    }
}

double ReadDouble(unsigned wire, int scale, const unsigned char* at)
{
    if (wire == SQL_DOUBLE)
        return Read<double>(at);
    if (wire == SQL_FLOAT)
        return static_cast<double>(Read<float>(at));
    return static_cast<double>(ReadWhole(wire, at)) / std::pow(10.0, -scale);
}

TFieldKind KindOf(TWireType type)
{
    switch (type) {
    case TWireType::Whole:
    case TWireType::Boolean:
        return TFieldKind::Integer;
    case TWireType::Double:
        return TFieldKind::Float;
    case TWireType::Date:
        return TFieldKind::Date;
    case TWireType::Timestamp:
        return TFieldKind::DateTime;
    default:
        return TFieldKind::Text;
    }
}

/// As the engine would read the text of a value that is no text in the place of one.
std::string TextOf(const TValue& value) { return value.IsDate() ? value.AsDateTime().SqlText() : value.AsString(); }

} // namespace

TFirebirdStatement::TFirebirdStatement(
    Firebird::IAttachment& attachment, Firebird::ITransaction& transaction, TServerSql sql, TStatus& status)
    : sql_(std::move(sql))
    , attachment_(attachment)
    , status_(status)
{
    statement_.reset(attachment.prepare(&status_, &transaction, static_cast<unsigned>(sql_.text.size()),
        sql_.text.c_str(), Dialect3, IStatement::PREPARE_PREFETCH_METADATA));
    status_.Check();
    hasCursor_ = (statement_->getFlags(&status_) & IStatement::FLAG_HAS_CURSOR) != 0;
    status_.Check();
    DescribeInput();
    DescribeOutput();
}

TFirebirdStatement::TItem TFirebirdStatement::Describe(IMessageMetadata& metadata, unsigned index, TStatus& status)
{
    TItem item{};
    item.wire = metadata.getType(&status, index) & ~1U;
    item.scale = metadata.getScale(&status, index);
    item.type = TypeOf(item.wire, item.scale);
    item.offset = metadata.getOffset(&status, index);
    item.nullOffset = metadata.getNullOffset(&status, index);
    item.length = metadata.getLength(&status, index);
    item.isUtf8 = (metadata.getCharSet(&status, index) & 0xFF) == Utf8;
    item.name = metadata.getAlias(&status, index);
    status.Check();
    return item;
}

// Texts go as VARCHAR of the described length, whole numbers as 64 bits, other numbers as double.
void TFirebirdStatement::DescribeInput()
{
    const TMetadataPtr described(statement_->getInputMetadata(&status_));
    status_.Check();
    const auto count = described->getCount(&status_);
    if (count == 0)
        return;

    const std::unique_ptr<Firebird::IMetadataBuilder, TReleaser> builder(described->getBuilder(&status_));
    status_.Check();
    for (unsigned i = 0; i < count; ++i) {
        switch (Describe(*described, i, status_).type) {
        case TWireType::Text:
            builder->setType(&status_, i, SQL_VARYING + 1);
            builder->setCharSet(&status_, i, Utf8);
            break;
        case TWireType::Whole:
            builder->setType(&status_, i, SQL_INT64 + 1);
            builder->setLength(&status_, i, sizeof(ISC_INT64));
            break;
        case TWireType::Double:
            builder->setType(&status_, i, SQL_DOUBLE + 1);
            builder->setLength(&status_, i, sizeof(double));
            builder->setScale(&status_, i, 0);
            break;
        default:
            break;
        }
        status_.Check();
    }
    inputMetadata_.reset(builder->getMetadata(&status_));
    status_.Check();
    for (unsigned i = 0; i < count; ++i)
        inputs_.push_back(Describe(*inputMetadata_, i, status_));
    input_.resize(inputMetadata_->getMessageLength(&status_));
    status_.Check();
}

void TFirebirdStatement::DescribeOutput()
{
    outputMetadata_.reset(statement_->getOutputMetadata(&status_));
    status_.Check();
    const auto count = outputMetadata_->getCount(&status_);
    for (unsigned i = 0; i < count; ++i)
        outputs_.push_back(Describe(*outputMetadata_, i, status_));
    output_.resize(outputMetadata_->getMessageLength(&status_));
    status_.Check();
}

bool TFirebirdStatement::Bind(const std::vector<TValue>& values)
{
    if (values.size() != inputs_.size())
        throw EDatabaseError(TDatabaseErrorKind::Syntax, "the statement has another number of values");
    for (std::size_t i = 0; i < values.size(); ++i) {
        Write<ISC_SHORT>(&input_[inputs_[i].nullOffset], values[i].IsNull() ? -1 : 0);
        if (!values[i].IsNull() && !BindValue(inputs_[i], values[i]))
            return false;
    }
    return true;
}

bool TFirebirdStatement::BindValue(const TItem& item, const TValue& value)
{
    switch (item.type) {
    case TWireType::Text:
        return BindText(item, value);
    case TWireType::Whole:
        return BindWhole(item, value);
    case TWireType::Double:
        return BindDouble(item, value);
    case TWireType::Date:
    case TWireType::Timestamp:
        return BindDate(item, value);
    default:
        return false;
    }
}

bool TFirebirdStatement::BindText(const TItem& item, const TValue& value)
{
    const std::string converted = value.IsText() ? std::string() : TextOf(value);
    std::string_view text = value.IsText() ? std::string_view(value.Text()) : converted;
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    CheckText(text);
    const auto characters = item.length / BytesOfUtf8;
    if (text.size() > characters && (text.size() > item.length || Length(text) > characters))
        return false;
    Write<ISC_USHORT>(&input_[item.offset], static_cast<ISC_USHORT>(text.size()));
    std::memcpy(&input_[item.offset + sizeof(ISC_USHORT)], text.data(), text.size());
    return true;
}

bool TFirebirdStatement::BindWhole(const TItem& item, const TValue& value)
{
    if (value.IsDate())
        RaiseNoNumber();
    if (value.IsFloat() && value.AsFloat() != std::trunc(value.AsFloat()))
        return false;
    const auto number = value.IsText() ? ParseInteger(value.Text()) : std::optional(value.AsInteger());
    if (!number)
        RaiseNoNumber();
    Write<ISC_INT64>(&input_[item.offset], *number);
    return true;
}

bool TFirebirdStatement::BindDouble(const TItem& item, const TValue& value)
{
    if (value.IsDate())
        RaiseNoNumber();
    Write<double>(&input_[item.offset], value.IsText() ? SqlNumber(value.Text()) : value.AsFloat());
    return true;
}

bool TFirebirdStatement::BindDate(const TItem& item, const TValue& value)
{
    if (!value.IsDate() && !value.IsText())
        RaiseNoDate();
    const auto date = value.IsDate() ? value.AsDateTime() : SqlDate(value.Text());
    ISC_TIMESTAMP stamp{};
    stamp.timestamp_date = static_cast<ISC_DATE>(date.Days()) + DayZero;
    stamp.timestamp_time = static_cast<ISC_TIME>((date.Seconds() - date.Date().Seconds()) * ISC_TIME_SECONDS_PRECISION);
    if (item.type == TWireType::Timestamp)
        Write(&input_[item.offset], stamp);
    else
        Write(&input_[item.offset], stamp.timestamp_date);
    return true;
}

std::int64_t TFirebirdStatement::Run(Firebird::ITransaction& transaction, TTableData* result)
{
    if (result)
        AddColumns(*result);
    if (hasCursor_) {
        TTableData ignored;
        if (!result)
            AddColumns(ignored);
        Fetch(transaction, result ? *result : ignored);
        return 0;
    }
    statement_->execute(
        &status_, &transaction, inputMetadata_.get(), input_.data(), outputMetadata_.get(), output_.data());
    status_.Check();
    const auto touched = static_cast<std::int64_t>(statement_->getAffectedRecords(&status_));
    status_.Check();
    if (result && !outputs_.empty() && touched > 0) {
        std::vector<TColumnData*> columns;
        for (std::size_t i = 0; i < outputs_.size(); ++i)
            columns.push_back(&result->Column(i));
        AppendRow(transaction, columns);
    }
    return touched;
}

void TFirebirdStatement::AddColumns(TTableData& result) const
{
    for (const auto& item : outputs_) {
        const bool isText = item.type == TWireType::Text;
        const int characters = static_cast<int>(item.isUtf8 ? item.length / BytesOfUtf8 : item.length);
        result.AddColumn(item.name, KindOf(item.type), isText ? characters : 0);
    }
}

void TFirebirdStatement::Fetch(Firebird::ITransaction& transaction, TTableData& result)
{
    std::vector<TColumnData*> columns;
    for (std::size_t i = 0; i < outputs_.size(); ++i)
        columns.push_back(&result.Column(i));

    TCursorPtr cursor(
        statement_->openCursor(&status_, &transaction, inputMetadata_.get(), input_.data(), outputMetadata_.get(), 0));
    status_.Check();
    while (cursor->fetchNext(&status_, output_.data()) == Firebird::IStatus::RESULT_OK)
        AppendRow(transaction, columns);
    status_.Check();
    cursor->close(&status_);
    if (!status_.Failed())
        static_cast<void>(cursor.release());
    status_.Check();
}

void TFirebirdStatement::AppendRow(Firebird::ITransaction& transaction, std::span<TColumnData* const> columns)
{
    for (std::size_t i = 0; i < outputs_.size(); ++i)
        AppendCell(transaction, outputs_[i], *columns[i]);
}

void TFirebirdStatement::AppendCell(Firebird::ITransaction& transaction, const TItem& item, TColumnData& column)
{
    if (Read<ISC_SHORT>(&output_[item.nullOffset]) != 0)
        return column.AppendNull();
    const auto* at = &output_[item.offset];
    switch (item.type) {
    case TWireType::Text:
        return AppendText(CellText(item), column);
    case TWireType::Blob:
        return AppendText(BlobText(transaction, item), column);
    case TWireType::Whole:
    case TWireType::Boolean:
        return column.AppendInteger(ReadWhole(item.wire, at));
    case TWireType::Double:
        return column.AppendFloat(ReadDouble(item.wire, item.scale, at));
    case TWireType::Date:
        return column.AppendDate(TDateTime::FromDays(Read<ISC_DATE>(at) - DayZero));
    case TWireType::Timestamp: {
        const auto stamp = Read<ISC_TIMESTAMP>(at);
        const std::int64_t days = stamp.timestamp_date - DayZero;
        return column.AppendDate(
            TDateTime::FromSeconds(days * SecondsPerDay + stamp.timestamp_time / ISC_TIME_SECONDS_PRECISION));
    }
    }
}

void TFirebirdStatement::AppendText(std::string_view text, TColumnData& column) const
{
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (sql_.lists.empty())
        column.AppendText(text);
    else
        column.AppendText(FoldLists(text, sql_.lists));
}

std::string_view TFirebirdStatement::CellText(const TItem& item) const
{
    const auto* at = reinterpret_cast<const char*>(&output_[item.offset]);
    if (item.wire == SQL_VARYING)
        return {at + sizeof(ISC_USHORT), Read<ISC_USHORT>(&output_[item.offset])};
    return {at, item.length};
}

std::string TFirebirdStatement::BlobText(Firebird::ITransaction& transaction, const TItem& item)
{
    auto id = Read<ISC_QUAD>(&output_[item.offset]);
    const TBlobPtr blob(attachment_.openBlob(&status_, &transaction, &id, 0, nullptr));
    status_.Check();

    std::string text;
    std::array<char, 4096> buffer{};
    for (;;) {
        unsigned length = 0;
        const auto answer = blob->getSegment(&status_, buffer.size(), buffer.data(), &length);
        status_.Check();
        text.append(buffer.data(), length);
        if (answer == Firebird::IStatus::RESULT_NO_DATA)
            return text;
    }
}

} // namespace alinhavo::firebird
