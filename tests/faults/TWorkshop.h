#pragma once

#include "facmov/TClerk.h"
#include "faults/TWatchedDatabase.h"
#include "platform/database/OpenDatabase.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TPreferences.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/TSession.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A clerk at the screens of a small factory: ADMIN, on a fixed day, so that the same work leaves the same rows.
class TWorkshop {
public:
    /// Orders of two lines that wait in sewing: the first is worked at, the others are left to the next users.
    static constexpr std::string_view Order = "000123";
    static constexpr std::string_view NextOrder = "000777";

    /// Fills a database that holds the schema alone.
    static void Fill(TSqlDatabase& database);

    explicit TWorkshop(const TDatabaseAddress& address);

    template <typename TScreen>
    TScreen& Screen(const char* className)
    {
        return dynamic_cast<TScreen&>(*session_->FindFormByClass(className));
    }
    TSession& Session() { return *session_; }

    /// Enters what leaves sewing of the order, up to the confirmation, which is left to whoever asks.
    void EnterMovement(std::string_view order);
    void ConfirmMovement(std::string_view order);
    /// Whether the order's movement of sewing is committed.
    bool Moved(std::string_view order);

    TClerk clerk;
    TWatchedDatabase database;

private:
    std::unique_ptr<TSqlDatabase> other_;
    TPreferences preferences_;
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    std::unique_ptr<TSession> session_;
};

/// An operation that a fault may hit: what leads to it, and the one action that is watched.
struct TOperation {
    const char* name;
    void (*prepare)(TWorkshop&);
    void (*act)(TWorkshop&);
};

const std::vector<TOperation>& Operations();
const TOperation& FindOperation(std::string_view name);

/// All that is committed, one line a row, in an order of its own. The users' preferences are left out: they have another connection
/// and are committed on their own.
std::string Committed(TSqlDatabase& database);

/// What the rules of movement forbid in what is committed, one text each.
std::vector<std::string> Errors(TSqlDatabase& database);

} // namespace alinhavo
