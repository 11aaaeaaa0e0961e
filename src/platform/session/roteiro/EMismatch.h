#pragma once

#include <string>
#include <utility>

namespace alinhavo::roteiro {

/// A line that did not go as written.
struct EMismatch {
    std::string expected;
    std::string got;
};

} // namespace alinhavo::roteiro
