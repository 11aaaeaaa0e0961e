#include "host/TOrvTable.h"

#include "TFakeDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace alinhavo {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// Colours 1 to 3, of which a condition on COR leaves one.
class TOrvTableTest : public testing::Test {
protected:
    TOrvTableTest()
    {
        db.OnOpen = [](const TStatement& sql) {
            auto rows = TFakeDatabase::Rows({"COR", "DESCRICAO"}, {});
            for (const auto* cor : {"1", "2", "3"}) {
                if (!sql.Values().empty() && sql.Values().front() != TValue(cor))
                    continue;
                rows.Column(0).Append(cor);
                rows.Column(1).Append(std::string("Cor ") + cor);
            }
            return rows;
        };
    }

    std::string Cor() { return table.FieldByName("COR").AsString(); }

    const std::string all = "SELECT COR, DESCRICAO FROM {CADCOR} ORDER BY COR";
    TFakeDatabase db;
    TComponent owner{"owner"};
    TOrvTable table{owner, "tbCor", db, "CADCOR"};
};

class TListener final : public IDataSetListener {
public:
    void DataSetRowsChanged() override { }
    void DataSetCursorChanged() override { }
    void DataSetRowChanged() override { }
};

TEST_F(TOrvTableTest, OpeningFetchesNothing)
{
    table.Open();
    EXPECT_TRUE(table.Active());
    EXPECT_THAT(db.Statements, IsEmpty());
}

TEST_F(TOrvTableTest, CountingReadsItOnce)
{
    table.Open();
    EXPECT_EQ(table.RecordCount(), 3U);
    table.Last();
    EXPECT_EQ(Cor(), "3");
    EXPECT_THAT(db.Statements, ElementsAre(all));
}

TEST_F(TOrvTableTest, LocatingByKeyReadsThatRowAlone)
{
    table.Open();
    EXPECT_TRUE(table.Locate("cor", {"2"}));
    EXPECT_EQ(table.FieldByName("DESCRICAO").AsString(), "Cor 2");
    EXPECT_FALSE(table.Locate("COR", {"9"}));
    EXPECT_EQ(Cor(), "2");
    EXPECT_THAT(db.Statements, ElementsAre(EndsWith("WHERE COR = '2'"), EndsWith("WHERE COR = '9'")));
}

TEST_F(TOrvTableTest, MovingOnFromALocatedRowReadsTheOthers)
{
    table.Open();
    table.Locate("COR", {"2"});
    table.Next();
    EXPECT_EQ(Cor(), "3");
    EXPECT_EQ(table.RecordCount(), 3U);
    EXPECT_EQ(db.Statements.size(), 2U);
}

TEST_F(TOrvTableTest, LocatingByAnotherColumnReadsItWhole)
{
    table.Open();
    EXPECT_TRUE(table.Locate("DESCRICAO", {"Cor 3"}));
    EXPECT_THAT(db.Statements, ElementsAre(all));
}

TEST_F(TOrvTableTest, ARestrictionReadsJustItsRows)
{
    table.Open();
    table.Restrict("COR", {"2"});
    EXPECT_EQ(table.RecordCount(), 1U);
    EXPECT_THAT(db.Statements, ElementsAre(EndsWith("WHERE COR = '2' ORDER BY COR")));
    table.Unrestrict();
    EXPECT_EQ(table.RecordCount(), 3U);
}

TEST_F(TOrvTableTest, ShownInAGridItIsReadWhenItOpens)
{
    TListener grid;
    table.AddListener(grid);
    EXPECT_THAT(db.Statements, IsEmpty());
    table.Open();
    EXPECT_EQ(db.Statements.size(), 1U);
    table.RemoveListener(grid);
}

TEST_F(TOrvTableTest, AGridThatComesLaterFindsTheRows)
{
    table.Open();
    TListener grid;
    table.AddListener(grid);
    EXPECT_EQ(db.Statements.size(), 1U);
    table.RemoveListener(grid);
}

TEST_F(TOrvTableTest, ANewRowIsInserted)
{
    table.Open();
    table.Append();
    table.FieldByName("COR").Set("4");
    table.FieldByName("DESCRICAO").Set("Azul");
    table.Post();
    EXPECT_EQ(db.Statements.back(), "INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('4', 'Azul')");
    EXPECT_EQ(table.RecordCount(), 4U);
}

TEST_F(TOrvTableTest, OnlyChangedColumnsAreWritten)
{
    table.Open();
    table.Locate("COR", {"2"});
    table.Edit();
    table.FieldByName("DESCRICAO").Set("Verde");
    table.Post();
    EXPECT_EQ(db.Statements.back(), "UPDATE {CADCOR} SET DESCRICAO = 'Verde' WHERE COR = '2'");
}

TEST_F(TOrvTableTest, AChangedKeyFindsTheRowByTheOldOne)
{
    table.Open();
    table.Locate("COR", {"2"});
    table.Edit();
    table.FieldByName("COR").Set("5");
    table.Post();
    EXPECT_EQ(db.Statements.back(), "UPDATE {CADCOR} SET COR = '5' WHERE COR = '2'");
}

TEST_F(TOrvTableTest, AnEditThatChangesNothingWritesNothing)
{
    table.Open();
    table.Locate("COR", {"2"});
    const auto before = db.Statements.size();
    table.Edit();
    table.FieldByName("DESCRICAO").Set("Verde");
    table.FieldByName("DESCRICAO").Set("Cor 2");
    table.Post();
    EXPECT_EQ(db.Statements.size(), before);
}

TEST_F(TOrvTableTest, AFailedWriteLeavesTheRowInEdit)
{
    table.Open();
    table.First();
    table.Edit();
    table.FieldByName("DESCRICAO").Set("Verde");
    db.OnExec
        = [](const TStatement&) -> std::int64_t { throw EDatabaseError(TDatabaseErrorKind::Duplicate, "duplicate"); };
    EXPECT_THROW(table.Post(), EDatabaseError);
    EXPECT_EQ(table.State(), TDataSetState::Edit);
    EXPECT_EQ(table.FieldByName("DESCRICAO").AsString(), "Verde");
}

TEST_F(TOrvTableTest, ARowThatIsGoneMeanwhileIsNotWritten)
{
    table.Open();
    table.First();
    table.Edit();
    table.FieldByName("DESCRICAO").Set("Verde");
    db.OnExec = [](const TStatement&) { return 0; };
    EXPECT_THROW(table.Post(), std::runtime_error);
    EXPECT_EQ(table.State(), TDataSetState::Edit);
}

TEST_F(TOrvTableTest, ADeletedRowGoesByItsKey)
{
    table.Open();
    table.Last();
    table.Delete();
    EXPECT_EQ(db.Statements.back(), "DELETE FROM {CADCOR} WHERE COR = '3'");
    EXPECT_EQ(table.RecordCount(), 2U);
}

TEST_F(TOrvTableTest, ARowHeldByOthersStays)
{
    table.Open();
    table.Last();
    db.OnExec
        = [](const TStatement&) -> std::int64_t { throw EDatabaseError(TDatabaseErrorKind::Referenced, "referenced"); };
    EXPECT_THROW(table.Delete(), EDatabaseError);
    EXPECT_EQ(table.RecordCount(), 3U);
}

TEST_F(TOrvTableTest, ATableWithoutRowsNamesItselfWhenARowIsToBeDeleted)
{
    table.Open();
    table.Restrict("COR", {"9"});
    try {
        table.Delete();
        FAIL() << "there was nothing to delete";
    } catch (const std::logic_error& failure) {
        EXPECT_STREQ(failure.what(), "tbCor has no row to delete");
    }
}

TEST_F(TOrvTableTest, RefreshingKeepsTheCurrentRow)
{
    table.Open();
    table.Locate("DESCRICAO", {"Cor 2"});
    table.Refresh();
    EXPECT_EQ(Cor(), "2");
    EXPECT_EQ(table.RecordCount(), 3U);
}

TEST_F(TOrvTableTest, ClosingForgetsTheRows)
{
    table.Open();
    table.First();
    table.Close();
    EXPECT_EQ(table.RecordCount(), 0U);
    table.Open();
    EXPECT_EQ(table.RecordCount(), 3U);
}

TEST(TOrvTable, TheDatabaseGivesAnIdentity)
{
    TFakeDatabase db;
    TComponent owner("owner");
    TOrvTable table(owner, "tbFluxo", db, "FLUXO");
    table.Open();
    db.OnOpen = [](const TStatement& sql) {
        return sql.Text().starts_with("INSERT") ? TFakeDatabase::Rows({"IDENTIFICADOR"}, {{77}}) : TTableData();
    };
    table.Append();
    table.FieldByName("SETOR").Set("10");
    table.Post();
    EXPECT_EQ(db.Statements.back(),
        "INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES (NULL, NULL, '10', NULL) RETURNING "
        "IDENTIFICADOR");
    EXPECT_EQ(table.FieldByName("IDENTIFICADOR").AsInteger(), 77);
}

TEST(TOrvTable, ATableMustBeDeclared)
{
    TFakeDatabase db;
    TComponent owner("owner");
    EXPECT_THROW(TOrvTable(owner, "tbNada", db, "NADA"), std::logic_error);
}

} // namespace
} // namespace alinhavo
