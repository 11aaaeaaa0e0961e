#include "TfmProbe.h"

namespace alinhavo {
namespace {

class Focus : public ProbeTest { };

TEST_F(Focus, StandsOnTheFirstControlWhenAScreenIsShown)
{
    TfmProbe other(app);
    EXPECT_EQ(other.ActiveControl(), nullptr);
    other.Show();
    EXPECT_EQ(other.ActiveControl(), &other.edtA);
    EXPECT_EQ(other.Told(), (TJournal{"enter edtA"}));
}

TEST_F(Focus, StandsWhereTheScreenSaidBeforeItWasShown)
{
    TfmProbe other(app);
    other.edtB.SetFocus();
    EXPECT_EQ(other.Told(), TJournal{});
    other.Show();
    EXPECT_EQ(other.Told(), (TJournal{"enter edtB"}));
}

TEST_F(Focus, LeavesTheOldControlThenEntersTheNewOne)
{
    EXPECT_EQ(user.Focus("edtB"), "");
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter edtB"}));
}

TEST_F(Focus, IsKnownBeforeTheOldControlIsLeft)
{
    const TControl* seen = nullptr;
    form.edtA.OnExit.connect([&] { seen = form.ActiveControl(); });
    user.Click("btnCancela");
    EXPECT_EQ(seen, &form.btnCancela);
}

TEST_F(Focus, GoesBackWhenTheLeavingSaysSo)
{
    form.edtA.OnExit.connect([&] { form.edtA.SetFocus(); });
    user.Focus("edtB");
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Focus, GoesWhereTheLastWordOfTheLeavingSays)
{
    form.edtA.OnExit.connect([&] {
        form.edtA.SetFocus();
        form.edtC.SetFocus();
    });
    user.Focus("edtB");
    EXPECT_EQ(form.Told(), (TJournal{"enter edtC"}));
}

TEST_F(Focus, StaysWhenTheLeavingAborts)
{
    form.edtA.OnExit.connect([&] { Abort(); });
    user.Focus("edtB");
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    EXPECT_EQ(form.Told(), TJournal{});
    EXPECT_EQ(user.Heard(), TJournal{});
}

TEST_F(Focus, StaysWhenTheLeavingFailsAndTheErrorIsShown)
{
    form.edtA.OnExit.connect([&] { throw std::runtime_error("disco cheio"); });
    user.WillAnswer(TModalResult::Ok);
    EXPECT_EQ(user.Focus("edtB"), "");
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    EXPECT_EQ(user.Heard(), (TJournal{"Alinhavo: disco cheio"}));
}

TEST_F(Focus, GoesWhereTheLeavingSaidBeforeItAborted)
{
    form.edtA.OnExit.connect([&] {
        form.edtC.SetFocus();
        Abort();
    });
    user.Focus("edtB");
    EXPECT_EQ(form.Told(), (TJournal{"enter edtC"}));
}

TEST_F(Focus, GoesToTheTargetWhenTheLeavingNamedItAndAborted)
{
    form.edtA.OnExit.connect([&] {
        form.edtB.SetFocus();
        Abort();
    });
    user.Focus("edtB");
    EXPECT_EQ(form.Told(), (TJournal{"enter edtB"}));
}

TEST_F(Focus, IsMovedByCodeLikeByAPerson)
{
    form.edtC.SetFocus();
    EXPECT_EQ(form.Told(), (TJournal{"exit edtA", "enter edtC"}));
}

TEST_F(Focus, IsNotMovedByCodeToAControlThatCannotTakeIt)
{
    form.edtC.SetEnabled(false);
    form.edtC.SetFocus();
    form.pnl.SetVisible(false);
    form.mmObs.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Focus, MovesOnWithoutLeavingWhenItsControlIsDisabled)
{
    user.Do({.kind = TUserEvent::TKind::Work, .work = [&] { form.edtA.SetEnabled(false); }});
    EXPECT_EQ(form.Told(), (TJournal{"enter edtB"}));
}

TEST_F(Focus, MovesOnWithoutLeavingWhenItsPanelIsHidden)
{
    user.Focus("edtC");
    form.Told();
    user.Do({.kind = TUserEvent::TKind::Work, .work = [&] { form.pnl.SetVisible(false); }});
    EXPECT_EQ(form.Told(), (TJournal{"enter btnOk"}));
}

TEST_F(Focus, MovesOnPastATargetThatTheLeavingDisabled)
{
    form.edtA.OnExit.connect([&] { form.edtB.SetEnabled(false); });
    user.Focus("edtB");
    EXPECT_EQ(form.ActiveControl(), &form.edtC);
}

TEST_F(Focus, MovesOnByEnterAndTabPastWhatCannotBeFilled)
{
    user.Press("edtA", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.edtB);
    user.Press("edtB", "Tab");
    EXPECT_EQ(form.ActiveControl(), &form.edtC) << "edtShown is read-only";
    form.mmObs.SetEnabled(false);
    form.btnOk.SetTabStop(false);
    user.Press("edtC", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.btnCancela);
    user.Press("btnCancela", "Tab");
    EXPECT_EQ(form.ActiveControl(), &form.edtA) << "behind the last one comes the first";
}

TEST_F(Focus, MovesBackByShiftTab)
{
    user.Focus("edtC");
    user.Press("edtC", "Shift+Tab");
    EXPECT_EQ(form.ActiveControl(), &form.edtB);
}

TEST_F(Focus, MovesOnToAControlThatTheLeavingEnabled)
{
    form.edtB.SetEnabled(false);
    form.edtA.OnExit.connect([&] { form.edtB.SetEnabled(true); });
    user.Press("edtA", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.edtB);
}

TEST_F(Focus, StaysInAMemoForCtrlEnterAndMovesOnByEnter)
{
    user.Focus("mmObs");
    user.Write("mmObs", "um");
    user.Press("mmObs", "Ctrl+Enter");
    user.Write("mmObs", "dois");
    EXPECT_EQ(form.mmObs.Lines(), (TJournal{"um", "dois"}));
    user.Press("mmObs", "Enter");
    EXPECT_EQ(form.ActiveControl(), &form.btnOk);
}

TEST_F(Focus, IsNotLeftBySettingATextFromCode)
{
    int changes = 0;
    form.edtA.OnChange.connect([&] { ++changes; });
    form.edtA.SetText("x");
    form.edtA.SetText("x");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Focus, CanAskAPersonWhileAControlIsLeft)
{
    form.edtA.OnExit.connect([&] {
        if (!form.Pergunta("Continuar?"))
            form.edtA.SetFocus();
    });
    user.WillAnswer(TModalResult::No);
    user.Focus("edtB");
    EXPECT_EQ(form.ActiveControl(), &form.edtA);
    user.WillAnswer(TModalResult::Yes);
    user.Focus("edtB");
    EXPECT_EQ(form.ActiveControl(), &form.edtB);
}

TEST_F(Focus, EntersNothingInAScreenThatItsLeavingClosed)
{
    form.edtA.OnExit.connect([&] { form.Close(); });
    user.Focus("edtB");
    EXPECT_EQ(form.Told(), TJournal{});
    EXPECT_FALSE(form.Showing());
}

} // namespace
} // namespace alinhavo
