#pragma once

#include "forms/TDateTime.h"

#include <string>
#include <vector>

namespace alinhavo {

class TApplication;

/// A screen that a user may open.
struct TMenuEntry {
    std::string group;
    std::string caption;
    std::string screenClass;
};

/// What one session works with: its application and the connection behind it. Belongs to the session's thread.
class IWorkplace {
public:
    virtual ~IWorkplace() = default;
    virtual TApplication& Application() = 0;
    /// The screens that the user may consult, in their order.
    virtual const std::vector<TMenuEntry>& Menu() const = 0;
    /// Since when something written waits for its commit; blank when nothing does.
    virtual TDateTime PendingSince() const = 0;
    /// Ends the statement that is running, if one is. The only call for any thread.
    virtual void Cancel() = 0;
};

} // namespace alinhavo
