#pragma once

#include <string>

namespace alinhavo {

struct TCriaOptions {
    std::string database; ///< a Firebird file or the address of a database
};

/// Makes a database without a factory's data: the tables, company 01, the menu, and the user ADMIN, who has every right and no
/// password yet. 0, or 1 when it could not be made.
int RunCria(const TCriaOptions& options);

} // namespace alinhavo
