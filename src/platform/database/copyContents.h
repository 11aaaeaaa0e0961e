#pragma once

#include "platform/database/TDatabaseAddress.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace alinhavo {

/// What was copied.
struct TCopiedContents {
    int tables = 0;
    std::int64_t rows = 0;
};

/// Makes a database that holds what the other holds at this moment: every row of every company's tables and of the global ones.
/// Others may go on working in that one, which may be on another kind of server. The new one stands under its name only when it
/// is whole; with `replace` it takes the place of one that is there, to which nobody may be connected. `told` hears the name of each
/// table before it is copied. Raises EDatabaseError when a database exists and is not to be replaced, when the schema is not
/// that of this program, and whatever either server raises; then nothing is left behind.
TCopiedContents CopyContents(const TDatabaseAddress& from, const TDatabaseAddress& to, bool replace,
    const std::function<void(std::string_view)>& told = {});

} // namespace alinhavo
