#pragma once

#include "forms/TDataSet.h"

namespace alinhavo {

/// Another look at a table: the same rows with a cursor, filter and order of its own. What one changes the other shows,
/// without events of the other. The rows outlive the source.
class TMemTableClone final : public TDataSet {
public:
    explicit TMemTableClone(TDataSet& source) { ShareRowsOf(source); }
};

} // namespace alinhavo
