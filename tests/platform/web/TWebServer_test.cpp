#include "forms/IShownReport.h"
#include "forms/TApplication.h"
#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TImage.h"
#include "forms/TMemTable.h"
#include "platform/session/clock.h"
#include "platform/web/TWebServer.h"
#include "TWebClient.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace alinhavo {
namespace {

namespace fs = std::filesystem;
namespace http = boost::beast::http;
using json = nlohmann::json;

struct TTbLinhas : TMemTable {
    TIntegerField Numero{*this, "Numero"};
};

struct TTbTextos : TMemTable {
    TStringField Texto{*this, "Texto", 30, {.title = "=Texto"}};
    TFloatField Valor{*this, "Valor", {.decimals = 2}};
    TStringField Oculto{*this, "Oculto", 30};
};

/// A report of text, as its viewer knows it.
class TTestReport final : public IShownReport {
public:
    std::string sentTo;

    std::shared_ptr<const std::string> Document() const override
    {
        return std::make_shared<const std::string>("<p>Pendentes: 12</p>");
    }
    std::shared_ptr<const std::string> PlainText() const override
    {
        return std::make_shared<const std::string>("Pendentes: 12\n");
    }
    const std::string& Recipient() const override { return recipient_; }
    std::string Workbook() const override { return "PK"; }
    void SendTo(std::string_view address) override
    {
        if (address.empty())
            throw std::invalid_argument("Endereço de e-mail inválido.");
        sentTo = address;
    }

private:
    std::string recipient_ = "faccao@exemplo.com.br";
};

class TfmTeste final : public TForm {
public:
    explicit TfmTeste(TApplication& app)
        : TForm(app, "TfmTeste", "Teste")
    {
        edtPrimeiro.OnExit.connect(this, &TfmTeste::edtPrimeiroExit);
        edtBarra.OnChange.connect(this, &TfmTeste::edtBarraChange);
        edtTecla.OnKeyDown.connect(this, &TfmTeste::edtTeclaKeyDown);
        btnFalha.OnClick.connect(this, &TfmTeste::btnFalhaClick);
        btnRelatorio.OnClick.connect(this, &TfmTeste::btnRelatorioClick);
        btnArquivo.OnClick.connect(this, &TfmTeste::btnArquivoClick);
        for (const auto* text : {"Zinco", "=1+1", "@a;\"b\"", "-x", "+x"}) {
            TbTextos.Append();
            TbTextos.Texto = text;
            TbTextos.Valor = -1234.5;
            TbTextos.Post();
        }
        const auto quiet = TbLinhas.DisableControls();
        for (int number = 0; number < 1000; ++number) {
            TbLinhas.Append();
            TbLinhas.Numero = number;
            TbLinhas.Post();
        }
        TbLinhas.First();
    }

    TTbLinhas TbLinhas;
    TTbTextos TbTextos;
    TEdit edtPrimeiro{*this, "edtPrimeiro"};
    TEdit edtSegundo{*this, "edtSegundo"};
    TEdit edtBarra{*this, "edtBarra"};
    TEdit edtTecla{*this, "edtTecla"};
    TButton btnFalha{*this, "btnFalha", {.caption = "Falha"}};
    TButton btnArquivo{*this, "btnArquivo", {.caption = "Arquivo"}};
    TButton btnRelatorio{*this, "btnRelatorio", {.caption = "Relatório"}};
    TImage imgFoto{*this, "imgFoto"};
    TGrid dbgLinhas{*this, "dbgLinhas", TbLinhas};

    TGrid dbgTextos{*this, "dbgTextos", TbTextos,
        {.columns = {{"Texto"}, {"Oculto", {}, 0, -1, {}, false, false, false, false}, {"Valor", "Preço"}}}};

private:
    void edtPrimeiroExit()
    {
        if (edtPrimeiro.text() == "pergunta" && !Pergunta("Continua?"))
            edtPrimeiro.SetFocus();
    }
    void edtBarraChange()
    {
        if (edtBarra.text().size() >= 3)
            edtBarra.SetTextQuietly("");
    }
    void edtTeclaKeyDown(TKey& key)
    {
        if (key.name == "x")
            key.Swallow();
    }
    void btnArquivoClick()
    {
        edtSegundo.SetText(EscolheArquivo("Foto"));
        imgFoto.SetFile(edtSegundo.text());
    }
    void btnRelatorioClick()
    {
        TTestReport report;
        TDialog viewer{.kind = TDialog::TKind::Report, .title = "Pendências", .report = &report};
        Application().ShowDialog(viewer);
        edtSegundo.SetText(report.sentTo);
    }
    void btnFalhaClick() { throw std::runtime_error("disco cheio"); }
};

class TTestWorkplace final : public IWorkplace {
public:
    TTestWorkplace(IEventSource& source, IView& view, TDateTime pendingSince)
        : application_(source, &view)
        , pendingSince_(pendingSince)
    {
        application_.RegisterForm("TfmTeste", [](TApplication& app) { return std::make_unique<TfmTeste>(app); });
        application_.RegisterForm("TfmOutra", [](TApplication& app) { return std::make_unique<TfmTeste>(app); });
        application_.LoadForm("TfmTeste").Show();
    }

    TApplication& Application() override { return application_; }
    const std::vector<TMenuEntry>& Menu() const override { return menu_; }
    TDateTime PendingSince() const override { return pendingSince_; }
    void Cancel() override { }

private:
    TApplication application_;
    TDateTime pendingSince_;
    std::vector<TMenuEntry> menu_ = {{"Testes", "Teste", "TfmTeste"}};
};

class TTestHost final : public ISessionHost {
public:
    std::optional<TSessionUser> LogIn(std::string_view name, std::string_view password) override
    {
        ++tries;
        return password == "demo" ? std::optional(TSessionUser{std::string(name), "Ana"}) : std::nullopt;
    }
    std::unique_ptr<IWorkplace> Open(
        const TSessionUser& user, IEventSource& source, IView& view, TConectados& connected) override
    {
        const std::lock_guard lock(mutex);
        seenBy[user.code] = &connected;
        return std::make_unique<TTestWorkplace>(source, view, pendingSince);
    }
    TClientSettings Settings(const TSessionUser& user) override { return settings[user.code]; }
    void WriteSettings(const TSessionUser& user, const TClientSettings& written) override
    {
        for (const auto& [name, value] : written)
            settings[user.code][name] = value;
    }
    void LeaveNotice(const TSessionUser&, std::string_view text) override
    {
        const std::lock_guard lock(mutex);
        notice = text;
    }
    std::string TakeNotice(const TSessionUser&) override
    {
        const std::lock_guard lock(mutex);
        return std::exchange(notice, {});
    }

    TDateTime pendingSince; ///< of every session
    std::atomic<int> tries = 0;
    std::map<std::string, TClientSettings> settings;
    std::mutex mutex;
    std::map<std::string, TConectados*> seenBy; ///< who is at work, as the last session of each user sees it
    std::string notice;
};

class WebServer : public testing::Test {
protected:
    WebServer()
    {
        fs::remove_all(folder_);
        Write("client/index.html", "<p>Alinhavo</p>");
        Write("client/assets/app-1.js", "let alinhavo;");
        Write("client/assets/app-1.js.gz", "compressed");
        Write("secret.txt", "secret");
        fs::create_symlink(folder_ / "secret.txt", folder_ / "client/link.txt");
        Start();
    }
    ~WebServer() override
    {
        server_.reset();
        fs::remove_all(folder_);
    }

    void Start(std::chrono::steady_clock::duration idle = std::chrono::hours(1))
    {
        server_.reset();
        TWebOptions options;
        options.port = 0;
        options.clientFolder = folder_ / "client";
        options.limits = {.sessions = 3, .idle = idle};
        options.loginPenalty = std::chrono::milliseconds(100);
        options.sweep = std::chrono::milliseconds(20);
        server_ = std::make_unique<TWebServer>(options, host_);
    }

    TWebAnswer Post(const std::string& path, const json& body, const std::string& cookie = {})
    {
        return Request(Port(), path, {.cookie = cookie, .verb = http::verb::post, .body = body.dump()});
    }

    /// The token of a file that the client's session brings.
    std::string Upload(const TWebClient& client, const std::string& name, const std::string& content)
    {
        const std::string session = client.State().value("session", "");
        const auto answer = Request(Port(), "/arquivo?nome=" + name + (session.empty() ? "" : "&sessao=" + session),
            {.cookie = client.Cookie(), .verb = http::verb::post, .body = content});
        return json::parse(answer.body()).value("arquivo", "");
    }

    static std::string Content(const fs::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void Write(const fs::path& file, std::string_view content)
    {
        fs::create_directories((folder_ / file).parent_path());
        std::ofstream(folder_ / file) << content;
    }

    TWebAnswer Get(const std::string& path, const TRequestOptions& options = {})
    {
        return Request(server_->Port(), path, options);
    }

    json On(const std::string& event, const std::string& control, json more = json::object())
    {
        more.update({{"event", event}, {"form", "fmTeste"}, {"control", control}});
        return more;
    }

    std::uint16_t Port() const { return server_->Port(); }

    fs::path folder_ = fs::path(testing::TempDir()) / ("alinhavo_web_" + std::to_string(::getpid()));
    TTestHost host_;
    std::unique_ptr<TWebServer> server_;
};

TEST_F(WebServer, GivesTheClientsFiles)
{
    const auto page = Get("/");
    EXPECT_EQ(page.result(), http::status::ok);
    EXPECT_EQ(page.body(), "<p>Alinhavo</p>");
    EXPECT_EQ(page[http::field::content_type], "text/html; charset=utf-8");
    EXPECT_EQ(page[http::field::cache_control], "no-cache");
    EXPECT_NE(page["Content-Security-Policy"], "");
    EXPECT_EQ(Get("/index.html?x=1").body(), page.body());
}

TEST_F(WebServer, AFileThatIsKnownIsNotSentAgain)
{
    const std::string etag(Get("/")[http::field::etag]);
    const auto again = Get("/", {.etag = etag});
    EXPECT_EQ(again.result(), http::status::not_modified);
    EXPECT_EQ(again.body(), "");
}

TEST_F(WebServer, AFileGoesCompressedToWhoeverAsksForIt)
{
    const auto file = Get("/assets/app-1.js", {.encoding = "br, gzip"});
    EXPECT_EQ(file[http::field::content_encoding], "gzip");
    EXPECT_EQ(file.body(), "compressed");
    EXPECT_NE(std::string(file[http::field::cache_control]).find("immutable"), std::string::npos);
    EXPECT_EQ(Get("/assets/app-1.js").body(), "let alinhavo;");
}

TEST_F(WebServer, NothingOutsideTheFolderIsReached)
{
    for (const std::string path :
        {"/../secret.txt", "/assets/../../secret.txt", "/%2e%2e/secret.txt", "/..%2fsecret.txt", "//etc/passwd",
            "/link.txt", "/./../secret.txt", "/assets/..\\..\\secret.txt", "/assets", "/assets/app-1.js.gz"}) {
        const auto answer = Get(path);
        EXPECT_EQ(answer.result(), http::status::not_found) << path;
        EXPECT_EQ(answer.body().find("secret"), std::string::npos) << path;
    }
}

TEST_F(WebServer, OnlyReadingIsAllowed)
{
    EXPECT_EQ(Get("/", {.verb = http::verb::post}).result(), http::status::method_not_allowed);
    EXPECT_EQ(Get("/", {.verb = http::verb::head}).body(), "");
}

TEST_F(WebServer, APageOfAnotherSiteOpensNoSession)
{
    EXPECT_THROW(TWebClient(Port(), {.origin = "http://evil.example"}), boost::system::system_error);
    EXPECT_THROW(TWebClient(Port(), {.origin = "http://127.0.0.1:1"}), boost::system::system_error);
    EXPECT_THROW(TWebClient(Port(), {.origin = "null"}), boost::system::system_error);
    EXPECT_THROW(TWebClient(Port(), {.origin = ""}), boost::system::system_error);
    EXPECT_EQ(server_->SessionCount(), 0U);
}

TEST_F(WebServer, ANewClientIsToldEverything)
{
    const TWebClient client(Port());
    EXPECT_TRUE(client.State().contains("session"));
    EXPECT_EQ(client.State()["done"], 0);
    EXPECT_EQ(client.Focus(), "edtPrimeiro");
    EXPECT_EQ(client.Property("edtSegundo", "kind"), "edit");
    EXPECT_EQ(client.Property("dbgLinhas", "count"), 1000);
    EXPECT_EQ(client.Property("dbgLinhas", "rows").size(), 100U);
}

TEST_F(WebServer, AClientIsToldOnlyWhatChanged)
{
    TWebClient client(Port());
    EXPECT_FALSE(client.Do(On("text", "edtPrimeiro", {{"text", "abc"}})).contains("changed")) << "it shows it already";
    const auto& answer = client.Do(On("key", "edtPrimeiro", {{"key", "Enter"}}));
    EXPECT_FALSE(answer.contains("shown"));
    EXPECT_EQ(client.Focus(), "edtSegundo");
}

TEST_F(WebServer, RowsAreGivenOnRequest)
{
    TWebClient client(Port());
    const auto rows = client.Do(On("rows", "dbgLinhas", {{"first", 500}, {"count", 50}}))["changed"][0];
    EXPECT_EQ(rows["window"], json({500, 50}));
    ASSERT_EQ(rows["rows"].size(), 50U);
    EXPECT_EQ(rows["rows"][0], json::parse(R"([500,[0,"500"]])"));
}

TEST_F(WebServer, AMalformedMessageIsAnErrorForItsSenderAndNothingElse)
{
    TWebClient client(Port());
    TWebClient other(Port());
    for (const auto* text : {"", "{", "{}", "[1,2]", R"({"n":1,"turn":1,"event":"focus","form":"f"})"}) {
        client.SendText(text);
        EXPECT_TRUE(client.Receive().contains("error")) << text;
    }
    client.Do(On("focus", "edtSegundo"));
    EXPECT_EQ(client.Focus(), "edtSegundo");
    other.Do(On("focus", "edtBarra"));
    EXPECT_EQ(other.Focus(), "edtBarra");
}

TEST_F(WebServer, AnOversizedMessageEndsTheConnectionAndNotTheSession)
{
    TWebClient client(Port());
    client.Do(On("text", "edtPrimeiro", {{"text", "abc"}}));
    client.SendText(std::string(TClientMessage::MaxBytes + 1, 'x'));
    EXPECT_THROW(client.Receive(), boost::system::system_error);
    const TWebClient again(Port(), {.cookie = client.Cookie()});
    EXPECT_EQ(again.Property("edtPrimeiro", "text"), "abc");
}

TEST_F(WebServer, AMessageOutOfOrderIsAnError)
{
    TWebClient client(Port());
    client.SendText(R"({"n":2,"turn":1,"event":"focus","form":"fmTeste","control":"edtSegundo"})");
    EXPECT_TRUE(client.Receive().contains("error"));
    client.Do(On("focus", "edtSegundo"));
    client.SendText(R"({"n":1,"turn":1,"event":"focus","form":"fmTeste","control":"edtBarra"})");
    EXPECT_TRUE(client.Receive().contains("error"));
    EXPECT_EQ(client.Focus(), "edtSegundo");
}

TEST_F(WebServer, WhatNoPersonCouldDoIsRefused)
{
    TWebClient client(Port());
    const auto answer = client.Do(On("focus", "edtUnknown"));
    ASSERT_TRUE(answer.contains("refused"));
    EXPECT_EQ(answer["refused"][0]["n"], 1);
}

TEST_F(WebServer, WhatWasSentBeforeTheFocusMovedIsPassedOver)
{
    TWebClient client(Port());
    client.Send(On("key", "edtPrimeiro", {{"key", "Enter"}}));
    const int late = client.Send(On("text", "edtPrimeiro", {{"text", "late"}}));
    client.ReceiveDone(late);
    EXPECT_EQ(client.Focus(), "edtSegundo");
    EXPECT_EQ(client.Property("edtPrimeiro", "text"), "");
    client.Do(On("text", "edtSegundo", {{"text", "here"}}));
    const TWebClient again(Port(), {.cookie = client.Cookie()});
    EXPECT_EQ(again.Property("edtSegundo", "text"), "here");
}

TEST_F(WebServer, WhatWasTypedBeforeTheTextWasAnotherIsPassedOver)
{
    TWebClient client(Port());
    client.Do(On("focus", "edtBarra"));
    client.Send(On("text", "edtBarra", {{"text", "12"}}));
    client.Send(On("text", "edtBarra", {{"text", "123"}}));
    const int late = client.Send(On("text", "edtBarra", {{"text", "1234"}}));
    client.ReceiveDone(late);
    EXPECT_EQ(client.Property("edtBarra", "text"), "");
    const TWebClient again(Port(), {.cookie = client.Cookie()});
    EXPECT_EQ(again.Property("edtBarra", "text"), "") << "the late text was not carried out";
}

TEST_F(WebServer, AKeyThatIsSwallowedTypesNothing)
{
    TWebClient client(Port());
    client.Do(On("focus", "edtTecla"));
    client.Do(On("text", "edtTecla", {{"text", "a"}, {"key", "a"}}));
    client.Do(On("text", "edtTecla", {{"text", "ax"}, {"key", "x"}}));
    EXPECT_EQ(client.Property("edtTecla", "text"), "a");
}

TEST_F(WebServer, AnAnswerIsForTheDialogThatItNames)
{
    TWebClient client(Port());
    client.Do(On("text", "edtPrimeiro", {{"text", "pergunta"}}));
    const auto dialog = client.Do(On("key", "edtPrimeiro", {{"key", "Enter"}}))["dialogs"][0];
    EXPECT_EQ(dialog["text"], "Continua?");
    EXPECT_EQ(dialog["default"], "no");
    const auto number = dialog["dialog"].get<int>();
    EXPECT_TRUE(client.Do({{"event", "answer"}, {"dialog", number + 1}, {"button", "yes"}}).contains("refused"));
    EXPECT_TRUE(client.Do(On("focus", "edtSegundo")).contains("refused"));
    EXPECT_EQ(client.Do({{"event", "answer"}, {"dialog", number}, {"button", "no"}})["dialogs"].size(), 0U);
    EXPECT_EQ(client.Focus(), "edtPrimeiro");
}

TEST_F(WebServer, AFailureOfAHandlerIsShownAndTheSessionGoesOn)
{
    TWebClient client(Port());
    const auto dialog = client.Do(On("click", "btnFalha"))["dialogs"][0];
    EXPECT_EQ(dialog["text"], "disco cheio");
    client.Do({{"event", "answer"}, {"dialog", dialog["dialog"]}, {"button", "ok"}});
    client.Do(On("focus", "edtSegundo"));
    EXPECT_EQ(client.Focus(), "edtSegundo");
}

TEST_F(WebServer, AClientThatComesBackFindsItsWork)
{
    std::string cookie;
    {
        TWebClient client(Port());
        cookie = client.Cookie();
        client.Do(On("text", "edtPrimeiro", {{"text", "pergunta"}}));
        client.Do(On("key", "edtPrimeiro", {{"key", "Enter"}}));
    }
    TWebClient again(Port(), {.cookie = cookie});
    EXPECT_EQ(again.State()["done"], 2);
    EXPECT_EQ(again.State()["dialogs"][0]["text"], "Continua?");
    EXPECT_EQ(again.Property("edtPrimeiro", "text"), "pergunta");
    EXPECT_EQ(server_->SessionCount(), 1U);
}

TEST_F(WebServer, AClientThatComesBackLearnsWhatWasPassedOver)
{
    TWebClient client(Port());
    client.Send(On("key", "edtPrimeiro", {{"key", "Enter"}}));
    const int late = client.Send(On("text", "edtPrimeiro", {{"text", "late"}}));
    client.ReceiveDone(late);
    const TWebClient again(Port(), {.cookie = client.Cookie()});
    EXPECT_EQ(again.State()["done"], late);
    EXPECT_EQ(again.State()["passed"], nlohmann::json::array({late}));
}

TEST_F(WebServer, ASecondClientOfASessionReplacesTheFirst)
{
    TWebClient first(Port());
    TWebClient second(Port(), {.cookie = first.Cookie()});
    EXPECT_TRUE(first.Receive().contains("replaced"));
    EXPECT_THROW(first.Receive(), boost::system::system_error);
    second.Do(On("focus", "edtSegundo"));
    EXPECT_EQ(second.Focus(), "edtSegundo");
}

TEST_F(WebServer, TwoSessionsDoNotSeeOneAnother)
{
    TWebClient first(Port());
    TWebClient second(Port());
    EXPECT_NE(first.Cookie(), second.Cookie());
    first.Do(On("text", "edtPrimeiro", {{"text", "one"}}));
    second.Do(On("text", "edtPrimeiro", {{"text", "two"}}));
    EXPECT_EQ(TWebClient(Port(), {.cookie = first.Cookie()}).Property("edtPrimeiro", "text"), "one");
    EXPECT_EQ(TWebClient(Port(), {.cookie = second.Cookie()}).Property("edtPrimeiro", "text"), "two");
}

TEST_F(WebServer, WithoutALoginNothingIsOpened)
{
    EXPECT_THROW(TWebClient(Port(), {.cookie = "alinhavo=guessed"}), boost::system::system_error);
    EXPECT_THROW(TWebClient(Port(), {.cookie = "x=y"}), boost::system::system_error);
    EXPECT_EQ(Get("/quem").result(), http::status::unauthorized);
    EXPECT_EQ(Get("/preferencias").result(), http::status::unauthorized);
    EXPECT_EQ(Post("/sair", json::object()).result(), http::status::unauthorized);
    EXPECT_EQ(server_->SessionCount(), 0U);
}

TEST_F(WebServer, WrongPasswordsSlowDown)
{
    const auto began = std::chrono::steady_clock::now();
    for (int round = 0; round < 4; ++round)
        EXPECT_EQ(LogIn(Port(), "ANA", "errada"), "");
    EXPECT_GE(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(300));
    EXPECT_EQ(host_.tries, 4);
}

TEST_F(WebServer, ALoginFromAnotherSiteIsRefused)
{
    const auto answer = Request(Port(), "/entrar",
        {.origin = "http://evil.example", .verb = http::verb::post, .body = R"({"usuario":"ANA","senha":"demo"})"});
    EXPECT_EQ(answer.result(), http::status::forbidden);
    EXPECT_EQ(host_.tries, 0);
}

TEST_F(WebServer, AMalformedLoginIsRefused)
{
    for (const std::string body : {"{", "[]", "7", R"({"usuario":7,"senha":"demo"})"})
        EXPECT_EQ(
            Request(Port(), "/entrar", {.verb = http::verb::post, .body = body}).result(), http::status::bad_request)
            << body;
    EXPECT_EQ(host_.tries, 0);
}

TEST_F(WebServer, AScreenThatTheMenuDoesNotOfferIsNotOpened)
{
    TWebClient client(Port());
    EXPECT_EQ(client.State()["menu"][0]["class"], "TfmTeste");
    EXPECT_TRUE(client.Do({{"event", "open"}, {"class", "TfmOutra"}}).contains("refused"));
    EXPECT_FALSE(client.Do({{"event", "open"}, {"class", "TfmTeste"}}).contains("refused"));
}

TEST_F(WebServer, WorkThatWaitsIsOfferedToItsUserAlone)
{
    std::string name;
    {
        const TWebClient client(Port());
        name = client.State()["session"];
    }
    const auto welcome = json::parse(Post("/entrar", {{"usuario", "ANA"}, {"senha", "demo"}}).body());
    ASSERT_EQ(welcome["sessoes"].size(), 1U);
    EXPECT_EQ(welcome["sessoes"][0]["id"], name);
    EXPECT_EQ(welcome["sessoes"][0]["telas"], json::array({"Teste"}));

    const auto stranger = LogIn(Port(), "BRUNO");
    EXPECT_EQ(json::parse(Get("/quem", {.cookie = stranger}).body())["sessoes"].size(), 0U);
    const TWebClient refused(Port(), {.cookie = stranger, .session = name});
    EXPECT_EQ(refused.State()["ended"], "Essa sessão já terminou.");
}

TEST_F(WebServer, GoingOutAsksAboutPendingWork)
{
    host_.pendingSince = ClockNow();
    TWebClient client(Port());
    EXPECT_FALSE(client.State()["status"]["pending"].is_null());
    EXPECT_EQ(Post("/sair", json::object(), client.Cookie()).result(), http::status::conflict);
    EXPECT_EQ(Post("/sair", {{"desfazer", true}}, client.Cookie()).result(), http::status::ok);
    EXPECT_EQ(Get("/quem", {.cookie = client.Cookie()}).result(), http::status::unauthorized);
}

TEST_F(WebServer, TheEndOfAnIdleSessionIsToldAtTheNextLogin)
{
    host_.pendingSince = ClockNow();
    Start(std::chrono::milliseconds(1));
    TWebClient client(Port());
    while (!client.State().contains("ended"))
        client.Receive();
    EXPECT_NE(client.State()["ended"].get<std::string>().find("por falta de uso"), std::string::npos);
    const auto welcome = json::parse(Post("/entrar", {{"usuario", "ANA"}, {"senha", "demo"}}).body());
    EXPECT_NE(welcome["aviso"].get<std::string>().find("foi desfeito"), std::string::npos);
}

TEST_F(WebServer, ASessionThatAnotherOneEndsIsToldWhyAndIsGone)
{
    host_.pendingSince = ClockNow();
    TWebClient ana(Port(), {.user = "ANA"});
    const TWebClient maria(Port(), {.user = "MARIA"});
    auto& seen = *host_.seenBy.at("MARIA");
    const auto list = seen.Lista();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].usuario, "ANA");
    EXPECT_FALSE(list[0].propria);
    EXPECT_FALSE(list[0].pendenteDesde.IsBlank());
    EXPECT_EQ(list[0].telas, std::vector<std::string>{"Teste"});
    EXPECT_TRUE(list[1].propria);

    EXPECT_FALSE(seen.Encerra(list[1].id, "A sessão foi encerrada por MARIA."));
    EXPECT_TRUE(seen.Encerra(list[0].id, "A sessão foi encerrada por MARIA."));
    EXPECT_EQ(seen.Lista().size(), 1U);
    EXPECT_FALSE(seen.Encerra(list[0].id, "outra vez"));
    while (!ana.State().contains("ended"))
        ana.Receive();
    EXPECT_TRUE(ana.State()["ended"].get<std::string>().starts_with("A sessão foi encerrada por MARIA. O que não foi"));
}

TEST_F(WebServer, SettingsAreKeptForTheirUser)
{
    const auto cookie = LogIn(Port(), "ANA");
    const auto put = [&](const std::string& body) {
        return Request(Port(), "/preferencias", {.cookie = cookie, .verb = http::verb::put, .body = body}).result();
    };
    EXPECT_EQ(put(R"({"tema":"escuro"})"), http::status::ok);
    EXPECT_EQ(put("{\"tema\":\"" + std::string(9000, 'x') + "\"}"), http::status::bad_request);
    EXPECT_EQ(json::parse(Get("/preferencias", {.cookie = cookie}).body()), json({{"tema", "escuro"}}));
    EXPECT_EQ(json::parse(Get("/preferencias", {.cookie = LogIn(Port(), "BRUNO")}).body()), json::object());
}

/// A client whose screen asks for a file.
struct TFileDialog {
    explicit TFileDialog(std::uint16_t port, const json& click)
        : client(port)
        , number(client.Do(click)["dialogs"][0]["dialog"])
    {
    }
    json Answer(const std::string& text)
    {
        return client.Do({{"event", "answer"}, {"dialog", number}, {"button", "ok"}, {"text", text}});
    }

    TWebClient client;
    int number;
};

TEST_F(WebServer, AFileDialogTakesAFileThatItsSessionBrought)
{
    TFileDialog asked(Port(), On("click", "btnArquivo"));
    const auto token = Upload(asked.client, "foto.png", "pixels");
    EXPECT_FALSE(asked.Answer(token).contains("refused"));
    const fs::path stored = asked.client.Property("edtSegundo", "text").get<std::string>();
    EXPECT_EQ(stored.filename(), "foto.png");
    EXPECT_EQ(Content(stored), "pixels");

    const std::string shown = asked.client.Property("imgFoto", "file");
    EXPECT_EQ(shown.find('/'), std::string::npos) << "a client learns no path";
    const auto picture = Get("/arquivo/" + shown, {.cookie = asked.client.Cookie()});
    EXPECT_EQ(picture.body(), "pixels");
    EXPECT_EQ(picture[http::field::content_type], "image/png");
    server_->Stop();
    EXPECT_FALSE(fs::exists(stored)) << "it is deleted with its session";
}

TEST_F(WebServer, AFileDialogTakesNothingElse)
{
    TFileDialog asked(Port(), On("click", "btnArquivo"));
    const TWebClient other(Port());
    const auto foreign = Upload(other, "foto.png", "pixels");
    for (const auto& text : {(folder_ / "secret.txt").string(), std::string("/etc/passwd"), std::string(), foreign}) {
        EXPECT_TRUE(asked.Answer(text).contains("refused")) << text;
        EXPECT_EQ(asked.client.Property("edtSegundo", "text"), "") << text;
    }
    EXPECT_FALSE(asked.Answer(Upload(asked.client, "foto.png", "pixels")).contains("refused")) << "it still waits";
}

TEST_F(WebServer, TheNameOfAFileLeadsNowhere)
{
    for (const auto& [name, kept] :
        std::map<std::string, std::string>{{"..%2F..%2Fsecret.txt", "secret.txt"}, {"%2Fetc%2Fpasswd", "passwd"},
            {"..", "arquivo.."}, {"C:%5Ctmp%5Ca+b.png", "a_b.png"}, {"x%00y%0A.png", "x_y_.png"}, {"", "arquivo"}}) {
        SCOPED_TRACE(name);
        TFileDialog asked(Port(), On("click", "btnArquivo"));
        const auto token = Upload(asked.client, name, "new");
        asked.Answer(token);
        const fs::path stored = asked.client.Property("edtSegundo", "text").get<std::string>();
        EXPECT_EQ(stored.filename(), kept) << name;
        EXPECT_EQ(stored.parent_path().filename(), token) << name;
        Post("/sair", json::object(), asked.client.Cookie());
    }
    EXPECT_EQ(Content(folder_ / "secret.txt"), "secret");
}

TEST_F(WebServer, OnlyWhatTheScreensShowNowIsGiven)
{
    TFileDialog asked(Port(), On("click", "btnArquivo"));
    const auto cookie = asked.client.Cookie();
    const auto token = Upload(asked.client, "foto.png", "pixels");
    asked.Answer(token);
    const std::string shown = asked.client.Property("imgFoto", "file");
    EXPECT_EQ(Get("/arquivo/" + shown, {.cookie = LogIn(Port(), "BRUNO")}).result(), http::status::not_found);
    EXPECT_EQ(Get("/arquivo/" + shown).result(), http::status::unauthorized);
    EXPECT_EQ(Get("/arquivo/%2Fetc%2Fpasswd", {.cookie = cookie}).result(), http::status::not_found);
    EXPECT_EQ(Get("/arquivo//etc/passwd", {.cookie = cookie}).result(), http::status::not_found);

    const int dialog = asked.client.Do(On("click", "btnArquivo"))["dialogs"][0]["dialog"];
    asked.client.Do({{"event", "answer"}, {"dialog", dialog}, {"button", "cancel"}});
    EXPECT_EQ(asked.client.Property("imgFoto", "file"), "");
    EXPECT_EQ(Get("/arquivo/" + shown, {.cookie = cookie}).result(), http::status::not_found);
    EXPECT_EQ(Get("/arquivo/" + token, {.cookie = cookie}).body(), "pixels");
}

TEST_F(WebServer, AFileIsTakenOnlyFromItsUsersOwnPage)
{
    const TWebClient client(Port());
    const std::string name = client.State()["session"];
    const auto send = [&](const TRequestOptions& options) {
        auto request = options;
        request.verb = http::verb::post;
        request.body = "pixels";
        return Request(Port(), "/arquivo?nome=a.png&sessao=" + name, request).result();
    };
    EXPECT_EQ(send({.cookie = client.Cookie()}), http::status::ok);
    EXPECT_EQ(send({}), http::status::unauthorized);
    EXPECT_EQ(send({.cookie = LogIn(Port(), "BRUNO")}), http::status::not_found);
    EXPECT_EQ(send({.origin = "http://evil.example", .cookie = client.Cookie()}), http::status::forbidden);
    EXPECT_EQ(send({.origin = "", .cookie = client.Cookie()}), http::status::forbidden);
}

TEST_F(WebServer, AFileMayBeLargeAndNotTooLarge)
{
    const TWebClient client(Port());
    const std::string large(TSessionFiles::MaxUpload, 'x');
    const auto token = Upload(client, "a.bin", large);
    EXPECT_EQ(Get("/arquivo/" + token, {.cookie = client.Cookie()}).body().size(), large.size());
    const auto announced = [&](const std::string& path, std::size_t length, const std::string& cookie) {
        return AnnouncedSize(Port(), path, length, cookie);
    };
    EXPECT_EQ(announced("/arquivo?nome=a.bin", large.size() + 1, client.Cookie()), http::status::payload_too_large);
    EXPECT_EQ(announced("/arquivo?nome=a.bin", large.size(), "alinhavo=guessed"), http::status::payload_too_large);
    EXPECT_EQ(announced("/preferencias", large.size(), client.Cookie()), http::status::payload_too_large);
}

TEST_F(WebServer, AGridIsGivenAsTextThatNoSpreadsheetRuns)
{
    const TWebClient client(Port());
    const auto csv = Get("/grade?form=fmTeste&control=dbgTextos&formato=csv", {.cookie = client.Cookie()});
    EXPECT_EQ(csv.body(),
        "\xEF\xBB\xBF'=Texto;Preço\r\nZinco;-1.234,50\r\n'=1+1;-1.234,50\r\n\"'@a;\"\"b\"\"\";-1.234,50\r\n"
        "'-x;-1.234,50\r\n'+x;-1.234,50\r\n");
    EXPECT_EQ(csv[http::field::content_disposition], "attachment; filename=\"dbgTextos.csv\"");
}

TEST_F(WebServer, AGridIsGivenWithAllOfItsRows)
{
    const TWebClient client(Port());
    const auto csv = Get("/grade?form=fmTeste&control=dbgLinhas&formato=csv", {.cookie = client.Cookie()}).body();
    EXPECT_EQ(std::ranges::count(csv, '\n'), 1001);
    EXPECT_TRUE(csv.ends_with("\r\n999\r\n"));
    const auto book = Get("/grade?form=fmTeste&control=dbgLinhas&formato=xlsx", {.cookie = client.Cookie()});
    EXPECT_EQ(book.result(), http::status::ok);
    EXPECT_TRUE(book.body().starts_with("PK"));
}

TEST_F(WebServer, AGridIsGivenAlsoWhileAQuestionWaits)
{
    TFileDialog asked(Port(), On("click", "btnArquivo"));
    const auto csv = Get("/grade?form=fmTeste&control=dbgTextos&formato=csv", {.cookie = asked.client.Cookie()});
    EXPECT_EQ(csv.result(), http::status::ok);
    EXPECT_FALSE(asked.Answer(Upload(asked.client, "foto.png", "pixels")).contains("refused"));
}

TEST_F(WebServer, AGridStandsInTheOrderThatItsUserChoseAlsoAsAFile)
{
    TWebClient client(Port());
    client.Do(
        {{"event", "sort"}, {"form", "fmTeste"}, {"control", "dbgTextos"}, {"column", "texto"}, {"descending", false}});
    EXPECT_EQ(client.Property("dbgTextos", "sortColumn"), "Texto");
    EXPECT_EQ(client.Property("dbgTextos", "rows")[0][1][1], "-x");
    const auto csv = Get("/grade?form=fmTeste&control=dbgTextos&formato=csv", {.cookie = client.Cookie()}).body();
    EXPECT_LT(csv.find("-x"), csv.find("Zinco"));
    client.Do({{"event", "title"}, {"form", "fmTeste"}, {"control", "dbgTextos"}, {"column", "Texto"}});
    EXPECT_EQ(client.Property("dbgTextos", "sortDescending"), true);
    EXPECT_EQ(client.Property("dbgTextos", "rows")[0][1][1], "Zinco");

    for (const auto& [control, column] : {std::pair{"dbgTextos", "Nada"}, {"edtPrimeiro", "Texto"}, {"x", "Texto"}}) {
        const auto answer = client.Do(
            {{"event", "sort"}, {"form", "fmTeste"}, {"control", control}, {"column", column}, {"descending", true}});
        EXPECT_TRUE(answer.contains("refused")) << control << ' ' << column;
    }
}

TEST_F(WebServer, AReportIsGivenWhileItsDialogIsOpen)
{
    TWebClient client(Port());
    const auto dialog = client.Do(On("click", "btnRelatorio"))["dialogs"][0];
    EXPECT_EQ(dialog["title"], "Pendências");
    const auto path = "/relatorio/" + dialog["report"].get<std::string>();
    const auto report = Get(path, {.cookie = client.Cookie()});
    EXPECT_EQ(report.body(), "<p>Pendentes: 12</p>");
    const std::string policy(report["Content-Security-Policy"]);
    EXPECT_TRUE(policy.starts_with("default-src 'none'"));
    EXPECT_EQ(policy.find("script"), std::string::npos);
    EXPECT_EQ(Get(path).result(), http::status::unauthorized);
    EXPECT_EQ(Get(path, {.cookie = LogIn(Port(), "BRUNO")}).result(), http::status::not_found);
    const auto pdf = Get(path + ".pdf", {.cookie = client.Cookie()});
    EXPECT_EQ(pdf.result(), http::status::internal_server_error) << "no program prints";
    EXPECT_NE(pdf.body().find("imprima pelo navegador"), std::string::npos);

    client.Do({{"event", "answer"}, {"dialog", dialog["dialog"]}, {"button", "ok"}});
    EXPECT_EQ(Get(path, {.cookie = client.Cookie()}).result(), http::status::not_found);
}

TEST_F(WebServer, AReportIsGivenAsAFile)
{
    TWebClient client(Port());
    const auto dialog = client.Do(On("click", "btnRelatorio"))["dialogs"][0];
    EXPECT_EQ(dialog["plainText"], true);
    EXPECT_EQ(dialog["recipient"], "faccao@exemplo.com.br");
    const auto path = "/relatorio/" + dialog["report"].get<std::string>();
    const auto file = [&](const std::string& ending) { return Get(path + ending, {.cookie = client.Cookie()}); };
    const auto html = file(".html");
    EXPECT_EQ(html.body(), "<p>Pendentes: 12</p>");
    EXPECT_EQ(html[http::field::content_disposition], "attachment; filename=\"relatorio.html\"");
    EXPECT_EQ(file(".txt").body(), "Pendentes: 12\n");
    EXPECT_EQ(file(".xlsx").body(), "PK");
    EXPECT_EQ(file(".exe").result(), http::status::not_found);
    EXPECT_EQ(Get("/relatorio/x.xlsx", {.cookie = client.Cookie()}).result(), http::status::not_found);
    EXPECT_EQ(Get(path + ".xlsx", {.cookie = LogIn(Port(), "BRUNO")}).result(), http::status::not_found);
}

TEST_F(WebServer, AReportIsSentToAnAddressWhileItsDialogIsOpen)
{
    TWebClient client(Port());
    const auto dialog = client.Do(On("click", "btnRelatorio"))["dialogs"][0];
    const auto path = "/relatorio/" + dialog["report"].get<std::string>();
    const auto send = [&](const nlohmann::json& body) { return Post(path, body, client.Cookie()); };
    const auto refused = send({{"email", ""}});
    EXPECT_EQ(refused.result(), http::status::bad_request);
    EXPECT_NE(refused.body().find("Endereço de e-mail inválido."), std::string::npos);
    EXPECT_EQ(send({{"email", 7}}).result(), http::status::bad_request);
    EXPECT_EQ(send({{"email", "ana@exemplo.com.br"}}).result(), http::status::ok);

    client.Do({{"event", "answer"}, {"dialog", dialog["dialog"]}, {"button", "ok"}});
    EXPECT_EQ(client.Property("edtSegundo", "text"), "ana@exemplo.com.br");
    EXPECT_EQ(send({{"email", "ana@exemplo.com.br"}}).result(), http::status::not_found);
}

TEST_F(WebServer, OnlyAGridOfTheUsersScreensIsGiven)
{
    const TWebClient client(Port());
    const auto status = [&](const std::string& query, const std::string& cookie) {
        return Get("/grade?" + query, {.cookie = cookie}).result();
    };
    const std::string grid = "form=fmTeste&control=dbgTextos";
    const std::string session = "&sessao=" + client.State()["session"].get<std::string>();
    EXPECT_EQ(status(grid + "&formato=csv" + session, client.Cookie()), http::status::ok);
    EXPECT_EQ(status(grid + "&formato=pdf", client.Cookie()), http::status::bad_request);
    EXPECT_EQ(status("form=fmTeste&control=edtPrimeiro&formato=csv", client.Cookie()), http::status::not_found);
    EXPECT_EQ(status("form=fmOutra&control=dbgTextos&formato=csv", client.Cookie()), http::status::not_found);
    EXPECT_EQ(status(grid + "&formato=csv" + session, LogIn(Port(), "BRUNO")), http::status::not_found);
    EXPECT_EQ(status(grid + "&formato=csv" + session, {}), http::status::unauthorized);
}

TEST_F(WebServer, ThereAreNoMoreSessionsThanAllowed)
{
    const TWebClient one(Port());
    const TWebClient two(Port());
    const TWebClient three(Port());
    EXPECT_EQ(TWebClient(Port()).State()["ended"], std::string(TSessionRegistry::TooMany));
    EXPECT_EQ(Post("/entrar", {{"usuario", "BRUNO"}, {"senha", "demo"}}).result(), http::status::service_unavailable);
}

TEST_F(WebServer, SessionsWorkSideBySide)
{
    std::vector<std::thread> users;
    for (int user = 0; user < 3; ++user) {
        users.emplace_back([this, user] {
            TWebClient client(Port());
            for (int round = 0; round < 50; ++round) {
                const auto text = std::to_string(user) + "-" + std::to_string(round);
                client.Do(On("focus", "edtPrimeiro"));
                client.Do(On("text", "edtPrimeiro", {{"text", text}}));
                client.Do(On("key", "edtPrimeiro", {{"key", "Enter"}}));
                EXPECT_EQ(client.Focus(), "edtSegundo");
            }
            EXPECT_EQ(TWebClient(Port(), {.cookie = client.Cookie()}).Property("edtPrimeiro", "text"),
                std::to_string(user) + "-49");
        });
    }
    for (auto& user : users)
        user.join();
}

TEST_F(WebServer, TheEndOfTheServerIsToldAlsoInTheMiddleOfAQuestion)
{
    TWebClient client(Port());
    client.Do(On("text", "edtPrimeiro", {{"text", "pergunta"}}));
    client.Do(On("key", "edtPrimeiro", {{"key", "Enter"}}));
    server_->Stop();
    EXPECT_TRUE(client.Receive().contains("ended"));
}

} // namespace
} // namespace alinhavo
