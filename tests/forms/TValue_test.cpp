#include "forms/TValue.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace alinhavo {
namespace {

TEST(TValue, GivesNothingForNullAndForTextThatIsNoNumber)
{
    for (const auto& value : {TValue(), TValue(nullptr), TValue(""), TValue("abc")}) {
        EXPECT_EQ(value.AsFloat(), 0);
        EXPECT_EQ(value.AsInteger(), 0);
        EXPECT_TRUE(value.AsDateTime().IsBlank());
    }
    EXPECT_EQ(TValue().AsString(), "");
    EXPECT_TRUE(TValue().IsEmpty());
    EXPECT_TRUE(TValue("").IsEmpty());
    EXPECT_FALSE(TValue("").IsNull());
    EXPECT_FALSE(TValue(0).IsEmpty());
}

TEST(TValue, IsNullForABlankDateAndForWhatIsNoNumber)
{
    EXPECT_TRUE(TValue(TDateTime()).IsNull());
    EXPECT_TRUE(TValue(std::nan("")).IsNull());
}

TEST(TValue, ConvertsNumbersAndTexts)
{
    EXPECT_EQ(TValue(12.0).AsString(), "12");
    EXPECT_EQ(TValue(0.5).AsString(), "0.5");
    EXPECT_EQ(TValue(-3).AsString(), "-3");
    EXPECT_EQ(TValue("1,5").AsFloat(), 1.5);
    EXPECT_EQ(TValue("1.5").AsFloat(), 1.5);
    EXPECT_EQ(TValue("9007199254740993").AsInteger(), 9007199254740993);
    EXPECT_EQ(TValue("-2,9").AsInteger(), -2);
    EXPECT_EQ(TValue(2.9).AsInteger(), 2);
    EXPECT_EQ(TValue(1e30).AsInteger(), std::numeric_limits<std::int64_t>::max());
}

TEST(TValue, ConvertsDates)
{
    const auto day = TDateTime::FromDate(1970, 1, 3);
    const auto noon = TDateTime::FromDateTime(1970, 1, 3, 12, 0, 0);

    EXPECT_EQ(TValue(day).AsString(), "03/01/1970");
    EXPECT_EQ(TValue(noon).AsString(), "03/01/1970 12:00:00");
    EXPECT_EQ(TValue(noon).AsFloat(), 2.5);
    EXPECT_EQ(TValue(noon).AsInteger(), 2);
    EXPECT_EQ(TValue("03/01/1970 12:00").AsDateTime(), noon);
    EXPECT_TRUE(TValue(2).AsDateTime().IsBlank());
}

TEST(TValue, PutsNullLowestAndEqualToNull)
{
    EXPECT_EQ(TValue(), TValue());
    EXPECT_LT(TValue::Compare(TValue(), TValue(-1)), 0);
    EXPECT_LT(TValue::Compare(TValue(), TValue("")), 0);
    EXPECT_GT(TValue::Compare(TValue(TDateTime::FromDate(1, 1, 1)), TValue()), 0);
}

TEST(TValue, ComparesNumbersByValueAndTextsInTheOrderOfTexts)
{
    EXPECT_EQ(TValue(1), TValue(1.0));
    EXPECT_LT(TValue::Compare(TValue(9007199254740992), TValue(9007199254740993)), 0);
    EXPECT_LT(TValue::Compare(TValue("10"), TValue("9")), 0);
    EXPECT_LT(TValue::Compare(TValue("Água"), TValue("azul")), 0);
    EXPECT_GT(TValue::Compare(TValue(TDateTime::FromDate(2026, 1, 1)), TValue(TDateTime::FromDate(2025, 12, 31))), 0);
}

TEST(TValue, ComparesDifferentKindsByNumberWhenOneIsANumberElseByText)
{
    EXPECT_EQ(TValue("01"), TValue(1));
    EXPECT_GT(TValue::Compare(TValue("10"), TValue(9)), 0);
    EXPECT_EQ(TValue("1,5"), TValue(1.5));
    EXPECT_EQ(TValue("05/03/2026"), TValue(TDateTime::FromDate(2026, 3, 5)));
}

} // namespace
} // namespace alinhavo
