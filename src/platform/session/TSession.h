#pragma once

#include "platform/services/TSessionServices.h"

#include <optional>
#include <string_view>

namespace alinhavo {

/// The services behind a session; a base, so that they are there before the application and end after it.
struct TSessionParts {
    TSessionServices services;
};

/// One user's application with all that stands behind it: what a browser or a roteiro drives.
class TSession final : private TSessionParts, public TOrvApplication {
public:
    TSession(IEventSource& source, IView* view, TSessionSetup setup);
};

/// The user of that name or code, without regard to case; nothing when there is none or he is blocked.
std::optional<TSessionUser> FindUser(TOrvDatabase& database, std::string_view nameOrCode);

} // namespace alinhavo
