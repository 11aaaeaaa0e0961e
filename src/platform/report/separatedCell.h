#pragma once

#include <string>

namespace alinhavo {

// A text as a cell of separated text (CSV), whose cells are divided by ";".

/// An apostrophe stands before what a spreadsheet program would take for a formula, and before a text that already begins
/// with apostrophes and such a sign, so that WithoutFormulaMark brings back exactly the text.
std::string WithFormulaMark(const std::string& text);
std::string WithoutFormulaMark(std::string text);

/// In quotes where it holds a separator, a quote or a line break.
std::string QuotedCell(const std::string& text);

} // namespace alinhavo
