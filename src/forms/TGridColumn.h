#pragma once

#include <string>
#include <vector>

namespace alinhavo {

/// A column of a grid: how one field shows in it.
struct TGridColumn {
    std::string field;
    std::string title = {}; ///< empty: the field's
    int width = 0; ///< in characters; 0: as its content suggests
    int decimals = -1; ///< -1: the field's
    std::vector<std::string> pickList = {}; ///< offered; another text may still be typed
    bool tick = false; ///< "S" and "N" as a check mark
    bool lookup = false; ///< F4 helps to fill it
    bool readOnly = false;
    bool visible = true;
};

} // namespace alinhavo
