#pragma once

#include <stdexcept>

namespace alinhavo {

/// A message that does not follow docs/protocol.md. It concerns its sender alone, and changes nothing.
class EProtocolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace alinhavo
