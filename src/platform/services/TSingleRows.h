#pragma once

#include "host/TOrvDatabase.h"

#include <string_view>

namespace alinhavo {

/// Looks at single rows by key. Names and values come as texts and are parsed: EDatabaseError (Syntax) when they are none.
class TSingleRows {
public:
    explicit TSingleRows(TOrvDatabase& database)
        : database_(database)
    {
    }

    /// Columns and values are separated by commas.
    bool Exists(std::string_view table, std::string_view columns, std::string_view values);
    /// Key columns and values are separated by semicolons. Null when there is no such row.
    TValue Find(std::string_view table, std::string_view keyColumns, std::string_view column, std::string_view values);

private:
    TOrvDatabase& database_;
};

} // namespace alinhavo
