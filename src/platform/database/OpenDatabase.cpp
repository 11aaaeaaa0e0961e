#include "platform/database/OpenDatabase.h"

#include "host/EDatabaseError.h"
#include "platform/database/firebird/TFirebirdDatabase.h"
#include "platform/database/postgresql/TPostgreSqlDatabase.h"

#include <filesystem>

namespace alinhavo {
namespace {

bool IsPostgreSql(const TDatabaseAddress& address) { return address.server == TDatabaseServer::PostgreSql; }

[[noreturn]] void RaiseCannotCopy()
{
    throw EDatabaseError(
        TDatabaseErrorKind::Other, "a database is copied to another file, or on its PostgreSQL server");
}

void CopyFile(const TDatabaseAddress& from, const TDatabaseAddress& to)
{
    std::error_code error;
    if (!std::filesystem::copy_file(from.path, to.path, error))
        throw EDatabaseError(TDatabaseErrorKind::Other, "the database file cannot be copied: " + error.message());
}

} // namespace

std::unique_ptr<TSqlDatabase> OpenDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (IsPostgreSql(address))
        return std::make_unique<postgresql::TPostgreSqlDatabase>(address, options);
    return std::make_unique<firebird::TFirebirdDatabase>(address, options);
}

void CreateDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (IsPostgreSql(address))
        return postgresql::Create(address);
    firebird::Create(address, options);
}

void ForceWrites(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (!IsPostgreSql(address))
        firebird::ForceWrites(address, options);
}

bool DatabaseExists(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (IsPostgreSql(address))
        return postgresql::Exists(address);
    return firebird::Exists(address, options);
}

void DropDatabase(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    if (IsPostgreSql(address))
        return postgresql::Drop(address);
    firebird::Drop(address, options);
}

void CopyDatabase(const TDatabaseAddress& from, const TDatabaseAddress& to)
{
    if (IsPostgreSql(from) && IsPostgreSql(to))
        return postgresql::Copy(from, to);
    if (!from.IsEmbedded() || !to.IsEmbedded())
        RaiseCannotCopy();
    CopyFile(from, to);
}

void RenameDatabase(const TDatabaseAddress& from, const TDatabaseAddress& to)
{
    if (IsPostgreSql(from) && IsPostgreSql(to)) {
        if (DatabaseExists(to))
            DropDatabase(to);
        return postgresql::Rename(from, to);
    }
    if (!from.IsEmbedded() || !to.IsEmbedded())
        RaiseCannotCopy();
    std::filesystem::rename(from.path, to.path);
}

} // namespace alinhavo
