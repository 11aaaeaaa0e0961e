#include "forms/TMemTable.h"

#include "forms/TMemTableClone.h"
#include "Pieces.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

/// A dataset that is filled from elsewhere and writes its rows through, as those of the database are.
struct TWritten : TDataSet {
    TStringField Codigo{*this, "CODIGO", 3};
    std::string diary;
    bool refuses = false;

    void Fetch(TTableData data) { Adopt(std::move(data), true); }

private:
    void WriteRow() override { Write(State() == TDataSetState::Insert ? "insert " : "update "); }
    void EraseRow() override { Write("delete "); }
    void Write(const std::string& what)
    {
        if (refuses)
            throw std::runtime_error("refused");
        diary += what + Codigo.OldValue().AsString() + ">" + Codigo.value() + ";";
    }
};

TTableData TwoSectors()
{
    TTableData data;
    data.AddColumn("codigo", TFieldKind::Text, 3);
    data.AddColumn("preco", TFieldKind::Float);
    for (const auto& [code, price] : {std::pair("20", 1.5), std::pair("10", 2.5)}) {
        data.Column(0).AppendText(code);
        data.Column(1).AppendFloat(price);
    }
    return data;
}

TEST(AdoptedRows, OpenOnTheFirstRowWithAFieldForEachColumn)
{
    TWritten query;
    EXPECT_FALSE(query.Active());
    int scrolls = 0;
    query.AfterScroll.connect([&] { ++scrolls; });
    query.Fetch(TwoSectors());
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(query.State(), TDataSetState::Browse);
    EXPECT_EQ(query.Codigo.value(), "20");
    EXPECT_EQ(query.FieldByName("PRECO").AsFloat(), 1.5);
    EXPECT_EQ(query.Fields().size(), 2u);
}

TEST(AdoptedRows, AreReplacedByTheNextOnesInTheSameOrder)
{
    TWritten query;
    query.Fetch(TwoSectors());
    query.SortBy("CODIGO");
    TTableData other;
    other.AddColumn("CODIGO", TFieldKind::Text, 3);
    for (const char* code : {"7", "5"})
        other.Column(0).AppendText(code);
    query.Fetch(std::move(other));
    EXPECT_EQ(query.FindField("preco"), nullptr);
    EXPECT_EQ(Column(query, "CODIGO"), "5 7");
}

TEST(AdoptedRows, AFieldWithoutAColumnIsNullAndMayBeWritten)
{
    TWritten query;
    TField& noted = query.AddField("Obs", TFieldKind::Text, 10);
    query.Fetch(TwoSectors());
    EXPECT_TRUE(noted.IsNull());
    query.Edit();
    noted.Set("x");
    query.Post();
    EXPECT_EQ(noted.AsString(), "x");
    EXPECT_EQ(query.Codigo.value(), "20");
}

TEST(AdoptedRows, AColumnTakesTheKindOfItsField)
{
    TWritten query;
    TField& price = query.AddField("preco", TFieldKind::Text, 10);
    query.Fetch(TwoSectors());
    EXPECT_EQ(price.AsString(), "1.5");
    query.Edit();
    price.Set("1,75x");
    query.Post();
    EXPECT_EQ(price.AsString(), "1,75x");
}

TEST(AdoptedRows, MayBeEditedInMemory)
{
    struct TQuery : TDataSet {
        using TDataSet::Adopt;
    } query;
    query.Adopt(TwoSectors(), true);
    query.Edit();
    query.FieldByName("preco").Set(9);
    query.Post();
    EXPECT_EQ(Column(query, "preco"), "9 2,5");
}

TEST(AdoptedRows, CloseDropsTheEditAndTheRowsAndKeepsTheFields)
{
    TWritten query;
    query.Fetch(TwoSectors());
    TField* const price = query.FindField("preco");
    query.Edit();
    query.Codigo = "99";
    query.Close();
    EXPECT_EQ(query.State(), TDataSetState::Inactive);
    EXPECT_TRUE(query.IsEmpty());
    EXPECT_EQ(query.diary, "");
    EXPECT_EQ(query.FindField("preco"), price);
    EXPECT_THROW(query.Append(), std::logic_error);
    query.Fetch(TwoSectors());
    EXPECT_EQ(query.FindField("preco"), price);
}

TEST(WrittenRows, ArePassedOnWithTheirOldValuesBeforeTheyAreStored)
{
    TWritten table;
    table.Fetch(TwoSectors());
    table.Edit();
    table.Codigo = "21";
    table.Post();
    table.Append();
    table.Codigo = "30";
    table.Post();
    table.Delete();
    EXPECT_EQ(table.diary, "update 20>21;insert >30;delete 30>30;");
}

TEST(WrittenRows, AFailedWriteKeepsTheRowInEditAndAFailedDeleteKeepsTheRow)
{
    TWritten table;
    table.Fetch(TwoSectors());
    table.refuses = true;
    EXPECT_THROW(table.Delete(), std::runtime_error);
    EXPECT_EQ(table.RecordCount(), 2u);
    table.Edit();
    table.Codigo = "21";
    EXPECT_THROW(table.Next(), std::runtime_error);
    EXPECT_EQ(table.State(), TDataSetState::Edit);
    EXPECT_EQ(table.Codigo.value(), "21");
    table.Cancel();
    EXPECT_EQ(table.Codigo.value(), "20");
}

TEST(Loading, MatchesFieldsByNameAndRaisesNoEventPerRow)
{
    TWritten query;
    query.Fetch(TwoSectors());
    TMemTable table;
    TStringField code(table, "Codigo", 1);
    TStringField price(table, "PRECO", 10);
    TIntegerField other(table, "Outro");
    TDiary diary;
    diary.KeepAll(table);
    table.Load(query);
    EXPECT_EQ(diary.Take(), "AfterScroll");
    EXPECT_EQ(Column(table, "Codigo"), "2 1");
    EXPECT_EQ(Column(table, "PRECO"), "1.5 2.5");
    EXPECT_TRUE(other.IsNull());
    EXPECT_EQ(table.RecNo(), 1u);
}

TEST(Loading, TakesTheVisibleRowsInTheirOrder)
{
    TPieces source;
    source.Add("B");
    source.Add("A");
    source.Add("C");
    source.SortBy("Cor");
    source.SetFilter([&] { return source.Cor.value() != "C"; });
    TPieces target;
    target.Add("Z");
    target.Load(source);
    EXPECT_EQ(Column(target, "Cor"), "A B");
    target.AppendFrom(source);
    EXPECT_EQ(Column(target, "Cor"), "A B A B");
    target.AppendFrom(target);
    EXPECT_EQ(target.RecordCount(), 8u);
    target.FilterBy("Cor", "A");
    target.Load(target);
    EXPECT_EQ(target.RecordCount(), 4u);
    target.ClearFilter();
    EXPECT_EQ(target.RecordCount(), 4u);
}

TEST(Loading, CopiesTheStructureWithoutTheRows)
{
    TPieces source;
    source.Add("A");
    source.Quant.options.decimals = 3;
    TMemTable copy;
    copy.AddField("Antigo", TFieldKind::Text);
    copy.CopyStructure(source);
    EXPECT_EQ(copy.FindField("Antigo"), nullptr);
    EXPECT_EQ(copy.Fields().size(), source.Fields().size());
    EXPECT_EQ(copy.FieldByName("Cor").Size(), 6);
    EXPECT_EQ(copy.FieldByName("Quant").options.decimals, 3);
    EXPECT_TRUE(copy.IsEmpty());
    copy.Load(source);
    EXPECT_EQ(Column(copy, "Cor"), "A");
}

struct Details : testing::Test {
    TPieces master;
    TPieces detail;

    void SetUp() override
    {
        for (const char* cor : {"A", "B"}) {
            master.Add(cor, "M");
            detail.Add(cor, "M", 1);
            detail.Add(cor, "M", 2);
            detail.Add(cor, "G", 9);
        }
        detail.SetMaster(master, "Cor;Tam", "Cor;Tam");
        master.First();
    }
};

TEST_F(Details, ShowTheRowsOfTheMastersCurrentRow)
{
    EXPECT_EQ(Column(detail, "Cor"), "A A");
    master.Next();
    EXPECT_EQ(Column(detail, "Cor"), "B B");
    EXPECT_EQ(detail.RecNo(), 1u);
    detail.ClearMaster();
    EXPECT_EQ(detail.RecordCount(), 6u);
}

TEST_F(Details, FollowInALoopWithControlsOff)
{
    std::string sums;
    master.ForEach([&] { sums += std::to_string(static_cast<int>(detail.Sum("Quant"))) + detail.Cor.value(); });
    EXPECT_EQ(sums, "3A3B");
    EXPECT_EQ(Column(detail, "Cor"), "A A");
}

TEST_F(Details, FollowTheLinkedFieldsWhileTheyAreEdited)
{
    master.Edit();
    master.Tam = "G";
    EXPECT_EQ(Column(detail, "Quant"), "9");
    master.Cancel();
    EXPECT_EQ(Column(detail, "Quant"), "1 2");
}

TEST_F(Details, ShowNothingWhileTheMasterIsEmpty)
{
    master.EmptyTable();
    EXPECT_TRUE(detail.IsEmpty());
}

TEST_F(Details, ANewRowTakesTheMastersValuesAndIsUntouched)
{
    master.Last();
    detail.Append();
    EXPECT_EQ(detail.Cor.value(), "B");
    EXPECT_EQ(detail.Tam.value(), "M");
    EXPECT_FALSE(detail.Modified());
    detail.Quant = 7;
    detail.Post();
    EXPECT_EQ(Column(detail, "Quant"), "1 2 7");
    master.First();
    EXPECT_EQ(detail.RecordCount(), 2u);
}

TEST_F(Details, ARowInEditIsPostedBeforeTheMasterMovesAndMayRefuseTheMove)
{
    detail.Edit();
    detail.Quant = 50;
    detail.BeforePost.connect([] { Abort(); });
    EXPECT_THROW(master.Next(), EAbort);
    EXPECT_EQ(master.RecNo(), 1u);
    detail.BeforePost.disconnect();
    master.Next();
    EXPECT_EQ(detail.Cor.value(), "B");
    master.Prior();
    EXPECT_EQ(detail.Quant.value(), 50);
}

TEST_F(Details, HaveAFilterAndAnOrderOfTheirOwn)
{
    detail.SortBy("-Quant");
    detail.SetFilter([&] { return detail.Quant.value() < 2; });
    EXPECT_EQ(Column(detail, "Quant"), "1");
    master.Next();
    EXPECT_EQ(Column(detail, "Quant"), "1");
    detail.ClearFilter();
    EXPECT_EQ(Column(detail, "Quant"), "2 1");
}

TEST_F(Details, AfterScrollOfTheDetailFollowsTheMasters)
{
    TDiary diary;
    diary.Keep(master.AfterScroll, "master");
    detail.AfterScroll.connect([&] { diary.Write("detail" + detail.Cor.value()); });
    master.Next();
    EXPECT_EQ(diary.Take(), "master detailB");
}

TEST_F(Details, TheScreenOfADetailIsToldOnceWhenItsMasterIsDone)
{
    struct TCounter : IDataSetListener {
        int rows = 0;
        void DataSetRowsChanged() override { ++rows; }
        void DataSetCursorChanged() override { }
        void DataSetRowChanged() override { }
    } counter;
    detail.AddListener(counter);
    master.Next();
    EXPECT_EQ(counter.rows, 1);
    {
        const auto off = master.DisableControls();
        for (int turn = 0; turn < 5; ++turn) {
            master.First();
            EXPECT_EQ(detail.Cor.value(), "A");
            master.Last();
        }
        master.First();
        EXPECT_EQ(counter.rows, 1);
    }
    EXPECT_EQ(counter.rows, 2);
    detail.RemoveListener(counter);
}

TEST_F(Details, OutliveTheirMaster)
{
    TPieces orphan;
    orphan.Add("A");
    {
        TPieces gone;
        gone.Add("A");
        orphan.SetMaster(gone, "Cor", "Cor");
    }
    orphan.Add("B");
    EXPECT_EQ(orphan.Cor.value(), "B");
}

struct Clones : testing::Test {
    TPieces table;

    void SetUp() override
    {
        for (const char* cor : {"B", "A", "C"})
            table.Add(cor);
        table.First();
    }
};

TEST_F(Clones, HaveACursorFilterAndOrderOfTheirOwn)
{
    TMemTableClone clone(table);
    clone.SortBy("Cor");
    clone.FilterBy("Cor", "C");
    EXPECT_EQ(Column(clone, "Cor"), "C");
    EXPECT_EQ(Column(table, "Cor"), "B A C");
    EXPECT_EQ(table.Cor.value(), "B");
    EXPECT_EQ(clone.FieldByName("Cor").Size(), 6);
}

TEST_F(Clones, ShowWhatTheOtherPostsAddsAndDeletes)
{
    TMemTableClone clone(table);
    clone.SortBy("Cor");
    clone.First();
    table.Edit();
    table.Cor = "D";
    EXPECT_EQ(Column(clone, "Cor"), "A B C");
    table.Post();
    EXPECT_EQ(Column(clone, "Cor"), "A C D");
    EXPECT_EQ(clone.FieldByName("Cor").AsString(), "A");
    clone.Edit();
    clone.FieldByName("Cor").Set("E");
    clone.Post();
    EXPECT_EQ(Column(table, "Cor"), "D E C");
    table.Add("A0");
    EXPECT_EQ(Column(clone, "Cor"), "A0 C D E");
    EXPECT_EQ(clone.FieldByName("Cor").AsString(), "E");
    table.Locate("Cor", {"E"});
    table.Delete();
    EXPECT_EQ(Column(clone, "Cor"), "A0 C D");
    EXPECT_EQ(clone.FieldByName("Cor").AsString(), "D");
}

TEST_F(Clones, TwoEditsOfOneRowKeepTheColumnsOfBoth)
{
    TMemTableClone clone(table);
    clone.Edit();
    clone.FieldByName("Tam").Set("G");
    table.Edit();
    table.Quant = 5;
    table.Post();
    clone.Post();
    EXPECT_EQ(table.Tam.value(), "G");
    EXPECT_EQ(table.Quant.value(), 5);
}

TEST_F(Clones, AnEditEndsWhenTheOtherDeletesItsRow)
{
    TMemTableClone clone(table);
    clone.Edit();
    clone.FieldByName("Cor").Set("X");
    table.Delete();
    EXPECT_EQ(clone.State(), TDataSetState::Browse);
    EXPECT_EQ(Column(clone, "Cor"), "A C");
}

TEST_F(Clones, ANewRowOfOneIsNotDisturbedByTheOther)
{
    TMemTableClone clone(table);
    clone.GoToRow(1);
    clone.Insert();
    clone.FieldByName("Cor").Set("X");
    table.Delete();
    table.Add("Z");
    EXPECT_EQ(Column(clone, "Cor"), "X A C Z");
    clone.Post();
    EXPECT_EQ(Column(clone, "Cor"), "X A C Z");
    EXPECT_EQ(Column(table, "Cor"), "X A C Z");
}

TEST_F(Clones, FollowTheFieldsOfTheirSource)
{
    TMemTableClone clone(table);
    table.RemoveAddedFields();
    table.AddField("Tam_M", TFieldKind::Float);
    table.Add("N");
    EXPECT_EQ(Column(clone, "Cor"), "N");
    EXPECT_EQ(clone.RecordCount(), 1u);
}

TEST_F(Clones, OutliveTheirSource)
{
    auto source = std::make_unique<TPieces>();
    source->Add("A");
    TMemTableClone clone(*source);
    source.reset();
    EXPECT_EQ(Column(clone, "Cor"), "A");
}

TEST_F(Clones, AClosedSourceLeavesThemTheirRows)
{
    struct TQuery : TDataSet {
        using TDataSet::Adopt;
    } query;
    query.Adopt(TwoSectors(), true);
    TMemTableClone clone(query);
    query.Close();
    EXPECT_EQ(Column(clone, "codigo"), "20 10");
}

TEST(MemTable, IsFoundByNameInItsOwner)
{
    TComponent screen("fmFacMov");
    {
        TMemTable table(screen, "TbTemp");
        EXPECT_EQ(screen.FindComponent("tbtemp"), &table);
        EXPECT_EQ(table.Owner(), &screen);
    }
    EXPECT_EQ(screen.FindComponent("TbTemp"), nullptr);
}

TEST(MemTable, CloseEmptiesItAndItStaysOpen)
{
    TPieces table;
    table.Add("A");
    table.Close();
    EXPECT_TRUE(table.Active());
    EXPECT_TRUE(table.IsEmpty());
    table.Add("B");
    EXPECT_EQ(table.Tag, 0);
}

TEST(MemTable, ACellWithRepeatedTextTakesFewBytes)
{
    TMemTable table;
    for (int column = 0; column < 50; ++column) {
        const bool isText = column % 2 == 0;
        table.AddField("C" + std::to_string(column), isText ? TFieldKind::Text : TFieldKind::Float, isText ? 30 : 0);
    }
    for (int row = 0; row < 4000; ++row) {
        table.Append();
        for (TField* field : table.Fields())
            field->Set("sector number " + std::to_string(row % 500));
        table.Post();
    }
    EXPECT_EQ(table.RecordCount(), 4000u);
    EXPECT_LT(table.Bytes() / (4000 * 50), 20u);
}

TEST(MemTable, RowsDeletedOneByOneGiveTheirMemoryBack)
{
    TPieces table;
    for (int turn = 0; turn < 100; ++turn) {
        for (int row = 0; row < 100; ++row)
            table.Add(std::to_string(turn * 100 + row));
        table.First();
        while (!table.Eof())
            table.Delete();
    }
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_LT(table.Bytes(), 100'000u);
}

} // namespace
} // namespace alinhavo
