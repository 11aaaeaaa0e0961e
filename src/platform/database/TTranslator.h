#pragma once

#include "platform/database/TDialect.h"
#include "platform/database/TSqlToken.h"

#include <span>

namespace alinhavo {

/// Turns one statement into the server's own form.
class TTranslator {
public:
    /// `values` may be null: placeholders stay placeholders.
    TTranslator(const TDialect& dialect, std::string_view sql, const std::vector<TValue>* values);

    TServerSql Translation();

private:
    enum class TClause { Selected, Compared };

    /// What is known of one level of parentheses.
    struct TLevel {
        TClause clause = TClause::Selected;
        bool inOrder = false; ///< in the keys of an ORDER BY
        bool descending = false; ///< of the key that is being read
        bool nullsGiven = false;
        bool filtered = false; ///< a WHERE stands before
    };

    using TTokens = std::span<const TSqlToken>;

    TSqlKind Kind() const;
    std::string Translated(TTokens tokens);
    /// Writes the token at `index` and answers how many tokens it took.
    std::size_t Write(TTokens tokens, std::size_t index, std::string& text);
    void NoteWord(TTokens tokens, std::size_t index, std::string& text);
    static bool IsCutShort(TTokens rest);
    void EndOrderKey(std::string& text);
    void EndOrder(std::string& text);
    std::string Value();
    std::string CurrentDate() const;
    std::string CurrentTimestamp() const;
    std::size_t WriteList(TTokens tokens, std::size_t index, std::string& text);
    TListAggregate ReadList(TTokens inside);
    TListKey ReadKey(TTokens tokens);
    bool IsNumericKey(TTokens key) const;
    bool IsNumericColumn(std::string_view name) const;
    std::string MarkedTable(std::string_view mark) const;

    const TDialect& dialect_;
    std::vector<TSqlToken> tokens_;
    const std::vector<TValue>* values_;
    std::size_t placeholders_ = 0;
    std::vector<TLevel> levels_{TLevel{}};
    std::vector<TListAggregate> lists_;
};

} // namespace alinhavo
