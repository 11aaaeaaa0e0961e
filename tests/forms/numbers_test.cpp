#include "forms/numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace alinhavo {
namespace {

TEST(FormatFloat, RoundsHalfAwayFromZeroOnTheDecimalValue)
{
    EXPECT_EQ(FormatFloat(0.0005, 3), "0.001");
    EXPECT_EQ(FormatFloat(1.005, 2), "1.01");
    EXPECT_EQ(FormatFloat(2.675, 2), "2.68");
    EXPECT_EQ(FormatFloat(-2.675, 2), "-2.68");
    EXPECT_EQ(FormatFloat(0.5, 0), "1");
    EXPECT_EQ(FormatFloat(2.5, 0), "3");
    EXPECT_EQ(FormatFloat(7.5, 0), "8");
    EXPECT_EQ(FormatFloat(0.1 + 0.2, 1), "0.3");
    EXPECT_EQ(FormatFloat(1.0049999999999999, 2), "1.01");
}

TEST(FormatFloat, RoundsLessThanHalfToZeroWithoutASign)
{
    EXPECT_EQ(FormatFloat(0.0004, 3), "0.000");
    EXPECT_EQ(FormatFloat(-0.0004, 3), "0.000");
    EXPECT_EQ(FormatFloat(-0.0, 2), "0.00");
    EXPECT_EQ(FormatFloat(0.000001, 3), "0.000");
    EXPECT_EQ(FormatFloat(0.4, 0), "0");
    EXPECT_EQ(FormatFloat(-0.0005, 3), "-0.001");
}

TEST(FormatFloat, CarriesIntoNewDigits)
{
    EXPECT_EQ(FormatFloat(9.995, 2), "10.00");
    EXPECT_EQ(FormatFloat(99.9999, 3), "100.000");
    EXPECT_EQ(FormatFloat(0.95, 1), "1.0");
}

TEST(FormatFloat, KeepsTheWholeDigitsOfLargeValues)
{
    EXPECT_EQ(FormatFloat(123456789012.345, 2), "123456789012.35");
    EXPECT_EQ(FormatFloat(9007199254740991, 0), "9007199254740991");
    EXPECT_EQ(FormatFloat(9007199254740991, 2), "9007199254740991.00");
    EXPECT_EQ(FormatFloat(1e20, 1), "100000000000000000000.0");
}

TEST(FormatFloat, AgreesWithThousandthsCountedAsWholeNumbers)
{
    for (int tenthsOfThousandths = -20'000; tenthsOfThousandths <= 20'000; ++tenthsOfThousandths) {
        const int sign = tenthsOfThousandths < 0 ? -1 : 1;
        const int thousandths = sign * ((std::abs(tenthsOfThousandths) + 5) / 10);
        ASSERT_EQ(RoundTo(tenthsOfThousandths / 10000.0, 3), thousandths / 1000.0) << tenthsOfThousandths;
    }
}

TEST(RoundTo, IsTheNumberThatFormatFloatWrites)
{
    EXPECT_EQ(RoundTo(1.005, 2), 1.01);
    EXPECT_EQ(RoundTo(-1234.5675, 3), -1234.568);
    EXPECT_EQ(RoundTo(2.5, 0), 3);
    EXPECT_FALSE(std::signbit(RoundTo(-0.0004, 3)));
}

TEST(Trunc, CutsTowardsZeroAndStaysInRange)
{
    using limits = std::numeric_limits<std::int64_t>;

    EXPECT_EQ(Trunc(2.9), 2);
    EXPECT_EQ(Trunc(-2.9), -2);
    EXPECT_EQ(Trunc(1e30), limits::max());
    EXPECT_EQ(Trunc(-1e30), limits::min());
    EXPECT_EQ(Trunc(9223372036854775808.0), limits::max());
    EXPECT_EQ(Trunc(std::nan("")), 0);
}

TEST(FloatToStr, IsShortAndHasNoExponent)
{
    EXPECT_EQ(FloatToStr(12), "12");
    EXPECT_EQ(FloatToStr(0.5), "0.5");
    EXPECT_EQ(FloatToStr(0.1), "0.1");
    EXPECT_EQ(FloatToStr(-0.0), "0");
    EXPECT_EQ(FloatToStr(-12.25), "-12.25");
    EXPECT_EQ(FloatToStr(0.0000001), "0.0000001");
    EXPECT_EQ(FloatToStr(1e21), "1000000000000000000000");
}

TEST(FloatToStr, ReadsBackAsTheSameNumber)
{
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-300, 300);
    for (int count = 0; count < 2'000; ++count) {
        const double value = mantissa(random) * std::pow(10.0, exponent(random));
        ASSERT_EQ(ParseFloat(FloatToStr(value)), value);
    }
    EXPECT_EQ(ParseFloat(FloatToStr(std::numeric_limits<double>::max())), std::numeric_limits<double>::max());
}

TEST(FormatDecimal, WritesAsTheScreensDo)
{
    EXPECT_EQ(FormatDecimal(1234.5, 2), "1.234,50");
    EXPECT_EQ(FormatDecimal(-1234567.891, 2), "-1.234.567,89");
    EXPECT_EQ(FormatDecimal(123, 0), "123");
    EXPECT_EQ(FormatDecimal(-123, 1), "-123,0");
    EXPECT_EQ(FormatDecimal(1000000, 0), "1.000.000");
}

TEST(ParseFloat, ReadsPointAndComma)
{
    EXPECT_EQ(ParseFloat("12.5"), 12.5);
    EXPECT_EQ(ParseFloat("12,5"), 12.5);
    EXPECT_EQ(ParseFloat("1.234,56"), 1234.56);
    EXPECT_EQ(ParseFloat("-1.234.567,8"), -1234567.8);
    EXPECT_EQ(ParseFloat("1.234"), 1.234);
    EXPECT_EQ(ParseFloat("1234,5"), 1234.5);
    EXPECT_EQ(ParseFloat("+7"), 7);
    EXPECT_EQ(ParseFloat(",5"), 0.5);
    EXPECT_EQ(ParseFloat("5,"), 5);
    EXPECT_EQ(ParseFloat("  3 "), 3);
}

TEST(ParseFloat, RefusesEverythingElse)
{
    for (const auto* text : {"", " ", "-", ".", ",", "abc", "1a", "1 2", "1,2,3", "1.2.3", "1,234.5", "12.34,5",
             "1234.567,8", ".123,4", "1..234,5", "1e5", "nan", "inf", "0x10", "--1", "+-1", "1;DROP"})
        EXPECT_FALSE(ParseFloat(text)) << text;
    EXPECT_EQ(StrToFloatDef("abc", 4.5), 4.5);
}

TEST(ParseInteger, ReadsWholeNumbersAndNothingElse)
{
    EXPECT_EQ(ParseInteger("007"), 7);
    EXPECT_EQ(ParseInteger(" -12 "), -12);
    EXPECT_EQ(ParseInteger("+3"), 3);
    EXPECT_EQ(ParseInteger("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    for (const auto* text : {"", "-", "+", "+-1", "1.0", "1,0", "1a", "a1", "9223372036854775808", "1 2"})
        EXPECT_FALSE(ParseInteger(text)) << text;
    EXPECT_EQ(StrToIntDef("1.5", 9), 9);
}

} // namespace
} // namespace alinhavo
