#pragma once

#include "forms/TDateTime.h"

#include <cstdint>
#include <string>

namespace alinhavo {

struct TDemoOptions {
    std::string database; ///< where it is to be made, as the command line writes it
    std::uint64_t seed = 1;
    int scale = 1; ///< of its volume
    TDateTime today = TDateTime::FromDate(2026, 11, 16); ///< what the factory's dates are told from
};

/// `alinhavo demo`: makes a database with the demonstration factory and says what is in it. Nothing is left behind when it
/// fails. The process's exit code.
int RunDemo(const TDemoOptions& options);

} // namespace alinhavo
