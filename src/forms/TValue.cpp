#include "forms/TValue.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <type_traits>

namespace alinhavo {
namespace {

constexpr double SecondsPerDay = 86400;

template <typename T>
int Order(const T& left, const T& right)
{
    if (left == right)
        return 0;
    return left < right ? -1 : 1;
}

} // namespace

std::string TValue::AsString() const
{
    if (IsText())
        return Text();
    if (IsInteger())
        return std::to_string(std::get<std::int64_t>(value_));
    if (IsFloat())
        return FloatToStr(std::get<double>(value_));
    if (IsNull())
        return "";
    const auto date = AsDateTime();
    return date.HasHour() ? date.TextWithHour() : date.Text();
}

double TValue::AsFloat() const
{
    if (IsText())
        return StrToFloatDef(Text(), 0);
    if (IsInteger())
        return static_cast<double>(std::get<std::int64_t>(value_));
    if (IsFloat())
        return std::get<double>(value_);
    return IsNull() ? 0 : static_cast<double>(AsDateTime().Seconds()) / SecondsPerDay;
}

std::int64_t TValue::AsInteger() const
{
    if (IsInteger())
        return std::get<std::int64_t>(value_);
    if (IsText())
        if (const auto number = ParseInteger(Text()))
            return *number;
    return Trunc(AsFloat());
}

TDateTime TValue::AsDateTime() const
{
    if (IsDate())
        return std::get<TDateTime>(value_);
    return IsText() ? TDateTime::Parse(Text()) : TDateTime();
}

int TValue::Compare(const TValue& left, const TValue& right)
{
    if (left.IsNull() || right.IsNull())
        return Order(!left.IsNull(), !right.IsNull());
    if (left.IsInteger() && right.IsInteger())
        return Order(left.AsInteger(), right.AsInteger());
    const auto isNumber = [](const TValue& value) { return value.IsInteger() || value.IsFloat(); };
    if (isNumber(left) || isNumber(right))
        return Order(left.AsFloat(), right.AsFloat());
    if (left.IsDate() && right.IsDate())
        return Order(left.AsDateTime(), right.AsDateTime());
    if (left.IsText() && right.IsText())
        return CompareText(left.Text(), right.Text());
    return CompareText(left.AsString(), right.AsString());
}

} // namespace alinhavo
