#include "platform/database/postgresql/postgresqlResult.h"

#include "platform/database/TDialect.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace alinhavo::postgresql {
namespace {

constexpr std::int64_t DaysTo2000 = 10957; ///< the server's day zero, from 1970-01-01
constexpr std::int64_t SecondsPerDay = 86400;
constexpr std::int64_t Microseconds = 1'000'000;
constexpr int HeaderOfSize = 4; ///< what a column's modifier holds beside its width

template <class T>
T FromNetwork(const char* at)
{
    std::array<char, sizeof(T)> bytes{};
    std::reverse_copy(at, at + sizeof(T), bytes.begin());
    return std::bit_cast<T>(bytes);
}

/// The server's decimal number: groups of four digits.
struct TNumeric {
    explicit TNumeric(const char* at)
        : count(FromNetwork<std::int16_t>(at))
        , weight(FromNetwork<std::int16_t>(at + 2))
        , sign(FromNetwork<std::uint16_t>(at + 4))
        , scale(FromNetwork<std::int16_t>(at + 6))
        , groups(at + 8)
    {
    }

    double Value() const
    {
        constexpr std::uint16_t Negative = 0x4000;
        constexpr std::uint16_t NoNumber = 0xC000;
        if ((sign & NoNumber) == NoNumber)
            return std::numeric_limits<double>::quiet_NaN();
        std::string text = sign == Negative ? "-0" : "0";
        for (int i = 0; i < count; ++i) {
            const auto group = std::to_string(
                FromNetwork<std::int16_t>(groups + sizeof(std::int16_t) * static_cast<std::size_t>(i)));
            text.append(4 - group.size(), '0').append(group);
        }
        text += "e" + std::to_string(4 * (weight - count + 1));
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }

    std::int16_t count;
    std::int16_t weight;
    std::uint16_t sign;
    std::int16_t scale;
    const char* groups;
};

/// Whole numbers only, as far as this result goes: the type alone does not tell.
bool IsWhole(const PGresult& result, int column)
{
    const int rows = PQntuples(&result);
    for (int row = 0; row < rows; ++row) {
        if (PQgetisnull(&result, row, column))
            continue;
        const TNumeric number(PQgetvalue(&result, row, column));
        if (number.scale != 0 || std::abs(number.Value()) > 9e15)
            return false;
    }
    return rows > 0;
}

TFieldKind KindOf(const PGresult& result, int column)
{
    switch (PQftype(&result, column)) {
    case oid::Bool:
    case oid::Int2:
    case oid::Int4:
    case oid::Int8:
        return TFieldKind::Integer;
    case oid::Float4:
    case oid::Float8:
        return TFieldKind::Float;
    case oid::Numeric:
        return IsWhole(result, column) ? TFieldKind::Integer : TFieldKind::Float;
    case oid::Date:
        return TFieldKind::Date;
    case oid::Timestamp:
    case oid::TimestampTz:
        return TFieldKind::DateTime;
    default:
        return TFieldKind::Text;
    }
}

/// The server makes names small that stand without quotes; a name in quotes that has a capital stays.
std::string NameOf(const PGresult& result, int column)
{
    const std::string name = PQfname(&result, column);
    return name == LowerName(name) ? UpperName(name) : name;
}

int SizeOf(const PGresult& result, int column)
{
    const int modifier = PQfmod(&result, column);
    return PQftype(&result, column) == oid::Varchar && modifier > HeaderOfSize ? modifier - HeaderOfSize : 0;
}

TDateTime ReadTimestamp(const char* at)
{
    const auto microseconds = FromNetwork<std::int64_t>(at);
    const auto seconds = microseconds / Microseconds - (microseconds % Microseconds < 0 ? 1 : 0);
    return TDateTime::FromSeconds(seconds + DaysTo2000 * SecondsPerDay);
}

void AppendNumeric(const char* at, TColumnData& column)
{
    const auto value = TNumeric(at).Value();
    if (column.Kind() == TFieldKind::Integer)
        column.AppendInteger(static_cast<std::int64_t>(value));
    else
        column.AppendFloat(value);
}

void AppendCell(Oid type, const char* at, int length, TColumnData& column)
{
    switch (type) {
    case oid::Bool:
        return column.AppendInteger(*at);
    case oid::Int2:
        return column.AppendInteger(FromNetwork<std::int16_t>(at));
    case oid::Int4:
        return column.AppendInteger(FromNetwork<std::int32_t>(at));
    case oid::Int8:
        return column.AppendInteger(FromNetwork<std::int64_t>(at));
    case oid::Float4:
        return column.AppendFloat(static_cast<double>(FromNetwork<float>(at)));
    case oid::Float8:
        return column.AppendFloat(FromNetwork<double>(at));
    case oid::Numeric:
        return AppendNumeric(at, column);
    case oid::Date:
        return column.AppendDate(TDateTime::FromDays(FromNetwork<std::int32_t>(at) + DaysTo2000));
    case oid::Timestamp:
    case oid::TimestampTz:
        return column.AppendDate(ReadTimestamp(at));
    default: {
        const std::string_view text(at, static_cast<std::size_t>(length));
        return column.AppendText(text.substr(0, text.find_last_not_of(' ') + 1));
    }
    }
}

} // namespace

TTableData ReadResult(const PGresult& result)
{
    TTableData data;
    const int rows = PQntuples(&result);
    for (int i = 0; i < PQnfields(&result); ++i)
        data.AddColumn(NameOf(result, i), KindOf(result, i), SizeOf(result, i));
    data.Reserve(static_cast<std::size_t>(rows));

    std::vector<std::pair<Oid, TColumnData*>> columns;
    for (int i = 0; i < PQnfields(&result); ++i)
        columns.emplace_back(PQftype(&result, i), &data.Column(static_cast<std::size_t>(i)));
    for (int row = 0; row < rows; ++row) {
        int i = 0;
        for (const auto& [type, column] : columns) {
            const int length = PQgetlength(&result, row, i);
            if (length == 0 && PQgetisnull(&result, row, i))
                column->AppendNull();
            else
                AppendCell(type, PQgetvalue(&result, row, i), length, *column);
            ++i;
        }
    }
    return data;
}

} // namespace alinhavo::postgresql
