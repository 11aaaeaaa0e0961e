#include "platform/session/roteiro/TScanner.h"

#include "forms/numbers.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace alinhavo::roteiro {
namespace {

constexpr std::string_view blanks = " \t";

} // namespace

TScanner::TScanner(std::string_view line, TPlace place)
    : rest_(line)
    , place_(std::move(place))
{
    SkipBlanks();
}

void TScanner::Fail(const std::string& text) const { throw ERoteiro(place_, text); }

void TScanner::End() const
{
    if (!AtEnd())
        Fail("nothing more is expected here: " + std::string(rest_));
}

void TScanner::SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size())); }

std::string_view TScanner::NextBare() const { return rest_.substr(0, rest_.find_first_of(blanks)); }

bool TScanner::Take(std::string_view word)
{
    // An "=" may stand against the value behind it.
    const bool found = word == "=" ? rest_.starts_with('=') : NextBare() == word;
    if (!found)
        return false;
    rest_.remove_prefix(word.size());
    SkipBlanks();
    return true;
}

void TScanner::Expect(std::string_view word)
{
    if (!Take(word))
        Fail("\"" + std::string(word) + "\" is missing");
}

std::string TScanner::Name(std::string_view what)
{
    auto name = NextIsQuoted() ? ReadQuoted(what) : ReadUntil(" \t=");
    if (name.empty())
        Fail(std::string(what) + " is missing");
    SkipBlanks();
    return name;
}

TText TScanner::Text(std::string_view what)
{
    TText value;
    value.quoted = NextIsQuoted();
    value.text = value.quoted ? ReadQuoted(what) : ReadUntil(blanks);
    if (!value.quoted && value.text.empty())
        Fail(std::string(what) + " is missing");
    if (value.quoted && !AtEnd() && blanks.find(rest_.front()) == std::string_view::npos)
        Fail("a blank is missing after the quote");
    SkipBlanks();
    return value;
}

std::string TScanner::Quoted(std::string_view what)
{
    if (!NextIsQuoted())
        Fail(std::string(what) + " in double quotes is missing");
    return Text(what).text;
}

bool TScanner::NextIsNumber() const
{
    const auto word = NextBare();
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

int TScanner::Number(std::string_view what, int lowest)
{
    const auto word = NextBare();
    const auto number = NextIsNumber() ? ParseInteger(word) : std::nullopt;
    if (!number || *number < lowest || *number > std::numeric_limits<int>::max())
        Fail(std::string(what) + " is no whole number from " + std::to_string(lowest) + " on: " + std::string(word));
    rest_.remove_prefix(word.size());
    SkipBlanks();
    return static_cast<int>(*number);
}

TMatches TScanner::Matches()
{
    TMatches matches;
    do {
        TMatch match;
        match.column = NextIsQuoted() ? ReadQuoted("the column") : ReadUntil(" \t=,");
        if (match.column.empty() || !rest_.starts_with('='))
            Fail("COLUMN=value is missing");
        rest_.remove_prefix(1);
        match.value = NextIsQuoted() ? ReadQuoted("the value") : ReadUntil(" \t,");
        matches.push_back(std::move(match));
        if (!rest_.starts_with(','))
            break;
        rest_.remove_prefix(1);
    } while (true);
    if (!AtEnd() && blanks.find(rest_.front()) == std::string_view::npos)
        Fail("a blank is missing after the value");
    SkipBlanks();
    return matches;
}

std::string TScanner::Rest() { return std::string(std::exchange(rest_, {})); }

std::string TScanner::ReadUntil(std::string_view stops)
{
    const auto text = rest_.substr(0, rest_.find_first_of(stops));
    rest_.remove_prefix(text.size());
    return std::string(text);
}

std::string TScanner::ReadQuoted(std::string_view what)
{
    std::string text;
    rest_.remove_prefix(1);
    while (!rest_.empty()) {
        if (rest_.front() == '"') {
            rest_.remove_prefix(1);
            return text;
        }
        if (rest_.starts_with("\\\""))
            rest_.remove_prefix(1);
        text += rest_.front();
        rest_.remove_prefix(1);
    }
    Fail(std::string(what) + " has no closing quote");
}

} // namespace alinhavo::roteiro
