#pragma once

namespace alinhavo {

class TApplication;

/// Tells an application of every screen there is. The only place that knows all of them.
void RegisterScreens(TApplication& application);

} // namespace alinhavo
