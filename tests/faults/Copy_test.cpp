// A copy that is made and restored while users work, and what is made of it.

#include "app/TLocalControl.h"
#include "faults/TWorkshop.h"
#include "platform/database/copyContents.h"
#include "platform/database/schema.h"
#include "platform/database/TDatabaseTest.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

namespace alinhavo {
namespace {

class Copy : public TDatabaseTest {
protected:
    void SetUp() override
    {
        TDatabaseTest::SetUp();
        if (db)
            TWorkshop::Fill(*db);
    }

    static int Pairs(TSqlDatabase& database, const TStatement& counted) { return std::stoi(Value(database, counted)); }
};
ON_BOTH_SERVERS(Copy);

TEST_P(Copy, HoldsOneMomentOfTheWorkOfOthers)
{
    std::atomic<bool> working = true;
    std::atomic<int> pairs = 0;
    std::thread user([&] {
        const auto own = Connect();
        for (int i = 0; working; ++i) {
            const auto code = std::to_string(100000 + i);
            own->ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, 'Par')", code});
            own->ExecSQL({"INSERT INTO {GERALOG} (MODULO, TEXTO) VALUES ('PAR', ?)", code});
            own->CommitRetaining();
            ++pairs;
        }
    });
    while (pairs < 5)
        std::this_thread::yield();
    const auto copy = OtherAddress();
    CopyContents(Address(), copy, false);
    const int during = pairs;
    const auto restored = OtherAddress();
    CopyContents(copy, restored, false);
    const int whenRestored = pairs;
    working = false;
    user.join();

    const auto copied = OpenDatabase(copy);
    const int colours = Pairs(*copied, {"SELECT COUNT(*) FROM {CADCOR} WHERE DESCRICAO = 'Par'"});
    EXPECT_EQ(Pairs(*copied, {"SELECT COUNT(*) FROM {GERALOG} WHERE MODULO = 'PAR'"}), colours);
    EXPECT_GE(colours, 5);
    EXPECT_LE(colours, during + 1);
    EXPECT_GT(during, 5) << "nobody worked while the copy was made";
    EXPECT_GT(whenRestored, during) << "nobody worked while it was restored";
    EXPECT_EQ(Committed(*OpenDatabase(restored)), Committed(*copied));
}

TEST_P(Copy, IsWorkedInWhenItIsRestored)
{
    {
        TWorkshop workshop(Address());
        workshop.clerk.Open("TfmFacMov");
        workshop.ConfirmMovement(TWorkshop::Order);
    }
    const auto copy = OtherAddress();
    CopyContents(Address(), copy, false);
    const auto before = Committed(*db);
    EXPECT_EQ(Committed(*OpenDatabase(copy)), before);

    const auto restored = OtherAddress();
    CopyContents(copy, restored, false);
    EXPECT_EQ(Committed(*OpenDatabase(restored)), before);
    EXPECT_EQ(Errors(*OpenDatabase(restored)), std::vector<std::string>());
    TWorkshop workshop(restored);
    workshop.clerk.Open("TfmFacMov");
    workshop.ConfirmMovement(TWorkshop::NextOrder);
    EXPECT_TRUE(workshop.Moved(TWorkshop::NextOrder));
}

TEST_P(Copy, TakesTheFactoryToTheOtherServer)
{
    if (!std::getenv("ALINHAVO_TEST_POSTGRESQL")) // NOLINT(concurrency-mt-unsafe)
        GTEST_SKIP() << "ALINHAVO_TEST_POSTGRESQL is not set";
    const auto there = FreshAddress(IsFirebird() ? TDatabaseServer::PostgreSql : TDatabaseServer::Firebird);
    CopyContents(Address(), there, false);
    const auto before = Committed(*db);
    EXPECT_EQ(Committed(*OpenDatabase(there)), before);
    const auto back = OtherAddress();
    CopyContents(there, back, false);
    EXPECT_EQ(Committed(*OpenDatabase(back)), before);
    DropDatabase(there);
}

TEST_P(Copy, ReplacesADatabaseOnlyWhenItIsTold)
{
    const auto other = OtherAddress();
    CopyContents(Address(), other, false);
    OpenDatabase(other)->ExecText("DELETE FROM PARAMETRO");
    const auto refused = [&] {
        try {
            CopyContents(Address(), other, false);
            return std::string();
        } catch (const EDatabaseError& error) {
            return std::string(error.what());
        }
    }();
    EXPECT_NE(refused.find("Já existe um banco de dados"), std::string::npos) << refused;
    CopyContents(Address(), other, true);
    EXPECT_EQ(Committed(*OpenDatabase(other)), Committed(*db));
}

TEST(LocalControl, HasTheServingProcessCarryOutACommand)
{
    const auto database = FreshAddress(TDatabaseServer::Firebird).path;
    std::ostringstream told;
    EXPECT_EQ(AskServer(database, {"copia", "x y"}, told), std::nullopt) << "nobody serves it";
    {
        const TLocalControl control(database, [](const TLocalControl::TWords& words, std::ostream& out) {
            out << words.at(1) << "\n";
            return static_cast<int>(words.size());
        });
        EXPECT_EQ(AskServer(database, {"copia", "x y"}, told), 2);
        EXPECT_EQ(told.str(), "x y\n");
        using std::filesystem::perms;
        const auto allowed = std::filesystem::status(database + ".controle").permissions();
        EXPECT_EQ(allowed & (perms::group_all | perms::others_all), perms::none);
    }
    EXPECT_EQ(AskServer(database, {"copia"}, told), std::nullopt);
}

} // namespace
} // namespace alinhavo
