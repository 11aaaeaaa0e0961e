#include "TDatabaseTest.h"

#include "platform/database/schema.h"

#include <thread>

namespace alinhavo {
namespace {

class Files : public TDatabaseTest { };
ON_BOTH_SERVERS(Files);

TEST_P(Files, DatabasesAreCreatedFoundAndDropped)
{
    const auto address = OtherAddress();
    EXPECT_FALSE(DatabaseExists(address));
    CreateDatabase(address, {.forcedWrites = false});
    EXPECT_TRUE(DatabaseExists(address));
    EXPECT_THROW(CreateDatabase(address), EDatabaseError);
    DropDatabase(address);
    EXPECT_FALSE(DatabaseExists(address));
    EXPECT_THROW(OpenDatabase(address), EDatabaseError);
}

TEST_P(Files, ACopyHoldsWhatWasCommittedAndGoesItsOwnWay)
{
    db->ExecSQL({"INSERT INTO {CADCOR} (COR) VALUES ('000009')"});
    db->CommitRetaining();
    db.reset();
    const auto address = OtherAddress();
    CopyDatabase(Address(), address);
    EXPECT_THROW(CopyDatabase(Address(), address), EDatabaseError);
    {
        auto copy = OpenDatabase(address);
        EXPECT_EQ(Value(*copy, {"SELECT COR FROM {CADCOR}"}), "000009");
        copy->ExecSQL({"DELETE FROM {CADCOR}"});
        copy->CommitRetaining();
    }
    db = Connect();
    EXPECT_EQ(Value(*db, {"SELECT COR FROM {CADCOR}"}), "000009");
}

TEST_P(Files, ManyConnectionsWorkSideBySide)
{
    std::vector<std::thread> users;
    for (int user = 0; user < 8; ++user)
        users.emplace_back([this, user] {
            auto own = Connect();
            for (int i = 0; i < 20; ++i) {
                own->ExecSQL({"INSERT INTO {FLUXO} (CODIGO, ORDEM) VALUES (?, ?)", std::to_string(user), i});
                own->CommitRetaining();
            }
        });
    for (auto& user : users)
        user.join();
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FLUXO}"}), "160");
}

} // namespace
} // namespace alinhavo
