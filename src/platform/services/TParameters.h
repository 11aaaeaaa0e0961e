#pragma once

#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// The parameters that tune the module (PARAMETRO).
class TParameters {
public:
    explicit TParameters(TOrvDatabase& database)
        : database_(database)
    {
    }

    /// "" when not set. FAC70 is ("FAC", 70).
    std::string Value(std::string_view group, int number);

private:
    TOrvDatabase& database_;
};

} // namespace alinhavo
