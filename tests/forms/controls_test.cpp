#include "forms/IPropertySink.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TFileList.h"
#include "forms/TImage.h"
#include "forms/TLabel.h"
#include "forms/TMenuItem.h"
#include "forms/TNumberEdit.h"
#include "forms/TPageControl.h"
#include "forms/TPopupMenu.h"
#include "forms/TRadioButton.h"
#include "forms/TRadioGroup.h"
#include "forms/TTabSheet.h"
#include "TfmProbe.h"

#include <map>

namespace alinhavo {
namespace {

using TTexts = std::vector<std::string>;

class TfmControles final : public TForm {
public:
    explicit TfmControles(TApplication& app)
        : TForm(app, "TfmControles", "Controles")
    {
        edtUm.SetPopupMenu(&menu);
    }
    TEdit edtUm{*this, "edtUm", {.maxLength = 5, .upperCase = true}};
    TDateEdit edtData{*this, "edtData"};
    TNumberEdit edtNumero{*this, "edtNumero", {.decimals = 2}};
    TComboBox cbLista{*this, "cbLista", {.items = {"01 |Corpo", "02 |Calça"}}};
    TComboBox cbLivre{*this, "cbLivre", {.items = {"1", "2"}, .style = TComboStyle::Editable}};
    TCheckBox cbSim{*this, "cbSim", {.caption = "&Sim"}};
    TRadioGroup rg{*this, "rg", {.items = {"A", "B", "C"}}};
    TPanel pnl{*this, "pnl"};
    TRadioButton rbUm{pnl, "rbUm", {.checked = true}};
    TRadioButton rbDois{pnl, "rbDois"};
    TLabel lbl{*this, "lbl", {.caption = "&Foto"}};
    TFileList lista{*this, "lista"};
    TImage img{*this, "img"};
    TPageControl pages{*this, "pages"};
    TTabSheet p1{pages, "p1", {.caption = "&Um"}};
    TEdit edtP1{p1, "edtP1"};
    TTabSheet p2{pages, "p2", {.caption = "&Dois"}};
    TEdit edtP2{p2, "edtP2"};
    TTabSheet p3{pages, "p3", {.visible = false}};
    TPopupMenu menu{*this, "menu"};
    TMenuItem itemZera{menu, "itemZera", {.caption = "&Zerar", .shortcut = "Ctrl+Del"}};
    TMenuItem itemOculto{menu, "itemOculto", {.caption = "Oculto", .visible = false}};
};

class Controls : public testing::Test {
protected:
    Controls()
    {
        user.Uses(app);
        form.Show();
    }
    ~Controls() override { EXPECT_EQ(user.Unused(), 0U); }

    TScriptedUser user;
    TApplication app{user, &user};
    TfmControles form{app};
};

TEST_F(Controls, CutTextsInCharactersAndPutThemInUpperCase)
{
    user.Write("edtUm", "ação12");
    EXPECT_EQ(form.edtUm.text(), "AÇÃO1");
    form.edtUm.SetText("áéíóúç");
    EXPECT_EQ(form.edtUm.text(), "ÁÉÍÓÚ");
    form.edtP1.SetText("um\ndois\ttrês");
    EXPECT_EQ(form.edtP1.text(), "um dois três") << "a line holds no line breaks";
}

TEST_F(Controls, SetTextsQuietlyByTheNameOfTheFunction)
{
    int changes = 0;
    form.edtUm.OnChange.connect([&] { ++changes; });
    form.edtUm.SetTextQuietly("A");
    EXPECT_EQ(changes, 0);
    form.edtUm.SetText("B");
    EXPECT_EQ(changes, 1);
}

TEST_F(Controls, LetAChangeHandlerCorrectTheText)
{
    form.edtUm.OnChange.connect([&] {
        if (form.edtUm.text().ends_with("'"))
            form.edtUm.SetText(form.edtUm.text().substr(0, form.edtUm.text().size() - 1));
    });
    user.Write("edtUm", "1'2'3");
    EXPECT_EQ(form.edtUm.text(), "123");
}

TEST_F(Controls, ReadABlankDateAndCompleteATypedOne)
{
    EXPECT_EQ(form.edtData.text(), "  /  /    ");
    EXPECT_TRUE(form.edtData.empty());
    user.Type("edtData", "5/3/26");
    EXPECT_EQ(form.edtData.text(), "05/03/2026");
    EXPECT_EQ(form.edtData.Date(), TDateTime::FromDate(2026, 3, 5));
    user.Type("edtData", "20/11");
    EXPECT_EQ(form.edtData.Date(), TDateTime::FromDate(app.Today().Year(), 11, 20));
    form.edtData.SetDate({});
    EXPECT_TRUE(form.edtData.empty());
    EXPECT_TRUE(form.edtData.Date().IsBlank());
}

TEST_F(Controls, KeepTheFocusOnATextThatIsNoDate)
{
    user.WillAnswer(TModalResult::Ok);
    user.Type("edtData", "31/02/2026");
    EXPECT_EQ(form.ActiveControl(), &form.edtData);
    EXPECT_EQ(user.Heard(), (TTexts{"Alinhavo: \"31/02/2026\" não é uma data válida."}));
}

TEST_F(Controls, TakeNumbersWithPointOrComma)
{
    user.Type("edtNumero", "1234,5");
    EXPECT_EQ(form.edtNumero.text(), "1.234,50");
    EXPECT_EQ(form.edtNumero.Value(), 1234.5);
    user.Type("edtNumero", "0.25");
    EXPECT_EQ(form.edtNumero.Value(), 0.25);
    user.Type("edtNumero", "");
    EXPECT_EQ(form.edtNumero.Value(), 0);
    form.edtNumero.SetValue(-3);
    EXPECT_EQ(form.edtNumero.text(), "-3,00");
}

TEST_F(Controls, ChooseAnItemOfACombo)
{
    int changes = 0;
    form.cbLista.OnChange.connect([&] { ++changes; });
    EXPECT_EQ(user.Select("cbLista", 1), "");
    EXPECT_EQ(form.cbLista.text(), "02 |Calça");
    EXPECT_EQ(form.cbLista.ItemIndex(), 1);
    EXPECT_EQ(changes, 1);
    EXPECT_NE(user.Select("cbLista", 2), "");
    EXPECT_NE(user.Select("cbLista", -1), "");
    user.Press("cbLista", "Up");
    EXPECT_EQ(form.cbLista.ItemIndex(), 0);
    EXPECT_EQ(form.cbLista.IndexOfPrefix("02"), 1);
}

TEST_F(Controls, HoldATextOutsideTheItemsOfACombo)
{
    form.cbLista.SetText("99 |Outra");
    EXPECT_EQ(form.cbLista.ItemIndex(), -1);
    EXPECT_EQ(form.cbLista.text(), "99 |Outra");
    form.cbLista.SetItems({"99 |Outra"});
    EXPECT_EQ(form.cbLista.ItemIndex(), 0);
    EXPECT_EQ(user.Type("cbLivre", "77"), "");
    EXPECT_EQ(form.cbLivre.text(), "77");
    EXPECT_NE(user.Do({.kind = TUserEvent::TKind::Text, .control = "cbLista", .text = "xyz"}), "")
        << "a person chooses from a list";
}

TEST_F(Controls, CheckBoxesTellOfEachChangeOnce)
{
    int clicks = 0;
    form.cbSim.OnClick.connect([&] { ++clicks; });
    user.Check("cbSim", true);
    user.Check("cbSim", true);
    EXPECT_EQ(clicks, 1);
    user.Press("cbSim", "Space");
    EXPECT_FALSE(form.cbSim.Checked());
    user.Press("edtUm", "Alt+s");
    EXPECT_TRUE(form.cbSim.Checked());
    EXPECT_EQ(form.ActiveControl(), &form.cbSim);
    form.cbSim.SetCheckedQuietly(false);
    EXPECT_EQ(clicks, 3);
}

TEST_F(Controls, RadioButtonsOfOnePanelExcludeEachOther)
{
    int clicks = 0;
    form.rbDois.OnClick.connect([&] { ++clicks; });
    user.Check("rbDois", true);
    EXPECT_FALSE(form.rbUm.Checked());
    EXPECT_TRUE(form.rbDois.Checked());
    EXPECT_EQ(clicks, 1);
    EXPECT_NE(user.Check("rbDois", false), "");
}

TEST_F(Controls, RadioGroupsMoveByArrows)
{
    EXPECT_EQ(form.rg.ItemIndex(), -1);
    user.Press("rg", "Down");
    user.Press("rg", "Right");
    EXPECT_EQ(form.rg.ItemText(), "B");
    user.Press("rg", "Up");
    EXPECT_EQ(form.rg.ItemIndex(), 0);
    EXPECT_NE(user.Select("rg", 3), "");
    form.rg.SetItemIndex(7);
    EXPECT_EQ(form.rg.ItemIndex(), -1);
}

TEST_F(Controls, LabelsLeadToTheControlBehindThem)
{
    user.Press("edtUm", "Alt+f");
    EXPECT_EQ(form.ActiveControl(), &form.lista);
}

TEST_F(Controls, ListsOfFilesAreChosenFromAndOpened)
{
    form.lista.SetFiles({"fotos/a.png", "fotos/b.png"});
    bool opened = false;
    form.lista.OnDoubleClick.connect([&] { opened = true; });
    EXPECT_EQ(user.Do({.kind = TUserEvent::TKind::DoubleClick, .control = "lista", .index = 1}), "");
    EXPECT_TRUE(opened);
    EXPECT_EQ(form.lista.File(), "fotos/b.png");
    form.lista.SetFiles({});
    EXPECT_EQ(form.lista.File(), "");
}

TEST_F(Controls, PagesAreTurnedAfterTheFieldIsLeftAndTheScreenAsked)
{
    TTexts told;
    form.edtP1.OnExit.connect([&] { told.push_back("exit on page " + std::to_string(form.pages.ActivePageIndex())); });
    form.pages.OnChanging.connect([&](bool&) { told.emplace_back("asked"); });
    form.pages.OnChange.connect([&] { told.emplace_back("turned"); });
    user.Focus("edtP1");
    EXPECT_EQ(user.Page("pages", 1), "");
    EXPECT_EQ(told, (TTexts{"exit on page 0", "asked", "turned"}));
    EXPECT_EQ(form.ActiveControl(), &form.edtP2);
}

TEST_F(Controls, PagesStayWhenTheScreenRefuses)
{
    form.pages.OnChanging.connect([](bool& may) { may = false; });
    user.Focus("edtP1");
    user.Page("pages", 1);
    EXPECT_EQ(form.pages.ActivePageIndex(), 0);
    EXPECT_EQ(form.ActiveControl(), &form.edtP1);
}

TEST_F(Controls, PagesStayWhenTheFieldIsNotLeft)
{
    form.edtP1.OnExit.connect([&] { form.edtP1.SetFocus(); });
    user.Focus("edtP1");
    user.Page("pages", 1);
    EXPECT_EQ(form.pages.ActivePageIndex(), 0);
}

TEST_F(Controls, OfAPageBehindAreNotVisible)
{
    EXPECT_TRUE(form.edtP1.CanFocus());
    EXPECT_FALSE(form.edtP2.CanFocus());
    EXPECT_NE(user.Type("edtP2", "1"), "");
    form.pages.SetActivePage(form.p2);
    EXPECT_TRUE(form.edtP2.CanFocus());
    EXPECT_FALSE(form.edtP1.CanFocus());
    form.p2.SetVisible(false);
    EXPECT_EQ(form.pages.ActivePageIndex(), 0);
    EXPECT_NE(user.Page("pages", 1), "") << "its tab does not show";
    EXPECT_NE(user.Page("pages", 2), "");
}

TEST_F(Controls, PagesAreReachedByAltAndTheirLetter)
{
    user.Press("edtUm", "Alt+d");
    EXPECT_EQ(form.pages.ActivePage(), &form.p2);
}

TEST_F(Controls, MenusOpenAndActByItemOrShortcut)
{
    int opened = 0, clicked = 0;
    form.menu.OnPopup.connect([&] { ++opened; });
    form.itemZera.OnClick.connect([&] { ++clicked; });
    using enum TUserEvent::TKind;
    EXPECT_EQ(user.Do({.kind = OpenMenu, .control = "edtUm"}), "");
    EXPECT_EQ(user.Do({.kind = MenuItem, .control = "edtUm", .text = "itemZera"}), "");
    EXPECT_EQ(user.Do({.kind = MenuItem, .control = "edtUm", .text = "Zerar"}), "");
    EXPECT_NE(user.Do({.kind = MenuItem, .control = "edtUm", .text = "Oculto"}), "");
    EXPECT_NE(user.Do({.kind = MenuItem, .control = "edtUm", .text = "Nada"}), "");
    user.Press("edtUm", "Ctrl+Del");
    user.Press("edtData", "Ctrl+Del");
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(clicked, 3);
    form.itemZera.SetEnabled(false);
    user.Press("edtUm", "Ctrl+Del");
    EXPECT_EQ(clicked, 3);
}

/// Keeps what it is told, as text.
struct TKeptProperties final : IPropertySink {
    std::map<std::string, std::string, std::less<>> values;
    void Text(std::string_view name, std::string_view value) override { values[std::string(name)] = value; }
    void Flag(std::string_view name, bool value) override { values[std::string(name)] = value ? "true" : "false"; }
    void Number(std::string_view name, std::int64_t value) override
    {
        values[std::string(name)] = std::to_string(value);
    }
    void Texts(std::string_view name, const std::vector<std::string>& texts) override
    {
        for (const auto& text : texts)
            values[std::string(name)] += text + ";";
    }
};

TEST_F(Controls, DescribeWhatAPersonSees)
{
    form.edtUm.SetText("abc");
    TKeptProperties edit;
    form.edtUm.Describe(edit);
    EXPECT_EQ(edit.values["text"], "ABC");
    EXPECT_EQ(edit.values["maxLength"], "5");
    EXPECT_EQ(edit.values["menuCaptions"], "&Zerar;Oculto;");
    EXPECT_EQ(edit.values["menuStates"], "ve;e;");
    TKeptProperties combo;
    form.cbLista.Describe(combo);
    EXPECT_EQ(combo.values["items"], "01 |Corpo;02 |Calça;");
    EXPECT_EQ(combo.values["itemIndex"], "-1");
    TKeptProperties screen;
    form.Describe(screen);
    EXPECT_EQ(screen.values["focus"], "edtUm");
    EXPECT_EQ(screen.values["class"], "TfmControles");
}

TEST_F(Controls, CaptionsSayTheirLetter)
{
    form.lbl.SetCaption("A&çúcar && &Sal");
    EXPECT_EQ(form.lbl.AcceleratorLetter(), "ç");
    EXPECT_EQ(form.lbl.PlainCaption(), "Açúcar & Sal");
    form.lbl.SetCaption("Corte && Costura");
    EXPECT_EQ(form.lbl.AcceleratorLetter(), "");
    form.lbl.SetCaption("&");
    EXPECT_EQ(form.lbl.AcceleratorLetter(), "");
    EXPECT_EQ(form.lbl.PlainCaption(), "");
}

} // namespace
} // namespace alinhavo
