#pragma once

#include <stdexcept>

namespace alinhavo {

/// Why a file cannot be imported, or a table not be exported, at all. The text is Portuguese and for the user.
class EExchange : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace alinhavo
