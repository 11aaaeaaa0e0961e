#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace alinhavo {

/// A calendar date, with or without the hour, without a time zone; or blank, as a date field is before it is filled.
/// A blank date is below every other one.
class TDateTime {
public:
    constexpr TDateTime() = default;

    /// Midnight of the day. The arguments must form a real date between the years 1 and 9999.
    static TDateTime FromDate(int year, int month, int day);
    static TDateTime FromDateTime(int year, int month, int day, int hour, int minute, int second);
    /// Seconds since 1970-01-01 00:00 of the calendar. Any value but the lowest.
    static constexpr TDateTime FromSeconds(std::int64_t seconds) { return TDateTime(seconds); }
    static constexpr TDateTime FromDays(std::int64_t days) { return TDateTime(days * SecondsPerDay); }
    /// "DD/MM/YYYY", "D/M/YY" or "DDMMYY[YY]", with or without " HH:MM[:SS]"; two digits are years from 1950 to
    /// 2049. Blank when the text is no real date.
    static TDateTime Parse(std::string_view text);

    constexpr bool IsBlank() const { return seconds_ == Blank; }
    constexpr std::int64_t Seconds() const { return seconds_; }
    /// Days since 1970-01-01, rounded down. Not for a blank date.
    constexpr std::int64_t Days() const { return (seconds_ - Floor(seconds_)) / SecondsPerDay; }
    /// The same day at midnight; blank stays blank.
    constexpr TDateTime Date() const { return IsBlank() ? *this : TDateTime(seconds_ - Floor(seconds_)); }
    constexpr bool HasHour() const { return !IsBlank() && Floor(seconds_) != 0; }

    int Year() const;
    int Month() const;
    int Day() const;
    int Hour() const;
    int Minute() const;
    int Second() const;
    /// 1 Monday to 7 Sunday. Not for a blank date.
    int DayOfWeek() const;

    /// The date some days later (or earlier); blank stays blank.
    constexpr TDateTime AddDays(std::int64_t days) const
    {
        return IsBlank() ? *this : TDateTime(seconds_ + days * SecondsPerDay);
    }
    /// The same day of another month, or the last day of that month when it is shorter.
    TDateTime AddMonths(int months) const;

    /// "DD/MM/YYYY", or "  /  /    " when blank.
    std::string Text() const;
    /// "DD/MM/YYYY HH:MM:SS", or "  /  /    " when blank.
    std::string TextWithHour() const;
    /// "MM/DD/YYYY" as SQL text carries dates, with " HH:MM:SS" when there is an hour; "" when blank.
    std::string SqlText() const;

    friend constexpr auto operator<=>(const TDateTime&, const TDateTime&) = default;

private:
    static constexpr std::int64_t SecondsPerDay = 86400;
    static constexpr std::int64_t Blank = std::numeric_limits<std::int64_t>::min();

    constexpr explicit TDateTime(std::int64_t seconds)
        : seconds_(seconds)
    {
    }
    static constexpr std::int64_t Floor(std::int64_t seconds)
    {
        const std::int64_t rest = seconds % SecondsPerDay;
        return rest < 0 ? rest + SecondsPerDay : rest;
    }

    std::int64_t seconds_ = Blank;
};

/// True when the text, day, month and year, is a real date.
bool ValidaData(std::string_view text);

} // namespace alinhavo
