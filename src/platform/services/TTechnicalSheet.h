#pragma once

#include "host/TFuncoes.h"
#include "host/TOrvQuery.h"

namespace alinhavo {

/// The technical sheet of an order (PCPFTOF), with what was consumed of it and what is in stock.
class TTechnicalSheet {
public:
    /// Opens the query on the rows that the filter wants. What was taken out of stock counts for the whole order, or for
    /// the part alone where the filter names one. A line without a size comes once for each size that the order has in the
    /// line's colour, whether its consumption range (FAIXA) holds the size or not.
    static void Load(const TFiltroPCPFTOF& filter, TOrvQuery& query);
};

} // namespace alinhavo
