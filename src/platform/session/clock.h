#pragma once

#include "forms/TDateTime.h"

namespace alinhavo {

/// The day and hour of the computer's clock, whatever day a session is told to have.
TDateTime ClockNow();

} // namespace alinhavo
