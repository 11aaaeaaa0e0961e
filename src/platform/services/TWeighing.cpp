#include "platform/services/TWeighing.h"

namespace alinhavo {

TOrvDatabase& TWeighing::Database()
{
    if (!Configured())
        throw EDatabaseError(TDatabaseErrorKind::Connection, "O banco de dados da pesagem não está configurado.");
    if (!database_)
        database_ = opener_(address_);
    return *database_;
}

} // namespace alinhavo
