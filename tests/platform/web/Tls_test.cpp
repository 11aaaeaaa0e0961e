#include "../session/TOpenHost.h"
#include "platform/report/TWorkFolder.h"
#include "platform/web/TWebServer.h"
#include "TTestCertificate.h"
#include "TWebClient.h"

#include <boost/asio/connect.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/ssl.hpp>
#include <boost/beast/websocket/ssl.hpp>
#include <fstream>
#include <gmock/gmock.h>

namespace alinhavo {
namespace {

namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace ssl = boost::asio::ssl;
namespace fs = std::filesystem;
using testing::HasSubstr;
using tcp = boost::asio::ip::tcp;
using json = nlohmann::json;

class EncryptedServer : public testing::Test {
protected:
    EncryptedServer()
    {
        fs::create_directory(Folder() / "client");
        std::ofstream(Folder() / "client/index.html") << "<p>Alinhavo</p>";
        key_.Write(Folder() / "chave.pem");
        key_.WriteCertificate(Folder() / "certificado.pem");
    }

    fs::path Folder() const { return folder_.Path(); }
    void Start() { server_ = std::make_unique<TWebServer>(Options(), host_); }
    TWebOptions Options() const
    {
        TWebOptions options;
        options.port = 0;
        options.clientFolder = Folder() / "client";
        options.certificate = {Folder() / "certificado.pem", Folder() / "chave.pem"};
        return options;
    }
    std::string Host() const { return "127.0.0.1:" + std::to_string(server_->Port()); }

    /// What the server says to its owner when it cannot start.
    std::string Refusal()
    {
        try {
            Start();
        } catch (const std::exception& error) {
            return error.what();
        }
        return "no refusal";
    }

    using TStream = beast::ssl_stream<beast::tcp_stream>;

    /// A connection that trusts whatever certificate there is.
    std::unique_ptr<TStream> Connect()
    {
        auto stream = std::make_unique<TStream>(context_, tls_);
        stream->next_layer().connect(tcp::endpoint(boost::asio::ip::make_address("127.0.0.1"), server_->Port()));
        stream->handshake(ssl::stream_base::client);
        return stream;
    }

    TWebAnswer Ask(http::verb verb, const std::string& path, const std::string& scheme = "https", std::string body = {})
    {
        const auto stream = Connect();
        http::request<http::string_body> request(verb, path, 11);
        request.set(http::field::host, Host());
        request.set(http::field::origin, scheme + "://" + Host());
        request.set(http::field::content_type, "application/json");
        request.body() = std::move(body);
        request.prepare_payload();
        http::write(*stream, request);
        beast::flat_buffer buffer;
        TWebAnswer answer;
        http::read(*stream, buffer, answer);
        return answer;
    }
    TWebAnswer ComeIn(const std::string& scheme)
    {
        return Ask(http::verb::post, "/entrar", scheme, R"({"usuario":"ANA","senha":"demo"})");
    }

    boost::asio::io_context context_;
    ssl::context tls_{ssl::context::tls_client};
    TWorkFolder folder_;
    TTestKey key_;
    /// Whose applications have no screens.
    TOpenHost host_{[](IEventSource& source, IView& view) {
        return std::make_unique<TPlainWorkplace>(std::make_unique<TApplication>(source, &view));
    }};
    std::unique_ptr<TWebServer> server_;
};

TEST_F(EncryptedServer, GivesTheClientsFiles)
{
    Start();
    const auto answer = Ask(http::verb::get, "/");
    EXPECT_EQ(answer.result(), http::status::ok);
    EXPECT_EQ(answer.body(), "<p>Alinhavo</p>");
}

TEST_F(EncryptedServer, KeepsItsLoginToEncryptedConnections)
{
    Start();
    const auto answer = ComeIn("https");
    EXPECT_EQ(answer.result(), http::status::ok);
    EXPECT_THAT(std::string(answer[http::field::set_cookie]), HasSubstr("; Secure"));
}

TEST_F(EncryptedServer, ALoginWithoutEncryptionWorksWhereTheServerDoesNotEncrypt)
{
    auto options = Options();
    options.certificate = {};
    server_ = std::make_unique<TWebServer>(options, host_);
    const auto answer = Request(
        server_->Port(), "/entrar", {.verb = http::verb::post, .body = R"({"usuario":"ANA","senha":"demo"})"});
    EXPECT_EQ(std::string(answer[http::field::set_cookie]).find("Secure"), std::string::npos);
}

TEST_F(EncryptedServer, APageThatCameWithoutEncryptionIsNotItsOwn)
{
    Start();
    EXPECT_EQ(ComeIn("http").result(), http::status::forbidden);
}

TEST_F(EncryptedServer, CarriesSessions)
{
    Start();
    const std::string cookie(ComeIn("https")[http::field::set_cookie]);
    beast::websocket::stream<TStream> socket(std::move(*Connect()));
    socket.set_option(beast::websocket::stream_base::decorator([&](beast::websocket::request_type& request) {
        request.set(http::field::origin, "https://" + Host());
        request.set(http::field::cookie, cookie.substr(0, cookie.find(';')));
    }));
    socket.handshake(Host(), "/sessao?id=nova");
    beast::flat_buffer buffer;
    socket.read(buffer);
    EXPECT_EQ(json::parse(beast::buffers_to_string(buffer.data()))["user"]["code"], "ANA");

    socket.write(boost::asio::buffer(std::string_view(R"({"n":1,"turn":1,"event":"open","class":"TfmNada"})")));
    buffer.clear();
    socket.read(buffer);
    EXPECT_THAT(beast::buffers_to_string(buffer.data()), HasSubstr("TfmNada"));

    server_->Stop();
    buffer.clear();
    socket.read(buffer);
    EXPECT_THAT(beast::buffers_to_string(buffer.data()), HasSubstr("O servidor foi encerrado."));
}

TEST_F(EncryptedServer, WhoComesWithoutEncryptionIsSentToTheSecureAddress)
{
    Start();
    const auto answer = Request(server_->Port(), "/pagina?id=1");
    EXPECT_EQ(answer.result(), http::status::permanent_redirect);
    EXPECT_EQ(answer[http::field::location], "https://" + Host() + "/pagina?id=1");
}

TEST_F(EncryptedServer, APasswordInTheClearIsRefused)
{
    Start();
    const auto answer = Request(
        server_->Port(), "/entrar", {.verb = http::verb::post, .body = R"({"usuario":"ANA","senha":"demo"})"});
    EXPECT_EQ(answer.result(), http::status::forbidden);
    EXPECT_EQ(answer.count(http::field::set_cookie), 0);
}

TEST_F(EncryptedServer, RefusesOldWaysOfEncrypting)
{
    Start();
    SSL_CTX_set_security_level(tls_.native_handle(), 0);
    SSL_CTX_set_max_proto_version(tls_.native_handle(), TLS1_1_VERSION);
    EXPECT_THROW(Connect(), boost::system::system_error);
}

TEST_F(EncryptedServer, ABrokenHandshakeConcernsItsClientAlone)
{
    Start();
    for (const auto* text : {"\x16\x03\x01\x02", "\x16\x03\x01\x00\x04nada", "", "\n\n\n"}) {
        beast::tcp_stream stream(context_);
        stream.connect(tcp::endpoint(boost::asio::ip::make_address("127.0.0.1"), server_->Port()));
        boost::asio::write(stream, boost::asio::buffer(std::string_view(text)));
    }
    EXPECT_EQ(Ask(http::verb::get, "/").result(), http::status::ok);
}

TEST_F(EncryptedServer, SaysWhichFileIsMissing)
{
    fs::remove(Folder() / "certificado.pem");
    EXPECT_EQ(Refusal(), "O certificado " + (Folder() / "certificado.pem").string() + ": o arquivo não existe.");
    key_.WriteCertificate(Folder() / "certificado.pem");
    fs::remove(Folder() / "chave.pem");
    EXPECT_EQ(Refusal(), "A chave " + (Folder() / "chave.pem").string() + ": o arquivo não existe.");
}

TEST_F(EncryptedServer, SaysWhichFileIsNotWhatItShouldBe)
{
    std::ofstream(Folder() / "chave.pem") << "uma chave";
    EXPECT_THAT(Refusal(), HasSubstr("chave.pem: não é uma chave em PEM."));
    std::ofstream(Folder() / "certificado.pem") << "um certificado";
    EXPECT_THAT(Refusal(), HasSubstr("certificado.pem: não é um certificado em PEM."));
    fs::remove(Folder() / "certificado.pem");
    fs::create_directory(Folder() / "certificado.pem");
    EXPECT_THAT(Refusal(), HasSubstr("certificado.pem: o arquivo não pode ser lido ou está vazio."));
}

TEST_F(EncryptedServer, SaysThatTheKeyIsOfAnotherCertificate)
{
    TTestKey().Write(Folder() / "chave.pem");
    EXPECT_THAT(Refusal(), HasSubstr("chave.pem: não é a do certificado "));
}

TEST_F(EncryptedServer, AsksForNoPasswordOfAKey)
{
    key_.Write(Folder() / "chave.pem", "segredo");
    EXPECT_THAT(Refusal(), HasSubstr("está protegida por uma senha"));
}

} // namespace
} // namespace alinhavo
