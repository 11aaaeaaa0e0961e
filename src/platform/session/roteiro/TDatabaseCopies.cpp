#include "platform/session/roteiro/TDatabaseCopies.h"

#include "host/EDatabaseError.h"
#include "platform/database/schema.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

fs::path NewFolder()
{
    auto name = (fs::temp_directory_path() / "alinhavo_roteiro_XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::system_error(errno, std::generic_category(), name);
    return name;
}

/// The same server, another database: the path of the URI is replaced.
TDatabaseAddress OnServer(const TDatabaseAddress& server, const std::string& name)
{
    const auto& uri = server.uri;
    const auto host = uri.find("://") + 3;
    const auto query = std::min(uri.find('?', host), uri.size());
    const auto path = std::min(uri.find('/', host), query);
    return TDatabaseAddress::Parse(uri.substr(0, path) + "/" + name + uri.substr(query));
}

} // namespace

TDatabaseCopies::TDatabaseCopies(std::optional<TDatabaseAddress> server, TFills fills)
    : server_(std::move(server))
    , fills_(std::move(fills))
    , folder_(NewFolder())
{
}

TDatabaseCopies::~TDatabaseCopies()
{
    for (const auto& [factory, address] : prepared_)
        Drop(address);
    std::error_code remains;
    fs::remove_all(folder_, remains);
}

TDatabaseAddress TDatabaseCopies::Make(TFactory factory)
{
    const std::lock_guard lock(mutex_);
    const auto& from = Prepared(factory);
    auto copy = NewAddress();
    CopyDatabase(from, copy);
    return copy;
}

/// A database that cannot be dropped is a nuisance, no failure of the roteiro.
void TDatabaseCopies::Drop(const TDatabaseAddress& copy)
{
    try {
        DropDatabase(copy);
    } catch (const EDatabaseError&) {
    }
}

const TDatabaseAddress& TDatabaseCopies::Prepared(TFactory factory)
{
    const auto found = prepared_.find(factory);
    if (found != prepared_.end())
        return found->second;
    const auto address = NewAddress();
    CreateDatabase(address, {.forcedWrites = false});
    try {
        const auto database = OpenDatabase(address);
        MigrateSchema(*database);
        fills_.at(factory)(*database);
    } catch (...) {
        Drop(address);
        throw;
    }
    return prepared_.emplace(factory, address).first->second;
}

TDatabaseAddress TDatabaseCopies::NewAddress()
{
    const auto name = "alinhavo_roteiro_" + std::to_string(getpid()) + "_" + std::to_string(++made_);
    return server_ ? OnServer(*server_, name) : TDatabaseAddress::Parse((folder_ / (name + ".fdb")).string());
}

} // namespace alinhavo::roteiro
