#include "host/TStatement.h"

#include "host/EDatabaseError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace alinhavo {
namespace {

using testing::ElementsAre;

template <typename Action>
void ExpectSyntaxError(Action action, std::string_view text)
{
    try {
        action();
        ADD_FAILURE() << "accepted: " << text;
    } catch (const EDatabaseError& error) {
        EXPECT_EQ(error.Kind(), TDatabaseErrorKind::Syntax) << text;
    }
}

TEST(TStatement, KeepsValuesOutOfItsText)
{
    const TStatement sql("SELECT COR FROM {FACCAO} WHERE NUMERO = ? AND MOV = ?", "000123' OR 1=1 --", 7);

    EXPECT_EQ(sql.Text(), "SELECT COR FROM {FACCAO} WHERE NUMERO = ? AND MOV = ?");
    EXPECT_THAT(sql.Values(), ElementsAre(TValue("000123' OR 1=1 --"), TValue(7)));
}

TEST(TStatement, GrowsByFragmentsAndByStatements)
{
    TStatement sql("SELECT COR FROM {FACCAO} WHERE NUMERO = ?", "000123");
    const TStatement part(" AND PARTE = ?", "01");
    sql.Add(part).Add(" AND QUANT > ?", 0).Add(" ORDER BY COR");

    EXPECT_EQ(sql.Text(), "SELECT COR FROM {FACCAO} WHERE NUMERO = ? AND PARTE = ? AND QUANT > ? ORDER BY COR");
    EXPECT_THAT(sql.Values(), ElementsAre(TValue("000123"), TValue("01"), TValue(0)));
}

TEST(TStatement, CanBeAddedToItself)
{
    TStatement sql("?, ", 1);
    sql.Add(sql);

    EXPECT_EQ(sql.Text(), "?, ?, ");
    EXPECT_EQ(sql.Rendered(), "1, 1, ");
}

TEST(TStatement, IsEmptyUntilSomethingIsAdded)
{
    TStatement sql;
    EXPECT_TRUE(sql.IsEmpty());
    EXPECT_FALSE(sql.Add("SELECT 1 FROM {OF1}").IsEmpty());
}

TEST(TStatement, TakesNoQuestionMarkInQuotesForAPlaceholder)
{
    const TStatement sql("SELECT 'it''s ?', \"A?\" FROM {OF1} WHERE OBS <> '?' AND NUMERO = ?", "1");

    EXPECT_EQ(sql.Values().size(), 1u);
    EXPECT_EQ(sql.Rendered(), "SELECT 'it''s ?', \"A?\" FROM {OF1} WHERE OBS <> '?' AND NUMERO = '1'");
}

TEST(TStatement, RefusesAnotherNumberOfArgumentsThanOfPlaceholders)
{
    EXPECT_THROW(TStatement("A = ? AND B = ?", 1), std::logic_error);
    EXPECT_THROW(TStatement("A = ?", 1, 2), std::logic_error);
    EXPECT_THROW(TStatement("A = '?'", 1), std::logic_error);
    EXPECT_THROW(TStatement("A = ?"), std::logic_error);
}

TEST(TStatement, WritesANameInPlaceOfItsPlaceholder)
{
    const TStatement sql("SELECT ? FROM {PRECO} WHERE ? = ?", TName("TAM_P"), TName("COR"), "000009");

    EXPECT_EQ(sql.Text(), "SELECT TAM_P FROM {PRECO} WHERE COR = ?");
    EXPECT_THAT(sql.Values(), ElementsAre(TValue("000009")));
}

TEST(TStatement, MakesAPlaceholderForEachLiteralOfAList)
{
    const TStatement sql("SELECT 1 FROM {OF1} WHERE SETOR IN (?) AND MOV = ?", TLiteralList("'01','02'"), 5);

    EXPECT_EQ(sql.Text(), "SELECT 1 FROM {OF1} WHERE SETOR IN (?, ?) AND MOV = ?");
    EXPECT_THAT(sql.Values(), ElementsAre(TValue("01"), TValue("02"), TValue(5)));
}

TEST(TStatement, RendersValuesAsLiterals)
{
    const TStatement sql("VALUES (?, ?, ?, ?, ?, ?, ?)", "D'Ávila?", "", nullptr, 12, 1234.5,
        TDateTime::FromDate(2026, 3, 5), TDateTime::FromDateTime(2026, 3, 5, 14, 30, 0));

    EXPECT_EQ(sql.Rendered(), "VALUES ('D''Ávila?', '', NULL, 12, 1234.5, '03/05/2026', '03/05/2026 14:30:00')");
}

TEST(TStatement, KeepsAnEmptyTextApartFromNull)
{
    const TStatement sql("REPROCESSO <> ? AND OBS = ?", "", TValue());

    EXPECT_FALSE(sql.Values()[0].IsNull());
    EXPECT_TRUE(sql.Values()[1].IsNull());
}

TEST(TName, TakesLettersDigitsAndUnderscores)
{
    EXPECT_EQ(TName("Tam_38").Text(), "Tam_38");
    for (const auto* name : {"", "1A", "_A", "A B", "A-B", "A;DROP TABLE X", "A\"", "A'", "TAMANHO_Ç", "A.B", "{A}"})
        ExpectSyntaxError([&] { TName{name}; }, name);
}

TEST(TLiteralList, ReadsQuotedCodesAndNumbers)
{
    EXPECT_THAT(TLiteralList("'a','b''c', 12, -1.5").Values(),
        ElementsAre(TValue("a"), TValue("b'c"), TValue(12), TValue(-1.5)));
    EXPECT_THAT(TLiteralList(" 'a' , 'b,c' ").Values(), ElementsAre(TValue("a"), TValue("b,c")));
    EXPECT_THAT(TLiteralList("''").Values(), ElementsAre(TValue("")));
    EXPECT_THAT(TLiteralList("''''").Values(), ElementsAre(TValue("'")));
    EXPECT_THAT(TLiteralList("'01';'02'", ';').Values(), ElementsAre(TValue("01"), TValue("02")));
    EXPECT_TRUE(TLiteralList("'01'").Values()[0].IsText());
    EXPECT_TRUE(TLiteralList("1").Values()[0].IsInteger());
}

TEST(TLiteralList, RefusesWhatIsNoList)
{
    for (const auto* text : {"", " ", ",", "'a',", ",'a'", "'a',,'b'", "'a", "'a''", "a", "'a' 'b'", "'a'b",
             "'a') OR 1=1 --", "1) OR (1=1", "1; DROP TABLE FACCAO", "'a'; DROP TABLE FACCAO", "1 -- x", "(SELECT 1)",
             "NULL", "1 2", "'a'/**/", "\"a\"", "'01';'02'"})
        ExpectSyntaxError([&] { TLiteralList{text}; }, text);
}

TEST(BareNumber, ReadsNumbersAndRefusesOtherText)
{
    EXPECT_TRUE(BareNumber("12").IsInteger());
    EXPECT_EQ(BareNumber(" 0012 "), TValue(12));
    EXPECT_EQ(BareNumber("-1.5"), TValue(-1.5));
    EXPECT_EQ(BareNumber("1,5"), TValue(1.5));
    for (const auto* text : {"", "abc", "1 OR 1=1", "1;", "'1'", "1--", "0x1F", "1e5", "NULL"})
        ExpectSyntaxError([&] { BareNumber(text); }, text);
}

TEST(Aspas, QuotesAndDoublesInnerQuotes)
{
    EXPECT_EQ(Aspas(""), "''");
    EXPECT_EQ(Aspas("ação"), "'ação'");
    EXPECT_EQ(Aspas("' OR ''='"), "''' OR ''''='''");
}

TEST(PermanecePonto, WritesAPointAndNoThousands)
{
    EXPECT_EQ(PermanecePonto(1234.5), "1234.5");
    EXPECT_EQ(PermanecePonto(10), "10");
    EXPECT_EQ(PermanecePonto(-0.001), "-0.001");
}

} // namespace
} // namespace alinhavo
