#include "host/TOrvQuery.h"

#include "TFakeDatabase.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

class TOrvQueryTest : public testing::Test {
protected:
    TOrvQuery Consulta(TFragment text) { return TOrvQuery(db, TStatement(text)); }

    TFakeDatabase db;
};

TEST_F(TOrvQueryTest, AResultIsReturnedByValueAndStandsOnItsFirstRow)
{
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"COR", "QTDE"}, {{"000001", 5}, {"000002", 7}}); };
    auto rows = Consulta("SELECT COR, QTDE FROM {OF_ITEN}");
    EXPECT_EQ(rows.RecordCount(), 2U);
    EXPECT_EQ(rows.FieldByName("COR").AsString(), "000001");
    rows.Next();
    EXPECT_EQ(rows.FieldByName("qtde").AsInteger(), 7);
}

TEST_F(TOrvQueryTest, ANullReadsAsNothing)
{
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"OBS"}, {{TValue()}}); };
    auto rows = Consulta("SELECT OBS FROM {FACCAO}");
    EXPECT_EQ(rows.FieldByName("OBS").AsString(), "");
    EXPECT_EQ(rows.FieldByName("OBS").AsFloat(), 0);
    EXPECT_EQ(rows.FieldByName("OBS").AsInteger(), 0);
}

TEST_F(TOrvQueryTest, AFailedOpenLeavesItClosed)
{
    TOrvQuery query(db);
    query.SQL = TStatement("SELECT 1 FROM {OF1}");
    query.Open();
    ASSERT_TRUE(query.Active());
    db.OnOpen
        = [](const TStatement&) -> TTableData { throw EDatabaseError(TDatabaseErrorKind::Syntax, "no statement"); };
    EXPECT_THROW(query.Open(), EDatabaseError);
    EXPECT_FALSE(query.Active());
}

TEST_F(TOrvQueryTest, AnotherStatementBringsOtherFields)
{
    TOrvQuery query(db);
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"A"}, {{"1"}}); };
    query.Open();
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"B"}, {{2}}); };
    query.Open();
    EXPECT_EQ(query.FindField("A"), nullptr);
    EXPECT_EQ(query.FieldByName("B").AsInteger(), 2);
}

TEST_F(TOrvQueryTest, ReopeningStaysAtItsPlace)
{
    TOrvQuery query(db);
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"A"}, {{"1"}, {"2"}, {"3"}}); };
    query.Open();
    query.Last();
    query.Reopen();
    EXPECT_EQ(query.RecNo(), 3U);
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"A"}, {{"1"}}); };
    query.Reopen();
    EXPECT_EQ(query.RecNo(), 1U);
}

TEST_F(TOrvQueryTest, ItTellsHowManyRowsAStatementTouched)
{
    TOrvQuery query(db);
    query.SQL = TStatement("DELETE FROM {FLUXO} WHERE CODIGO = ?", "001");
    db.OnExec = [](const TStatement&) { return 4; };
    EXPECT_EQ(query.ExecSQL(), 4);
    EXPECT_EQ(query.RowsAffected(), 4);
    EXPECT_EQ(db.Statements.back(), "DELETE FROM {FLUXO} WHERE CODIGO = '001'");
}

TEST_F(TOrvQueryTest, ItsRowsMayBeEditedWithoutBeingWritten)
{
    db.OnOpen = [](const TStatement&) { return TFakeDatabase::Rows({"SEL"}, {{"N"}}); };
    auto rows = Consulta("SELECT 'N' AS SEL FROM {OF1}");
    rows.Edit();
    rows.FieldByName("SEL").Set("S");
    rows.Post();
    EXPECT_EQ(rows.FieldByName("SEL").AsString(), "S");
    EXPECT_EQ(db.Statements.size(), 1U);
}

} // namespace
} // namespace alinhavo
