#include "bench/TBareDriver.h"

#include "bench/TBareFirebird.h"
#include "bench/TBarePostgreSql.h"

namespace alinhavo {

std::unique_ptr<TBareDriver> OpenBareDriver(const TDatabaseAddress& address, const TDialect& dialect)
{
    if (address.server == TDatabaseServer::PostgreSql)
        return std::make_unique<TBarePostgreSql>(address, dialect);
    return std::make_unique<TBareFirebird>(address, dialect);
}

} // namespace alinhavo
