#pragma once

#include <string>

namespace alinhavo {

/// 64 hexadecimal digits that nobody can guess.
std::string RandomText();

} // namespace alinhavo
