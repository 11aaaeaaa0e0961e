#pragma once

#include "platform/database/TSqlDatabase.h"

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace alinhavo {

/// Where pieces leave: an order's part in a sector.
struct TLeavingPlace {
    std::string order;
    std::string part;
    std::string sector;
    friend auto operator<=>(const TLeavingPlace&, const TLeavingPlace&) = default;
};

using TPieces = std::map<TLeavingPlace, double>;

/// What the clerks say they moved, and back. Any thread writes to it.
class TLedger {
public:
    void Add(const TLeavingPlace& place, double pieces);
    double Moved() const; ///< without regard to what was taken back
    /// Lines that tell where the difference between the two is not what was said.
    std::vector<std::string> Differences(const TPieces& before, const TPieces& after) const;

private:
    mutable std::mutex mutex_;
    TPieces pieces_;
    double moved_ = 0;
};

/// What is recorded of all movements, as others see it.
TPieces RecordedMovements(TSqlDatabase& database);

} // namespace alinhavo
