// The process is ended at each moment of an operation on the embedded database, before and after every statement and commit.
//
// ALINHAVO_FAULTS=all tries each of them, otherwise a sample.

#include "faults/moments.h"
#include "faults/TVictim.h"
#include "faults/TWorkshop.h"
#include "platform/database/schema.h"
#include "platform/database/TDatabaseTest.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace alinhavo {
namespace {

/// A filled database of which each kill gets a copy.
class KilledProcess : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        factory_ = FreshAddress(TDatabaseServer::Firebird);
        CreateDatabase(factory_, {.forcedWrites = false});
        const auto database = OpenDatabase(factory_);
        MigrateSchema(*database);
        TWorkshop::Fill(*database);
    }
    void TearDown() override { std::filesystem::remove(factory_.path); }

    TDatabaseAddress Copy() const
    {
        auto copy = FreshAddress(TDatabaseServer::Firebird);
        CopyDatabase(factory_, copy);
        return copy;
    }

private:
    TDatabaseAddress factory_;
};

/// Where two texts of many lines part.
std::string FirstDifference(const std::string& expected, const std::string& found)
{
    const auto [left, right] = std::ranges::mismatch(expected, found);
    const auto line = [](const std::string& text, std::string::const_iterator at) {
        const auto begin = text.rfind('\n', static_cast<std::size_t>(at - text.begin()));
        const auto from = begin == std::string::npos ? 0 : begin + 1;
        return text.substr(from, text.find('\n', from) - from);
    };
    return line(expected, left) + "\n  instead of\n" + line(found, right);
}

TEST_P(KilledProcess, LeavesTheDatabaseAtACommitPointAndTheNextUserAtWork)
{
    const auto undisturbed = Copy();
    const auto record = TVictim::Watch(undisturbed, GetParam());
    const auto errors = Errors(*OpenDatabase(undisturbed));
    ASSERT_GE(record.commitPoints.size(), 2U) << "nothing was committed";
    ASSERT_NE(record.commitPoints.front(), record.commitPoints.back());
    EXPECT_TRUE(errors.empty()) << errors.front();

    int before = 0;
    int after = 0;
    for (const int moment : MomentsToTry(record.moments)) {
        SCOPED_TRACE("killed at moment " + std::to_string(moment) + " of " + std::to_string(record.moments));
        const auto address = Copy();
        ASSERT_TRUE(TVictim::Kill(address, GetParam(), moment));
        const auto database = OpenDatabase(address);
        const auto found = Committed(*database);
        before += found == record.commitPoints.front() ? 1 : 0;
        after += found == record.commitPoints.back() ? 1 : 0;
        EXPECT_TRUE(std::ranges::find(record.commitPoints, found) != record.commitPoints.end())
            << FirstDifference(found, record.commitPoints.front());
        EXPECT_EQ(Errors(*database), std::vector<std::string>());

        TWorkshop next(address);
        next.clerk.Open("TfmFacMov");
        next.ConfirmMovement(TWorkshop::NextOrder);
        EXPECT_TRUE(next.Moved(TWorkshop::NextOrder));
    }
    EXPECT_GT(before, 0) << "no kill came before the first commit";
    EXPECT_GT(after, 0) << "no kill came after the last commit";
    std::cout << record.moments << " moments, " << record.commitPoints.size() - 1 << " commits\n";
}

std::vector<std::string> OperationNames()
{
    std::vector<std::string> names;
    for (const auto& operation : Operations())
        names.emplace_back(operation.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(
    In, KilledProcess, testing::ValuesIn(OperationNames()), [](const auto& test) { return test.param; });

TEST(FullDisk, IsToldToItsUserWhoLosesNothingHeTyped)
{
    const auto address = FreshAddress(TDatabaseServer::Firebird);
    CreateDatabase(address, {.forcedWrites = true});
    {
        const auto database = OpenDatabase(address);
        MigrateSchema(*database);
        TWorkshop::Fill(*database);
    }
    EXPECT_EQ(TVictim::Starve(address),
        (std::vector<std::string>{
            "O banco de dados não pôde ser gravado: o disco do servidor está cheio ou com defeito.",
            "on screen: 000123 8 8", "not moved", "moved"}));
    EXPECT_EQ(Errors(*OpenDatabase(address)), std::vector<std::string>());
}

} // namespace
} // namespace alinhavo
