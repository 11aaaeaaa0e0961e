#include "forms/TUserEvent.h"

namespace alinhavo {

void IEventSource::Handled(const TUserEvent&, std::string_view) { }

} // namespace alinhavo
