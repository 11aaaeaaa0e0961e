#pragma once

#include <string>

namespace alinhavo {

/// The way to one client. Any thread may use it; a message to a client that went away is lost.
class IClientLink {
public:
    virtual ~IClientLink() = default;
    virtual void Send(std::string message) = 0;
    /// After what was sent before.
    virtual void Close() = 0;
};

} // namespace alinhavo
