#pragma once

#include "host/TStatement.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// The condition that the text stands anywhere in one of the columns, without regard to case; its own wildcards are taken
/// as they stand. Empty when the text is empty: then everything matches.
TStatement StandsIn(const std::vector<std::string>& columns, std::string_view text);

} // namespace alinhavo
