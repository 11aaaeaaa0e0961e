#include "platform/services/singleValue.h"

namespace alinhavo {

TValue SingleValue(TOrvDatabase& database, const TStatement& statement)
{
    const auto rows = database.Open(statement);
    return rows.RowCount() == 0 ? TValue() : rows.Column(0).Value(0);
}

} // namespace alinhavo
