#pragma once

#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Certificates that products demand of those who make them.
class TCertificates {
public:
    explicit TCertificates(TOrvDatabase& database)
        : database_(database)
    {
    }

    /// Those that the product demands and the subcontractor does not hold on that day ("code - description"), by code. An
    /// open end of a certificate's time of validity does not limit it. A blank date means today.
    std::vector<std::string> Missing(std::string_view product, std::string_view subcontractor, TDateTime date);

private:
    TOrvDatabase& database_;
};

} // namespace alinhavo
