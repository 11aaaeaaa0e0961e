#pragma once

#include "forms/TValue.h"
#include "platform/session/roteiro/TLine.h"

#include <string>
#include <string_view>

namespace alinhavo::roteiro {

/// Any run of blanks and line breaks counts as one blank, and "…" in the expected text stands for any text.
bool TextMatches(std::string_view expected, std::string_view got);

/// As texts; numbers also when one has a point and the other a comma, or when only zeros at the end of the fraction or the
/// points between thousands tell them apart. A zero in front counts: "020" is not "20".
bool SameShown(std::string_view expected, std::string_view got);

/// A value of the database: null is only `nulo`, a number is compared as such.
bool SameValue(const TText& expected, const TValue& got);
/// A cell: null is blank as well.
bool SameCell(const TText& expected, const TValue& got);

// For reports.
std::string Quoted(std::string_view text);
std::string Written(const TText& value);
std::string Written(const TValue& value);
std::string Written(const TMatches& row);
std::string Written(const TRowName& row);

} // namespace alinhavo::roteiro
