// A user behind a browser who does not want to wait for a report: from the button to the database and back.

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "host/TOrvForm.h"
#include "platform/database/schema.h"
#include "platform/database/TDatabaseTest.h"
#include "platform/report/TWorkFolder.h"
#include "platform/services/setPassword.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/session/TDatabaseHost.h"
#include "platform/web/TWebClient.h"
#include "platform/web/TWebServer.h"

#include <thread>

namespace alinhavo {
namespace {

using json = nlohmann::json;
using namespace std::chrono_literals;

/// A screen whose report would take hours.
class TfmDemora final : public TOrvForm {
public:
    explicit TfmDemora(TApplication& application)
        : TOrvForm(application, "TfmDemora", "Demora")
    {
        btnExecuta.OnClick.connect(this, &TfmDemora::btnExecutaClick);
        btnConta.OnClick.connect(this, &TfmDemora::btnContaClick);
    }

    TEdit edtFiltro{*this, "edtFiltro", {.caption = "Filtro"}};
    TEdit edtResultado{*this, "edtResultado", {.caption = "Resultado"}};
    TButton btnExecuta{*this, "btnExecuta", {.caption = "Executa"}};
    TButton btnConta{*this, "btnConta", {.caption = "Conta"}};

private:
    void btnExecutaClick()
    {
        const auto ocupado = Ocupado();
        edtResultado.SetText(ConsultaValor(R"(SELECT COUNT(*) FROM {CADCOR} A, {CADCOR} B, {CADCOR} C, {CADCOR} D,
            {CADCOR} E, {CADCOR} F WHERE A.COR < B.COR OR C.COR > F.DESCRICAO)")
                                 .AsString());
    }
    void btnContaClick()
    {
        edtResultado.SetText(edtFiltro.text() + " " + ConsultaValor("SELECT COUNT(*) FROM {CADCOR}").AsString());
    }
};

class Cancel : public TDatabaseTest {
protected:
    void SetUp() override
    {
        TDatabaseTest::SetUp();
        if (!db)
            return;
        FillEmptyDatabase(*db);
        for (int colour = 100; colour < 180; ++colour)
            db->ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, 'Cor')", std::to_string(colour)});
        db->CommitRetaining();
        SetPassword(*db, "ADMIN", "demo");
        host_ = std::make_unique<TDatabaseHost>(
            TDatabaseHostOptions{.address = Address(), .registerScreens = [](TApplication& application) {
                                     application.RegisterForm("TfmDemora",
                                         [](TApplication& maker) { return std::make_unique<TfmDemora>(maker); });
                                     application.LoadForm("TfmDemora").Show();
                                 }});
        TWebOptions options;
        options.port = 0;
        options.clientFolder = folder_.Path();
        server = std::make_unique<TWebServer>(options, *host_);
    }
    void TearDown() override
    {
        server.reset();
        host_.reset();
        TDatabaseTest::TearDown();
    }

    static json On(const std::string& event, const std::string& control, json more = json::object())
    {
        more.update({{"event", event}, {"form", "fmDemora"}, {"control", control}});
        return more;
    }

    std::unique_ptr<TWebServer> server;

private:
    TWorkFolder folder_;
    std::unique_ptr<TDatabaseHost> host_;
};
ON_BOTH_SERVERS(Cancel);

TEST_P(Cancel, GivesTheScreenBackWithinASecondAndKeepsWhatWasTyped)
{
    TWebClient client(server->Port(), {.user = "ADMIN"});
    client.Do(On("text", "edtFiltro", {{"text", "verão"}}));
    const int number = client.Send(On("click", "btnExecuta"));
    while (!client.Receive().value("busy", false))
        ;
    std::this_thread::sleep_for(500ms);
    const auto asked = std::chrono::steady_clock::now();
    client.SendText(R"({"cancel": true})");
    const auto& state = client.ReceiveDone(number);
    EXPECT_LT(std::chrono::steady_clock::now() - asked, 1s);

    ASSERT_TRUE(state.contains("dialogs")) << state.dump();
    const auto& dialog = state["dialogs"][0];
    EXPECT_EQ(dialog["text"], "Operação cancelada.");
    client.Do({{"event", "answer"}, {"dialog", dialog["dialog"]}, {"button", "ok"}});
    client.Do(On("click", "btnConta"));
    EXPECT_EQ(client.Property("edtResultado", "text"), "verão 80");
}

} // namespace
} // namespace alinhavo
