#pragma once

#include "app/demo/TClerk.h"
#include "forms/TDateTime.h"

#include <functional>
#include <string>

namespace alinhavo {

/// Somebody who enters movements on the screen of the movement, day after day.
class TMovementClerk {
public:
    /// What leaves a line of the grid.
    struct TLeaving {
        int good = 0;
        int second = 0;
        int incomplete = 0;
        int missing = 0;
    };
    /// Asked for each line, in the grid's order, with what is pending there.
    using TLeavingOf = std::function<TLeaving(int pending)>;

    struct TMovement {
        std::string order;
        std::string part;
        std::string sector;
        std::string batch = {}; ///< empty: whatever stands in the sector
        std::string destination = {}; ///< empty: whom the screen proposes
    };
    /// Where the pieces are now.
    struct TArrival {
        std::string sector; ///< empty behind the last one
        std::string batch;
    };

    TMovementClerk(TOrvDatabase& database, TSessionUser user);
    /// The clock is the server's again.
    ~TMovementClerk();
    TMovementClerk(const TMovementClerk&) = delete;
    TMovementClerk& operator=(const TMovementClerk&) = delete;

    /// A day's work begins: with the screen opened, its dates are that day's.
    void BeginDay(TDateTime day);
    /// Enters and confirms a movement. std::runtime_error, which names order and sector, when the screen refuses it: the entry is
    /// given up.
    TArrival Move(const TMovement& movement, const TLeavingOf& leavingOf);

private:
    void GiveUp();
    TArrival Enter(const TMovement& movement, const TLeavingOf& leavingOf);
    void EnterHeader(const TMovement& movement);
    void EnterQuantities(const TLeavingOf& leavingOf);
    void Type(std::size_t row, const char* column, int quantity, int before);
    std::string Text(const char* control);

    TClerk clerk_;
};

} // namespace alinhavo
