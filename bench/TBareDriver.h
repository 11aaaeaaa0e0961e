#pragma once

#include "platform/database/TDatabaseAddress.h"
#include "platform/database/TSqlDatabase.h"

#include <memory>
#include <vector>

namespace alinhavo {

/// A database's own client used directly: the statements of a trace, each prepared once, their values bound. It is what a
/// measurement is compared with, so it does nothing that it need not do.
class TBareDriver {
public:
    virtual ~TBareDriver() = default;

    /// Prepares what is not prepared yet and puts the values into the client's own form.
    virtual void Learn(const std::vector<TStatement>& trace) = 0;
    /// Runs what was learnt last: a transaction begins with the first write and is committed at the end. Every row of a result
    /// is fetched.
    virtual void Replay() = 0;
};

/// `dialect` translates the statements and outlives the driver.
std::unique_ptr<TBareDriver> OpenBareDriver(const TDatabaseAddress& address, const TDialect& dialect);

} // namespace alinhavo
