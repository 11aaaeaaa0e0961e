#pragma once

#include <vector>

namespace alinhavo {

/// The moments, from 1 to the last, at which a fault is tried: all of them when ALINHAVO_FAULTS is "all", else a sample, the same
/// every time, with the first and the last.
std::vector<int> MomentsToTry(int last);

} // namespace alinhavo
