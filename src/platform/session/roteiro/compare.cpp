#include "platform/session/roteiro/compare.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace alinhavo::roteiro {
namespace {

constexpr std::string_view anyText = "…";

bool IsBlank(char character) { return character == ' ' || character == '\n' || character == '\r' || character == '\t'; }
bool IsDigit(char character) { return character >= '0' && character <= '9'; }
bool AllDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

/// With one blank for each run of them, and none at the ends.
std::string Condensed(std::string_view text)
{
    std::string condensed;
    for (const char character : text) {
        if (!IsBlank(character))
            condensed += character;
        else if (!condensed.empty() && condensed.back() != ' ')
            condensed += ' ';
    }
    return TrimRight(condensed);
}

/// The pieces between the wildcards follow each other in the text, the first at its beginning, the last at its end.
bool MatchesPieces(const std::vector<std::string>& pieces, std::string_view text)
{
    if (!text.starts_with(pieces.front()))
        return false;
    text.remove_prefix(pieces.front().size());
    for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
        const auto found = text.find(pieces[i]);
        if (found == std::string_view::npos)
            return false;
        text.remove_prefix(found + pieces[i].size());
    }
    return pieces.size() == 1 ? text.empty() : text.ends_with(pieces.back());
}

/// "1.234.567" in groups of three.
bool HasThousands(std::string_view whole)
{
    const auto groups = Explode(whole, ".");
    if (groups.size() < 2 || groups[0].size() > 3 || !AllDigits(groups[0]))
        return false;
    return std::all_of(groups.begin() + 1, groups.end(),
        [](const std::string& group) { return group.size() == 3 && AllDigits(group); });
}

/// The number as its digits, a point and the digits behind it that are not superfluous; nothing for what is no number.
std::optional<std::string> Decimal(std::string_view text, bool thousands)
{
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    auto mark = text.find(',');
    if (mark == std::string_view::npos && !thousands)
        mark = text.find('.');
    auto whole = std::string(text.substr(0, mark));
    auto fraction = mark == std::string_view::npos ? std::string() : std::string(text.substr(mark + 1));
    if (mark != std::string_view::npos && !AllDigits(fraction))
        return std::nullopt;
    if (thousands && HasThousands(whole))
        whole = Replace(whole, ".", "");
    if (!AllDigits(whole))
        return std::nullopt;
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return (negative ? "-" : "") + whole + "." + fraction;
}

bool SameNumber(std::string_view expected, double got)
{
    const auto number = ParseFloat(expected);
    return number && std::abs(*number - got) <= 1e-9 * std::max(1.0, std::abs(got));
}

} // namespace

bool TextMatches(std::string_view expected, std::string_view got)
{
    const auto pieces = Explode(Condensed(expected), anyText);
    return pieces.empty() ? Condensed(got).empty() : MatchesPieces(pieces, Condensed(got));
}

bool SameShown(std::string_view expected, std::string_view got)
{
    if (TextMatches(expected, got))
        return true;
    const auto wanted = Decimal(expected, false);
    return wanted && (wanted == Decimal(got, false) || wanted == Decimal(got, true));
}

bool SameValue(const TText& expected, const TValue& got)
{
    if (expected.IsNull() || got.IsNull())
        return expected.IsNull() && got.IsNull();
    if (got.IsInteger() || got.IsFloat())
        return SameNumber(expected.text, got.AsFloat()) || TextMatches(expected.text, got.AsString());
    return SameShown(expected.text, got.AsString());
}

bool SameCell(const TText& expected, const TValue& got)
{
    return SameValue(expected, got) || (got.IsNull() && expected.text.empty());
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string Written(const TText& value) { return value.IsNull() ? value.text : Quoted(value.text); }

std::string Written(const TValue& value) { return value.IsNull() ? "nulo" : Quoted(value.AsString()); }

std::string Written(const TMatches& row)
{
    std::string text;
    for (const auto& match : row)
        text.append(text.empty() ? "" : ",").append(match.column).append("=").append(match.value);
    return text;
}

std::string Written(const TRowName& row)
{
    if (const auto* number = std::get_if<int>(&row))
        return std::to_string(*number);
    return Written(std::get<TMatches>(row));
}

} // namespace alinhavo::roteiro
