#include "app/screens.h"

namespace alinhavo {

void RegisterScreens(TApplication&) { }

} // namespace alinhavo
