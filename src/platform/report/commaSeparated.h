#pragma once

#include <string>

namespace alinhavo {

class TGrid;

/// The rows of a grid as text that a spreadsheet program opens (UTF-8 with its mark, cells divided by ";"): the titles of its
/// visible columns, then each row as it shows. A text that such a program would take for a formula begins with an apostrophe.
std::string CommaSeparated(const TGrid& grid);

} // namespace alinhavo
