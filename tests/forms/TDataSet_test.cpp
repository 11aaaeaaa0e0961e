#include "forms/TDataSet.h"

#include "Pieces.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

struct DataSetCursor : testing::Test {
    TPieces table;

    void SetUp() override
    {
        for (const char* cor : {"A", "B", "C"})
            table.Add(cor);
        table.First();
    }
};

TEST_F(DataSetCursor, AnEmptyTableIsAtBothEndsAndReadsNull)
{
    TPieces empty;
    EXPECT_TRUE(empty.Active());
    EXPECT_TRUE(empty.IsEmpty() && empty.Bof() && empty.Eof());
    EXPECT_EQ(empty.RecNo(), 0u);
    EXPECT_TRUE(empty.Cor.IsNull());
    EXPECT_EQ(empty.Quant.value(), 0);
    empty.Next();
    EXPECT_THROW(empty.Delete(), std::logic_error);
    EXPECT_TRUE(empty.IsEmpty());
}

TEST_F(DataSetCursor, ALoopFromFirstToEofSeesEveryRowOnce)
{
    std::string seen;
    for (table.First(); !table.Eof(); table.Next())
        seen += table.Cor.value();
    EXPECT_EQ(seen, "ABC");
    EXPECT_EQ(table.Cor.value(), "C");
}

TEST_F(DataSetCursor, ALoopFromLastToBofSeesEveryRowOnce)
{
    std::string seen;
    for (table.Last(); !table.Bof(); table.Prior())
        seen += table.Cor.value();
    EXPECT_EQ(seen, "CBA");
}

TEST_F(DataSetCursor, ReachingTheLastRowIsNotYetEof)
{
    table.MoveBy(2);
    EXPECT_EQ(table.RecNo(), 3u);
    EXPECT_FALSE(table.Eof());
    table.MoveBy(-7);
    EXPECT_EQ(table.RecNo(), 1u);
    EXPECT_TRUE(table.Bof());
}

TEST_F(DataSetCursor, GoToRowBeyondTheLastRowDoesNothing)
{
    table.GoToRow(2);
    table.GoToRow(3);
    EXPECT_EQ(table.Cor.value(), "C");
}

TEST_F(DataSetCursor, TheFlagsAreRightWhenAfterScrollRuns)
{
    bool eof = false;
    table.AfterScroll.connect([&] { eof = table.Eof(); });
    table.Last();
    EXPECT_TRUE(eof);
}

TEST_F(DataSetCursor, ScrollEventsSurroundAMoveAndAreSilentWhereTheCursorStays)
{
    TDiary diary;
    table.BeforeScroll.connect([&] { diary.Write("Before" + table.Cor.value()); });
    table.AfterScroll.connect([&] { diary.Write("After" + table.Cor.value()); });
    table.Next();
    EXPECT_EQ(diary.Take(), "BeforeA AfterB");
    table.Last();
    diary.Take();
    table.Next();
    table.Last();
    EXPECT_EQ(diary.Take(), "");
}

TEST_F(DataSetCursor, BeforeScrollMayRefuseTheMove)
{
    table.BeforeScroll.connect([] { Abort(); });
    EXPECT_THROW(table.Next(), EAbort);
    EXPECT_EQ(table.Cor.value(), "A");
}

struct DataSetEditing : DataSetCursor { };

TEST_F(DataSetEditing, WritingWhileBrowsingIsAMistakeOfTheProgram)
{
    EXPECT_THROW(table.Cor = "X", std::logic_error);
    EXPECT_EQ(table.Cor.value(), "A");
}

TEST_F(DataSetEditing, EditedValuesAreHeldApartUntilPost)
{
    TMemTable copy;
    TFloatField quant(copy, "Quant");
    copy.Append();
    quant = 1;
    copy.Post();
    copy.Edit();
    quant = 2;
    EXPECT_EQ(copy.State(), TDataSetState::Edit);
    EXPECT_EQ(quant.value(), 2);
    EXPECT_EQ(quant.OldValue(), TValue(1));
    copy.Post();
    EXPECT_EQ(copy.State(), TDataSetState::Browse);
    EXPECT_EQ(quant.OldValue(), TValue(2));
}

TEST_F(DataSetEditing, CancelRestoresTheRow)
{
    table.Edit();
    table.Cor = "X";
    table.Cancel();
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(table.Cor.value(), "A");
}

TEST_F(DataSetEditing, ASecondEditDoesNotSeeWhatWasCancelled)
{
    table.Edit();
    table.Tam = "M";
    table.Cancel();
    table.Edit();
    table.Cor = "X";
    table.Post();
    EXPECT_TRUE(table.Tam.value().empty());
}

TEST_F(DataSetEditing, CancellingANewRowDropsIt)
{
    table.Append();
    table.Cor = "X";
    table.Cancel();
    EXPECT_EQ(Column(table, "Cor"), "A B C");
    EXPECT_EQ(table.Cor.value(), "C");
}

TEST_F(DataSetEditing, DeletingANewRowDropsItWithoutDeleteEvents)
{
    TDiary diary;
    diary.Keep(table.BeforeDelete, "BeforeDelete");
    table.Append();
    table.Delete();
    EXPECT_EQ(diary.Take(), "");
    EXPECT_EQ(table.RecordCount(), 3u);
}

TEST_F(DataSetEditing, AnInsertedRowIsVisibleInFrontOfTheCurrentOneAndStaysThere)
{
    table.Next();
    table.Insert();
    table.Cor = "X";
    EXPECT_EQ(table.RecNo(), 2u);
    EXPECT_EQ(Column(table, "Cor"), "A X B C");
    table.Post();
    EXPECT_EQ(Column(table, "Cor"), "A X B C");
    EXPECT_EQ(table.Cor.value(), "X");
    table.SortBy("Cor");
    table.SortBy("");
    EXPECT_EQ(Column(table, "Cor"), "A X B C");
}

TEST_F(DataSetEditing, ManyRowsInsertedAtOneSpotKeepTheirOrder)
{
    table.Last();
    for (int row = 0; row < 200; ++row) {
        table.Insert();
        table.Mov = row;
        table.Post();
    }
    table.SortBy("Cor");
    table.SortBy("");
    EXPECT_EQ(table.CellValue(0, table.Cor), TValue("A"));
    EXPECT_EQ(table.CellValue(1, table.Cor), TValue("B"));
    for (std::size_t row = 0; row < 200; ++row)
        ASSERT_EQ(table.CellValue(2 + row, table.Mov).AsInteger(), 199 - static_cast<int>(row));
    EXPECT_EQ(table.CellValue(202, table.Cor), TValue("C"));
}

TEST_F(DataSetEditing, InsertedRowsKeepTheirPlaceBesideHiddenRows)
{
    table.SetFilter([&] { return table.Cor.value() != "B"; });
    table.Last();
    table.Insert();
    table.Cor = "X";
    table.Post();
    EXPECT_EQ(Column(table, "Cor"), "A X C");
    EXPECT_TRUE(table.Locate("Cor", {"X"}));
    table.ClearFilter();
    EXPECT_TRUE(table.Locate("Cor", {"B"}));
    EXPECT_TRUE(table.Locate("Cor", {"X"}));
    EXPECT_EQ(table.RecordCount(), 4u);
}

TEST_F(DataSetEditing, EditOnAnEmptyTableInsertsARow)
{
    TPieces empty;
    empty.Edit();
    EXPECT_EQ(empty.State(), TDataSetState::Insert);
}

TEST_F(DataSetEditing, MovingTheCursorPostsTheEditedRow)
{
    table.Edit();
    table.Cor = "X";
    table.Next();
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(table.Cor.value(), "B");
    EXPECT_EQ(Column(table, "Cor"), "X B C");
}

TEST_F(DataSetEditing, EveryMoveAndEveryChangeOfTheViewPostsTheEditedRow)
{
    const std::vector<std::function<void()>> leaves = {
        [&] { table.First(); },
        [&] { table.Last(); },
        [&] { table.Prior(); },
        [&] { table.GoToRow(0); },
        [&] { table.Locate("Cor", {"A"}); },
        [&] { table.Append(); },
        [&] { table.Insert(); },
        [&] { table.SortBy("Cor"); },
        [&] { table.SetFilter([] { return true; }); },
        [&] { table.ForEach([] {}); },
    };
    for (const auto& leave : leaves) {
        table.Cancel();
        table.SortBy("");
        table.GoToRow(1);
        const double before = table.Quant.value();
        table.Edit();
        table.Quant = before + 1;
        leave();
        table.Cancel();
        ASSERT_TRUE(table.Locate("Cor", {"B"}));
        EXPECT_EQ(table.Quant.value(), before + 1);
    }
}

TEST_F(DataSetEditing, AnUntouchedNewRowIsDroppedWhenTheCursorMoves)
{
    TDiary diary;
    diary.Keep(table.BeforePost, "BeforePost");
    table.OnNewRecord.connect([&] { table.Quant = 1; });
    table.Append();
    EXPECT_FALSE(table.Modified());
    EXPECT_EQ(table.Quant.value(), 1);
    table.Prior();
    EXPECT_EQ(diary.Take(), "");
    EXPECT_EQ(table.RecordCount(), 3u);
    EXPECT_EQ(table.Cor.value(), "C");
}

TEST_F(DataSetEditing, AnUntouchedNewRowIsStoredByPost)
{
    table.Append();
    table.Post();
    EXPECT_EQ(table.RecordCount(), 4u);
}

TEST_F(DataSetEditing, AnAbortBeforePostLeavesTheRowInEditAndTheMoveDoesNotHappen)
{
    TDiary diary;
    table.Edit();
    table.Cor = "X";
    table.BeforePost.connect([] { Abort(); });
    diary.Keep(table.BeforeScroll, "BeforeScroll");
    EXPECT_THROW(table.Next(), EAbort);
    EXPECT_EQ(table.State(), TDataSetState::Edit);
    EXPECT_EQ(table.Cor.value(), "X");
    EXPECT_EQ(table.RecNo(), 1u);
    EXPECT_EQ(diary.Take(), "");
    table.BeforePost.disconnect();
    table.Next();
    EXPECT_EQ(Column(table, "Cor"), "X B C");
}

TEST_F(DataSetEditing, AnyExceptionBeforePostKeepsTheNewRowInEdit)
{
    table.Append();
    table.Cor = "X";
    table.BeforePost.connect([] { throw std::runtime_error("refused"); });
    EXPECT_THROW(table.Post(), std::runtime_error);
    EXPECT_EQ(table.State(), TDataSetState::Insert);
    EXPECT_EQ(Column(table, "Cor"), "A B C X");
}

TEST_F(DataSetEditing, BeforeInsertMayRefuseTheNewRow)
{
    table.BeforeInsert.connect([] { Abort(); });
    EXPECT_THROW(table.Append(), EAbort);
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(table.RecordCount(), 3u);
}

TEST_F(DataSetEditing, AFailureOfTheDefaultsDropsTheNewRow)
{
    table.OnNewRecord.connect([] { Abort(); });
    EXPECT_THROW(table.Append(), EAbort);
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(table.RecordCount(), 3u);
}

TEST_F(DataSetEditing, BeforeDeleteMayRefuse)
{
    table.BeforeDelete.connect([] { Abort(); });
    EXPECT_THROW(table.Delete(), EAbort);
    EXPECT_EQ(table.RecordCount(), 3u);
}

TEST_F(DataSetEditing, BeforePostMayStillWriteFields)
{
    table.BeforePost.connect([&] { table.Quant = 7; });
    table.Edit();
    table.Cor = "X";
    table.Post();
    EXPECT_EQ(table.Quant.value(), 7);
}

TEST_F(DataSetEditing, TheRowCannotBeLeftWhileItIsBeingPosted)
{
    table.BeforePost.connect([&] { table.Next(); });
    table.Edit();
    table.Cor = "X";
    EXPECT_THROW(table.Post(), std::logic_error);
    EXPECT_EQ(table.State(), TDataSetState::Edit);
}

TEST_F(DataSetEditing, DeleteMakesTheSuccessorCurrentAndAtTheEndTheNewLastRow)
{
    table.GoToRow(1);
    table.Delete();
    EXPECT_EQ(table.Cor.value(), "C");
    EXPECT_FALSE(table.Eof());
    table.Delete();
    EXPECT_EQ(table.Cor.value(), "A");
    EXPECT_TRUE(table.Eof());
}

TEST_F(DataSetEditing, ALoopThatDeletesSomeRowsVisitsEachOnce)
{
    std::string seen;
    table.First();
    while (!table.Eof()) {
        seen += table.Cor.value();
        if (table.Cor.value() == "B")
            table.Next();
        else
            table.Delete();
    }
    EXPECT_EQ(seen, "ABC");
    EXPECT_EQ(Column(table, "Cor"), "B");
}

TEST_F(DataSetEditing, EventsComeInTheirOrder)
{
    TDiary diary;
    diary.KeepAll(table);
    table.Append();
    EXPECT_EQ(diary.Take(), "BeforeInsert BeforeScroll OnNewRecord AfterScroll");
    table.Cor = "X";
    table.Post();
    EXPECT_EQ(diary.Take(), "BeforePost AfterPost");
    table.Edit();
    EXPECT_EQ(diary.Take(), "BeforeEdit");
    table.Cor = "Y";
    table.First();
    EXPECT_EQ(diary.Take(), "BeforePost AfterPost BeforeScroll AfterScroll");
    table.Delete();
    EXPECT_EQ(diary.Take(), "BeforeDelete AfterDelete AfterScroll");
    table.Edit();
    table.Cancel();
    EXPECT_EQ(diary.Take(), "BeforeEdit AfterCancel");
    table.Insert();
    table.Cancel();
    EXPECT_EQ(diary.Take(), "BeforeInsert BeforeScroll OnNewRecord AfterScroll AfterCancel AfterScroll");
    table.EmptyTable();
    EXPECT_EQ(diary.Take(), "AfterScroll");
}

TEST_F(DataSetEditing, AfterPostMayBeginTheNextRow)
{
    table.AfterPost.connect([&] {
        if (table.RecordCount() < 6)
            table.Append();
    });
    table.Edit();
    table.Quant = 3;
    table.Post();
    EXPECT_EQ(table.State(), TDataSetState::Insert);
    table.First();
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(table.RecordCount(), 3u);
}

struct DataSetOrder : testing::Test {
    TPieces table;

    void SetUp() override
    {
        table.Add("B", "M", 1);
        table.Add("A", "P", 2);
        table.Add("B", "G", 3);
        table.Add("A", "M", 4);
    }
};

TEST_F(DataSetOrder, SeveralFieldsUpwardsAndDownwards)
{
    table.SortBy("Cor; -Tam");
    EXPECT_EQ(Column(table, "Quant"), "2 4 1 3");
    table.SortBy("-cor;tam");
    EXPECT_EQ(Column(table, "Quant"), "3 1 4 2");
    table.SortBy("");
    EXPECT_EQ(Column(table, "Quant"), "1 2 3 4");
}

TEST_F(DataSetOrder, RowsWithEqualKeysStandInTheOrderOfArrivalInBothDirections)
{
    table.SortBy("Cor");
    EXPECT_EQ(Column(table, "Quant"), "2 4 1 3");
    table.SortBy("-Cor");
    EXPECT_EQ(Column(table, "Quant"), "1 3 2 4");
}

TEST_F(DataSetOrder, AnUnknownFieldLeavesTheOrderAsItIs)
{
    table.SortBy("Cor");
    EXPECT_THROW(table.SortBy("Nada"), std::out_of_range);
    EXPECT_EQ(table.Order().size(), 1u);
    EXPECT_EQ(Column(table, "Quant"), "2 4 1 3");
}

TEST_F(DataSetOrder, NamedIndexesAreUsedAndDeleted)
{
    table.AddIndex("porTam", SortKeys("Tam;-Quant"));
    table.UseIndex("PORTAM");
    EXPECT_EQ(Column(table, "Quant"), "3 4 1 2");
    table.DeleteIndex("PorTam");
    EXPECT_EQ(Column(table, "Quant"), "1 2 3 4");
    EXPECT_THROW(table.UseIndex("porTam"), std::out_of_range);
}

TEST_F(DataSetOrder, TheCursorStaysOnItsRowThroughSorting)
{
    table.First();
    TDiary diary;
    diary.Keep(table.AfterScroll, "AfterScroll");
    table.SortBy("Cor");
    EXPECT_EQ(table.Quant.value(), 1);
    EXPECT_EQ(table.RecNo(), 3u);
    EXPECT_EQ(diary.Take(), "");
}

TEST_F(DataSetOrder, BookmarksSurviveSortingAndFiltering)
{
    table.GoToRow(2);
    const TBookmark bookmark = table.Bookmark();
    table.SortBy("-Quant");
    table.FilterBy("Cor", "B");
    table.First();
    EXPECT_TRUE(table.GoToBookmark(bookmark));
    EXPECT_EQ(table.Quant.value(), 3);
    table.FilterBy("Cor", "A");
    EXPECT_FALSE(table.GoToBookmark(bookmark));
    table.ClearFilter();
    EXPECT_TRUE(table.GoToBookmark(bookmark));
    table.Delete();
    EXPECT_FALSE(table.GoToBookmark(bookmark));
}

TEST_F(DataSetOrder, ABookmarkOfReplacedDataIsLost)
{
    const TBookmark bookmark = table.Bookmark();
    table.EmptyTable();
    table.Add("X");
    table.Add("Y");
    table.Add("Z");
    table.Add("W");
    EXPECT_FALSE(table.GoToBookmark(bookmark));
}

TEST_F(DataSetOrder, AnAppendedRowFindsItsPlaceWhenPostedAndTheCursorStaysOnIt)
{
    table.SortBy("Cor;Tam");
    table.Append();
    table.Cor = "A";
    table.Tam = "N";
    EXPECT_EQ(table.RecNo(), 5u);
    table.Post();
    EXPECT_EQ(Column(table, "Tam"), "M N P G M");
    EXPECT_EQ(table.RecNo(), 2u);
    EXPECT_EQ(table.Tam.value(), "N");
}

TEST_F(DataSetOrder, APostedChangeOfTheKeyMovesTheRowAndTheCursorWithIt)
{
    table.SortBy("Quant");
    table.First();
    table.Edit();
    table.Quant = 3.5;
    EXPECT_EQ(table.RecNo(), 1u);
    table.Post();
    EXPECT_EQ(Column(table, "Quant"), "2 3 3,5 4");
    EXPECT_EQ(table.RecNo(), 3u);
}

TEST_F(DataSetOrder, NextGoesToTheRowThatStoodBelowWhenTheEditedRowMovesAway)
{
    table.SortBy("Quant");
    table.First();
    table.Edit();
    table.Quant = 9;
    table.Next();
    EXPECT_EQ(table.Quant.value(), 2);
}

TEST_F(DataSetOrder, NullsStandLowest)
{
    table.Append();
    table.Cor = "Z";
    table.Post();
    table.SortBy("Quant");
    table.First();
    EXPECT_EQ(table.Cor.value(), "Z");
}

TEST_F(DataSetOrder, ManyRowsAddedUnderAnOrderStandAsOneSortWouldPutThem)
{
    TPieces sorted;
    sorted.SortBy("Mov;-Quant");
    TPieces plain;
    std::uint32_t seed = 7;
    for (int row = 0; row < 500; ++row) {
        seed = seed * 1664525u + 1013904223u;
        for (TPieces* one : {&sorted, &plain}) {
            one->Append();
            one->Mov = seed >> 28;
            one->Quant = (seed >> 20) & 15;
            one->Tam = std::to_string(row);
            one->Post();
        }
        if (row % 37 == 0)
            sorted.First();
    }
    plain.SortBy("Mov;-Quant");
    EXPECT_EQ(Column(sorted, "Tam"), Column(plain, "Tam"));
}

struct DataSetFilter : DataSetOrder { };

TEST_F(DataSetFilter, ThePredicateReadsTheFieldsOfTheRowInQuestion)
{
    table.Last();
    table.SetFilter([&] { return table.Quant.value() < 4 && table.Cor.value() == "B"; });
    EXPECT_TRUE(table.Filtered());
    EXPECT_EQ(Column(table, "Quant"), "1 3");
    table.ClearFilter();
    EXPECT_EQ(table.RecordCount(), 4u);
}

TEST_F(DataSetFilter, TheCursorStaysOnItsRowOrGoesToTheNextVisibleOne)
{
    table.GoToRow(1);
    table.FilterBy("Cor", "A");
    EXPECT_EQ(table.Quant.value(), 2);
    table.FilterBy("Cor", "B");
    EXPECT_EQ(table.Quant.value(), 3);
}

TEST_F(DataSetFilter, ARowPostedOutOfTheFilterMakesItsSuccessorCurrent)
{
    TDiary diary;
    table.FilterBy("Cor", "A");
    table.First();
    diary.Keep(table.AfterScroll, "AfterScroll");
    table.Edit();
    table.Cor = "Z";
    EXPECT_EQ(Column(table, "Quant"), "2 4");
    table.Post();
    EXPECT_EQ(Column(table, "Quant"), "4");
    EXPECT_EQ(table.Quant.value(), 4);
    EXPECT_EQ(diary.Take(), "AfterScroll");
}

TEST_F(DataSetFilter, ANewRowThatTheFilterHidesIsVisibleUntilItIsPosted)
{
    table.FilterBy("Cor", "A");
    table.Append();
    table.Cor = "C";
    EXPECT_EQ(table.RecordCount(), 3u);
    table.Post();
    EXPECT_EQ(table.RecordCount(), 2u);
    EXPECT_EQ(table.Quant.value(), 4);
    table.ClearFilter();
    EXPECT_EQ(table.RecordCount(), 5u);
}

TEST_F(DataSetFilter, APredicateThatFailsLeavesTheFormerFilter)
{
    table.FilterBy("Cor", "A");
    EXPECT_THROW(table.SetFilter([]() -> bool { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_EQ(Column(table, "Quant"), "2 4");
    table.Add("A", "X", 9);
    EXPECT_EQ(table.RecordCount(), 3u);
}

struct DataSetLocate : DataSetOrder { };

TEST_F(DataSetLocate, FindsTheFirstVisibleRowWithAllValues)
{
    EXPECT_TRUE(table.Locate("cor;TAM", {"A", "M"}));
    EXPECT_EQ(table.Quant.value(), 4);
    EXPECT_TRUE(table.Locate("Cor", {"B"}));
    EXPECT_EQ(table.Quant.value(), 1);
}

TEST_F(DataSetLocate, WithoutAMatchTheCursorDoesNotMove)
{
    table.GoToRow(2);
    EXPECT_FALSE(table.Locate("Cor;Tam", {"A", "G"}));
    EXPECT_EQ(table.Quant.value(), 3);
}

TEST_F(DataSetLocate, RowsThatTheFilterHidesAreNotFound)
{
    table.FilterBy("Cor", "A");
    EXPECT_FALSE(table.Locate("Cor", {"B"}));
}

TEST_F(DataSetLocate, OnTheLeadingFieldsOfTheOrderItFindsTheSameRowsAsAScan)
{
    for (const char* order : {"", "Cor;Tam", "-Cor;Tam", "Cor;-Tam", "-Tam;-Cor", "Tam"}) {
        table.SortBy(order);
        for (const char* cor : {"A", "B", "C"}) {
            for (const char* tam : {"G", "M", "P", "", "Z"}) {
                std::size_t expected = table.RecordCount();
                for (std::size_t row = table.RecordCount(); row-- > 0;) {
                    if (table.CellText(row, table.Cor) == cor && table.CellText(row, table.Tam) == tam)
                        expected = row;
                }
                table.First();
                const bool found = table.Locate("Cor;Tam", {cor, tam});
                ASSERT_EQ(found, expected < table.RecordCount()) << order << " " << cor << " " << tam;
                ASSERT_EQ(table.RecNo(), found ? expected + 1 : 1);
            }
        }
    }
}

TEST_F(DataSetLocate, ValuesOfAnotherKindMatchByWhatTheyMean)
{
    table.Edit();
    table.Mov = 12;
    table.Data = TDateTime::FromDate(2026, 11, 20);
    table.Cor = "05";
    table.Post();
    table.First();
    EXPECT_TRUE(table.Locate("Mov", {"12"}));
    EXPECT_TRUE(table.Locate("Data", {"20/11/2026"}));
    EXPECT_TRUE(table.Locate("Cor", {"05   "}));
    EXPECT_FALSE(table.Locate("Cor", {"05000000"}));
    EXPECT_FALSE(table.Locate("Mov", {12.5}));
    EXPECT_TRUE(table.Locate("Mov", {nullptr}));
}

TEST_F(DataSetLocate, AsManyFieldsAsValuesAreNeeded)
{
    EXPECT_THROW(table.Locate("Cor;Tam", {"A"}), std::invalid_argument);
    EXPECT_THROW(table.Locate("Nada", {"A"}), std::out_of_range);
}

TEST_F(DataSetLocate, FindOrAppendUnderAnOrderKeepsOneRowForEachKey)
{
    TPieces sums;
    sums.SortBy("Mov");
    for (int number = 0; number < 300; ++number) {
        const int key = (number * 37) % 50;
        if (sums.Locate("Mov", {key})) {
            sums.Edit();
        } else {
            sums.Append();
            sums.Mov = key;
        }
        sums.Quant = sums.Quant.value() + 1;
        sums.Post();
    }
    EXPECT_EQ(sums.RecordCount(), 50u);
    EXPECT_EQ(sums.Sum("Quant"), 300);
    EXPECT_EQ(sums.CellValue(49, sums.Mov).AsInteger(), 49);
}

struct DataSetForEach : DataSetOrder { };

TEST_F(DataSetForEach, VisitsTheVisibleRowsInTheirOrderAndComesBack)
{
    table.GoToRow(2);
    std::string seen;
    table.SortBy("Cor");
    table.ForEach([&] { seen += table.Quant.AsString(); });
    EXPECT_EQ(seen, "2413");
    EXPECT_EQ(table.Quant.value(), 3);
}

TEST_F(DataSetForEach, TheCursorReturnsWhenAnExceptionPasses)
{
    table.GoToRow(3);
    EXPECT_THROW(table.ForEach([&] {
        table.Edit();
        table.Quant = 99;
        if (table.RecNo() == 2)
            Abort();
    }),
        EAbort);
    EXPECT_EQ(table.RecNo(), 4u);
    EXPECT_EQ(table.State(), TDataSetState::Browse);
    EXPECT_EQ(Column(table, "Quant"), "99 2 3 4");
}

TEST_F(DataSetForEach, EditedRowsArePostedBeforeTheNext)
{
    TDiary diary;
    diary.KeepAll(table);
    table.First();
    diary.Take();
    table.ForEach([&] {
        table.Edit();
        table.Quant = table.Quant.value() * 10;
    });
    EXPECT_EQ(Column(table, "Quant"), "10 20 30 40");
    EXPECT_EQ(diary.Take(),
        "BeforeEdit BeforePost AfterPost BeforeEdit BeforePost AfterPost "
        "BeforeEdit BeforePost AfterPost BeforeEdit BeforePost AfterPost");
}

TEST_F(DataSetForEach, RowsMayBeDeletedInIt)
{
    table.First();
    int visits = 0;
    table.ForEach([&] {
        ++visits;
        if (table.Cor.value() == "B")
            table.Delete();
    });
    EXPECT_EQ(visits, 4);
    EXPECT_EQ(Column(table, "Quant"), "2 4");
    EXPECT_EQ(table.Quant.value(), 2);
}

TEST_F(DataSetForEach, AllRowsMayBeDeletedInIt)
{
    table.ForEach([&] { table.Delete(); });
    EXPECT_TRUE(table.IsEmpty());
    table.Add("X");
    EXPECT_EQ(Column(table, "Cor"), "X");
}

TEST_F(DataSetForEach, KeysMayChangeAndRowsMayBeAddedInItWithoutARowVisitedTwice)
{
    table.SortBy("Quant");
    int visits = 0;
    table.ForEach([&] {
        ++visits;
        table.Edit();
        table.Quant = table.Quant.value() + 100;
        table.Post();
        table.Add("N", "", 1000);
    });
    EXPECT_EQ(visits, 4);
    EXPECT_EQ(Column(table, "Quant"), "101 102 103 104 1000 1000 1000 1000");
}

TEST_F(DataSetForEach, ItMayEmptyTheTable)
{
    table.ForEach([&] { table.EmptyTable(); });
    EXPECT_TRUE(table.IsEmpty());
}

TEST_F(DataSetForEach, SumCountsTheVisibleRowsAndWhatIsBeingTyped)
{
    table.FilterBy("Cor", "B");
    EXPECT_EQ(table.Sum("Quant"), 4);
    table.Edit();
    table.Quant = table.Quant.value() + 10;
    EXPECT_EQ(table.Sum("Quant"), 14);
    table.Append();
    table.Quant = 5;
    EXPECT_EQ(table.Sum("Quant"), 19);
}

struct TListener : IDataSetListener {
    explicit TListener(TDataSet& dataset)
        : table(dataset)
    {
        table.AddListener(*this);
    }
    ~TListener() override { table.RemoveListener(*this); }
    void DataSetRowsChanged() override { diary.Write("Rows"); }
    void DataSetCursorChanged() override { diary.Write("Cursor"); }
    void DataSetRowChanged() override { diary.Write("Row"); }

    TDataSet& table;
    TDiary diary;
};

struct DataSetListeners : DataSetOrder { };

TEST_F(DataSetListeners, HearOneNoticeForEachOperation)
{
    TListener listener(table);
    table.First();
    EXPECT_EQ(listener.diary.Take(), "Cursor");
    table.Edit();
    EXPECT_EQ(listener.diary.Take(), "Cursor");
    table.Quant = 8;
    EXPECT_EQ(listener.diary.Take(), "Row");
    table.Post();
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor");
    table.Append();
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor");
    table.Cancel();
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor Row");
    table.SortBy("Quant");
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor");
    table.Delete();
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor");
}

TEST_F(DataSetListeners, HearNothingWhileControlsAreOffAndOnceAtTheEnd)
{
    TListener listener(table);
    TDiary events;
    events.Keep(table.AfterScroll, "AfterScroll");
    {
        const auto outer = table.DisableControls();
        for (int row = 0; row < 100; ++row) {
            const auto inner = table.DisableControls();
            table.Add("N");
        }
        EXPECT_EQ(listener.diary.text + events.text, "");
    }
    EXPECT_EQ(listener.diary.Take(), "Rows Cursor Row");
    EXPECT_EQ(events.Take(), "AfterScroll");
}

TEST_F(DataSetListeners, AfterScrollIsSilentWhenTheCursorIsBackOnItsRow)
{
    TDiary events;
    events.Keep(table.AfterScroll, "AfterScroll");
    {
        const auto off = table.DisableControls();
        const TBookmark bookmark = table.Bookmark();
        table.First();
        table.GoToBookmark(bookmark);
    }
    EXPECT_EQ(events.Take(), "");
}

TEST_F(DataSetListeners, AnExceptionThatPassesControlsOffTellsTheListenersButRunsNoEvent)
{
    TListener listener(table);
    table.AfterScroll.connect([] { throw std::runtime_error("a second exception would end the program"); });
    try {
        const auto off = table.DisableControls();
        table.First();
        Abort();
    } catch (const EAbort&) {
    }
    EXPECT_EQ(listener.diary.Take(), "Cursor");
}

TEST_F(DataSetListeners, WhatIsRemovedHearsNothing)
{
    TListener stays(table);
    {
        TListener leaves(table);
        table.First();
        EXPECT_EQ(leaves.diary.Take(), "Cursor");
    }
    table.Next();
    EXPECT_EQ(stays.diary.Take(), "Cursor Cursor");
}

} // namespace
} // namespace alinhavo
