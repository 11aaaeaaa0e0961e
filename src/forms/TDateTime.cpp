#include "forms/TDateTime.h"

#include "forms/text.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <chrono>
#include <optional>

namespace alinhavo {
namespace {

using std::chrono::year_month_day;

constexpr std::string_view BlankText = "  /  /    ";

std::optional<int> ParseDigits(std::string_view text)
{
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number;
}

/// Takes what stands before the separator off the text; the whole text when there is no separator.
std::string_view TakeUntil(std::string_view& text, char separator)
{
    const auto end = std::min(text.find(separator), text.size());
    const auto piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return piece;
}

/// Two digits are years from 1950 to 2049.
std::optional<int> ParseYear(std::string_view text)
{
    if (text.size() != 2 && text.size() != 4)
        return std::nullopt;
    const auto year = ParseDigits(text);
    if (!year || text.size() == 4)
        return year;
    return *year < 50 ? 2000 + *year : 1900 + *year;
}

/// A number of one or two digits.
std::optional<int> ParsePart(std::string_view text)
{
    return text.empty() || text.size() > 2 ? std::nullopt : ParseDigits(text);
}

std::optional<year_month_day> ParseDay(std::string_view text)
{
    std::array<std::string_view, 3> parts;
    if (text.find('/') == std::string_view::npos) {
        if (text.size() < 6)
            return std::nullopt;
        parts = {text.substr(0, 2), text.substr(2, 2), text.substr(4)};
    } else {
        parts[0] = TakeUntil(text, '/');
        parts[1] = TakeUntil(text, '/');
        parts[2] = text;
    }

    const auto day = ParsePart(parts[0]);
    const auto month = ParsePart(parts[1]);
    const auto year = ParseYear(parts[2]);
    if (!day || !month || !year || *year == 0)
        return std::nullopt;
    const year_month_day date(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
        std::chrono::day(static_cast<unsigned>(*day)));
    return date.ok() ? std::optional(date) : std::nullopt;
}

/// Seconds since midnight.
std::optional<int> ParseHour(std::string_view text)
{
    const bool withSeconds = text.find(':') != text.rfind(':');
    const auto hour = ParsePart(TakeUntil(text, ':'));
    const auto minute = ParsePart(TakeUntil(text, ':'));
    const auto second = withSeconds ? ParsePart(text) : std::optional(0);
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return (*hour * 60 + *minute) * 60 + *second;
}

std::int64_t DaysOf(year_month_day date) { return std::chrono::sys_days(date).time_since_epoch().count(); }

year_month_day CalendarOf(const TDateTime& date)
{
    assert(!date.IsBlank());
    return std::chrono::sys_days(std::chrono::days(date.Days()));
}

void AppendPadded(std::string& text, int number, std::size_t width)
{
    const auto digits = std::to_string(number);
    text.append(width - std::min(width, digits.size()), '0').append(digits);
}

std::string Joined(int first, int second, char separator, int third, std::size_t width)
{
    std::string text;
    AppendPadded(text, first, 2);
    text += separator;
    AppendPadded(text, second, 2);
    text += separator;
    AppendPadded(text, third, width);
    return text;
}

std::string HourText(const TDateTime& date) { return Joined(date.Hour(), date.Minute(), ':', date.Second(), 2); }

} // namespace

TDateTime TDateTime::FromDate(int year, int month, int day)
{
    const year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
        std::chrono::day(static_cast<unsigned>(day)));
    assert(date.ok() && year >= 1 && year <= 9999);
    return FromDays(DaysOf(date));
}

TDateTime TDateTime::FromDateTime(int year, int month, int day, int hour, int minute, int second)
{
    assert(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60);
    return FromSeconds(FromDate(year, month, day).Seconds() + (hour * 60 + minute) * 60 + second);
}

TDateTime TDateTime::Parse(std::string_view text)
{
    const auto trimmed = Trim(text);
    std::string_view rest = trimmed;
    const auto day = ParseDay(TakeUntil(rest, ' '));
    if (!day)
        return {};
    const auto midnight = FromDays(DaysOf(*day));
    if (rest.empty())
        return midnight;

    const auto hour = ParseHour(rest.substr(std::min(rest.find_first_not_of(' '), rest.size())));
    return hour ? FromSeconds(midnight.Seconds() + *hour) : TDateTime();
}

int TDateTime::Year() const { return static_cast<int>(CalendarOf(*this).year()); }
int TDateTime::Month() const { return static_cast<int>(static_cast<unsigned>(CalendarOf(*this).month())); }
int TDateTime::Day() const { return static_cast<int>(static_cast<unsigned>(CalendarOf(*this).day())); }
int TDateTime::Hour() const { return static_cast<int>(Floor(seconds_) / 3600); }
int TDateTime::Minute() const { return static_cast<int>(Floor(seconds_) / 60 % 60); }
int TDateTime::Second() const { return static_cast<int>(Floor(seconds_) % 60); }

int TDateTime::DayOfWeek() const
{
    assert(!IsBlank());
    const std::chrono::sys_days day{std::chrono::days(Days())};
    return static_cast<int>(std::chrono::weekday(day).iso_encoding());
}

TDateTime TDateTime::AddMonths(int months) const
{
    if (IsBlank())
        return *this;
    const auto date = CalendarOf(*this);
    const auto month = date.year() / date.month() + std::chrono::months(months);
    const std::chrono::year_month_day_last last(month.year(), std::chrono::month_day_last(month.month()));
    return FromSeconds(FromDays(DaysOf(month / std::min(date.day(), last.day()))).Seconds() + Floor(seconds_));
}

std::string TDateTime::Text() const
{
    return IsBlank() ? std::string(BlankText) : Joined(Day(), Month(), '/', Year(), 4);
}

std::string TDateTime::TextWithHour() const { return IsBlank() ? Text() : Text() + " " + HourText(*this); }

std::string TDateTime::SqlText() const
{
    if (IsBlank())
        return "";
    const auto day = Joined(Month(), Day(), '/', Year(), 4);
    return HasHour() ? day + " " + HourText(*this) : day;
}

bool ValidaData(std::string_view text) { return !TDateTime::Parse(text).IsBlank(); }

} // namespace alinhavo
