#include "host/WriteWhole.h"

#include "host/TOrvDatabase.h"

namespace alinhavo {

void WriteWhole(TOrvDatabase& database, const std::function<void()>& work)
{
    const bool alone = !database.Pending();
    try {
        work();
        database.CommitRetaining();
    } catch (...) {
        if (alone)
            database.RollbackRetaining();
        throw;
    }
}

} // namespace alinhavo
