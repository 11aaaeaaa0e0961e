#pragma once

#include "forms/TTableData.h"

namespace alinhavo {

/// "The cell of this column equals this value": what Locate and a detail's link ask of very many rows. Equal as
/// TValue::Compare has it, found without making a value for each cell.
struct TCellTest {
    std::size_t column = 0;
    TValue value;

    bool Holds(const TTableData& data, std::size_t row) const;
    int Compare(const TTableData& data, std::size_t row) const
    {
        return TValue::Compare(data.Column(column).Value(row), value);
    }
    friend bool operator==(const TCellTest&, const TCellTest&) = default;
};

} // namespace alinhavo
