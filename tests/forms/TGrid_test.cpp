#include "forms/TGrid.h"
#include "forms/TMemTable.h"
#include "forms/TMenuItem.h"
#include "forms/TPopupMenu.h"
#include "forms/TStringGrid.h"
#include "TfmProbe.h"

#include <map>

namespace alinhavo {
namespace {

using TTexts = std::vector<std::string>;
using enum TUserEvent::TKind;

struct TTbTemp : TMemTable {
    TStringField Cor{*this, "Cor", 6, {.title = "Cor do item", .readOnly = true}};
    TFloatField Quant{*this, "Quant"};
    TFloatField Preco{*this, "Preco", {.decimals = 2}};
    TStringField Sel{*this, "Sel", 1};
};

class TfmGrade final : public TForm {
public:
    explicit TfmGrade(TApplication& app)
        : TForm(app, "TfmGrade", "Grade")
    {
    }
    TTbTemp tb;
    TEdit edtAntes{*this, "edtAntes"};
    TGrid dbg{*this, "dbg", tb,
        {.columns = {{.field = "Cor"}, {.field = "Quant", .title = "Quant. Prod."}, {.field = "Preco"},
             {.field = "Sel", .tick = true}}}};
    TEdit edtDepois{*this, "edtDepois"};
    TPopupMenu menu{*this, "menu"};
    TMenuItem item{menu, "item", {.caption = "Zerar"}};
};

class Grid : public testing::Test {
protected:
    Grid()
    {
        user.Uses(app);
        for (const auto* cor : {"01", "02", "03"}) {
            form.tb.Append();
            form.tb.Cor = cor;
            form.tb.Quant = 1;
            form.tb.Post();
        }
        form.tb.First();
        form.tb.CanInsert = false;
        form.dbg.SetPopupMenu(&form.menu);
        form.tb.AfterPost.connect([this] { ++posted; });
        form.Show();
    }
    ~Grid() override { EXPECT_EQ(user.Unused(), 0U); }

    std::string Text(std::string text)
    {
        return user.Do({.kind = GridText, .control = "dbg", .text = std::move(text)});
    }

    /// The colours of the rows from top to bottom.
    TTexts Shown() const
    {
        TTexts shown;
        for (std::size_t row = 0; row < form.dbg.RowCount(); ++row)
            shown.push_back(form.dbg.CellText(row, form.dbg.Columns()[0]));
        return shown;
    }

    void Prices(const std::map<std::string, double>& prices)
    {
        form.tb.ForEach([&] {
            form.tb.Edit();
            form.tb.Preco = prices.at(form.tb.Cor.value());
        });
    }

    TScriptedUser user;
    TApplication app{user, &user};
    TfmGrade form{app};
    int posted = 0;
};

TEST_F(Grid, EditsACellAndGoesToTheNextRowByEnter)
{
    EXPECT_EQ(user.TypeCell("dbg", 0, "Quant", "25"), "");
    EXPECT_EQ(form.tb.CellValue(0, form.tb.Quant).AsFloat(), 25);
    EXPECT_EQ(posted, 1);
    EXPECT_EQ(form.dbg.CurrentRow(), 1);
    EXPECT_EQ(form.dbg.Column(), "Quant");
}

TEST_F(Grid, PostsTheLastRowByEnterAndStays)
{
    user.TypeCell("dbg", 2, "Quant", "7");
    EXPECT_EQ(posted, 1);
    EXPECT_EQ(form.dbg.CurrentRow(), 2);
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
}

TEST_F(Grid, HoldsWhatIsTypedUntilTheCellIsLeft)
{
    user.Cell("dbg", 0, "Quant");
    EXPECT_EQ(Text("5"), "");
    EXPECT_TRUE(form.dbg.Editing());
    EXPECT_EQ(form.tb.State(), TDataSetState::Edit);
    EXPECT_EQ(form.tb.Quant.value(), 1);
    std::string edited;
    form.dbg.OnCellEdit.connect([&] { edited = form.dbg.Column(); });
    user.Cell("dbg", 0, "Preco");
    EXPECT_EQ(form.tb.Quant.value(), 5);
    EXPECT_EQ(edited, "Quant");
    EXPECT_FALSE(form.dbg.Editing());
}

TEST_F(Grid, StaysInACellWhoseTextItCannotTake)
{
    user.WillAnswer(TModalResult::Ok);
    user.TypeCell("dbg", 0, "Quant", "x");
    EXPECT_EQ(user.Heard().size(), 1U);
    EXPECT_EQ(form.dbg.CurrentRow(), 0);
    EXPECT_EQ(form.dbg.EditorText(), "x");
    user.WillAnswer(TModalResult::Ok);
    user.Focus("edtDepois");
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
    user.Press("dbg", "Esc");
    EXPECT_FALSE(form.dbg.Editing());
    EXPECT_EQ(form.tb.State(), TDataSetState::Edit);
    user.Press("dbg", "Esc");
    EXPECT_EQ(form.tb.State(), TDataSetState::Browse);
    EXPECT_EQ(form.tb.Quant.value(), 1);
}

TEST_F(Grid, RefusesReadOnlyAndHiddenColumnsAndUnknownCells)
{
    EXPECT_NE(user.TypeCell("dbg", 0, "Cor", "9"), "");
    form.dbg.SetColumnReadOnly("Quant", true);
    EXPECT_NE(user.TypeCell("dbg", 0, "Quant", "9"), "");
    form.dbg.SetColumnVisible("Preco", false);
    EXPECT_NE(user.Cell("dbg", 0, "Preco"), "");
    EXPECT_NE(user.Cell("dbg", 0, "Nada"), "");
    EXPECT_NE(user.Cell("dbg", 3, "Quant"), "") << "no new row where the dataset takes none";
    EXPECT_NE(user.Cell("dbg", -1, "Quant"), "");
    EXPECT_THROW(form.dbg.SetColumnVisible("Nada", true), std::out_of_range);
    EXPECT_TRUE(form.dbg.ColumnReadOnly("Cor"));
    form.tb.ReadOnly = true;
    EXPECT_TRUE(form.dbg.ColumnReadOnly("Sel"));
    EXPECT_EQ(posted, 0);
}

TEST_F(Grid, FindsColumnsByTitleToo)
{
    EXPECT_EQ(user.TypeCell("dbg", 0, "Quant. Prod.", "3"), "");
    EXPECT_EQ(user.Cell("dbg", 0, "cor do item"), "");
    EXPECT_EQ(form.dbg.Column(), "Cor");
}

TEST_F(Grid, MovesByTabThroughTheCellsThatMayBeEdited)
{
    user.Cell("dbg", 0, "Quant");
    user.Press("dbg", "Tab");
    EXPECT_EQ(form.dbg.Column(), "Preco");
    user.Press("dbg", "Tab");
    user.Press("dbg", "Tab");
    EXPECT_EQ(form.dbg.Column(), "Quant");
    EXPECT_EQ(form.dbg.CurrentRow(), 1);
    user.Press("dbg", "Shift+Tab");
    EXPECT_EQ(form.dbg.Column(), "Sel");
    EXPECT_EQ(form.dbg.CurrentRow(), 0);
    user.Cell("dbg", 2, "Sel");
    user.Press("dbg", "Tab");
    EXPECT_EQ(form.ActiveControl(), &form.edtDepois) << "behind the last cell";
    user.Cell("dbg", 0, "Quant");
    user.Press("dbg", "Shift+Tab");
    EXPECT_EQ(form.ActiveControl(), &form.edtAntes);
}

TEST_F(Grid, AppendsARowWhereTheDatasetLetsAPerson)
{
    form.tb.CanInsert = true;
    user.Cell("dbg", 2, "Quant");
    user.Press("dbg", "Down");
    EXPECT_EQ(form.tb.State(), TDataSetState::Insert);
    user.Press("dbg", "Down");
    EXPECT_EQ(form.tb.RecordCount(), 4U) << "an untouched new row is enough";
    user.Press("dbg", "Up");
    EXPECT_EQ(form.tb.RecordCount(), 3U) << "and goes when it is left";
    EXPECT_EQ(user.TypeCell("dbg", 3, "Quant", "4"), "");
    EXPECT_EQ(form.tb.RecordCount(), 4U);
    EXPECT_EQ(form.tb.Sum("Quant"), 7);
}

TEST_F(Grid, RefusesANewRowAsTheDatasetSays)
{
    form.tb.CanInsert = true;
    form.tb.BeforeInsert.connect([] { Abort(); });
    user.Cell("dbg", 2, "Quant");
    user.Press("dbg", "Down");
    user.Press("dbg", "Ins");
    EXPECT_EQ(form.tb.RecordCount(), 3U);
    EXPECT_EQ(user.Heard(), TTexts{});
}

TEST_F(Grid, PostsTheRowWhenItIsLeft)
{
    user.Cell("dbg", 0, "Quant");
    Text("8");
    bool browsing = false;
    form.dbg.OnExit.connect([&] { browsing = form.tb.State() == TDataSetState::Browse; });
    user.Focus("edtDepois");
    EXPECT_EQ(posted, 1);
    EXPECT_TRUE(browsing);
}

TEST_F(Grid, KeepsTheFocusWhenItsRowCannotBePosted)
{
    form.tb.BeforePost.connect([] { Abort(); });
    user.Cell("dbg", 0, "Quant");
    Text("8");
    user.Focus("edtDepois");
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
    EXPECT_EQ(form.tb.State(), TDataSetState::Edit);
}

TEST_F(Grid, KeepsTheRowInEditWhenTheScreenWantsToPostItself)
{
    TForm other(app, "TfmOutra", "Outra");
    TGrid grid{other, "dbg", form.tb, {.onExit = TGridExit::KeepsRow}};
    TEdit edit{other, "edit"};
    other.Show();
    user.Cell("dbg", 0, "Quant");
    Text("8");
    user.Focus("edit");
    EXPECT_EQ(form.tb.State(), TDataSetState::Edit);
    EXPECT_EQ(form.tb.Quant.value(), 8);
    form.tb.Cancel();
}

TEST_F(Grid, TellsOfTheColumnLeftAndEntered)
{
    TTexts told;
    form.dbg.OnColExit.connect([&] { told.push_back("exit " + form.dbg.Column()); });
    form.dbg.OnColEnter.connect([&] { told.push_back("enter " + form.dbg.Column()); });
    user.Cell("dbg", 1, "Quant");
    user.Press("dbg", "Right");
    form.dbg.SetColumn("Sel");
    form.dbg.SetColumn("Sel");
    EXPECT_EQ(told, (TTexts{"exit Cor", "enter Quant", "exit Quant", "enter Preco", "exit Preco", "enter Sel"}));
}

TEST_F(Grid, StaysInAColumnWhoseLeavingFails)
{
    user.Cell("dbg", 0, "Quant");
    form.dbg.OnColExit.connect([] { Abort(); });
    user.Press("dbg", "Right");
    EXPECT_EQ(form.dbg.Column(), "Quant");
}

TEST_F(Grid, TellsKeysBeforeTheirEffectWithTheTypedTextInTheField)
{
    TTexts told;
    form.dbg.OnKeyDown.connect([&](TKey& key) {
        told.push_back(key.Text() + " " + form.dbg.Column() + " " + form.tb.Quant.AsString());
        if (key.name == "Tab")
            key.Swallow();
    });
    user.Cell("dbg", 0, "Quant");
    user.Press("dbg", "5");
    Text("5");
    user.Press("dbg", "Tab");
    EXPECT_EQ(told, (TTexts{"5 Quant 1", "Tab Quant 5"}));
    EXPECT_EQ(form.dbg.Column(), "Quant") << "swallowed";
}

TEST_F(Grid, DeletesNothingByItself)
{
    user.Cell("dbg", 0, "Quant");
    user.Press("dbg", "Ctrl+Del");
    user.Press("dbg", "Del");
    EXPECT_EQ(form.tb.RecordCount(), 3U);
}

TEST_F(Grid, TicksByClickAndBySpace)
{
    EXPECT_EQ(user.Do({.kind = GridTick, .control = "dbg", .column = "Sel", .row = 1, .flag = true}), "");
    EXPECT_EQ(form.tb.Sel.value(), "S");
    user.Press("dbg", "Space");
    EXPECT_EQ(form.tb.Sel.value(), "N");
    EXPECT_NE(user.Do({.kind = GridTick, .control = "dbg", .column = "Quant", .row = 1, .flag = true}), "");
    EXPECT_NE(user.Do({.kind = GridTick, .control = "dbg", .column = "Sel", .row = 9, .flag = true}), "");
}

TEST_F(Grid, TellsOfTitlesDoubleClicksAndMenus)
{
    TTexts told;
    form.dbg.OnTitleClick.connect([&](std::string_view column) { told.push_back("title " + std::string(column)); });
    form.dbg.OnDoubleClick.connect([&] { told.push_back("double " + form.tb.Cor.value()); });
    form.dbg.OnPopup.connect([&](std::string_view column) { told.push_back("menu " + std::string(column)); });
    form.item.OnClick.connect([&] { told.emplace_back("item"); });
    user.Do({.kind = GridTitle, .control = "dbg", .column = "Quant"});
    user.Do({.kind = GridDouble, .control = "dbg", .column = "Quant", .row = 1});
    user.Do({.kind = OpenMenu, .control = "dbg", .column = "Preco", .row = 2});
    user.Do({.kind = MenuItem, .control = "dbg", .text = "item"});
    EXPECT_EQ(told, (TTexts{"title Quant", "double 02", "menu Preco", "item"}));
    EXPECT_EQ(form.dbg.CurrentRow(), 2);
    EXPECT_NE(user.Do({.kind = GridTitle, .control = "dbg", .column = "Nada"}), "");
    EXPECT_NE(user.Do({.kind = GridDouble, .control = "dbg", .column = "Quant", .row = 3}), "");
}

TEST_F(Grid, GivesPastedRowsToAScreenThatTakesThem)
{
    EXPECT_NE(user.Do({.kind = GridPaste, .control = "dbg", .text = "01\t5"}), "");
    TPastedRows pasted;
    form.dbg.OnPaste.connect([&](const TPastedRows& rows) { pasted = rows; });
    EXPECT_EQ(user.Do({.kind = GridPaste, .control = "dbg", .text = "01\t5\n02\t6\n"}), "");
    EXPECT_EQ(pasted, (TPastedRows{{"01", "5"}, {"02", "6"}}));
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
    EXPECT_NE(user.Do({.kind = GridPaste, .control = "dbg", .text = "\xff"}), "");
}

TEST_F(Grid, PutsWhatIsTypedIntoItsFieldBeforeAPaste)
{
    form.dbg.OnPaste.connect([&](const TPastedRows&) { EXPECT_EQ(form.tb.Quant.value(), 7); });
    user.Do({.kind = GridCell, .control = "dbg", .column = "Quant", .row = 0});
    Text("7");
    EXPECT_EQ(user.Do({.kind = GridPaste, .control = "dbg", .text = "x"}), "");
}

TEST(PastedRows, AreCellsBetweenTabsAndLineBreaks)
{
    EXPECT_EQ(PastedRows("a\tb\nc\td"), (TPastedRows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(PastedRows("a\t\tb"), (TPastedRows{{"a", "", "b"}}));
    EXPECT_EQ(PastedRows("a\t"), (TPastedRows{{"a"}}));
    EXPECT_EQ(PastedRows("um só"), (TPastedRows{{"um só"}}));
}

TEST(PastedRows, LeaveOutBlankRowsAndBlanksAroundCells)
{
    EXPECT_EQ(PastedRows(" a \t b\n\t \n\nc\n"), (TPastedRows{{"a", "b"}, {"c"}}));
    EXPECT_EQ(PastedRows(""), TPastedRows());
    EXPECT_EQ(PastedRows("\n\t\n"), TPastedRows());
}

TEST(PastedRows, KeepLineBreaksTabsAndQuotesOfAQuotedCell)
{
    EXPECT_EQ(PastedRows("\"a\nb\"\tc"), (TPastedRows{{"a\nb", "c"}}));
    EXPECT_EQ(PastedRows("\"a\tb\"\n\"12\"\" x\""), (TPastedRows{{"a\tb"}, {"12\" x"}}));
    EXPECT_EQ(PastedRows("\"open"), (TPastedRows{{"open"}}));
}

TEST_F(Grid, StandsInTheOrderOfATitleAndTheTableDoesNot)
{
    Prices({{"01", 3}, {"02", 1}, {"03", 2}});
    user.Do({.kind = GridTitle, .control = "dbg", .column = "Preco"});
    EXPECT_EQ(Shown(), (TTexts{"02", "03", "01"}));
    EXPECT_EQ(form.dbg.CurrentRow(), 2) << "the current row is still the first one of the table";
    TTexts own;
    form.tb.ForEach([&] { own.push_back(form.tb.Cor.value()); });
    EXPECT_EQ(own, (TTexts{"01", "02", "03"}));
    EXPECT_TRUE(form.tb.Order().empty());

    user.Do({.kind = GridTitle, .control = "dbg", .column = "Preco"});
    EXPECT_EQ(Shown(), (TTexts{"01", "03", "02"}));
    user.Do({.kind = GridTitle, .control = "dbg", .column = "Preco"});
    EXPECT_EQ(Shown(), (TTexts{"01", "02", "03"}));
}

TEST_F(Grid, LeavesTheTitleToAScreenWithARuleOfItsOwn)
{
    std::string clicked;
    form.dbg.OnTitleClick.connect([&](std::string_view column) { clicked = column; });
    user.Do({.kind = GridTitle, .control = "dbg", .column = "Preco"});
    EXPECT_EQ(clicked, "Preco");
    EXPECT_EQ(form.dbg.Order().Field(), "");
    EXPECT_FALSE(form.dbg.SortsByTitle());
}

TEST_F(Grid, ReachesTheRowThatIsSeen)
{
    Prices({{"01", 3}, {"02", 1}, {"03", 2}});
    form.dbg.SortRows("Preco", TDirection::Ascending);
    user.Cell("dbg", 0, "Quant");
    EXPECT_EQ(form.tb.Cor.value(), "02");
    user.Press("dbg", "Down");
    EXPECT_EQ(form.tb.Cor.value(), "03");
    user.Press("dbg", "Ctrl+End");
    EXPECT_EQ(form.tb.Cor.value(), "01");
    user.Press("dbg", "Up");
    EXPECT_EQ(form.tb.Cor.value(), "03");
    user.Press("dbg", "Ctrl+Home");
    user.Press("dbg", "Up");
    EXPECT_EQ(form.tb.Cor.value(), "02");
    user.Do({.kind = GridTick, .control = "dbg", .column = "Sel", .row = 2, .flag = true});
    EXPECT_EQ(form.tb.CellValue(0, form.tb.Sel).AsString(), "S");
    EXPECT_EQ(form.dbg.CellText(2, form.dbg.Columns()[3]), "S");
    form.dbg.OnRowColor.connect([&](std::size_t row, TRowColor& color) {
        if (form.tb.CellValue(row, form.tb.Cor).AsString() == "01")
            color = TRowColor::Good;
    });
    EXPECT_EQ(form.dbg.RowColor(2), TRowColor::Good);
}

TEST_F(Grid, KeepsRowsInTheirPlacesWhileAPersonTypes)
{
    Prices({{"01", 3}, {"02", 1}, {"03", 2}});
    form.dbg.SortRows("Preco", TDirection::Ascending);
    EXPECT_EQ(user.TypeCell("dbg", 0, "Preco", "9"), "");
    EXPECT_EQ(Shown(), (TTexts{"02", "03", "01"}));
    EXPECT_EQ(form.tb.Cor.value(), "03") << "Enter goes to the row below";
    EXPECT_EQ(user.TypeCell("dbg", 2, "Preco", "0"), "");
    EXPECT_EQ(form.tb.CellValue(0, form.tb.Preco).AsFloat(), 0);
    EXPECT_EQ(posted, 5) << "three times by the set-up, and each row that was left";

    form.tb.CanInsert = true;
    user.Press("dbg", "Down");
    EXPECT_EQ(form.tb.State(), TDataSetState::Insert);
    form.tb.Cor = "04";
    form.tb.Preco = 1;
    form.tb.Post();
    EXPECT_EQ(Shown(), (TTexts{"02", "03", "01", "04"}));
    form.tb.First();
    form.tb.Delete();
    EXPECT_EQ(Shown(), (TTexts{"02", "03", "04"}));

    form.tb.EmptyTable();
    for (const auto* cor : {"b", "ã", "", "A"}) {
        form.tb.Append();
        form.tb.Cor = cor;
        form.tb.Post();
    }
    form.dbg.SortRows("Cor", TDirection::Ascending);
    EXPECT_EQ(Shown(), (TTexts{"", "A", "ã", "b"}));
}

TEST_F(Grid, SortsDataThatAreLoadedAnew)
{
    form.dbg.SortRows("Preco", TDirection::Descending);
    form.tb.EmptyTable();
    for (const int price : {2, 7, 5}) {
        form.tb.Append();
        form.tb.Cor = std::to_string(price);
        form.tb.Preco = price;
        form.tb.Post();
    }
    EXPECT_EQ(Shown(), (TTexts{"7", "5", "2"}));
    form.tb.FilterBy("Cor", TValue("5"));
    EXPECT_EQ(Shown(), (TTexts{"5"}));
    form.tb.ClearFilter();
    EXPECT_EQ(Shown(), (TTexts{"7", "5", "2"}));
}

TEST_F(Grid, StandsAsTheTableWhileThereIsNoSuchField)
{
    form.dbg.SetColumns({{.field = "Cor"}, {.field = "Dia"}});
    form.dbg.SortRows("Dia", TDirection::Descending);
    EXPECT_EQ(Shown(), (TTexts{"01", "02", "03"}));
    form.tb.AddField("Dia", TFieldKind::Integer);
    form.tb.ForEach([&] {
        form.tb.Edit();
        form.tb.FieldByName("Dia").Set(TValue(form.tb.Cor.AsInteger()));
    });
    form.dbg.SortRows("Dia", TDirection::Descending);
    EXPECT_EQ(Shown(), (TTexts{"03", "02", "01"}));
    form.tb.RemoveAddedFields();
    EXPECT_EQ(form.dbg.RowCount(), 0U);
    EXPECT_EQ(form.dbg.CurrentRow(), -1);
}

TEST_F(Grid, ColoursRowsByMeaningAndNeverFails)
{
    form.dbg.OnRowColor.connect([&](std::size_t row, TRowColor& color) {
        if (form.tb.CellValue(row, form.tb.Cor).AsString() == "02")
            color = TRowColor::Bad;
        if (row == 2)
            throw std::runtime_error("…");
    });
    EXPECT_EQ(form.dbg.RowColor(0), TRowColor::Normal);
    EXPECT_EQ(form.dbg.RowColor(1), TRowColor::Bad);
    EXPECT_EQ(form.dbg.RowColor(2), TRowColor::Normal);
    EXPECT_EQ(form.dbg.RowColor(99), TRowColor::Normal);
    EXPECT_EQ(form.dbg.CurrentRow(), 0);
}

TEST_F(Grid, ShowsCellsAsTheirColumnsSay)
{
    form.tb.Edit();
    form.tb.Preco = 1234.5;
    form.tb.Quant = 2.5;
    form.tb.Post();
    EXPECT_EQ(form.dbg.CellText(0, *form.dbg.FindColumn("Preco")), "1.234,50");
    EXPECT_EQ(form.dbg.CellText(0, *form.dbg.FindColumn("Quant")), "2,5");
    EXPECT_EQ(form.dbg.CellText(0, {.field = "Quant", .decimals = 3}), "2,500");
    EXPECT_EQ(form.dbg.CellText(1, {.field = "Preco", .decimals = 3}), "") << "a null has no decimals";
    EXPECT_EQ(form.dbg.CellText(9, *form.dbg.FindColumn("Quant")), "");
}

TEST_F(Grid, TakesTheVisibleFieldsAsColumnsWhenNoneAreDeclared)
{
    TMemTable table;
    TGrid grid{form, "grid", table};
    EXPECT_EQ(grid.Column(), "");
    table.AddField("Cor", TFieldKind::Text, 6);
    table.AddField("ID", TFieldKind::Integer, 0, {.visible = false});
    table.AddField("Tam_P", TFieldKind::Float);
    ASSERT_EQ(grid.Columns().size(), 2U);
    EXPECT_EQ(grid.Columns()[1].field, "Tam_P");
    grid.SetColumnReadOnly("Tam_P", true);
    table.AddField("Tam_M", TFieldKind::Float);
    EXPECT_EQ(grid.Columns().size(), 3U);
    EXPECT_TRUE(grid.Columns()[1].readOnly) << "what the screen set stays";
    grid.SetDataSet(nullptr);
    EXPECT_EQ(grid.RowCount(), 0U);
}

TEST_F(Grid, DropsTheEditorWhenItsRowIsNoLongerInEdit)
{
    user.Cell("dbg", 0, "Quant");
    Text("8");
    form.tb.Cancel();
    EXPECT_FALSE(form.dbg.Editing());
    user.Focus("edtDepois");
    EXPECT_EQ(form.tb.Quant.value(), 1);
}

TEST_F(Grid, TellsTheViewOfItsRowsAsTheyChange)
{
    const auto version = form.dbg.RowsVersion();
    user.Changed();
    {
        const auto quiet = form.tb.DisableControls();
        for (int i = 0; i < 50; ++i) {
            form.tb.Append();
            form.tb.Post();
        }
    }
    EXPECT_LE(user.Changed().size(), 2U) << "loading costs the screen nothing per row";
    EXPECT_NE(form.dbg.RowsVersion(), version);
}

TEST_F(Grid, FocusesAColumnFromCode)
{
    form.dbg.SetFocusOn("Preco");
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
    EXPECT_EQ(form.dbg.Column(), "Preco");
}

TEST_F(Grid, OfReadOnlyRowsStillLetsAPersonMove)
{
    form.dbg.SetReadOnly(true);
    user.Press("edtAntes", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.dbg);
    user.Press("dbg", "Down");
    user.Press("dbg", "Enter");
    EXPECT_EQ(form.dbg.CurrentRow(), 2);
    user.Press("dbg", "Ctrl+Home");
    EXPECT_EQ(form.dbg.CurrentRow(), 0);
    user.Press("dbg", "PgDn");
    EXPECT_EQ(form.dbg.CurrentRow(), 2);
    EXPECT_NE(Text("1"), "");
}

TEST(StringGrid, AddressesTextsByColumnAndRow)
{
    TScriptedUser user;
    TApplication app(user, &user);
    user.Uses(app);
    TForm form(app, "TfmTextos", "Textos");
    TStringGrid grid{form, "grid", {.titles = {"Medida", "P", "M"}}};
    form.Show();
    grid.SetRowCount(2);
    grid.SetCell(1, 0, "10");
    grid.SetCell(2, 1, "ção");
    EXPECT_EQ(grid.Cell(1, 0), "10");
    EXPECT_EQ(grid.Cell(2, 1), "ção");
    EXPECT_EQ(grid.Cell(0, 0), "");
    EXPECT_EQ(user.TypeCell("grid", 1, "P", "33"), "");
    EXPECT_EQ(grid.Cell(1, 1), "33");
    EXPECT_THROW(grid.Cell(0, 2), std::out_of_range);
    EXPECT_THROW(grid.Cell(3, 0), std::out_of_range);
    grid.SetRowCount(1);
    EXPECT_EQ(grid.RowCount(), 1U);
    EXPECT_EQ(grid.Cell(1, 0), "10");
    grid.SetTitles({"Um"});
    EXPECT_EQ(grid.ColCount(), 1U);
    EXPECT_EQ(grid.RowCount(), 0U);
}

} // namespace
} // namespace alinhavo
