#include "TDemoTest.h"

#include "host/TTableDecl.h"
#include "platform/database/schema.h"

#include <cstdlib>
#include <tuple>

namespace alinhavo {
namespace {

class TFilledDatabases : public testing::Environment {
public:
    TSqlDatabase& Of(TDatabaseServer server, std::uint64_t seed, TDateTime today, int copy)
    {
        auto& database = databases_[{server, seed, today.Days(), copy}];
        if (!database) {
            database = Empty(server);
            TDemoFactory(*database, seed, today).Fill();
        }
        return *database;
    }

    TSqlDatabase& AtWork(TDatabaseServer server)
    {
        auto& database = atWork_[server];
        if (!database) {
            database = Empty(server);
            TDemoFactory factory(*database, TDemoTest::Seed, TDemoTest::Today());
            factory.Fill();
            factory.MakeHistory();
            factory.Multiply(2);
            RefreshStatistics(*database);
        }
        return *database;
    }

    void TearDown() override
    {
        databases_.clear();
        atWork_.clear();
        // The folder of the files may be gone already.
        for (const TDatabaseAddress& address : addresses_) {
            if (DatabaseExists(address))
                DropDatabase(address);
        }
    }

private:
    std::unique_ptr<TSqlDatabase> Empty(TDatabaseServer server)
    {
        const TDatabaseAddress address = FreshAddress(server);
        CreateDatabase(address, {.forcedWrites = false});
        addresses_.push_back(address);
        auto database = OpenDatabase(address);
        MigrateSchema(*database);
        return database;
    }

    std::map<TDatabaseServer, std::unique_ptr<TSqlDatabase>> atWork_;
    std::map<std::tuple<TDatabaseServer, std::uint64_t, std::int64_t, int>, std::unique_ptr<TSqlDatabase>> databases_;
    std::vector<TDatabaseAddress> addresses_;
};

// Registered before the tests run, so that its TearDown does.
TFilledDatabases& filled = *static_cast<TFilledDatabases*>(testing::AddGlobalTestEnvironment(new TFilledDatabases));

std::uint64_t Checksum(const TTableData& data)
{
    std::string text;
    for (std::size_t row = 0; row < data.RowCount(); ++row) {
        for (std::size_t column = 0; column < data.ColumnCount(); ++column)
            text.append(data.Column(column).Value(row).AsString()).append(1, '\x1F');
    }
    return std::hash<std::string>{}(text);
}

bool IsCompared(const TTableDecl& table, const TColumnDecl& column)
{
    return table.name != "ACESSO_USUARIOS" || column.name != "SENHA";
}

} // namespace

TSqlDatabase& FilledDatabase(TDatabaseServer server, std::uint64_t seed, TDateTime today, int copy)
{
    return filled.Of(server, seed, today, copy);
}

TSqlDatabase& FactoryAtWork(TDatabaseServer server) { return filled.AtWork(server); }

std::map<std::string, std::uint64_t> Checksums(TSqlDatabase& database)
{
    std::map<std::string, std::uint64_t> sums;
    for (const TTableDecl& table : Tables()) {
        TStatement sql("SELECT 0");
        for (const TColumnDecl& column : table.columns) {
            if (IsCompared(table, column))
                sql.Add(", ?", TName(column.name));
        }
        sql.Add(" FROM {?} ORDER BY 1", TName(table.name));
        for (const std::string_view column : ColumnNames(table.key))
            sql.Add(", ?", TName(column));
        sums[std::string(table.name)] = Checksum(database.Open(sql));
    }
    return sums;
}

bool HasPostgreSql() { return std::getenv("ALINHAVO_TEST_POSTGRESQL") != nullptr; } // NOLINT(concurrency-mt-unsafe)

void TDemoTest::SetUp()
{
    if (GetParam() == TDatabaseServer::PostgreSql && !HasPostgreSql())
        GTEST_SKIP() << "ALINHAVO_TEST_POSTGRESQL is not set";
    db = &FilledDatabase(GetParam(), Seed, Today());
}

int TDemoTest::Count(const TStatement& statement) { return static_cast<int>(db->Open(statement).Column(0).Integer(0)); }

std::vector<std::string> TDemoTest::Texts(const TStatement& statement)
{
    const TTableData data = db->Open(statement);
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < data.RowCount(); ++row)
        texts.emplace_back(data.Column(0).Text(row));
    return texts;
}

} // namespace alinhavo
