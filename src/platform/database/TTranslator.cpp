#include "platform/database/TTranslator.h"

#include "forms/text.h"
#include "host/EDatabaseError.h"
#include "host/TStatement.h"

#include <algorithm>

namespace alinhavo {
namespace {

using enum TSqlTokenKind;

[[noreturn]] void RaiseSyntax(const char* text) { throw EDatabaseError(TDatabaseErrorKind::Syntax, text); }

bool IsAnyWord(const TSqlToken& token, std::initializer_list<std::string_view> words)
{
    return std::ranges::any_of(words, [&](std::string_view word) { return token.IsWord(word); });
}

/// The index of the next token that is not blank, or the count of all.
std::size_t SkipBlanks(std::span<const TSqlToken> tokens, std::size_t index)
{
    while (index < tokens.size() && tokens[index].kind == Blank)
        ++index;
    return index;
}

std::span<const TSqlToken> Stripped(std::span<const TSqlToken> tokens)
{
    tokens = tokens.subspan(SkipBlanks(tokens, 0));
    while (!tokens.empty() && tokens.back().kind == Blank)
        tokens = tokens.first(tokens.size() - 1);
    return tokens;
}

/// How many tokens STARTING WITH takes here; 0 when it does not stand here.
std::size_t LengthOfStartingWith(std::span<const TSqlToken> tokens, std::size_t index)
{
    const auto next = SkipBlanks(tokens, index + 1);
    const bool stands = tokens[index].IsWord("STARTING") && next < tokens.size() && tokens[next].IsWord("WITH");
    return stands ? next - index + 1 : 0;
}

int Nesting(const TSqlToken& token)
{
    return static_cast<int>(token.Is('(') || token.Is('[')) - static_cast<int>(token.Is(')') || token.Is(']'));
}

/// The pieces between the commas that stand in no parentheses, at most `most` of them.
std::vector<std::span<const TSqlToken>> Parts(std::span<const TSqlToken> tokens, std::size_t most = SIZE_MAX)
{
    std::vector<std::span<const TSqlToken>> parts;
    std::size_t begin = 0;
    int depth = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        depth += Nesting(tokens[i]);
        if (depth != 0 || !tokens[i].Is(',') || parts.size() + 1 == most)
            continue;
        parts.push_back(Stripped(tokens.subspan(begin, i - begin)));
        begin = i + 1;
    }
    parts.push_back(Stripped(tokens.subspan(begin)));
    return parts;
}

std::string Unquoted(std::string_view text) { return Replace(text.substr(1, text.size() - 2), "''", "'"); }

bool IsNumeric(const TColumnDecl& column)
{
    return column.kind == TColumnKind::Integer || column.kind == TColumnKind::Float
        || column.kind == TColumnKind::Identity;
}

} // namespace

TTranslator::TTranslator(const TDialect& dialect, std::string_view sql, const std::vector<TValue>* values)
    : dialect_(dialect)
    , tokens_(SqlTokens(sql))
    , values_(values)
{
}

TServerSql TTranslator::Translation()
{
    TServerSql sql;
    sql.kind = Kind();
    sql.text = Translated(tokens_);
    EndOrder(sql.text);
    if (levels_.size() != 1)
        RaiseSyntax("parentheses do not match");
    if (!lists_.empty() && sql.kind != TSqlKind::Read)
        RaiseSyntax("LIST stands only in what is selected");
    sql.lists = std::move(lists_);
    return sql;
}

TSqlKind TTranslator::Kind() const
{
    const auto first = SkipBlanks(tokens_, 0);
    if (first == tokens_.size())
        RaiseSyntax("the statement is empty");
    const auto& word = tokens_[first];
    if (IsAnyWord(word, {"SELECT", "WITH"}))
        return TSqlKind::Read;
    if (IsAnyWord(word, {"INSERT", "UPDATE", "DELETE", "MERGE"}))
        return TSqlKind::Write;
    if (IsAnyWord(word, {"CREATE", "ALTER", "DROP", "RECREATE", "COMMENT", "GRANT", "REVOKE", "SET", "DO"}))
        return TSqlKind::Definition;
    if (IsAnyWord(word, {"COMMIT", "ROLLBACK", "BEGIN", "START", "SAVEPOINT", "RELEASE"}))
        RaiseSyntax("a transaction is closed by CommitRetaining or RollbackRetaining");
    RaiseSyntax("the statement is none");
}

std::string TTranslator::Translated(TTokens tokens)
{
    std::string text;
    for (std::size_t index = 0; index < tokens.size();)
        index += Write(tokens, index, text);
    return text;
}

std::size_t TTranslator::Write(TTokens tokens, std::size_t index, std::string& text)
{
    const auto& token = tokens[index];
    switch (token.kind) {
    case Mark:
        text += dialect_.LocalName(MarkedTable(token.text));
        return 1;
    case Placeholder:
        text += Value();
        return 1;
    case Word:
        if (token.IsWord("LIST") && index + 1 < tokens.size() && tokens[index + 1].Is('['))
            return WriteList(tokens, index, text);
        if (const auto length = LengthOfStartingWith(tokens, index); length > 0) {
            text += dialect_.StartingWith();
            return length;
        }
        NoteWord(tokens, index, text);
        return 1;
    default:
        if (token.Is('('))
            levels_.emplace_back();
        if (token.Is(')')) {
            EndOrder(text);
            levels_.pop_back();
            if (levels_.empty())
                RaiseSyntax("parentheses do not match");
        }
        if (token.Is(','))
            EndOrderKey(text);
        text += token.text;
        return 1;
    }
}

// Words are looked at for where the statement is: which clause, and in an ORDER BY which key.
void TTranslator::NoteWord(TTokens tokens, std::size_t index, std::string& text)
{
    const auto& word = tokens[index];
    const auto next = SkipBlanks(tokens, index + 1);
    const bool timestampHasDigits = next < tokens.size() && tokens[next].Is('(');
    auto& level = levels_.back();

    if (word.IsWord("WHERE"))
        level.filtered = true;
    if (IsAnyWord(word, {"SELECT", "FROM", "JOIN"}))
        level.clause = TClause::Selected;
    else if (IsAnyWord(word, {"WHERE", "HAVING", "GROUP", "ORDER", "ON"}))
        level.clause = TClause::Compared;

    if (word.IsWord("BY") && index >= 2
        && IsAnyWord(tokens[index - 1].kind == Blank ? tokens[index - 2] : tokens[index - 1], {"ORDER"})) {
        level.inOrder = true;
        level.descending = false;
        level.nullsGiven = false;
    } else if (level.inOrder
        && IsAnyWord(
            word, {"LIMIT", "OFFSET", "FETCH", "FOR", "ROWS", "RANGE", "GROUPS", "WITH", "UNION", "RETURNING"})) {
        EndOrder(text);
    } else if (word.IsWord("DESC") || word.IsWord("DESCENDING")) {
        level.descending = true;
    } else if (word.IsWord("NULLS")) {
        level.nullsGiven = true;
    }

    if (word.IsWord("CURRENT_DATE"))
        text += CurrentDate();
    else if (word.IsWord("CURRENT_TIMESTAMP") && !timestampHasDigits)
        text += CurrentTimestamp();
    else
        text += word.text;
    if (word.IsWord("IDENTIFICADOR") && level.inOrder && level.filtered && !IsCutShort(tokens.subspan(index)))
        text += dialect_.SortedKey();
}

/// Only the first rows are wanted.
bool TTranslator::IsCutShort(TTokens rest)
{
    return std::ranges::any_of(rest, [](const TSqlToken& token) {
        return IsAnyWord(token, {"FETCH", "LIMIT", "ROWS"});
    });
}

void TTranslator::EndOrderKey(std::string& text)
{
    auto& level = levels_.back();
    if (!level.inOrder)
        return;
    if (!level.nullsGiven)
        text += dialect_.NullsOrder(level.descending);
    level.descending = false;
    level.nullsGiven = false;
}

void TTranslator::EndOrder(std::string& text)
{
    EndOrderKey(text);
    if (levels_.back().inOrder)
        text += ' ';
    levels_.back().inOrder = false;
}

std::string TTranslator::Value()
{
    const auto number = placeholders_++;
    if (!values_)
        return dialect_.Placeholder(number + 1);
    if (number >= values_->size())
        RaiseSyntax("there are more placeholders than values");
    return dialect_.Literal((*values_)[number]);
}

std::string TTranslator::CurrentDate() const
{
    return dialect_.now_.IsBlank() ? dialect_.Today() : dialect_.Literal(dialect_.now_.Date());
}

std::string TTranslator::CurrentTimestamp() const
{
    if (dialect_.now_.IsBlank())
        return dialect_.Now();
    return "CAST(" + Aspas(dialect_.now_.SqlText()) + " AS TIMESTAMP)";
}

std::size_t TTranslator::WriteList(TTokens tokens, std::size_t index, std::string& text)
{
    if (std::ranges::any_of(levels_, [](const TLevel& level) { return level.clause == TClause::Compared; }))
        RaiseSyntax("LIST stands only in what is selected");

    auto end = index + 1;
    for (int depth = 0; end < tokens.size(); ++end) {
        depth += Nesting(tokens[end]);
        if (depth == 0)
            break;
    }
    if (end == tokens.size())
        RaiseSyntax("LIST has no closing bracket");

    const auto list = ReadList(tokens.subspan(index + 2, end - index - 2));
    text += dialect_.List(list, lists_.size());
    lists_.push_back(list);
    return end - index + 1;
}

TListAggregate TTranslator::ReadList(TTokens inside)
{
    const auto parts = Parts(inside, 3);
    auto expression = parts[0];
    TListAggregate list;
    list.separator = ",";
    if (!expression.empty() && expression.front().IsWord("DISTINCT")) {
        list.distinct = true;
        expression = Stripped(expression.subspan(1));
    }
    if (parts.size() > 1) {
        if (parts[1].size() != 1 || parts[1].front().kind != Text)
            RaiseSyntax("the separator of LIST is a text in quotes");
        list.separator = Unquoted(parts[1].front().text);
    }
    list.expression = Translated(expression);
    if (parts.size() > 2) {
        for (const auto key : Parts(parts[2]))
            list.keys.push_back(ReadKey(key));
    }
    if (list.distinct && !list.keys.empty())
        RaiseSyntax("a LIST of distinct elements is in their own order");
    if (list.distinct)
        list.keys.push_back({.expression = list.expression});
    return list;
}

TListKey TTranslator::ReadKey(TTokens tokens)
{
    const bool descending = !tokens.empty() && IsAnyWord(tokens.back(), {"DESC", "DESCENDING"});
    if (descending || (!tokens.empty() && tokens.back().IsWord("ASC")))
        tokens = Stripped(tokens.first(tokens.size() - 1));
    return {Translated(tokens), IsNumericKey(tokens), descending};
}

bool TTranslator::IsNumericKey(TTokens key) const
{
    const auto has = [&](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(key, [&](const TSqlToken& token) { return IsAnyWord(token, words); });
    };
    if (key.empty())
        return false;
    if (key.front().IsWord("CAST"))
        return has({"INTEGER", "BIGINT", "SMALLINT", "DOUBLE", "FLOAT", "NUMERIC", "DECIMAL"});
    if (IsAnyWord(key.front(), {"COUNT", "SUM"}))
        return true;
    return key.back().kind == Word && key.size() <= 3 && IsNumericColumn(key.back().text);
}

// The tables that the statement marks are asked first: a column of the same name may have another type elsewhere.
bool TTranslator::IsNumericColumn(std::string_view name) const
{
    for (const auto& token : tokens_) {
        const auto* table = token.kind == Mark ? FindTable(MarkedTable(token.text)) : nullptr;
        if (const auto* column = table ? FindColumn(*table, name) : nullptr)
            return IsNumeric(*column);
    }
    for (const auto& table : Tables())
        if (const auto* column = FindColumn(table, name))
            return IsNumeric(*column);
    return false;
}

std::string TTranslator::MarkedTable(std::string_view mark) const
{
    return std::string(mark.substr(1, mark.size() - 2));
}

} // namespace alinhavo
