#pragma once

#include <string_view>
#include <vector>

namespace alinhavo {

enum class TSqlTokenKind {
    Blank, ///< blanks, line breaks, comments
    Word, ///< a keyword or a name
    Text, ///< in single quotes, with them
    QuotedName, ///< in double quotes, with them
    Mark, ///< {TABLE}, with the braces
    Placeholder, ///< ?
    Other, ///< a number or one character
};

/// A piece of a statement. The pieces one after the other are the statement.
struct TSqlToken {
    TSqlTokenKind kind;
    std::string_view text;

    bool Is(char character) const { return kind == TSqlTokenKind::Other && text.size() == 1 && text[0] == character; }
    /// Case does not count; `word` is in upper case.
    bool IsWord(std::string_view word) const;
};

std::vector<TSqlToken> SqlTokens(std::string_view sql);

} // namespace alinhavo
