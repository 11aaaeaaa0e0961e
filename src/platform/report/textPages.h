#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// Pages of plain text, divided by form feeds, as a sealed document: a sheet of paper for each of them, on which its longest line
/// fits.
std::string TextPages(std::string_view text);

} // namespace alinhavo
