#pragma once

#include "host/TOrvDatabase.h"

namespace alinhavo {

/// First column of the first row; null when there is none.
TValue SingleValue(TOrvDatabase& database, const TStatement& statement);

} // namespace alinhavo
