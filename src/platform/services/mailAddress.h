#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace alinhavo {

/// The address without the blanks around it; nothing when mail cannot be sent there: it is not one "name@domain.tld" of plain
/// letters.
std::optional<std::string> MailAddress(std::string_view text);

} // namespace alinhavo
