#pragma once

#include "platform/database/TDatabaseTest.h"

#include "app/demo/TDemoFactory.h"

#include <map>
#include <string>

namespace alinhavo {

/// Reads the demonstration factory on each server. It is made once for all tests, which leave it as it is.
class TDemoTest : public testing::TestWithParam<TDatabaseServer> {
public:
    static constexpr std::uint64_t Seed = 1;
    static TDateTime Today() { return TDateTime::FromDate(2026, 11, 16); }

protected:
    void SetUp() override;

    /// The first cell of a query, as a number.
    int Count(const TStatement& statement);
    std::vector<std::string> Texts(const TStatement& statement);

    TSqlDatabase* db = nullptr;
};

/// A database with the factory, made at the first call and dropped at the end of the program. Another `copy` is another
/// database, made anew.
TSqlDatabase& FilledDatabase(TDatabaseServer server, std::uint64_t seed, TDateTime today, int copy = 1);

/// Likewise, with the history of the orders, and some orders once more.
TSqlDatabase& FactoryAtWork(TDatabaseServer server);

/// Tells two tables apart: by table name, a sum over all rows in the order of the key. The passwords, whose salt is drawn
/// anew each time, are left out.
std::map<std::string, std::uint64_t> Checksums(TSqlDatabase& database);

bool HasPostgreSql();

} // namespace alinhavo
