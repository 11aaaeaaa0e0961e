#include "forms/TDateTime.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

TEST(TDateTime, ReadsDatesWithSlashes)
{
    EXPECT_EQ(TDateTime::Parse("05/03/2026"), TDateTime::FromDate(2026, 3, 5));
    EXPECT_EQ(TDateTime::Parse("5/3/26"), TDateTime::FromDate(2026, 3, 5));
    EXPECT_EQ(TDateTime::Parse(" 05/03/26 "), TDateTime::FromDate(2026, 3, 5));
}

TEST(TDateTime, ReadsDatesOfDigitsAlone)
{
    EXPECT_EQ(TDateTime::Parse("050326"), TDateTime::FromDate(2026, 3, 5));
    EXPECT_EQ(TDateTime::Parse("05032026"), TDateTime::FromDate(2026, 3, 5));
}

TEST(TDateTime, TakesTwoDigitsForYearsFrom1950To2049)
{
    EXPECT_EQ(TDateTime::Parse("01/01/50").Year(), 1950);
    EXPECT_EQ(TDateTime::Parse("01/01/99").Year(), 1999);
    EXPECT_EQ(TDateTime::Parse("01/01/00").Year(), 2000);
    EXPECT_EQ(TDateTime::Parse("01/01/49").Year(), 2049);
}

TEST(TDateTime, ReadsTheHourBehindTheDate)
{
    EXPECT_EQ(TDateTime::Parse("05/03/2026 14:30"), TDateTime::FromDateTime(2026, 3, 5, 14, 30, 0));
    EXPECT_EQ(TDateTime::Parse("050326 9:05:07"), TDateTime::FromDateTime(2026, 3, 5, 9, 5, 7));
}

TEST(TDateTime, IsBlankForWhatIsNoDate)
{
    for (const auto* text : {"", "  /  /    ", "31/04/2026", "29/02/2025", "00/01/2026", "01/13/2026", "01/01/0000",
             "01/01", "01/01/2026/1", "010126 ab", "0101260", "1/1/126", "aa/bb/cccc", "-1/01/2026", "01/01/2026 24:00",
             "01/01/2026 10:60", "01/01/2026 10", "01/01/2026 10:00:", "01/01/2026 10:00 x", "01/01/2026x"})
        EXPECT_TRUE(TDateTime::Parse(text).IsBlank()) << text;
}

TEST(TDateTime, KnowsLeapYears)
{
    EXPECT_TRUE(ValidaData("29/02/2024"));
    EXPECT_TRUE(ValidaData("29/02/2000"));
    EXPECT_FALSE(ValidaData("29/02/1900"));
    EXPECT_FALSE(ValidaData("31/06/2026"));
}

TEST(TDateTime, ReadsBackWhatItWritesThroughoutItsYears)
{
    const auto last = TDateTime::FromDate(9999, 12, 31);
    for (auto day = TDateTime::FromDate(1, 1, 1); day <= last; day = day.AddDays(97))
        ASSERT_EQ(TDateTime::Parse(day.Text()), day) << day.Text();
}

TEST(TDateTime, TakesItselfApart)
{
    for (const int year : {1899, 1970, 2026}) {
        const auto date = TDateTime::FromDateTime(year, 12, 31, 23, 59, 58);
        EXPECT_EQ(date.Year(), year);
        EXPECT_EQ(date.Month(), 12);
        EXPECT_EQ(date.Day(), 31);
        EXPECT_EQ(date.Hour(), 23);
        EXPECT_EQ(date.Minute(), 59);
        EXPECT_EQ(date.Second(), 58);
        EXPECT_EQ(date.Date(), TDateTime::FromDate(year, 12, 31));
        EXPECT_EQ(TDateTime::FromDays(date.Days()), date.Date());
        EXPECT_TRUE(date.HasHour());
        EXPECT_FALSE(date.Date().HasHour());
    }
}

TEST(TDateTime, CountsTheDaysOfTheWeekFromMonday)
{
    EXPECT_EQ(TDateTime::FromDate(2026, 1, 5).DayOfWeek(), 1);
    EXPECT_EQ(TDateTime::FromDate(2026, 1, 11).DayOfWeek(), 7);
    EXPECT_EQ(TDateTime::FromDate(1899, 12, 30).DayOfWeek(), 6);
}

TEST(TDateTime, StaysAtTheEndOfAShorterMonthAndKeepsTheHour)
{
    const auto date = TDateTime::FromDateTime(2026, 1, 31, 8, 15, 0);

    EXPECT_EQ(date.AddMonths(1), TDateTime::FromDateTime(2026, 2, 28, 8, 15, 0));
    EXPECT_EQ(date.AddMonths(25), TDateTime::FromDateTime(2028, 2, 29, 8, 15, 0));
    EXPECT_EQ(date.AddMonths(-1), TDateTime::FromDateTime(2025, 12, 31, 8, 15, 0));
}

TEST(TDateTime, CrossesYearsByDays)
{
    EXPECT_EQ(TDateTime::FromDate(2025, 12, 31).AddDays(1), TDateTime::FromDate(2026, 1, 1));
    EXPECT_EQ(TDateTime::FromDate(2024, 3, 1).AddDays(-1), TDateTime::FromDate(2024, 2, 29));
}

TEST(TDateTime, WritesScreenAndStatementTexts)
{
    const auto day = TDateTime::FromDate(2026, 3, 5);
    const auto hour = TDateTime::FromDateTime(2026, 3, 5, 7, 8, 9);

    EXPECT_EQ(day.Text(), "05/03/2026");
    EXPECT_EQ(day.TextWithHour(), "05/03/2026 00:00:00");
    EXPECT_EQ(day.SqlText(), "03/05/2026");
    EXPECT_EQ(hour.Text(), "05/03/2026");
    EXPECT_EQ(hour.TextWithHour(), "05/03/2026 07:08:09");
    EXPECT_EQ(hour.SqlText(), "03/05/2026 07:08:09");
    EXPECT_EQ(TDateTime::FromDate(7, 1, 2).Text(), "02/01/0007");
}

TEST(TDateTime, StaysBlankAndLowestWhenBlank)
{
    const TDateTime blank;

    EXPECT_EQ(blank.Text(), "  /  /    ");
    EXPECT_EQ(blank.TextWithHour(), "  /  /    ");
    EXPECT_EQ(blank.SqlText(), "");
    EXPECT_TRUE(blank.AddDays(1).IsBlank());
    EXPECT_TRUE(blank.AddMonths(1).IsBlank());
    EXPECT_TRUE(blank.Date().IsBlank());
    EXPECT_FALSE(blank.HasHour());
    EXPECT_LT(blank, TDateTime::FromDate(1, 1, 1));
}

} // namespace
} // namespace alinhavo
