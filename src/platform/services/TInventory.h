#pragma once

#include "host/TFuncoes.h"
#include "host/TOrvDatabase.h"

#include <string>

namespace alinhavo {

/// Inventory lines (INVENTARIO) made of a report's rows.
class TInventory {
public:
    TInventory(TOrvDatabase& database, std::string userName)
        : database_(database)
        , user_(std::move(userName))
    {
    }

    /// Writes a line of today for each visible row whose quantity is not 0, in place of those that an earlier run of the
    /// same day left for the same goods, and commits.
    void Write(const TColunasInventario& columns, TDataSet& rows);

private:
    TOrvDatabase& database_;
    std::string user_;
};

} // namespace alinhavo
