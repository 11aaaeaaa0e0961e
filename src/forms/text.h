#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

// Texts are UTF-8 and are measured, cut and padded in characters. A malformed byte counts as one character.

std::size_t Length(std::string_view text);
/// `count` characters from `first` (the first character is 1, as the screens count).
std::string Copy(std::string_view text, std::size_t first, std::size_t count);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
std::string LeftPad(std::string_view text, char fill, std::size_t width);
std::string RightPad(std::string_view text, char fill, std::size_t width);
/// Without blanks, tabs and line breaks at both ends.
std::string Trim(std::string_view text);
std::string TrimRight(std::string_view text);
/// Letters with Portuguese accents included.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
bool SameText(std::string_view left, std::string_view right); ///< without regard to case
/// The pieces between the separators; an empty text gives no piece, "a,,b" gives three.
std::vector<std::string> Explode(std::string_view text, std::string_view separator);
std::string Replace(std::string_view text, std::string_view what, std::string_view with);
/// True when the bytes are well-formed UTF-8.
bool ValidUtf8(std::string_view text);

/// The one order of texts, in memory tables and on both servers: blanks, marks, digits, letters; Á stands beside A;
/// an accent counts more than case; lower before upper case. Texts are equal only when they are the same. Characters
/// beyond the Western European ones follow them, by their number.
/// Negative, zero or positive.
int CompareText(std::string_view left, std::string_view right);

} // namespace alinhavo
