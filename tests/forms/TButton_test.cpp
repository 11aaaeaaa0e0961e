#include "TfmProbe.h"

namespace alinhavo {
namespace {

class Buttons : public ProbeTest { };

TEST_F(Buttons, ArePressedAfterTheFocusedControlIsLeft)
{
    EXPECT_EQ(user.Click("btnOk"), "");
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter btnOk", "click"}));
}

TEST_F(Buttons, AreNotPressedWhenTheFocusDoesNotArrive)
{
    form.edtA.OnExit.connect([&] { form.edtA.SetFocus(); });
    EXPECT_EQ(user.Click("btnOk"), "");
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Buttons, AreNotPressedWhenTheLeavingDisablesThem)
{
    form.edtA.OnExit.connect([&] { form.btnOk.SetEnabled(false); });
    user.Click("btnOk");
    EXPECT_EQ(form.Told(), (TJournal{"enter btnCancela"}));
}

TEST_F(Buttons, WithoutFocusArePressedInPlace)
{
    bool pressed = false;
    form.btnLupa.OnClick.connect([&] { pressed = true; });
    user.Click("btnLupa");
    EXPECT_TRUE(pressed);
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Buttons, AreReachedByAltAndTheirLetterTheSameWay)
{
    user.Press("edtA", "Alt+o");
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter btnOk", "click"}));
    user.Press("btnOk", "Alt+C");
    EXPECT_EQ(form.Told(), (TJournal{"exit btnOk", "enter btnCancela", "cancel"}));
}

TEST_F(Buttons, AreReachedByTheirShortcutFromAnywhere)
{
    user.Press("edtA", "F2");
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter btnOk", "click"}));
    bool pressed = false;
    form.btnLupa.OnClick.connect([&] { pressed = true; });
    user.Press("edtA", "F8");
    EXPECT_TRUE(pressed);
}

TEST_F(Buttons, HiddenOrDisabledAreNotReachedByKeys)
{
    form.btnOk.SetEnabled(false);
    form.btnCancela.SetVisible(false);
    for (const auto* key : {"Alt+o", "F2", "Alt+c", "Esc", "Ctrl+Enter"})
        user.Press("edtA", key);
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Buttons, OfTheScreenOnTopOnlyAreReachedByKeys)
{
    TfmProbe other(app);
    other.Show();
    other.Told();
    user.Press("edtA", "F2");
    EXPECT_EQ(form.Told(), TJournal{});
    EXPECT_EQ(other.Told().back(), "click");
}

TEST_F(Buttons, ByRoleArePressedByEscAndCtrlEnter)
{
    user.Press("edtA", "Esc");
    EXPECT_EQ(form.Told().back(), "cancel");
    user.Press("edtA", "Ctrl+Enter");
    EXPECT_EQ(form.Told().back(), "click");
}

TEST_F(Buttons, ArePressedByEnterAndSpaceWhenTheyHaveTheFocus)
{
    user.Focus("btnOk");
    form.Told();
    user.Press("btnOk", "Enter");
    user.Press("btnOk", "Space");
    EXPECT_EQ(form.Told(), (TJournal{"click", "click"}));
}

TEST_F(Buttons, ArePressedFromCodeWithoutLeaving)
{
    form.btnOk.SetEnabled(false);
    form.btnOk.Click();
    EXPECT_EQ(form.Told(), (TJournal{"click"}));
}

class Keys : public ProbeTest { };

TEST_F(Keys, GoToTheScreenThenToTheControlThenHaveTheirEffect)
{
    form.OnKeyDown.connect([&](TKey& key) { form.Journal.push_back("form " + key.Text()); });
    form.edtA.OnKeyDown.connect([&](TKey& key) { form.Journal.push_back("control " + key.Text()); });
    user.Press("edtA", "Shift+Enter");
    EXPECT_EQ(form.Told(), (TJournal{"form Shift+Enter", "control Shift+Enter", "exit edtA", "enter btnCancela"}));
}

TEST_F(Keys, SwallowedByTheScreenReachNobody)
{
    form.OnKeyDown.connect([](TKey& key) { key.Swallow(); });
    form.edtA.OnKeyDown.connect([&](TKey&) { form.Journal.emplace_back("control"); });
    for (const auto* key : {"Esc", "Enter", "F2", "Alt+o"}) {
        user.Press("edtA", key);
        EXPECT_TRUE(app.KeySwallowed());
    }
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Keys, SwallowedTypeNothing)
{
    form.edtA.OnKeyDown.connect([](TKey& key) {
        if (key.IsDigit())
            key.Swallow();
    });
    user.Write("edtA", "a1");
    user.Write("edtA", "b");
    EXPECT_EQ(form.edtA.text(), "ab");
}

TEST_F(Keys, HaveNoEffectOfTheirOwnOnceAHandlerMovedTheFocus)
{
    form.edtA.OnKeyDown.connect([&](TKey&) { form.edtC.SetFocus(); });
    user.Press("edtA", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.edtC);
}

TEST_F(Keys, GoOnActingAfterAnotherScreenReportedToThisOne)
{
    form.ModalResult = TModalResult::Ok;
    user.Press("edtA", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.edtB);
}

TEST_F(Keys, OfAnotherControlFirstMoveTheFocusThere)
{
    TKey seen;
    form.edtC.OnKeyDown.connect([&](TKey& key) { seen = key; });
    user.Press("edtC", "F5");
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter edtC"}));
    EXPECT_EQ(seen.name, "F5");
}

TEST(KeyTexts, AreReadAndWrittenAlike)
{
    for (const auto* text :
        {"F5", "Ctrl+Del", "Shift+Tab", "Alt+c", "Ctrl+Shift+Home", "5", "Á", "Space", "+", "Ctrl++"})
        EXPECT_EQ(TKey::Parse(text).Text(), text);
    EXPECT_EQ(TKey::Parse("ctrl+del"), (TKey{.name = "Del", .ctrl = true}));
    EXPECT_EQ(TKey::Parse(" ").name, "Space");
    EXPECT_FALSE(TKey::Parse("Ctrl+Nada").IsKnown());
    EXPECT_FALSE(TKey::Parse("").IsKnown());
    EXPECT_TRUE(TKey::Parse("7").IsDigit());
    EXPECT_FALSE(TKey::Parse("Ctrl+7").IsDigit());
    EXPECT_FALSE(TKey::Parse("F7").IsTyped());
}

} // namespace
} // namespace alinhavo
