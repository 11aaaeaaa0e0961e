#include "app/demo/codes.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

TEST(Codes, ANumberIsFilledWithZerosAndNeverCut)
{
    EXPECT_EQ(Code(7, 3), "007");
    EXPECT_EQ(Code(1234, 3), "1234");
}

TEST(Codes, TheEanCheckDigitWeighsThreeFromTheRight)
{
    EXPECT_EQ(EanCheckDigit("400638133393"), '1');
    EXPECT_EQ(EanCheckDigit("789123456789"), '5');
    EXPECT_EQ(EanCheckDigit("000000000000"), '0');
}

TEST(Codes, AnEanOfTheFactoryIsBrazilian)
{
    EXPECT_EQ(Ean13(1).size(), 13U);
    EXPECT_EQ(Ean13(1).substr(0, 3), "789");
    EXPECT_NE(Ean13(1).substr(0, 12), Ean13(2).substr(0, 12)) << "DUN 14 finds the EAN by its first twelve digits";
}

TEST(Codes, ACnpjHasItsTwoCheckDigits)
{
    EXPECT_EQ(Cnpj(11222333), "11.222.333/0001-81");
    EXPECT_EQ(Cnpj(0), "00.000.000/0001-91");
}

} // namespace
} // namespace alinhavo
