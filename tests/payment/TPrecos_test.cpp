#include "payment/TPrecos.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

constexpr double good = 100;
constexpr double second = 20;
constexpr double incomplete = 3;

double Paid(TIndPag indPag) { return QuantidadePaga(indPag, good, second, incomplete); }

TEST(PaidQuantity, OfASectorThatPaysGoodPieces) { EXPECT_EQ(Paid(IndPag(TValue(1))), 100); }

TEST(PaidQuantity, OfASectorThatPaysSecondQualityToo) { EXPECT_EQ(Paid(IndPag(TValue(2))), 120); }

TEST(PaidQuantity, OfASectorThatPaysSecondQualityAndIncompletePieces) { EXPECT_EQ(Paid(IndPag(TValue(3))), 123); }

TEST(PaidQuantity, OfASectorThatPaysGoodAndIncompletePieces) { EXPECT_EQ(Paid(IndPag(TValue(4))), 103); }

TEST(PaidQuantity, IsNoneWhereTheSectorDoesNotSay) { EXPECT_EQ(Paid(IndPag(TValue())), 0); }

TEST(PaidQuantity, IsNoneForEveryOtherIndication)
{
    for (const int other : {-1, 0, 5, 14})
        EXPECT_EQ(Paid(IndPag(TValue(other))), 0) << other;
}

TEST(PaidQuantity, IsReadFromTextAsWell)
{
    EXPECT_EQ(Paid(IndPag(TValue("2"))), 120);
    EXPECT_EQ(Paid(IndPag(TValue(""))), 0);
}

} // namespace
} // namespace alinhavo
