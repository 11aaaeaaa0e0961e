#include "platform/session/roteiro/compare.h"

#include <gtest/gtest.h>

namespace alinhavo::roteiro {
namespace {

TEST(RoteiroCompare, TakesRunsOfBlanksAsOne)
{
    EXPECT_TRUE(TextMatches("Deseja continuar?", " Deseja \n\r\n continuar?\t"));
    EXPECT_TRUE(TextMatches("", " \n"));
    EXPECT_FALSE(TextMatches("Deseja continuar?", "Desejacontinuar?"));
    EXPECT_FALSE(TextMatches("", "a"));
}

TEST(RoteiroCompare, TakesAnEllipsisAsAnyText)
{
    EXPECT_TRUE(TextMatches("MOVIMENTO…123…", "MOVIMENTO DE OF 000123 NA FACCAO"));
    EXPECT_TRUE(TextMatches("…", ""));
    EXPECT_TRUE(TextMatches("a…b", "ab"));
    EXPECT_FALSE(TextMatches("ab…ba", "aba"));
    EXPECT_FALSE(TextMatches("a…", "ba"));
    EXPECT_FALSE(TextMatches("…a", "ab"));
    EXPECT_FALSE(TextMatches("a…c…b", "a b"));
}

TEST(RoteiroCompare, TakesNumbersWithAPointOrAComma)
{
    EXPECT_TRUE(SameShown("12.5", "12,50"));
    EXPECT_TRUE(SameShown("1234,5", "1.234,50"));
    EXPECT_TRUE(SameShown("1234", "1.234"));
    EXPECT_TRUE(SameShown("-3", "-3,00"));
    EXPECT_TRUE(SameShown("1.234", "1,234"));
    EXPECT_FALSE(SameShown("20", "020"));
    EXPECT_FALSE(SameShown("20", "200"));
    EXPECT_FALSE(SameShown("3", "-3"));
    EXPECT_FALSE(SameShown("", "0"));
    EXPECT_FALSE(SameShown("1,", "1"));
}

TEST(RoteiroCompare, TakesNullOnlyAsNulo)
{
    EXPECT_TRUE(SameValue({"nulo", false}, TValue()));
    EXPECT_FALSE(SameValue({"nulo", true}, TValue()));
    EXPECT_FALSE(SameValue({"", true}, TValue()));
    EXPECT_FALSE(SameValue({"0", false}, TValue()));
    EXPECT_FALSE(SameValue({"nulo", false}, TValue("")));
    EXPECT_TRUE(SameValue({"nulo", true}, TValue("nulo")));
    EXPECT_TRUE(SameCell({"", true}, TValue()));
    EXPECT_TRUE(SameCell({"nulo", false}, TValue()));
    EXPECT_FALSE(SameCell({"0", false}, TValue()));
}

TEST(RoteiroCompare, TakesValuesByTheirKind)
{
    EXPECT_TRUE(SameValue({"012", false}, TValue(12)));
    EXPECT_TRUE(SameValue({"0,3", false}, TValue(0.1 + 0.2)));
    EXPECT_FALSE(SameValue({"0,31", false}, TValue(0.3)));
    EXPECT_FALSE(SameValue({"12", false}, TValue("012")));
    EXPECT_TRUE(SameValue({"20/11/2026", false}, TValue(TDateTime::FromDate(2026, 11, 20))));
    EXPECT_FALSE(SameValue({"", true}, TValue(0)));
}

} // namespace
} // namespace alinhavo::roteiro
