#pragma once

#include "host/EDatabaseError.h"
#include "platform/database/OpenDatabase.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace alinhavo {

/// A test that runs on each server, in a database of its own that holds the schema and nothing else. The tests of PostgreSQL
/// are skipped unless ALINHAVO_TEST_POSTGRESQL names a server's superuser.
class TDatabaseTest : public testing::TestWithParam<TDatabaseServer> {
protected:
    void SetUp() override;
    void TearDown() override;

    bool IsFirebird() const { return GetParam() == TDatabaseServer::Firebird; }
    const TDatabaseAddress& Address() const { return address_; }
    /// Where there is no database yet; dropped after the test when the test has made one.
    TDatabaseAddress OtherAddress();
    /// Another connection to the test's database.
    std::unique_ptr<TSqlDatabase> Connect(const TDatabaseOptions& options = {}) const;

    /// The first cell of a query, as text.
    static std::string Value(TSqlDatabase& database, const TStatement& statement);
    /// All cells of the first column, as texts.
    static std::vector<std::string> Values(TSqlDatabase& database, const TStatement& statement);
    /// What a statement is refused with.
    static std::optional<EDatabaseError> Refusal(TSqlDatabase& database, const TStatement& statement);

    std::unique_ptr<TSqlDatabase> db;

private:
    TDatabaseAddress address_;
    std::vector<TDatabaseAddress> others_;
};

/// An address of its own for each call.
TDatabaseAddress FreshAddress(TDatabaseServer server);
/// At the PostgreSQL server whose superuser's address it is.
TDatabaseAddress FreshAddress(const std::string& uri);
std::string ServerName(const testing::TestParamInfo<TDatabaseServer>& info);

#define ON_BOTH_SERVERS(suite)                                                                                         \
    INSTANTIATE_TEST_SUITE_P(                                                                                          \
        On, suite, testing::Values(TDatabaseServer::Firebird, TDatabaseServer::PostgreSql), ServerName)

} // namespace alinhavo
