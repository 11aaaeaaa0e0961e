#pragma once

#include <cstddef>
#include <string_view>

namespace alinhavo {

class TOrvDatabase;

/// Bytes of the longest password that a user may have.
inline constexpr std::size_t LongestPassword = 200;

/// Gives the user of that name or code, without regard to case, another password, and commits. std::runtime_error, in Portuguese
/// and without any effect, when there is no such user or more than one, and for an empty or too long password.
void SetPassword(TOrvDatabase& database, std::string_view nameOrCode, std::string_view password);

} // namespace alinhavo
