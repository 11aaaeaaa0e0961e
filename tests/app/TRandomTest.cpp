#include "app/demo/TRandom.h"

#include <array>
#include <gtest/gtest.h>

namespace alinhavo {
namespace {

TEST(Random, TheSameSeedAndSubjectDrawTheSame)
{
    TRandom first(5, "orders");
    TRandom second(5, "orders");
    for (int draw = 0; draw < 100; ++draw)
        EXPECT_EQ(first.Between(1, 1000), second.Between(1, 1000));
}

TEST(Random, ASubjectDrawsForItself)
{
    TRandom orders(5, "orders");
    TRandom prices(5, "prices");
    int same = 0;
    for (int draw = 0; draw < 100; ++draw)
        same += orders.Between(1, 1000) == prices.Between(1, 1000) ? 1 : 0;
    EXPECT_LT(same, 5);
}

TEST(Random, BothBoundsAreDrawnAndNothingBeyond)
{
    TRandom random(1, "bounds");
    std::array<int, 4> seen{};
    for (int draw = 0; draw < 400; ++draw) {
        const int value = random.Between(-1, 2);
        ASSERT_GE(value, -1);
        ASSERT_LE(value, 2);
        ++seen[static_cast<std::size_t>(value + 1)];
    }
    for (const int count : seen)
        EXPECT_GT(count, 50);
}

TEST(Random, TheFirstDrawsAreKnownOnEveryMachine)
{
    TRandom random(1, "orders");
    const std::array<int, 4> draws{
        random.Between(1, 1000), random.Between(1, 1000), random.Between(1, 1000), random.Between(1, 1000)};
    EXPECT_EQ(draws, (std::array<int, 4>{636, 422, 402, 646}));
}

} // namespace
} // namespace alinhavo
