#include "forms/TMemTable.h"
#include "TfmProbe.h"

namespace alinhavo {
namespace {

class Application : public ProbeTest {
protected:
    void Do(std::function<void()> work) { user.Do({.kind = TUserEvent::TKind::Work, .work = std::move(work)}); }
    void RegisterProbe()
    {
        app.RegisterForm("TfmProbe", [](TApplication& application) { return std::make_unique<TfmProbe>(application); });
    }
};

TEST_F(Application, ShowsTheTextOfAnExceptionAndGoesOn)
{
    form.btnOk.OnClick.connect([] { throw std::runtime_error("duplicate value"); });
    user.WillAnswer(TModalResult::Ok);
    EXPECT_EQ(user.Click("btnOk"), "");
    EXPECT_EQ(user.Heard(), (TJournal{"Alinhavo: duplicate value"}));
    EXPECT_TRUE(form.Showing());
}

TEST_F(Application, ShowsThatAnUnknownThingWasThrown)
{
    user.WillAnswer(TModalResult::Ok);
    Do([] { throw 7; });
    EXPECT_EQ(user.Heard(), (TJournal{"Alinhavo: Erro desconhecido."}));
}

TEST_F(Application, ShowsNothingOfASilentAbort)
{
    bool wentOn = false;
    Do([&] {
        Abort();
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(user.Heard(), TJournal{});
}

TEST_F(Application, TitlesQuestionsByTheScreenAndDefaultsToNo)
{
    bool answer = true;
    user.WillAnswer(TModalResult::No);
    Do([&] { answer = form.Pergunta("Deseja continuar?"); });
    EXPECT_FALSE(answer);
    EXPECT_EQ(user.LastDefault, TModalResult::No);
    user.WillAnswer(TModalResult::Yes);
    Do([&] { answer = form.Pergunta("Certo?", "Confirmação"); });
    EXPECT_TRUE(answer);
    user.WillAnswer(TModalResult::Cancel);
    Do([&] { EXPECT_EQ(form.PerguntaCancelar("E agora?"), TModalResult::Cancel); });
    EXPECT_EQ(user.LastDefault, TModalResult::Cancel);
    EXPECT_EQ(user.Heard(), (TJournal{"Prova: Deseja continuar?", "Confirmação: Certo?", "Prova: E agora?"}));
}

TEST_F(Application, RepeatsAnAlarmUntilOkIsPressed)
{
    user.WillAnswer(TModalResult::Cancel);
    user.WillAnswer(TModalResult::Cancel);
    user.WillAnswer(TModalResult::Ok);
    Do([&] { form.Alarme("Barra já lida."); });
    EXPECT_EQ(user.Heard().size(), 3U);
    EXPECT_EQ(user.LastDefault, TModalResult::Cancel);
    EXPECT_TRUE(user.LastBeeped);
}

TEST_F(Application, AsksForATextAndKeepsTheOldOneWhenCancelled)
{
    std::string value = "1";
    user.WillAnswer(TModalResult::Ok, "25");
    Do([&] { EXPECT_TRUE(form.InputBox("Distribuir", "Quantidade:", value)); });
    EXPECT_EQ(value, "25");
    user.WillAnswer(TModalResult::Cancel, "99");
    Do([&] { EXPECT_FALSE(form.InputBox("Distribuir", "Quantidade:", value)); });
    EXPECT_EQ(value, "25");
    user.WillAnswer(TModalResult::Ok, "40/01/2026");
    user.WillAnswer(TModalResult::Ok, "31/01/2026");
    Do([&] { EXPECT_TRUE(form.InputBoxData("Data", "Data:", value)); });
    EXPECT_EQ(value, "31/01/2026") << "a text that is no date is refused and the box stays";
}

TEST_F(Application, RefusesAnswersThatADialogDoesNotOffer)
{
    TDialog dialog{.buttons = TButtons::YesNo};
    EXPECT_NE(dialog.Answer({.answer = TModalResult::Ok}), "");
    EXPECT_NE(dialog.Answer({.answer = TModalResult::None}), "");
    EXPECT_EQ(dialog.result, TModalResult::None);
    EXPECT_EQ(dialog.EscAnswer(), TModalResult::No);
    EXPECT_EQ(TDialog{}.EscAnswer(), TModalResult::Ok);
    EXPECT_EQ(TDialog{.buttons = TButtons::YesNoCancel}.EscAnswer(), TModalResult::Cancel);
    EXPECT_NE(user.Do({.kind = TUserEvent::TKind::Answer, .answer = TModalResult::Ok}), "") << "no dialog is open";
}

TEST_F(Application, RunsAModalScreenInTheMiddleOfAHandler)
{
    TfmProbe modal(app);
    modal.btnOk.OnClick.connect([&] { modal.ModalResult = TModalResult::Ok; });
    user.Will({.kind = TUserEvent::TKind::Text, .control = "edtA", .text = "12"});
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    TModalResult result = TModalResult::None;
    Do([&] { result = modal.ShowModal(); });
    EXPECT_EQ(result, TModalResult::Ok);
    EXPECT_EQ(modal.edtA.text(), "12");
    EXPECT_FALSE(modal.Showing());
    EXPECT_EQ(app.ActiveForm(), &form);
}

TEST_F(Application, RefusesEventsOfScreensBelowAModalOne)
{
    TForm below(app, "TfmBaixo", "Baixo");
    TButton button{below, "btnOk"};
    bool pressed = false;
    button.OnClick.connect([&] { pressed = true; });
    below.Show();
    TfmProbe modal(app);
    using enum TUserEvent::TKind;
    user.Will({.kind = TUserEvent::TKind::Click, .form = "fmBaixo", .control = "btnOk"});
    user.Will({.kind = OpenForm, .text = "TfmProbe"});
    user.Will({.kind = ActivateForm, .form = "fmBaixo"});
    user.Will({.kind = CloseForm, .form = "fmBaixo"});
    user.Will({.kind = CloseForm});
    Do([&] { EXPECT_EQ(modal.ShowModal(), TModalResult::Cancel); });
    EXPECT_FALSE(pressed);
    EXPECT_TRUE(below.Showing());
    EXPECT_EQ(user.Refusals,
        (TJournal{"A tela Baixo não está à frente.", "A tela Prova espera ser fechada.",
            "A tela Prova espera ser fechada.", "A tela Prova espera ser fechada."}));
    user.Click("btnOk");
    EXPECT_TRUE(pressed);
}

TEST_F(Application, RefusesAllButAnswersWhileADialogIsOpen)
{
    user.OnDialog = [&] {
        for (const auto kind : {TUserEvent::TKind::Click, TUserEvent::TKind::OpenForm, TUserEvent::TKind::CloseForm})
            EXPECT_EQ(app.Handle({.kind = kind, .control = "btnOk"}), "A pergunta \"Prova\" espera uma resposta.");
    };
    user.WillAnswer(TModalResult::Ok);
    Do([&] { form.Mensagem("Pronto."); });
    EXPECT_EQ(form.Told(), TJournal{});
}

TEST_F(Application, NestsModalRuns)
{
    TfmProbe outer(app);
    TfmProbe inner(app);
    outer.btnOk.OnClick.connect([&] {
        outer.ModalResult = inner.ShowModal() == TModalResult::Yes && outer.Pergunta("Certo?") ? TModalResult::Ok
                                                                                               : TModalResult::None;
    });
    inner.btnOk.OnClick.connect([&] { inner.ModalResult = TModalResult::Yes; });
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    user.WillAnswer(TModalResult::Yes);
    Do([&] { EXPECT_EQ(outer.ShowModal(), TModalResult::Ok); });
}

TEST_F(Application, ClosesAModalScreenByEscUnlessItHasACancelButton)
{
    TfmProbe modal(app);
    modal.btnCancela.SetVisible(false);
    user.Will({.kind = TUserEvent::TKind::Key, .key = {.name = "Esc"}});
    Do([&] { EXPECT_EQ(modal.ShowModal(), TModalResult::Cancel); });

    modal.btnCancela.SetVisible(true);
    modal.btnCancela.OnClick.connect([&] { modal.ModalResult = TModalResult::No; });
    user.Will({.kind = TUserEvent::TKind::Key, .key = {.name = "Esc"}});
    Do([&] { EXPECT_EQ(modal.ShowModal(), TModalResult::No); });
}

TEST_F(Application, KeepsAModalScreenThatRefusesToClose)
{
    TfmProbe modal(app);
    int asked = 0;
    modal.OnCloseQuery.connect([&](bool& may) { may = ++asked > 1; });
    user.Will({.kind = TUserEvent::TKind::CloseForm});
    user.Will({.kind = TUserEvent::TKind::CloseForm});
    Do([&] { modal.ShowModal(); });
    EXPECT_EQ(asked, 2);
}

TEST_F(Application, UnwindsAllModalRunsWhenTheSessionEnds)
{
    struct TUnwound {
        int& count;
        ~TUnwound() { ++count; }
    };
    TfmProbe modal(app);
    int unwound = 0;
    bool wentOn = false;
    modal.btnOk.OnClick.connect([&] {
        const TUnwound here{unwound};
        try {
            modal.Mensagem("Pronto.");
            wentOn = true;
        } catch (const std::exception&) {
            wentOn = true;
        }
    });
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    user.Will({.kind = TUserEvent::TKind::Terminate});
    Do([&] {
        const TUnwound here{unwound};
        modal.ShowModal();
        wentOn = true;
    });
    EXPECT_TRUE(app.Terminated());
    EXPECT_EQ(unwound, 2);
    EXPECT_FALSE(wentOn);
    EXPECT_FALSE(modal.Showing());
    Do([&] { form.Mensagem("Nada mais."); });
    EXPECT_EQ(user.Heard(), (TJournal{"Prova: Pronto."}));
}

TEST_F(Application, FindsTheScreenThatWasShownLast)
{
    RegisterProbe();
    auto& first = app.LoadForm("tfmprobe");
    auto& second = app.LoadForm("TfmProbe");
    EXPECT_EQ(app.FindFormByClass("TfmProbe"), &second);
    first.Show();
    EXPECT_EQ(app.FindFormByClass("TfmProbe"), &first);
    EXPECT_EQ(app.FindFormByName("FMPROBE"), &first);
    EXPECT_EQ(app.ActiveForm(), &first);
    EXPECT_EQ(app.FindFormByClass("TfmOutro"), nullptr);
    EXPECT_THROW(app.LoadForm("TfmOutro"), std::runtime_error);
}

/// Tells when it is destroyed.
class TfmMortal final : public TForm {
public:
    explicit TfmMortal(TApplication& app)
        : TForm(app, "TfmMortal", "Mortal")
    {
        ++Alive;
    }
    ~TfmMortal() override { --Alive; }
    static inline int Alive = 0;
    TButton btnFecha{*this, "btnFecha"};
};

class Lifetimes : public Application {
protected:
    Lifetimes()
    {
        app.RegisterForm(
            "TfmMortal", [](TApplication& application) { return std::make_unique<TfmMortal>(application); });
    }
};

TEST_F(Lifetimes, EndWhenAScreenIsClosed)
{
    EXPECT_EQ(user.Open("TfmMortal"), "");
    EXPECT_EQ(TfmMortal::Alive, 1);
    EXPECT_EQ(user.Open("TfmMortal"), "");
    EXPECT_EQ(TfmMortal::Alive, 1) << "an open screen comes to the front";
    EXPECT_EQ(user.Do({.kind = TUserEvent::TKind::CloseForm, .form = "fmMortal"}), "");
    EXPECT_EQ(TfmMortal::Alive, 0);
    EXPECT_EQ(user.ClosedForms, (TJournal{"fmMortal"}));
}

TEST_F(Lifetimes, LastUntilTheOwnHandlerIsDone)
{
    user.Open("TfmMortal");
    auto* mortal = static_cast<TfmMortal*>(app.FindFormByClass("TfmMortal"));
    int inside = 0;
    mortal->btnFecha.OnClick.connect([&, mortal] {
        mortal->Close();
        EXPECT_EQ(app.FindFormByClass("TfmMortal"), nullptr);
        form.Mensagem("Fechada.");
        inside = TfmMortal::Alive;
    });
    user.WillAnswer(TModalResult::Ok);
    user.Click("btnFecha");
    EXPECT_EQ(inside, 1);
    EXPECT_EQ(TfmMortal::Alive, 0);
}

TEST_F(Lifetimes, LetTheCallerOfAModalScreenReadItsResults)
{
    user.Will({.kind = TUserEvent::TKind::CloseForm});
    Do([&] {
        auto& modal = app.LoadForm("TfmMortal");
        modal.ShowModal();
        EXPECT_EQ(TfmMortal::Alive, 1);
        EXPECT_EQ(modal.Caption(), "Mortal");
    });
    EXPECT_EQ(TfmMortal::Alive, 0);
}

TEST_F(Lifetimes, OfAScreenMadeInAModalRunLastWhileItsHandlerWaitsForAnother)
{
    TfmProbe modal(app);
    modal.btnOk.OnClick.connect([&] { app.LoadForm("TfmMortal").Show(); });
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    user.Will({.kind = TUserEvent::TKind::CloseForm});
    Do([&] { modal.ShowModal(); });
    auto* mortal = static_cast<TfmMortal*>(app.FindFormByClass("TfmMortal"));
    ASSERT_NE(mortal, nullptr);
    EXPECT_EQ(app.ActiveForm(), mortal);

    TfmProbe second(app);
    second.btnOk.OnClick.connect([&] { mortal->Close(); });
    int whenDone = 0;
    mortal->btnFecha.OnClick.connect([&] {
        second.ShowModal();
        whenDone = TfmMortal::Alive;
    });
    user.Will({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    user.Will({.kind = TUserEvent::TKind::CloseForm});
    user.Click("btnFecha");
    EXPECT_EQ(whenDone, 1);
    EXPECT_EQ(TfmMortal::Alive, 0);
}

TEST_F(Application, RefusesWhatAPersonCouldNotDo)
{
    form.edtC.SetEnabled(false);
    form.btnOk.SetVisible(false);
    using enum TUserEvent::TKind;
    const std::vector<TUserEvent> impossible{
        {.kind = Text, .control = "edtC", .text = "x"},
        {.kind = Text, .control = "edtShown", .text = "x"},
        {.kind = Text, .control = "edtNada", .text = "x"},
        {.kind = Text, .control = "edtA", .text = "\xFF"},
        {.kind = Text, .control = "btnCancela", .text = "x"},
        {.kind = Text, .form = "fmNada", .control = "edtA"},
        {.kind = Click, .control = "btnOk"},
        {.kind = Click, .control = "edtA"},
        {.kind = Focus, .control = "pnl"},
        {.kind = Focus, .control = "btnLupa"},
        {.kind = Key, .control = "edtA", .key = {.name = "F99"}},
        {.kind = Key, .control = "edtA"},
        {.kind = Page, .control = "edtA", .index = 0},
        {.kind = OpenMenu, .control = "edtA"},
        {.kind = MenuItem, .control = "edtA", .text = "x"},
        {.kind = GridCell, .control = "edtA", .row = 0},
        {.kind = OpenForm, .text = "TfmNada"},
        {.kind = CloseForm, .form = "fmNada"},
        {.kind = ActivateForm, .form = "fmNada"},
        {.kind = Answer, .answer = TModalResult::Ok},
        {.kind = Search, .text = "x"},
    };
    for (const auto& event : impossible) {
        EXPECT_NE(user.Do(event), "") << static_cast<int>(event.kind) << " " << event.control;
        EXPECT_EQ(form.ActiveControl(), &form.edtA);
    }
    EXPECT_EQ(form.Told(), TJournal{});
    EXPECT_EQ(user.Changed(), (TJournal{"edtC", "btnOk"}));
}

TEST_F(Application, TellsItsSourceHowEachEventWent)
{
    struct TSource final : IEventSource {
        std::vector<TUserEvent> events;
        std::vector<std::string> refusals;
        std::size_t next = 0;
        TUserEvent Next() override
        {
            return next < events.size() ? events[next++] : TUserEvent{.kind = TUserEvent::TKind::Terminate};
        }
        void Handled(const TUserEvent&, std::string_view refusal) override { refusals.emplace_back(refusal); }
    } source;
    TApplication second(source);
    TfmProbe screen(second);
    screen.Show();
    source.events
        = {{.kind = TUserEvent::TKind::Focus, .control = "edtB"}, {.kind = TUserEvent::TKind::Focus, .control = "x"}};
    second.Run();
    EXPECT_EQ(source.refusals, (TJournal{"", "A tela Prova não tem o controle x.", ""}));
}

TEST_F(Application, CountsBusyPeriods)
{
    app.SetBusy(true);
    app.SetBusy(true);
    app.SetBusy(false);
    EXPECT_TRUE(user.Busy);
    app.SetBusy(false);
    EXPECT_FALSE(user.Busy);
}

TEST_F(Application, TellsTheViewOfEachChangeOnceAndOfNoneWithoutOne)
{
    form.edtA.SetText("1");
    form.edtA.SetText("1");
    form.edtA.SetCaption("B");
    form.edtB.SetEnabled(true);
    form.edtB.SetVisible(false);
    EXPECT_EQ(user.Changed(), (TJournal{"edtA", "edtA", "edtB"}));
    TfmProbe hidden(app);
    hidden.edtA.SetText("1");
    EXPECT_EQ(user.Changed(), TJournal{});
}

TEST_F(Application, HasADayThatMayBeSet)
{
    EXPECT_FALSE(app.Now().IsBlank());
    app.SetNow(TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0));
    EXPECT_EQ(app.Today(), TDateTime::FromDate(2026, 11, 20));
    app.SetNow({});
    EXPECT_NE(app.Today(), TDateTime::FromDate(2026, 11, 20));
}

TEST_F(Application, PicksRowsInALookupAndSearchesInIt)
{
    TMemTable rows;
    rows.AddField("COR", TFieldKind::Text, 6);
    for (const auto* cor : {"01", "02"}) {
        rows.Append();
        rows.FieldByName("COR").Set(cor);
        rows.Post();
    }
    TDialog dialog{.kind = TDialog::TKind::Lookup, .rows = &rows};
    std::string searched;
    dialog.OnSearch.connect([&](std::string_view text) { searched = text; });
    user.Will({.kind = TUserEvent::TKind::Search, .text = "az"});
    user.WillPick({2});
    user.WillPick({0, 1});
    user.WillPick({});
    user.WillPick({1});
    Do([&] { EXPECT_EQ(app.ShowDialog(dialog), TModalResult::Ok); });
    EXPECT_EQ(searched, "az");
    EXPECT_EQ(dialog.picked, (std::vector<std::int64_t>{1}));
}

} // namespace
} // namespace alinhavo
