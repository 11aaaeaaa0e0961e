#pragma once

#include "platform/session/roteiro/ERoteiro.h"

#include <string>
#include <string_view>

namespace alinhavo::roteiro {

/// Reads the words of one line, from left to right. What is missing or too much raises ERoteiro.
class TScanner {
public:
    /// `line` is without indentation and comment, and must outlive the scanner.
    TScanner(std::string_view line, TPlace place);

    bool AtEnd() const { return rest_.empty(); }
    /// Raises when something is left.
    void End() const;

    /// True, and past it, when the next word is this one, unquoted.
    bool Take(std::string_view word);
    void Expect(std::string_view word);

    /// A name of a control, column, screen …: up to a blank or an "="; quoted when it has blanks.
    std::string Name(std::string_view what);
    /// Up to a blank, or in quotes.
    TText Text(std::string_view what);
    /// In quotes.
    std::string Quoted(std::string_view what);
    /// A whole number from `lowest` on.
    int Number(std::string_view what, int lowest);
    bool NextIsNumber() const;
    bool NextIsQuoted() const { return rest_.starts_with('"'); }
    /// COLUMN=value[,COLUMN=value…].
    TMatches Matches();
    /// All that is left, as it stands.
    std::string Rest();

    [[noreturn]] void Fail(const std::string& text) const;

private:
    std::string_view NextBare() const;
    std::string ReadQuoted(std::string_view what);
    std::string ReadUntil(std::string_view stops);
    void SkipBlanks();

    std::string_view rest_;
    TPlace place_;
};

} // namespace alinhavo::roteiro
