#include "administration/TfmConectados.h"

#include "TAdministrationTest.h"

namespace alinhavo {
namespace {

using TTexts = std::vector<std::string>;

TDateTime At(int hour, int minute) { return TDateTime::FromDateTime(2026, 11, 20, hour, minute, 0); }

class TConnectedScreen : public TAdministrationTest {
protected:
    void SetUp() override
    {
        TAdministrationTest::SetUp();
        if (IsSkipped())
            return;
        TConectado own{.id = "s1", .usuario = "ANA", .nome = "Ana", .desde = At(8, 0), .ultimoUso = At(14, 30)};
        own.propria = true;
        TConectado waiting{.id = "s2", .usuario = "007", .nome = "Bruno", .desde = At(9, 15), .ultimoUso = At(14, 18)};
        waiting.pendenteDesde = At(13, 25);
        waiting.telas = {"Movimentação de Setores", "Cadastro de Fluxos"};
        waiting.navegadorAberto = true;
        const TConectado idle{.id = "s3", .usuario = "RUI", .nome = "Rui", .desde = At(10, 0), .ultimoUso = At(12, 30)};
        connected.Sessions = {own, waiting, idle};
        screen = std::make_unique<TfmConectados>(*app);
    }
    void TearDown() override
    {
        screen.reset();
        TAdministrationTest::TearDown();
    }

    std::string CellOf(std::size_t row, std::string_view field)
    {
        return screen->TbConectados.CellText(row, screen->TbConectados.FieldByName(field));
    }
    TRowColor ColorOf(std::size_t row)
    {
        auto color = TRowColor::Normal;
        screen->dbgConectadosRowColor(row, color);
        return color;
    }
    /// `supervisor`: who vouches, when it comes to that.
    void End(std::size_t row, TModalResult answer, const char* password = PasswordOfMaria)
    {
        user.Read.clear();
        screen->TbConectados.GoToRow(row);
        user.Says(answer);
        if (answer == TModalResult::Yes)
            user.Says(TModalResult::Ok, "MARIA", password);
        Do([&] { screen->btnEncerrarClick(); });
    }

    std::unique_ptr<TfmConectados> screen;
};

ON_BOTH_SERVERS(TConnectedScreen);

TEST_P(TConnectedScreen, ShowsWhoIsAtWorkWithWhatWaits)
{
    EXPECT_EQ(screen->TbConectados.RecordCount(), 3U);
    EXPECT_EQ(CellOf(1, "Nome"), "Bruno");
    EXPECT_EQ(CellOf(1, "Desde"), "20/11/2026 09:15");
    EXPECT_EQ(CellOf(1, "UltimoUso"), "há 12 min");
    EXPECT_EQ(CellOf(1, "Pendente"), "desde 13:25, há 1 h 05 min");
    EXPECT_EQ(CellOf(1, "Telas"), "Movimentação de Setores, Cadastro de Fluxos");
    EXPECT_EQ(CellOf(1, "Navegador"), "aberto");
    EXPECT_EQ(CellOf(0, "Navegador"), "este");
    EXPECT_EQ(CellOf(0, "UltimoUso"), "há menos de 1 min");
    EXPECT_EQ(CellOf(2, "Navegador"), "fechado");
    EXPECT_EQ(CellOf(2, "Pendente"), "");
    EXPECT_EQ(CellOf(2, "UltimoUso"), "há 2 h 00 min");
    EXPECT_EQ(screen->lblQuantos.Caption(), "3 sessões");
}

TEST_P(TConnectedScreen, MarksPendingWorkAndTheOwnSession)
{
    EXPECT_EQ(ColorOf(0), TRowColor::Muted);
    EXPECT_EQ(ColorOf(1), TRowColor::Warning);
    EXPECT_EQ(ColorOf(2), TRowColor::Normal);
}

TEST_P(TConnectedScreen, ASupervisorEndsASessionAndItIsWrittenDown)
{
    End(1, TModalResult::Yes);
    EXPECT_EQ(user.Read,
        (TTexts{"Encerrar a sessão de Bruno?\nO que não foi gravado desde as 13:25 será desfeito.",
            "A sessão de Bruno foi encerrada."}));
    EXPECT_EQ(connected.Ended, TTexts{"s2: A sessão foi encerrada por ANA."});
    EXPECT_EQ(
        Log(), "SESSOES|007|ANA|Sessão de Bruno encerrada; trabalho sem gravar desde 13:25, há 1 h 05 min, desfeito\n");
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(screen->TbConectados.RecordCount(), 2U);
}

TEST_P(TConnectedScreen, ASessionWithoutPendingWorkIsEndedToo)
{
    End(2, TModalResult::Yes);
    EXPECT_EQ(user.Read.front(), "Encerrar a sessão de Rui?\nNão há trabalho sem gravar.");
    EXPECT_EQ(Log(), "SESSOES|RUI|ANA|Sessão de Rui encerrada, sem trabalho pendente\n");
}

TEST_P(TConnectedScreen, NothingEndsWithoutAYesAndASupervisor)
{
    End(1, TModalResult::No);
    EXPECT_EQ(user.Read.size(), 1U);
    End(1, TModalResult::Yes, "senha errada");
    EXPECT_EQ(user.Read.back(), "Supervisor ou senha inválidos.");
    EXPECT_EQ(connected.Ended, TTexts{});
    EXPECT_EQ(Log(), "");
}

TEST_P(TConnectedScreen, NobodyEndsHisOwnSessionHere)
{
    user.Read.clear();
    screen->TbConectados.GoToRow(0);
    Do([&] { screen->btnEncerrarClick(); });
    EXPECT_EQ(user.Read, TTexts{"Esta é a sua própria sessão. Para terminá-la, use Sair."});
    EXPECT_EQ(connected.Ended, TTexts{});
}

TEST_P(TConnectedScreen, ASessionThatHasGoneMeanwhileLeavesNoLine)
{
    std::erase_if(connected.Sessions, [](const auto& session) { return session.id == "s2"; });
    End(1, TModalResult::Yes);
    EXPECT_EQ(user.Read.back(), "Essa sessão já tinha terminado.");
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(screen->TbConectados.RecordCount(), 2U);
}

TEST_P(TConnectedScreen, AnotherReadingStaysOnItsSession)
{
    screen->TbConectados.GoToRow(2);
    connected.Sessions.erase(connected.Sessions.begin());
    Do([&] { screen->btnAtualizarClick(); });
    EXPECT_EQ(screen->TbConectados.Nome.value(), "Rui");
    EXPECT_EQ(screen->lblQuantos.Caption(), "2 sessões");
}

} // namespace
} // namespace alinhavo
