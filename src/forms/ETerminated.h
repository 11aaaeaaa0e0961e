#pragma once

namespace alinhavo {

/// The session ends: unwinds every nested modal run. No std::exception, so that no handler takes it for an error.
struct ETerminated { };

} // namespace alinhavo
