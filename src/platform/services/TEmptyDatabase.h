#pragma once

#include "host/TOrvDatabase.h"

#include <string_view>

namespace alinhavo {

/// Writes into a fresh schema what every installation starts with: company "01", the menu of screens and the user ADMIN,
/// a supervisor with every right. Commits.
void FillEmptyDatabase(TOrvDatabase& database);

/// The menu of screens: one entry for each screen's class, under headings without a class. Commits nothing.
void WriteScreenMenu(TOrvDatabase& database);

/// A user of every right, on each entry of the menu written before. Commits nothing.
void GrantEveryRight(TOrvDatabase& database, std::string_view user);

} // namespace alinhavo
