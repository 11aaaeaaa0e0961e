#pragma once

#include "platform/database/OpenDatabase.h"
#include "platform/session/roteiro/TLine.h"

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace alinhavo::roteiro {

/// Fresh databases for roteiros. Each kind is prepared once, when it is first asked for, and copied from then on. They
/// are Firebird files in a folder of their own, or databases of a PostgreSQL server; all of them end with this object. Any thread
/// may ask.
class TDatabaseCopies {
public:
    /// Fills a new database that has the schema.
    using TFill = std::function<void(TSqlDatabase&)>;
    using TFills = std::map<TFactory, TFill>;

    /// `server`: a database of the PostgreSQL server to use; none for Firebird files.
    TDatabaseCopies(std::optional<TDatabaseAddress> server, TFills fills);
    ~TDatabaseCopies();
    TDatabaseCopies(const TDatabaseCopies&) = delete;
    TDatabaseCopies& operator=(const TDatabaseCopies&) = delete;

    TDatabaseAddress Make(TFactory factory);
    /// Nobody may be connected to it.
    void Drop(const TDatabaseAddress& copy);
    /// For files that live no longer than the copies.
    const std::filesystem::path& Folder() const { return folder_; }

private:
    const TDatabaseAddress& Prepared(TFactory factory);
    TDatabaseAddress NewAddress();

    std::optional<TDatabaseAddress> server_;
    TFills fills_;
    std::filesystem::path folder_;
    std::mutex mutex_; ///< of all that follows
    std::map<TFactory, TDatabaseAddress> prepared_;
    int made_ = 0;
};

} // namespace alinhavo::roteiro
