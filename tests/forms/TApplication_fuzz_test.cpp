#include "example/TfmExemplo.h"

#include "TfmProbe.h"

#include <chrono>
#include <random>

namespace alinhavo {
namespace {

/// Anything at all, sensible or not, and an answer to whatever is asked.
class TFuzzer final : public IEventSource {
public:
    explicit TFuzzer(unsigned seed)
        : random_(seed)
    {
    }

    TUserEvent Next() override { return nested_++ > 200 ? TUserEvent{.kind = TUserEvent::TKind::Terminate} : Event(); }
    void NewEvent() { nested_ = 0; }

    TUserEvent Event()
    {
        static const std::vector<std::string> texts{"", "0", "-1", "5", "999999999999", "12/10/2026", "ã", "\xC3", "\n",
            "%s", std::string(3000, 'x'), "Quantidade", "ZerarQuantidades1", "TfmExemplo", "TfmProbe", "01 |Azul", "S",
            ","};
        static const std::vector<std::string> controls{"", "edtPedido", "cbCor", "edtEntrega", "cbUrgente", "rgBanho",
            "dbgBotoes", "edtTotal", "mmObs", "btnConfirmar", "btnDesistir", "btnDetalhe", "PageControl1", "tbsPedido",
            "pnlBotoes", "PopupMenu1", "TbBotoes", "edtObsLinha", "lblSituacao", "edtA", "edtB", "nada"};
        static const std::vector<std::string> keys{"Enter", "Tab", "Shift+Tab", "Esc", "Up", "Down", "PgUp", "PgDn",
            "Home", "End", "Left", "Right", "Space", "F4", "F7", "Ctrl+Del", "Del", "Ins", "Alt+c", "Alt+p", "Alt+n",
            "5", "ç", "Ctrl+Enter", "Nada", ""};
        static const std::vector<std::string> columns{
            "", "Tam", "Qtde", "Perda", "Conferido", "Obs", "Quantidade", "Nada"};
        static const std::vector<std::string> forms{"", "", "", "", "fmExemplo", "fmProbe", "TfmExemplo", "nada"};
        TUserEvent event;
        event.kind = static_cast<TUserEvent::TKind>(random_() % static_cast<unsigned>(TUserEvent::TKind::Work));
        event.form = Pick(forms);
        event.control = Pick(controls);
        event.text = Pick(texts);
        event.key = TKey::Parse(Pick(keys));
        event.column = Pick(columns);
        event.row = static_cast<std::int64_t>(random_() % 6) - 1;
        event.index = static_cast<int>(random_() % 5) - 1;
        event.flag = random_() % 2 == 0;
        event.answer = static_cast<TModalResult>(random_() % 6);
        for (auto i = random_() % 3; i > 0; --i)
            event.rows.push_back(static_cast<std::int64_t>(random_() % 5) - 1);
        return event;
    }

private:
    const std::string& Pick(const std::vector<std::string>& from) { return from[random_() % from.size()]; }

    std::mt19937 random_;
    int nested_ = 0;
};

TEST(Fuzzing, NeverBringsAnApplicationDown)
{
    const auto seed = static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count());
    SCOPED_TRACE("seed " + std::to_string(seed));
    TFuzzer fuzzer(seed);
    int done = 0, refused = 0;
    for (int session = 0; session < 20; ++session) {
        TApplication app(fuzzer);
        app.RegisterForm("TfmExemplo", [](TApplication& a) { return std::make_unique<TfmExemplo>(a); });
        app.RegisterForm("TfmProbe", [](TApplication& a) { return std::make_unique<TfmProbe>(a); });
        app.Handle({.kind = TUserEvent::TKind::OpenForm, .text = "TfmExemplo"});
        for (int i = 0; i < 1000 && !app.Terminated(); ++i) {
            fuzzer.NewEvent();
            ++(app.Handle(fuzzer.Event()).empty() ? done : refused);
        }
    }
    EXPECT_GT(done, 100);
    EXPECT_GT(refused, 100);
}

} // namespace
} // namespace alinhavo
