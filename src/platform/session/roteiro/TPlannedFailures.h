#pragma once

#include "host/TStatement.h"
#include "platform/session/roteiro/TLine.h"

#include <vector>

namespace alinhavo::roteiro {

/// The statements that are to fail at the server.
class TPlannedFailures {
public:
    void Plan(TPlannedFailure failure);
    /// Counts a statement; EDatabaseError when it is the one to fail.
    void Count(const TStatement& statement);

private:
    std::vector<TPlannedFailure> planned_; ///< with the statements still to come
};

} // namespace alinhavo::roteiro
