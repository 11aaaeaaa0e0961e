#pragma once

#include "forms/TDateTime.h"

#include <string_view>

namespace alinhavo {

// Texts that stand for a value of another type in a statement. What is none raises EDatabaseError (Conversion).

/// "MM/DD/YYYY" or "YYYY-MM-DD", with or without " HH:MM[:SS]".
TDateTime SqlDate(std::string_view text);
/// A number with a point.
double SqlNumber(std::string_view text);
/// Nothing when the text is well-formed and holds no zero byte.
void CheckText(std::string_view text);

} // namespace alinhavo
