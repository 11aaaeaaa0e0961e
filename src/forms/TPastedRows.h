#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Cells as a spreadsheet copies them: rows, each with its cells.
using TPastedRows = std::vector<std::vector<std::string>>;

/// Rows end with a line break, cells with a tab; a cell in double quotes may hold both, a quote in it is doubled. Cells
/// come without blanks around them, rows without a filled cell are left out.
TPastedRows PastedRows(std::string_view text);

} // namespace alinhavo
