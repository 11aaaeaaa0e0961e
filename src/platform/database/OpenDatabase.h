#pragma once

#include "platform/database/TDatabaseAddress.h"
#include "platform/database/TSqlDatabase.h"

#include <chrono>
#include <memory>
#include <string>

namespace alinhavo {

struct TDatabaseOptions {
    std::string company = "01";
    std::chrono::seconds lockWait{5}; ///< how long a statement waits for another user's pending work
    std::string user = "SYSDBA"; ///< Firebird, when the address names none
    std::string password = {};
    int cachePages = 4096; ///< Firebird, embedded: of 16 KB, shared by all connections of the process
    bool forcedWrites = true; ///< at creation: a commit waits for the disk. Off only for databases that may be lost
};

/// A connection. Raises EDatabaseError (Connection) when there is none to be had; an embedded database belongs to the one
/// process that opened it first.
std::unique_ptr<TSqlDatabase> OpenDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options = {});

/// An empty database, without tables; raises EDatabaseError when it exists.
void CreateDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options = {});
/// From now on a commit waits for the disk, also where it did not. Nobody may be connected.
void ForceWrites(const TDatabaseAddress& address, const TDatabaseOptions& options = {});
bool DatabaseExists(const TDatabaseAddress& address, const TDatabaseOptions& options = {});
/// Nobody may be connected to it.
void DropDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options = {});
/// A new database like the other; nobody may be connected to that one. Both are embedded, or on the same PostgreSQL server.
void CopyDatabase(const TDatabaseAddress& from, const TDatabaseAddress& to);
/// The database under another name, in place of one that has it already; nobody may be connected to either. Both are embedded, or on
/// the same PostgreSQL server.
void RenameDatabase(const TDatabaseAddress& from, const TDatabaseAddress& to);

} // namespace alinhavo
