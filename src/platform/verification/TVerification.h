#pragma once

#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

enum class TSeverity {
    Error, ///< the rules of movement never leave the tables so
    Remark, ///< the rules allow it: an excess, a fraction, lines without colour or size, what two users or a reversal leave
};

/// One row, or one group of rows, that breaks an invariant.
struct TViolation {
    TSeverity severity;
    std::string_view check; ///< name of the invariant
    std::string_view text; ///< Portuguese: what is wrong
    std::string keys; ///< "NUMERO=000123 OP=10": where
};

/// An invariant between the tables of production, orders and stock. Its statement selects what breaks it; the columns
/// selected are the keys that are told.
struct TInvariant {
    std::string_view name;
    TSeverity severity;
    std::string_view text;
    TFragment statement;
};

/// All invariants, in the order in which they are checked.
const std::vector<TInvariant>& Invariants();

/// What breaks them, in that order. Reads committed and this connection's pending work, writes nothing.
std::vector<TViolation> Verify(TOrvDatabase& database);

} // namespace alinhavo
