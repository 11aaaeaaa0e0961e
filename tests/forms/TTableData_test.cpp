#include "forms/TTableData.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

class TTableDataTest : public testing::Test {
protected:
    TTableData table;
    const std::size_t text = table.AddColumn("COR", TFieldKind::Text, 6);
    const std::size_t whole = table.AddColumn("MOV", TFieldKind::Integer);
    const std::size_t number = table.AddColumn("QUANT", TFieldKind::Float);
    const std::size_t day = table.AddColumn("DT_S", TFieldKind::Date);
    const std::size_t hour = table.AddColumn("DT_H", TFieldKind::DateTime);
};

TEST_F(TTableDataTest, BeginsARowWithNulls)
{
    EXPECT_EQ(table.AppendRow(), 0u);
    EXPECT_EQ(table.AppendRow(), 1u);

    EXPECT_EQ(table.RowCount(), 2u);
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        EXPECT_TRUE(table.Column(column).IsNull(1));
        EXPECT_TRUE(table.Column(column).Value(1).IsNull());
        EXPECT_EQ(table.Column(column).Float(1), 0);
        EXPECT_EQ(table.Column(column).Integer(1), 0);
    }
    EXPECT_EQ(table.Column(text).Text(1), "");
}

TEST_F(TTableDataTest, KeepsWhatItIsGiven)
{
    const auto noon = TDateTime::FromDateTime(2026, 3, 5, 12, 0, 0);
    table.Column(text).AppendText("000009");
    table.Column(whole).AppendInteger(77);
    table.Column(number).AppendFloat(2.5);
    table.Column(day).AppendDate(noon);
    table.Column(hour).AppendDate(noon);

    EXPECT_EQ(table.RowCount(), 1u);
    EXPECT_EQ(table.Column(text).Value(0).Text(), "000009");
    EXPECT_EQ(table.Column(text).Integer(0), 9);
    EXPECT_TRUE(table.Column(whole).Value(0).IsInteger());
    EXPECT_EQ(table.Column(whole).Float(0), 77);
    EXPECT_EQ(table.Column(number).Float(0), 2.5);
    EXPECT_EQ(table.Column(number).Integer(0), 2);
    EXPECT_EQ(table.Column(day).Value(0).AsDateTime(), noon.Date());
    EXPECT_EQ(table.Column(hour).Value(0).AsDateTime(), noon);
}

TEST_F(TTableDataTest, ConvertsToTheKindOfTheColumn)
{
    table.AppendRow();
    table.Column(text).Set(0, 12.5);
    table.Column(whole).Set(0, "12,9");
    table.Column(number).Set(0, "1.234,5");
    table.Column(day).Set(0, "05/03/2026 10:00");
    table.Column(hour).Set(0, "05/03/2026 10:00");

    EXPECT_EQ(table.Column(text).Text(0), "12.5");
    EXPECT_EQ(table.Column(whole).Integer(0), 12);
    EXPECT_EQ(table.Column(number).Float(0), 1234.5);
    EXPECT_EQ(table.Column(day).Value(0).AsString(), "05/03/2026");
    EXPECT_EQ(table.Column(hour).Value(0).AsString(), "05/03/2026 10:00:00");
}

TEST_F(TTableDataTest, HoldsTheEmptyTextApartFromNullInATextColumnOnly)
{
    table.AppendRow();
    for (std::size_t column = 0; column < table.ColumnCount(); ++column)
        table.Column(column).Set(0, "");

    EXPECT_FALSE(table.Column(text).IsNull(0));
    for (const auto column : {whole, number, day, hour})
        EXPECT_TRUE(table.Column(column).IsNull(0)) << column;
}

TEST_F(TTableDataTest, TakesAValueBackWithNull)
{
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        table.Column(column).Append("1");
        table.Column(column).Set(0, nullptr);
        EXPECT_TRUE(table.Column(column).IsNull(0)) << column;
    }
}

TEST_F(TTableDataTest, OrdersItsRowsAsValuesAreOrdered)
{
    const std::vector<std::vector<TValue>> samples = {
        {nullptr, "", "água", "Azul", "azul", "10"},
        {nullptr, -5, 0, 7},
        {nullptr, -0.5, 0.0, 7.25},
        {nullptr, "01/01/2026", "02/01/2026"},
        {nullptr, "01/01/2026 10:00", "01/01/2026 09:00"},
    };
    for (std::size_t index = 0; index < samples.size(); ++index) {
        auto& column = table.Column(index);
        for (const auto& value : samples[index])
            column.Append(value);
        for (std::size_t left = 0; left < column.Count(); ++left)
            for (std::size_t right = 0; right < column.Count(); ++right)
                EXPECT_EQ(column.Compare(left, right), TValue::Compare(column.Value(left), column.Value(right)))
                    << index << ": " << left << ", " << right;
    }
}

TEST_F(TTableDataTest, FindsAColumnWithoutRegardToCase)
{
    EXPECT_EQ(table.FindColumn("quant"), static_cast<int>(number));
    EXPECT_EQ(table.FindColumn("QUANT_2"), -1);
}

TEST_F(TTableDataTest, FillsALateColumnWithNulls)
{
    table.AppendRow();
    table.AppendRow();

    const auto late = table.AddColumn("TAM_P", TFieldKind::Float);

    EXPECT_EQ(table.Column(late).Count(), 2u);
    EXPECT_TRUE(table.Column(late).IsNull(1));
}

TEST_F(TTableDataTest, LosesRowsAndKeepsColumnsWhenCleared)
{
    table.AppendRow();
    table.Column(text).Set(0, "a text that is longer than what fits inside a string");
    const auto before = table.Bytes();

    table.Clear();

    EXPECT_EQ(table.RowCount(), 0u);
    EXPECT_EQ(table.ColumnCount(), 5u);
    EXPECT_EQ(table.Column(text).Size(), 6);
    EXPECT_LT(table.Bytes(), before);
    EXPECT_EQ(table.AppendRow(), 0u);
}

TEST_F(TTableDataTest, LeavesTheOriginalAloneWhenACopyChanges)
{
    table.AppendRow();
    table.Column(text).Set(0, "azul");
    auto copy = table;

    copy.Column(text).Set(0, "verde");
    copy.AppendRow();
    table.Clear();
    table.AppendRow();
    table.Column(text).Set(0, "preto");

    EXPECT_EQ(copy.Column(text).Text(0), "verde");
    EXPECT_EQ(copy.RowCount(), 2u);
    EXPECT_EQ(table.Column(text).Text(0), "preto");
}

TEST(TTableData, CountsRowsBeforeItHasColumns)
{
    TTableData table;
    table.AppendRow();
    table.AppendRow();

    EXPECT_EQ(table.RowCount(), 2u);
    table.AddColumn("COR", TFieldKind::Text, 6);
    EXPECT_EQ(table.RowCount(), 2u);
}

TEST(TTableData, HoldsAMillionCellsOfRepeatedTextWellBelowFiftyMegabytes)
{
    constexpr std::size_t columns = 10;
    constexpr std::size_t rows = 100'000;
    TTableData table;
    for (std::size_t column = 0; column < columns; ++column)
        table.AddColumn("C" + std::to_string(column), TFieldKind::Text);
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column)
            table.Column(column).AppendText("Camiseta manga longa, cor " + std::to_string((row * 7 + column) % 1000));

    EXPECT_EQ(table.RowCount(), rows);
    EXPECT_EQ(table.Column(9).Text(99'999), "Camiseta manga longa, cor 2");
    EXPECT_GT(table.Bytes(), columns * rows * sizeof(TTextPool::Id));
    EXPECT_LT(table.Bytes(), 10'000'000u);
}

TEST(TTextPool, CountsTheTextsItHolds)
{
    TTextPool pool;
    const auto id = pool.Add(std::string(1000, 'a'));
    const auto once = pool.Bytes();

    EXPECT_GE(once, 1000u);
    EXPECT_EQ(pool.Add(std::string(1000, 'a')), id);
    EXPECT_EQ(pool.Bytes(), once);
    EXPECT_NE(pool.Add("b"), id);
    EXPECT_GT(pool.Bytes(), once);
    EXPECT_EQ(pool.Text(id), std::string(1000, 'a'));
}

} // namespace
} // namespace alinhavo
