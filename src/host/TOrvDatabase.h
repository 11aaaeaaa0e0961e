#pragma once

#include "forms/TTableData.h"
#include "host/EDatabaseError.h"
#include "host/TStatement.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace alinhavo {

/// A connection with its one transaction. To the screens the transaction is always open; at the server it begins with the
/// first write, and with nothing pending reads leave nothing open. A statement that fails leaves the earlier ones pending.
/// Everything raises EDatabaseError. Not for several threads at once, save Cancel.
class TOrvDatabase {
public:
    virtual ~TOrvDatabase() = default;

    /// The whole result, typed by column. Texts come without trailing blanks.
    virtual TTableData Open(const TStatement& statement) = 0;
    /// The number of rows touched.
    virtual std::int64_t ExecSQL(const TStatement& statement) = 0;

    /// Writes what is pending and stays usable; with nothing pending it does nothing.
    virtual void CommitRetaining() = 0;
    virtual void RollbackRetaining() = 0;
    /// Written statements that wait for a commit.
    virtual bool Pending() const = 0;
    /// When the oldest of them was written; meaningful only while Pending().
    virtual std::chrono::steady_clock::time_point PendingSince() const = 0;

    /// The name under which the logical table is reached for the current company; global tables stay as they are.
    virtual std::string DBLocal(std::string_view table) const = 0;

    /// The day and hour that CURRENT_DATE and CURRENT_TIMESTAMP stand for in statements; blank: the server's own.
    virtual void SetNow(TDateTime now) = 0;

    /// Ends the statement that is running, from any thread: it raises EDatabaseError (Cancelled). Nothing otherwise.
    virtual void Cancel() = 0;

    /// Called with each statement before it goes to the server: tests plant failures here (by throwing), tools log.
    std::function<void(const TStatement&)> OnStatement;
};

} // namespace alinhavo
