#pragma once

#include "forms/TValue.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace alinhavo {

/// The cells that were written in a row since its edit began, apart from the row itself.
class TRowEdit {
public:
    /// Null when the column was not written.
    const TValue* Find(std::size_t column) const;
    void Set(std::size_t column, TValue value);
    /// In the order of their first writing.
    const std::vector<std::size_t>& Columns() const { return columns_; }
    void Clear();

    bool modified = false; ///< by more than the defaults of a new row

private:
    std::vector<std::optional<TValue>> values_; ///< by column
    std::vector<std::size_t> columns_;
};

} // namespace alinhavo
