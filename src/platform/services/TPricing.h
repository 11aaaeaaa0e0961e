#pragma once

#include "host/TOrvDatabase.h"
#include "platform/services/TParameters.h"

#include <string_view>

namespace alinhavo {

/// What a price is asked for.
struct TPriceKey {
    std::string_view order;
    std::string_view product;
    std::string_view sector;
    std::string_view part;
    std::string_view subcontractor;
    std::string_view colour;
    std::string_view size;
};

/// The unit price of subcontracted work. Four price tables are asked in turn, that of the order's type, of the order, of the
/// subcontractor and the default one, and the first price above zero counts, rounded to three decimals. As a movement
/// asks them; but where prices are kept by colour and size (FAC270 "S") colour and size count too.
class TPricing {
public:
    TPricing(TOrvDatabase& database, TParameters& parameters)
        : database_(database)
        , parameters_(parameters)
    {
    }

    /// 0 when no table has a price.
    double UnitPrice(const TPriceKey& key);

private:
    double PriceIn(const TStatement& tableNumbers, const TPriceKey& key, bool byColourAndSize);

    TOrvDatabase& database_;
    TParameters& parameters_;
};

} // namespace alinhavo
