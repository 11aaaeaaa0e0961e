#include "TServicesTest.h"

#include "forms/text.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace alinhavo {
namespace {

/// Answers one request with a fixed text, as a reader service would.
class TOneAnswer {
public:
    explicit TOneAnswer(std::string answer)
    {
        listener_ = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(bind(listener_, reinterpret_cast<sockaddr*>(&place), sizeof(place)), 0);
        EXPECT_EQ(listen(listener_, 1), 0);
        socklen_t size = sizeof(place);
        getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size);
        port_ = ntohs(place.sin_port);
        thread_ = std::thread([this, answer = std::move(answer)] { Serve(answer); });
    }
    ~TOneAnswer()
    {
        Finish();
        close(listener_);
    }
    TOneAnswer(const TOneAnswer&) = delete;
    TOneAnswer& operator=(const TOneAnswer&) = delete;

    std::string Url() const { return "http://127.0.0.1:" + std::to_string(port_); }
    const std::string& Request()
    {
        Finish();
        return request_;
    }

private:
    void Serve(const std::string& answer)
    {
        const int connection = accept(listener_, nullptr, nullptr);
        if (connection < 0)
            return;
        char buffer[4096];
        while (request_.find("\r\n\r\n") == std::string::npos) {
            const auto size = read(connection, buffer, sizeof(buffer));
            if (size <= 0)
                break;
            request_.append(buffer, static_cast<std::size_t>(size));
        }
        [[maybe_unused]] const auto sent = write(connection, answer.data(), answer.size());
        close(connection);
    }
    void Finish()
    {
        if (!thread_.joinable())
            return;
        shutdown(listener_, SHUT_RDWR);
        thread_.join();
    }

    int listener_ = -1;
    int port_ = 0;
    std::string request_;
    std::thread thread_;
};

std::string Http(const std::string& status, const std::string& body)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n"
        + body;
}

/// A batch as the movement screen takes it.
struct TTbRFID : TMemTable {
    TStringField Codigo{*this, "CODIGO", 25};
    TFloatField Qtde{*this, "QTDE"};
};

class TOutsideTest : public TServicesTest {
protected:
    TOrvRFID& Reader() { return services->Services().rfid; }
    /// Asks for batch 77 of a service that gives this answer; the reason of a failure, or "".
    std::string Ask(const std::string& answer)
    {
        TOneAnswer service(answer);
        Funcoes().GravaAjuste("RFID", "endereco", service.Url() + "/");
        Funcoes().GravaAjuste("RFID", "chave", "segredo");
        EXPECT_TRUE(Reader().BuscarParametros());
        Reader().Fornecedor = "Mozaiko";
        std::string error;
        const bool good = Reader().BuscarDados("77/1", rows, error, "F");
        EXPECT_EQ(good, error.empty());
        request = service.Request();
        return error;
    }

    TTbRFID rows;
    std::string request;
};

ON_BOTH_SERVERS(TOutsideTest);

TEST_P(TOutsideTest, WithoutAnAddressTheReaderIsNotConfigured)
{
    std::string error;
    EXPECT_FALSE(Reader().BuscarParametros());
    EXPECT_FALSE(Reader().Configurado());
    EXPECT_FALSE(Reader().BuscarDados("77", rows, error, "F"));
    EXPECT_EQ(error, "O leitor RFID não está configurado.");
}

TEST_P(TOutsideTest, TheUserSetsAddressAndKey)
{
    user.Says(TModalResult::Ok, " http://leitor ");
    user.Says(TModalResult::Ok, "segredo");
    Do([&] { Reader().ConfigurarParametros(*form); });
    EXPECT_TRUE(Reader().Configurado());
    EXPECT_EQ(Funcoes().LeAjuste("RFID", "endereco", ""), "http://leitor");
    EXPECT_EQ(Funcoes().LeAjuste("RFID", "chave", ""), "segredo");
}

TEST_P(TOutsideTest, ABatchFillsTheTable)
{
    rows.Append();
    rows.Codigo = "antiga";
    rows.Post();
    EXPECT_EQ(Ask(Http("200 OK",
                  R"({"items":[{"code":"7891234567895","quantity":10},{"code":"7891234567901","quantity":5.5}]})")),
        "");
    ASSERT_EQ(rows.RecordCount(), 2U);
    EXPECT_EQ(rows.Codigo.value(), "7891234567895");
    rows.Next();
    EXPECT_EQ(rows.Qtde.value(), 5.5);
    EXPECT_TRUE(request.starts_with("GET /batches/77%2F1?type=F&supplier=Mozaiko HTTP/1.1\r\n")) << request;
    EXPECT_NE(request.find("X-Api-Key: segredo\r\n"), std::string::npos);
}

TEST_P(TOutsideTest, AFailureSaysWhyAndLeavesTheTable)
{
    rows.Append();
    rows.Codigo = "antiga";
    rows.Post();
    EXPECT_EQ(Ask(Http("500 No", R"({"error":"Sem sinal"})")), "Sem sinal");
    EXPECT_EQ(Ask(Http("404 Not Found", "")), "Movimentação RFID não encontrada.");
    EXPECT_EQ(Ask(Http("403 Forbidden", "<html>")), "O serviço RFID recusou a chave de acesso.");
    EXPECT_EQ(Ask(Http("503 Busy", "{}")), "O serviço RFID respondeu com o erro 503.");
    EXPECT_EQ(Ask(Http("200 OK", "<html>")), "O serviço RFID deu uma resposta inválida.");
    EXPECT_EQ(
        Ask(Http("200 OK", R"({"items":[{"code":7,"quantity":1}]})")), "O serviço RFID deu uma resposta inválida.");
    EXPECT_EQ(rows.RecordCount(), 1U);
}

TEST_P(TOutsideTest, AServiceThatIsNotThereIsReported)
{
    std::string error;
    Funcoes().GravaAjuste("RFID", "endereco", "http://127.0.0.1:1");
    Reader().BuscarParametros();
    EXPECT_FALSE(Reader().BuscarDados("77", rows, error, "F"));
    EXPECT_EQ(error, "Não foi possível conectar ao serviço.");
    Funcoes().GravaAjuste("RFID", "endereco", "file:///etc/passwd");
    Reader().BuscarParametros();
    EXPECT_FALSE(Reader().BuscarDados("77", rows, error, "F"));
    EXPECT_EQ(error, "O endereço do serviço é inválido.");
}

TEST_P(TOutsideTest, AMailWaitsInTheOutbox)
{
    auto& email = services->Services().email;
    email.NovoEMail();
    EXPECT_EQ(Failure([&] { email.SalvaEMail(); }), "E-mail sem destinatário.");
    email.Destinatario = "ana@faccao.com.br";
    email.Copia = "fabrica@exemplo.com.br";
    email.Assunto = "Informativo facção";
    email.Corpo = std::string(7999, 'x') + "  çç fim";
    email.SalvaEMail();
    EXPECT_TRUE(db->Pending());
    EXPECT_EQ(
        Cell("SELECT PARA || '|' || COPIA || '|' || ASSUNTO || '|' || SITUACAO || '|' || USUARIO FROM {EMAIL_SAIDA}"),
        "ana@faccao.com.br|fabrica@exemplo.com.br|Informativo facção|P|001");
    std::string body;
    for (const auto& piece : Values(*db, TStatement(R"(
             SELECT T.TEXTO FROM {EMAIL_TEXTO} T JOIN {EMAIL_SAIDA} S ON S.IDENTIFICADOR = T.EMAIL ORDER BY T.SEQUENCIA)")))
        body += piece;
    EXPECT_EQ(body, email.Corpo);
    email.NovoEMail();
    EXPECT_EQ(email.Destinatario + email.Copia + email.Assunto + email.Corpo, "");
}

TEST(TOutbox, NoPieceOfATextEndsWithABlank)
{
    const auto pieces = TOutbox::Pieces(std::string(20000, ' ') + "a" + std::string(9000, 'b') + "   ");
    std::string text;
    for (const auto& piece : pieces) {
        EXPECT_NE(piece.back(), ' ');
        EXPECT_LE(Length(piece), 8000U);
        text += piece;
    }
    EXPECT_EQ(Trim(text), "a" + std::string(9000, 'b'));
    EXPECT_TRUE(TOutbox::Pieces("").empty());
}

TEST_P(TOutsideTest, TheWeighingDatabaseHasATransactionOfItsOwn)
{
    EXPECT_FALSE(services->Services().mdados.Configured());
    EXPECT_EQ(
        Failure([&] { services->Services().mdados.Database(); }), "O banco de dados da pesagem não está configurado.");

    db->ExecText("CREATE TABLE TAREFAS (COD_GRUPO VARCHAR(30), STATUS INTEGER)");
    db->CommitRetaining();
    TWeighing weighing("pesagem", [this](const std::string&) { return Connect(); });
    weighing.StartTransaction();
    weighing.Database().ExecSQL(TStatement("INSERT INTO TAREFAS (COD_GRUPO, STATUS) VALUES (?, 1)", "000123/10/1"));
    weighing.Rollback();
    weighing.StartTransaction();
    weighing.Database().ExecSQL(TStatement("INSERT INTO TAREFAS (COD_GRUPO, STATUS) VALUES (?, 1)", "000124/10/1"));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM TAREFAS"), "0");
    weighing.Commit();
    EXPECT_EQ(Cell("SELECT COD_GRUPO FROM TAREFAS"), "000124/10/1");
}

} // namespace
} // namespace alinhavo
