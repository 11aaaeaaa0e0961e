#pragma once

#include "host/TOrvDatabase.h"

namespace alinhavo {

/// The outside weighing database, a connection with a transaction of its own. Nothing is connected before it is used.
class TMDados {
public:
    virtual ~TMDados() = default;
    /// False when no weighing database is configured.
    virtual bool Configured() const = 0;
    /// EDatabaseError (Connection) when it can't be reached.
    virtual TOrvDatabase& Database() = 0;
    virtual void StartTransaction() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
};

} // namespace alinhavo
