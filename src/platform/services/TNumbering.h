#pragma once

#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// Next free numbers. None is reserved: the loser of a race is refused by the key of the row that it writes.
class TNumbering {
public:
    explicit TNumbering(TOrvDatabase& database)
        : database_(database)
    {
    }

    /// The largest number in the column plus one, padded with zeros to `width`; codes that are no numbers do not count.
    std::string Next(std::string_view table, std::string_view column, int width);
    /// The next batch number of the order's part at the sector.
    std::string NextMovement(std::string_view order, std::string_view sector, std::string_view part);

private:
    std::int64_t Largest(const TName& table, const TName& column, std::size_t width);
    std::int64_t LargestOfAll(const TName& table, const TName& column);

    TOrvDatabase& database_;
};

} // namespace alinhavo
