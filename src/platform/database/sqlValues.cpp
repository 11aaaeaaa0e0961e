#include "platform/database/sqlValues.h"

#include "forms/text.h"
#include "platform/database/databaseErrors.h"

#include <charconv>

namespace alinhavo {
namespace {

/// "DD/MM/YYYY" of a day in one of the two forms of SQL; the empty text otherwise.
std::string ScreenDay(std::string_view day)
{
    if (const auto parts = Explode(day, "/"); parts.size() == 3)
        return parts[1] + "/" + parts[0] + "/" + parts[2];
    if (const auto parts = Explode(day, "-"); parts.size() == 3)
        return parts[2] + "/" + parts[1] + "/" + parts[0];
    return {};
}

} // namespace

TDateTime SqlDate(std::string_view text)
{
    const auto trimmed = Trim(text);
    const auto blank = std::min(trimmed.find(' '), trimmed.size());
    const auto date = TDateTime::Parse(ScreenDay(trimmed.substr(0, blank)) + trimmed.substr(blank));
    if (date.IsBlank())
        RaiseNoDate();
    return date;
}

double SqlNumber(std::string_view text)
{
    const auto trimmed = Trim(text);
    double number = 0;
    const auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    if (error != std::errc() || end != trimmed.data() + trimmed.size())
        RaiseNoNumber();
    return number;
}

void CheckText(std::string_view text)
{
    if (!ValidUtf8(text) || text.find('\0') != std::string_view::npos)
        RaiseNoUtf8();
}

} // namespace alinhavo
