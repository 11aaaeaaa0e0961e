// The connections to PostgreSQL are cut before each statement of an operation, the server is restarted there, and it is away for a
// while. Another user has something entered meanwhile.
//
// ALINHAVO_FAULTS=all tries each of them, otherwise a sample.

#include "faults/moments.h"
#include "faults/TOwnServer.h"
#include "faults/TWorkshop.h"
#include "master/TfmFacFluxo.h"
#include "movement/TfmFacMov.h"
#include "platform/database/schema.h"
#include "platform/database/TDatabaseTest.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <regex>

namespace alinhavo {
namespace {

using testing::Contains;
using testing::HasSubstr;

class LostConnection : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (!std::getenv("ALINHAVO_TEST_POSTGRESQL")) // NOLINT(concurrency-mt-unsafe)
            GTEST_SKIP() << "ALINHAVO_TEST_POSTGRESQL is not set";
        uri_ = Uri();
        factory_ = FreshAddress(uri_);
        CreateDatabase(factory_);
        const auto database = OpenDatabase(factory_);
        MigrateSchema(*database);
        TWorkshop::Fill(*database);
    }
    void TearDown() override
    {
        for (const auto& address : copies_)
            DropDatabase(address);
        if (!factory_.name.empty())
            DropDatabase(factory_);
    }

    /// Of the server's superuser.
    virtual std::string Uri() { return std::getenv("ALINHAVO_TEST_POSTGRESQL"); } // NOLINT(concurrency-mt-unsafe)

    TDatabaseAddress Copy()
    {
        copies_.push_back(FreshAddress(uri_));
        CopyDatabase(factory_, copies_.back());
        return copies_.back();
    }

    using TCut = std::function<void(const TDatabaseAddress&)>;
    void TryAt(int moment, const TOperation& operation, const std::vector<std::string>& commitPoints, const TCut& cut);
    void TryAtEachMoment(const TCut& cut);

private:
    std::string uri_;
    TDatabaseAddress factory_;
    std::vector<TDatabaseAddress> copies_;
};

class RestartedServer : public LostConnection {
protected:
    std::string Uri() override
    {
        server = std::make_unique<TOwnServer>();
        return server->Uri();
    }

    std::unique_ptr<TOwnServer> server;
};

/// A hand on the server, in a database of its own.
class TServerHand {
public:
    explicit TServerHand(const TDatabaseAddress& address)
        : name_(address.name)
        , connection_(OpenDatabase(TDatabaseAddress::Parse(std::getenv("ALINHAVO_TEST_POSTGRESQL")))) // NOLINT
    {
    }

    void CutAll()
    {
        connection_->OpenText(
            "SELECT COUNT(pg_terminate_backend(pid, 5000)) FROM pg_stat_activity WHERE datname = '" + name_ + "'");
    }
    void Stop()
    {
        Allow(false);
        CutAll();
    }
    void Start() { Allow(true); }

private:
    void Allow(bool allowed)
    {
        connection_->ExecText("ALTER DATABASE " + name_ + " ALLOW_CONNECTIONS " + (allowed ? "true" : "false"));
        connection_->CommitRetaining();
    }

    std::string name_;
    std::unique_ptr<TSqlDatabase> connection_;
};

struct TUndisturbed {
    int moments = 0;
    std::vector<std::string> commitPoints;
};

TUndisturbed Watch(const TDatabaseAddress& address, const TOperation& operation)
{
    const auto other = OpenDatabase(address);
    TWorkshop workshop(address);
    operation.prepare(workshop);
    TUndisturbed record;
    record.commitPoints.push_back(Committed(*other));
    workshop.database.OnMoment = [&] { ++record.moments; };
    workshop.database.OnCommitted = [&] { record.commitPoints.push_back(Committed(*other)); };
    operation.act(workshop);
    return record;
}

/// What the user entered, as his screen shows it.
std::string Typed(TWorkshop& workshop)
{
    std::string typed;
    if (workshop.Session().FindFormByClass("TfmFacFluxo")) {
        auto& screen = workshop.Screen<TfmFacFluxo>("TfmFacFluxo");
        return screen.EdtFluxo.text() + "," + screen.EdtDescFluxo.text() + ","
            + std::to_string(screen.TbTemp.RecordCount());
    }
    auto& screen = workshop.Screen<TfmFacMov>("TfmFacMov");
    typed = screen.edtOFNum.text() + "," + screen.EdtSetor.text() + "," + screen.edtM01OF.text() + ","
        + screen.edtM02OF.text();
    screen.TbTemp.ForEach([&] { typed += "," + screen.TbTemp.Quant.AsString(); });
    return typed;
}

/// Work that was undone has used numbers up.
std::string WithoutNumbers(const std::string& rows)
{
    static const std::regex numbers("IDENTIFICADOR=[0-9]+");
    return std::regex_replace(rows, numbers, "");
}

/// What is told to a user whose connection is gone.
MATCHER(TellsOfTheConnection, "")
{
    return std::ranges::any_of(arg, [](const std::string& text) {
        return text.find("conexão com o banco de dados foi perdida") != std::string::npos;
    });
}

/// The one whose operation is cut is told, and the database stands at a commit point; what he and another had entered is kept, and
/// their next actions open the connection again.
void LostConnection::TryAt(
    int moment, const TOperation& operation, const std::vector<std::string>& commitPoints, const TCut& cut)
{
    const auto address = Copy();
    TWorkshop workshop(address);
    TWorkshop another(address);
    another.clerk.Open("TfmFacMov");
    another.EnterMovement(TWorkshop::NextOrder);
    another.clerk.Heard();
    const auto typedByAnother = Typed(another);
    operation.prepare(workshop);
    workshop.clerk.Heard();
    const auto typed = Typed(workshop);
    int left = moment;
    workshop.database.OnMoment = [&] {
        if (--left == 0)
            cut(address);
    };
    operation.act(workshop);
    workshop.database.OnMoment = nullptr;
    ASSERT_LE(left, 0);

    const auto heard = workshop.clerk.Heard();
    const auto database = OpenDatabase(address);
    const auto found = Committed(*database);
    EXPECT_TRUE(std::ranges::find(commitPoints, found) != commitPoints.end());
    EXPECT_EQ(Errors(*database), std::vector<std::string>());
    if (found != commitPoints.back()) {
        EXPECT_THAT(heard, TellsOfTheConnection()) << testing::PrintToString(heard);
        EXPECT_EQ(Typed(workshop), typed);
        operation.act(workshop);
        EXPECT_EQ(WithoutNumbers(Committed(*database)), WithoutNumbers(commitPoints.back()))
            << "again: " << testing::PrintToString(workshop.clerk.Heard());
    }

    another.clerk.Click("btn00Confirmar");
    EXPECT_THAT(another.clerk.Heard(), TellsOfTheConnection());
    EXPECT_EQ(Typed(another), typedByAnother);
    another.clerk.Click("btn00Confirmar");
    EXPECT_EQ(another.clerk.Heard(), std::vector<std::string>());
    EXPECT_TRUE(TWorkshop(address).Moved(TWorkshop::NextOrder));
    EXPECT_EQ(Errors(*database), std::vector<std::string>());
}

void LostConnection::TryAtEachMoment(const TCut& cut)
{
    const auto& operation = FindOperation(GetParam());
    const auto record = Watch(Copy(), operation);
    ASSERT_GE(record.commitPoints.size(), 2U);
    for (const int moment : MomentsToTry(record.moments - 1)) {
        SCOPED_TRACE("cut at moment " + std::to_string(moment) + " of " + std::to_string(record.moments));
        TryAt(moment, operation, record.commitPoints, cut);
    }
}

TEST_P(LostConnection, IsToldLeavesTheDatabaseAtACommitPointAndIsOpenedAgainByTheNextAction)
{
    TryAtEachMoment([](const TDatabaseAddress& address) { TServerHand(address).CutAll(); });
}

TEST_P(RestartedServer, IsToldLeavesTheDatabaseAtACommitPointAndIsUsedAgainByTheNextAction)
{
    TryAtEachMoment([&](const TDatabaseAddress&) { server->Restart(); });
}

TEST_P(LostConnection, AServerThatIsAwayIsToldAndMissedNoLongerThanItIsAway)
{
    const auto& operation = FindOperation(GetParam());
    const auto record = Watch(Copy(), operation);
    const auto address = Copy();
    TServerHand server(address);
    TWorkshop workshop(address);
    operation.prepare(workshop);
    workshop.clerk.Heard();
    const auto typed = Typed(workshop);

    server.Stop();
    operation.act(workshop);
    EXPECT_THAT(workshop.clerk.Heard(), TellsOfTheConnection());
    operation.act(workshop);
    EXPECT_THAT(workshop.clerk.Heard(), Contains(HasSubstr("Não foi possível abrir o banco de dados")));
    EXPECT_EQ(Typed(workshop), typed);

    server.Start();
    operation.act(workshop);
    EXPECT_EQ(WithoutNumbers(Committed(*OpenDatabase(address))), WithoutNumbers(record.commitPoints.back()));
}

const auto operations = testing::Values("confirmation", "reversal", "removal", "flow");

INSTANTIATE_TEST_SUITE_P(In, LostConnection, operations, [](const auto& test) { return test.param; });
INSTANTIATE_TEST_SUITE_P(In, RestartedServer, operations, [](const auto& test) { return test.param; });

} // namespace
} // namespace alinhavo
