#include "forms/TField.h"

#include "Pieces.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

struct Field : testing::Test {
    TPieces table;

    void SetUp() override { table.Append(); }
};

TEST_F(Field, ATextLongerThanItsSizeIsCutInCharacters)
{
    table.Cor = "ÁÉÍÓÚÇ000";
    EXPECT_EQ(table.Cor.value(), "ÁÉÍÓÚÇ");
}

TEST_F(Field, ATextIsHeldWithoutTrailingBlanks)
{
    table.Cor = "01   ";
    EXPECT_EQ(table.Cor.value(), "01");
    table.Cor = "ab   cd";
    EXPECT_EQ(table.Cor.value(), "ab   c");
    table.Cor = "abcde  f";
    EXPECT_EQ(table.Cor.value(), "abcde");
}

TEST_F(Field, ANumberWrittenAsTextIsConverted)
{
    table.Quant.Set("12,5");
    table.Mov.Set("7");
    EXPECT_EQ(table.Quant.value(), 12.5);
    EXPECT_EQ(table.Mov.value(), 7);
    table.Mov.Set(7.9);
    EXPECT_EQ(table.Mov.value(), 7);
    table.Mov.Set("");
    EXPECT_TRUE(table.Mov.IsNull());
}

TEST_F(Field, ADateFieldKeepsTheDayAlone)
{
    table.Data = TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0);
    EXPECT_EQ(table.Data.value(), TDateTime::FromDate(2026, 11, 20));
    table.Data.Set("21/11/2026");
    EXPECT_EQ(table.Data.AsString(), "21/11/2026");
    table.Data = TDateTime();
    EXPECT_TRUE(table.Data.IsNull());
}

TEST_F(Field, OnChangeRunsWithTheNewValueAndOnlyWhenItIsAnother)
{
    std::string seen;
    table.Cor.OnChange.connect([&](TField& field) { seen += field.AsString() + ";"; });
    table.Cor = "1";
    table.Cor = "1  ";
    table.Cor = "2";
    table.Cor.Clear();
    table.Cor.Clear();
    EXPECT_EQ(seen, "1;2;;");
}

TEST_F(Field, AnEqualValueIsNoChange)
{
    table.Quant = 1;
    table.Post();
    table.Edit();
    table.Quant = 1;
    table.Quant.Set("1,0");
    EXPECT_FALSE(table.Modified());
    table.Quant = 2;
    EXPECT_TRUE(table.Modified());
}

TEST_F(Field, NullZeroAndTheEmptyTextAreDifferent)
{
    table.Quant = 0;
    EXPECT_FALSE(table.Quant.IsNull());
    table.Cor = "";
    EXPECT_FALSE(table.Cor.IsNull());
}

TEST_F(Field, OnChangeMayWriteOtherFields)
{
    table.Quant.OnChange.connect([&](TField&) { table.Mov = table.Quant.AsInteger() * 2; });
    table.Quant = 21;
    EXPECT_EQ(table.Mov.value(), 42);
}

TEST_F(Field, AnEventSwitchedOffStaysSilent)
{
    int changes = 0;
    table.Quant.OnChange.connect([&](TField&) { ++changes; });
    {
        const TEventOff off(table.Quant.OnChange);
        table.Quant = 1;
    }
    EXPECT_EQ(changes, 0);
    table.Quant = 2;
    EXPECT_EQ(changes, 1);
}

TEST_F(Field, TheOldValueIsTheStoredOneAndNullInANewRow)
{
    table.Cor = "A";
    EXPECT_TRUE(table.Cor.OldValue().IsNull());
    table.Post();
    table.Edit();
    table.Cor = "B";
    EXPECT_EQ(table.Cor.OldValue(), TValue("A"));
    EXPECT_EQ(table.Cor.Value(), TValue("B"));
}

TEST_F(Field, WhatIsTypedIsReadWithCommaOrPointAndAsABrazilianDate)
{
    table.Quant.SetTyped(" 1.234,5 ");
    EXPECT_EQ(table.Quant.value(), 1234.5);
    table.Quant.SetTyped("2.5");
    EXPECT_EQ(table.Quant.value(), 2.5);
    table.Data.SetTyped("5/1/2026");
    EXPECT_EQ(table.Data.value(), TDateTime::FromDate(2026, 1, 5));
    table.Data.SetTyped("  /  /    ");
    EXPECT_TRUE(table.Data.IsNull());
    table.Quant.SetTyped("");
    EXPECT_TRUE(table.Quant.IsNull());
}

TEST_F(Field, WhatIsTypedAndCannotBeReadIsRefusedAndChangesNothing)
{
    table.Quant = 3;
    table.Mov = 4;
    EXPECT_THROW(table.Quant.SetTyped("3x"), std::invalid_argument);
    EXPECT_THROW(table.Mov.SetTyped("4,5"), std::invalid_argument);
    EXPECT_THROW(table.Data.SetTyped("31/02/2026"), std::invalid_argument);
    EXPECT_EQ(table.Quant.value(), 3);
    EXPECT_EQ(table.Mov.value(), 4);
    EXPECT_TRUE(table.Data.IsNull());
}

TEST_F(Field, NothingTypedIntoANullTextLeavesItNull)
{
    table.Cor.SetTyped("");
    EXPECT_TRUE(table.Cor.IsNull());
    table.Cor = "A";
    table.Cor.SetTyped("");
    EXPECT_FALSE(table.Cor.IsNull());
    EXPECT_EQ(table.Cor.value(), "");
}

TEST_F(Field, TheDisplayHasACommaAndTheDecimalsOfTheField)
{
    table.Quant = 1234.5;
    EXPECT_EQ(table.Quant.DisplayText(), "1234,5");
    table.Quant.options.decimals = 2;
    EXPECT_EQ(table.Quant.DisplayText(), "1.234,50");
    table.Quant.Clear();
    EXPECT_EQ(table.Quant.DisplayText(), "");
    table.Data = TDateTime::FromDate(2026, 1, 5);
    EXPECT_EQ(table.Data.DisplayText(), "05/01/2026");
}

TEST_F(Field, TypedMembersAndFieldsMadeAtRunTimeAreFoundByNameWithoutRegardToCase)
{
    TField& made = table.AddField("Tam_É", TFieldKind::Float, 0, {.title = "É"});
    EXPECT_EQ(table.FindField("tam_é"), &made);
    EXPECT_EQ(&table.FieldByName("COR"), &table.Cor);
    EXPECT_EQ(table.FindField("Nada"), nullptr);
    EXPECT_THROW(table.FieldByName("Nada"), std::out_of_range);
    EXPECT_THROW(table.AddField("COR", TFieldKind::Text), std::logic_error);
    EXPECT_EQ(table.Fields().size(), 6u);
}

TEST_F(Field, AFieldAddedToATableWithRowsIsNullInThem)
{
    table.Cor = "A";
    table.Post();
    TField& made = table.AddField("Tam_M", TFieldKind::Float);
    EXPECT_TRUE(made.IsNull());
    table.Edit();
    made.Set(3);
    table.Post();
    EXPECT_EQ(made.AsFloat(), 3);
    EXPECT_EQ(table.Cor.value(), "A");
}

TEST_F(Field, RemovingTheAddedFieldsLeavesTheMembersAndNoRows)
{
    table.AddField("Tam_M", TFieldKind::Float);
    table.Cor = "A";
    table.Post();
    table.SortBy("Tam_M");
    table.FilterBy("Tam_M", 1);
    table.RemoveAddedFields();
    EXPECT_EQ(table.Fields().size(), 5u);
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_TRUE(table.Active());
    table.AddField("Tam_M", TFieldKind::Text, 2);
    table.Add("B");
    EXPECT_EQ(Column(table, "Cor"), "B");
}

} // namespace
} // namespace alinhavo
