#include "platform/services/TLoginGuard.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

const TLoginGuard::TTime start{};

TEST(LoginGuard, ATypingErrorCostsNothing)
{
    TLoginGuard guard;
    guard.Failed("ANA", "10.0.0.1", start);
    EXPECT_EQ(guard.Begin("ANA", "10.0.0.1", start), seconds(0));
}

TEST(LoginGuard, EachFurtherTryWaitsTwiceAsLong)
{
    TLoginGuard guard;
    auto now = start;
    guard.Failed("ANA", "10.0.0.1", now);
    for (const auto expected : {seconds(1), seconds(2), seconds(4), seconds(8), seconds(16)}) {
        guard.Failed("ana", "10.0.0.1", now);
        const auto wait = guard.Begin("ANA", "10.0.0.1", now);
        EXPECT_EQ(wait, expected);
        now += wait;
    }
}

TEST(LoginGuard, ManyTriesAtOnceLineUpAndAreTurnedAway)
{
    TLoginGuard guard;
    for (int round = 0; round < 6; ++round)
        guard.Failed("ANA", "10.0.0.1", start);
    EXPECT_EQ(guard.Begin("ANA", "10.0.0.1", start), seconds(16));
    EXPECT_GT(guard.Begin("ANA", "10.0.0.1", start), TLoginGuard::Longest);
}

TEST(LoginGuard, OthersDoNotWait)
{
    TLoginGuard guard;
    for (int round = 0; round < 9; ++round)
        guard.Failed("ANA", "10.0.0.1", start);
    EXPECT_EQ(guard.Begin("BRUNO", "10.0.0.1", start), seconds(0));
    EXPECT_EQ(guard.Begin("ANA", "10.0.0.2", start), seconds(0));
}

TEST(LoginGuard, TheRightPasswordAndTimeForgive)
{
    TLoginGuard guard;
    for (int round = 0; round < 9; ++round)
        guard.Failed("ANA", "10.0.0.1", start);
    EXPECT_EQ(guard.Begin("ANA", "10.0.0.1", start + minutes(16)), seconds(0));
    for (int round = 0; round < 9; ++round)
        guard.Failed("ANA", "10.0.0.1", start);
    guard.Succeeded("ANA", "10.0.0.1");
    EXPECT_EQ(guard.Begin("ANA", "10.0.0.1", start), seconds(0));
}

TEST(LoginGuard, ATryThatDoesNotWaitIsNotLookedAtBeforeItsTime)
{
    TLoginGuard guard;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(guard.BeginAtOnce("ANA", "", start), seconds(0));
        guard.Failed("ANA", "", start);
    }
    EXPECT_EQ(guard.BeginAtOnce("ANA", "", start), seconds(1));
    EXPECT_EQ(guard.BeginAtOnce("ANA", "", start + milliseconds(999)), milliseconds(1));
    EXPECT_EQ(guard.BeginAtOnce("ANA", "", start + seconds(1)), seconds(0));
    EXPECT_GT(guard.BeginAtOnce("ANA", "", start + seconds(1)), seconds(0)) << "of two at once one is looked at";
}

TEST(LoginGuard, WhatIsNotLookedAtDoesNotLengthenTheWait)
{
    TLoginGuard guard;
    for (int i = 0; i < 2; ++i)
        guard.Failed("ANA", "", start);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(guard.BeginAtOnce("ANA", "", start), seconds(1));
}

TEST(LoginGuard, TellsForHowLong)
{
    EXPECT_EQ(
        TLoginGuard::TooMany(milliseconds(1)), "Muitas tentativas com senha errada. Espere 1 segundo e tente de novo.");
    EXPECT_EQ(TLoginGuard::TooMany(milliseconds(3001)),
        "Muitas tentativas com senha errada. Espere 4 segundos e tente de novo.");
}

} // namespace
} // namespace alinhavo
