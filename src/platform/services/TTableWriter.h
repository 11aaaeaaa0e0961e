#pragma once

#include "host/TOrvDatabase.h"

#include <initializer_list>
#include <span>
#include <string_view>

namespace alinhavo {

/// Inserts rows in one table. All rows share one statement text, so that the server prepares it once.
class TTableWriter {
public:
    /// `columns` is a comma-separated list of column names.
    TTableWriter(TOrvDatabase& database, std::string_view table, std::string_view columns);

    /// One value for each column, in their order. The braces see to it that values are computed in that order, too. Commits
    /// nothing.
    void Row(std::initializer_list<TValue> values) { Row(std::span<const TValue>(values.begin(), values.size())); }
    void Row(std::span<const TValue> values);

    int RowCount() const { return rows_; }

private:
    TOrvDatabase& database_;
    TStatement head_; ///< up to the values
    int rows_ = 0;
};

} // namespace alinhavo
