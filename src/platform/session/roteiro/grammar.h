#pragma once

#include "platform/session/roteiro/TLine.h"

#include <string_view>

namespace alinhavo::roteiro {

/// What one line says; it is without indentation and comment. ERoteiro when it is none of the language.
TStep ParseStep(std::string_view line, const TPlace& place);

} // namespace alinhavo::roteiro
