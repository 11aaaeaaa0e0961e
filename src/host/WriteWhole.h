#pragma once

#include <functional>

namespace alinhavo {

class TOrvDatabase;

/// Work that stands whole or not at all: it is committed at its end, and taken back when an exception passes. What another
/// screen had left pending before is not taken back with it; then the work, too, stays pending.
void WriteWhole(TOrvDatabase& database, const std::function<void()>& work);

} // namespace alinhavo
