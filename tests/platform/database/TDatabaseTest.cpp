#include "TDatabaseTest.h"

#include "platform/database/schema.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <map>
#include <unistd.h>

namespace alinhavo {
namespace {

const std::filesystem::path& Folder()
{
    static const std::filesystem::path folder
        = std::filesystem::temp_directory_path() / ("alinhavo-database-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder;
}

std::string PostgreSqlUri()
{
    const char* uri = std::getenv("ALINHAVO_TEST_POSTGRESQL"); // NOLINT(concurrency-mt-unsafe)
    return uri ? uri : "";
}

std::string FreshName()
{
    static int last = 0;
    return "alinhavo_" + std::to_string(getpid()) + "_" + std::to_string(++last);
}

/// The thread sanitizer leaves the engine's threads alone, and gives up when the engine is unloaded.
void KeepEngineLoaded()
{
#ifdef __SANITIZE_THREAD__
    dlopen("libEngine12.so", RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
#endif
}

/// Databases with the schema, made once for each server; the tests work in copies of them.
class TTemplates : public testing::Environment {
public:
    const TDatabaseAddress& Of(TDatabaseServer server)
    {
        auto& address = addresses_[server];
        if (address.Text().empty() || address.path.empty() == address.name.empty()) {
            address = FreshAddress(server);
            CreateDatabase(address, {.forcedWrites = false});
            MigrateSchema(*OpenDatabase(address));
            KeepEngineLoaded();
        }
        return address;
    }

    void TearDown() override
    {
        for (const auto& [server, address] : addresses_)
            if (server == TDatabaseServer::PostgreSql)
                DropDatabase(address);
        std::filesystem::remove_all(Folder());
    }

private:
    std::map<TDatabaseServer, TDatabaseAddress> addresses_;
};

TTemplates& Templates()
{
    static auto* const templates = static_cast<TTemplates*>(testing::AddGlobalTestEnvironment(new TTemplates));
    return *templates;
}

[[maybe_unused]] const TTemplates& registered = Templates();

} // namespace

TDatabaseAddress FreshAddress(TDatabaseServer server)
{
    if (server == TDatabaseServer::PostgreSql)
        return FreshAddress(PostgreSqlUri());
    return TDatabaseAddress::Parse((Folder() / (FreshName() + ".fdb")).string());
}

TDatabaseAddress FreshAddress(const std::string& uri)
{
    return TDatabaseAddress::Parse(uri.substr(0, uri.rfind('/') + 1) + FreshName());
}

std::string ServerName(const testing::TestParamInfo<TDatabaseServer>& info)
{
    return info.param == TDatabaseServer::Firebird ? "Firebird" : "PostgreSql";
}

void TDatabaseTest::SetUp()
{
    if (!IsFirebird() && PostgreSqlUri().empty())
        GTEST_SKIP() << "ALINHAVO_TEST_POSTGRESQL is not set";
    address_ = FreshAddress(GetParam());
    CopyDatabase(Templates().Of(GetParam()), address_);
    db = Connect();
}

void TDatabaseTest::TearDown()
{
    if (!db)
        return;
    db.reset();
    DropDatabase(address_);
    for (const auto& other : others_)
        if (DatabaseExists(other))
            DropDatabase(other);
}

TDatabaseAddress TDatabaseTest::OtherAddress()
{
    others_.push_back(FreshAddress(GetParam()));
    return others_.back();
}

std::unique_ptr<TSqlDatabase> TDatabaseTest::Connect(const TDatabaseOptions& options) const
{
    return OpenDatabase(address_, options);
}

std::string TDatabaseTest::Value(TSqlDatabase& database, const TStatement& statement)
{
    const auto data = database.Open(statement);
    return data.RowCount() == 0 ? "no row" : data.Column(0).IsNull(0) ? "null" : data.Column(0).Value(0).AsString();
}

std::vector<std::string> TDatabaseTest::Values(TSqlDatabase& database, const TStatement& statement)
{
    const auto data = database.Open(statement);
    std::vector<std::string> values;
    for (std::size_t row = 0; row < data.RowCount(); ++row)
        values.push_back(data.Column(0).IsNull(row) ? "null" : data.Column(0).Value(row).AsString());
    return values;
}

std::optional<EDatabaseError> TDatabaseTest::Refusal(TSqlDatabase& database, const TStatement& statement)
{
    try {
        database.ExecSQL(statement);
        return std::nullopt;
    } catch (const EDatabaseError& error) {
        return error;
    }
}

} // namespace alinhavo
