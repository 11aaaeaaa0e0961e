#include "forms/numbers.h"

#include "forms/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace alinhavo {
namespace {

constexpr int SignificantDigits = 15;
constexpr double FirstBeyondDigits = 1e15;

/// Holds every double without an exponent: 309 digits before the point, or 324 zeros and 17 digits behind it.
using TBuffer = std::array<char, 400>;

std::string Written(const TBuffer& buffer, std::to_chars_result result)
{
    return {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())};
}

/// The number as the digits 0.DDD times ten to the power of `point`.
struct TDecimal {
    std::string digits;
    int point = 0;
};

TDecimal DecimalOf(double magnitude)
{
    TBuffer buffer;
    auto text = Written(buffer,
        std::to_chars(buffer.begin(), buffer.end(), magnitude, std::chars_format::scientific, SignificantDigits - 1));
    const auto mark = text.find('e');
    const int exponent = std::stoi(text.substr(mark + 1));
    text.resize(mark);
    text.erase(1, 1);
    return {text, exponent + 1};
}

/// Adds one to the last digit; the number may become a digit longer.
void Increment(std::string& digits)
{
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

/// All digits of the number down to the last decimal, without the point; at least one before it.
std::string RoundedDigits(double magnitude, int decimals)
{
    auto [digits, point] = DecimalOf(magnitude);
    const int kept = point + decimals;
    if (kept < 0)
        return std::string(decimals + 1, '0');

    const bool up = kept < std::ssize(digits) && digits[kept] >= '5';
    digits.resize(kept, '0');
    if (up)
        Increment(digits);
    if (std::ssize(digits) <= decimals)
        digits.insert(0, decimals + 1 - digits.size(), '0');
    return digits;
}

std::string FormatMagnitude(double magnitude, int decimals)
{
    TBuffer buffer;
    std::string digits = magnitude < FirstBeyondDigits
        ? RoundedDigits(magnitude, decimals)
        : Written(buffer, std::to_chars(buffer.begin(), buffer.end(), magnitude, std::chars_format::fixed, 0))
            + std::string(decimals, '0');
    if (decimals > 0)
        digits.insert(digits.size() - decimals, ".");
    return digits;
}

bool AreDigits(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// Digits, or digits in groups of three apart by points; without the points.
std::optional<std::string> WithoutGroups(std::string_view text)
{
    if (text.find('.') == std::string_view::npos)
        return std::string(text);

    const auto groups = Explode(text, ".");
    const auto isGroup = [](const std::string& group) { return group.size() == 3; };
    if (groups.front().empty() || groups.front().size() > 3 || !std::all_of(groups.begin() + 1, groups.end(), isGroup))
        return std::nullopt;
    return Replace(text, ".", "");
}

/// Digits with or without a point among them, from whatever decimal mark the text has.
std::optional<std::string> PlainNumber(std::string_view text)
{
    const bool comma = text.find(',') != std::string_view::npos;
    const auto mark = text.find(comma ? ',' : '.');
    const auto whole = comma ? WithoutGroups(text.substr(0, mark)) : std::string(text.substr(0, mark));
    const auto fraction = mark == std::string_view::npos ? "" : text.substr(mark + 1);
    if (!whole || (whole->empty() && fraction.empty()) || !AreDigits(*whole) || !AreDigits(fraction))
        return std::nullopt;
    return "0" + *whole + "." + std::string(fraction) + "0";
}

/// Takes the sign off; true when it was a minus.
bool TakeSign(std::string_view& text)
{
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return false;
    const bool minus = text.front() == '-';
    text.remove_prefix(1);
    return minus;
}

} // namespace

std::int64_t Trunc(double value)
{
    using limits = std::numeric_limits<std::int64_t>;
    constexpr double beyond = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= beyond)
        return limits::max();
    if (value <= -beyond)
        return limits::min();
    return static_cast<std::int64_t>(value);
}

std::string FormatFloat(double value, int decimals)
{
    if (!std::isfinite(value))
        return FloatToStr(value);
    const auto text = FormatMagnitude(std::abs(value), std::max(decimals, 0));
    const bool isZero = text.find_first_not_of("0.") == std::string::npos;
    return value < 0 && !isZero ? "-" + text : text;
}

double RoundTo(double value, int decimals)
{
    return std::isfinite(value) ? StrToFloatDef(FormatFloat(value, decimals), value) : value;
}

std::string FloatToStr(double value)
{
    if (std::abs(value) < FirstBeyondDigits && value == std::trunc(value))
        return std::to_string(static_cast<std::int64_t>(value));
    TBuffer buffer;
    return Written(buffer, std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed));
}

std::string FormatDecimal(double value, int decimals)
{
    if (!std::isfinite(value))
        return FloatToStr(value);
    auto text = FormatFloat(value, decimals);
    const auto mark = std::min(text.find('.'), text.size());
    if (mark < text.size())
        text[mark] = ',';
    const std::size_t first = text.front() == '-' ? 1 : 0;
    for (auto place = mark; place > first + 3;)
        text.insert(place -= 3, 1, '.');
    return text;
}

std::optional<double> ParseFloat(std::string_view text)
{
    const auto trimmed = Trim(text);
    std::string_view rest = trimmed;
    const bool minus = TakeSign(rest);
    const auto plain = PlainNumber(rest);
    if (!plain)
        return std::nullopt;

    double number = 0;
    const auto result = std::from_chars(plain->data(), plain->data() + plain->size(), number);
    if (result.ec != std::errc())
        return std::nullopt;
    return minus ? -number : number;
}

std::optional<std::int64_t> ParseInteger(std::string_view text)
{
    const auto trimmed = Trim(text);
    std::string_view rest = trimmed;
    if (rest.starts_with('+'))
        rest.remove_prefix(rest.starts_with("+-") ? 0 : 1);

    std::int64_t number = 0;
    const char* const end = rest.data() + rest.size();
    const auto result = std::from_chars(rest.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

double StrToFloatDef(std::string_view text, double otherwise) { return ParseFloat(text).value_or(otherwise); }

std::int64_t StrToIntDef(std::string_view text, std::int64_t otherwise)
{
    return ParseInteger(text).value_or(otherwise);
}

} // namespace alinhavo
