#include "platform/database/TSqlToken.h"

#include <algorithm>

namespace alinhavo {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (c & 0x80); }
bool IsOfName(char c) { return IsLetter(c) || IsDigit(c) || c == '$'; }

std::size_t LengthWhile(std::string_view text, bool (*belongs)(char))
{
    return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
}

/// Up to and with the closing quote; a doubled one is part of the text.
std::size_t QuotedLength(std::string_view text)
{
    const char quote = text.front();
    std::size_t end = 1;
    while (end < text.size()) {
        if (text[end] != quote)
            ++end;
        else if (end + 1 < text.size() && text[end + 1] == quote)
            end += 2;
        else
            return end + 1;
    }
    return end;
}

std::size_t LengthThrough(std::string_view text, std::string_view end)
{
    const auto found = text.find(end);
    return found == std::string_view::npos ? text.size() : found + end.size();
}

TSqlToken FirstToken(std::string_view sql)
{
    using enum TSqlTokenKind;

    const char c = sql.front();
    if (IsBlank(c))
        return {Blank, sql.substr(0, LengthWhile(sql, IsBlank))};
    if (sql.starts_with("--"))
        return {Blank, sql.substr(0, LengthThrough(sql, "\n"))};
    if (sql.starts_with("/*"))
        return {Blank, sql.substr(0, LengthThrough(sql, "*/"))};
    if (IsLetter(c))
        return {Word, sql.substr(0, LengthWhile(sql, IsOfName))};
    if (IsDigit(c))
        return {Other, sql.substr(0, LengthWhile(sql, IsDigit))};
    if (c == '\'')
        return {Text, sql.substr(0, QuotedLength(sql))};
    if (c == '"')
        return {QuotedName, sql.substr(0, QuotedLength(sql))};
    if (c == '{')
        return {Mark, sql.substr(0, LengthThrough(sql, "}"))};
    if (c == '?')
        return {Placeholder, sql.substr(0, 1)};
    return {Other, sql.substr(0, 1)};
}

} // namespace

bool TSqlToken::IsWord(std::string_view word) const
{
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return kind == TSqlTokenKind::Word && std::ranges::equal(text, word, {}, upper);
}

std::vector<TSqlToken> SqlTokens(std::string_view sql)
{
    std::vector<TSqlToken> tokens;
    while (!sql.empty()) {
        tokens.push_back(FirstToken(sql));
        sql.remove_prefix(tokens.back().text.size());
    }
    return tokens;
}

} // namespace alinhavo
