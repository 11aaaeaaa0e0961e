#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace alinhavo {

/// Cut to whole, towards zero. Beyond the range of 64 bits the nearest bound; 0 for what is no number.
std::int64_t Trunc(double value);

/// Rounds half away from zero on the decimal value (what the number reads as in 15 digits), and writes exactly
/// `decimals` digits behind a point: FormatFloat(0.0005, 3) is "0.001". From 10^15 on,
/// all whole digits are those of the number. Never "-0.000".
std::string FormatFloat(double value, int decimals);
/// The number that FormatFloat writes.
double RoundTo(double value, int decimals);

/// The shortest text without an exponent that reads back as the number, with a point: 12, 0.5.
std::string FloatToStr(double value);
/// A screen's text: decimal comma, thousands apart by points, `decimals` digits.
std::string FormatDecimal(double value, int decimals);

/// A number with a point or a comma, "1.234,56" included, blanks around allowed; nothing for any other text.
std::optional<double> ParseFloat(std::string_view text);
/// A whole number; nothing for any other text.
std::optional<std::int64_t> ParseInteger(std::string_view text);
double StrToFloatDef(std::string_view text, double otherwise);
std::int64_t StrToIntDef(std::string_view text, std::int64_t otherwise);

} // namespace alinhavo
