#include "platform/report/TReportValue.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <cmath>

namespace alinhavo {
namespace {

std::string ShownDate(TDateTime date) { return date.HasHour() ? date.TextWithHour() : date.Text(); }

} // namespace

std::string Shown(const TValue& value)
{
    if (value.IsDate())
        return ShownDate(value.AsDateTime());
    if (!value.IsFloat())
        return value.AsString();
    return std::isfinite(value.AsFloat()) ? Replace(FloatToStr(value.AsFloat()), ".", ",") : std::string();
}

std::string Shown(const TReportValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "Sim" : "Não";
    if (const auto* markup = std::get_if<TMarkup>(&value))
        return markup->plain;
    return Shown(std::get<TValue>(value));
}

bool Holds(const TReportValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    if (std::holds_alternative<TMarkup>(value))
        return true;
    const auto& plain = std::get<TValue>(value);
    if (plain.IsInteger() || plain.IsFloat())
        return plain.AsFloat() != 0;
    return !plain.IsEmpty();
}

} // namespace alinhavo
