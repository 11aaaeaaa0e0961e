#include "sewing/TSewingApplication.h"

#include "forms/text.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/session/TSession.h"

#include <array>

namespace alinhavo {
namespace {

constexpr std::array sizes{"P", "M", "G", "GG", "XG"};

std::string Padded(int number, std::size_t width) { return LeftPad(std::to_string(number), '0', width); }

std::string Colour(int line) { return Padded((line - 1) / static_cast<int>(sizes.size()) + 1, 6); }

std::string Size(int line) { return sizes[static_cast<std::size_t>(line - 1) % sizes.size()]; }

void FillFactory(TSqlDatabase& database)
{
    for (const char* sql :
        {
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 20, 'N')",
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 80, '00001')",
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 240, 'N')",
            "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES ('20', 'Costura', 1, 5, 7)",
            "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES ('30', 'Acabamento', 1, 2, 7)",
            "INSERT INTO ROTEIRO (CODIGO, DESCRICAO, ORDEM, BAIXALIVRE) VALUES ('F01', 'Camisaria', 0, 'N')",
            "INSERT INTO FLUXO (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES ('F01', 1, '20', 'Costura')",
            "INSERT INTO FLUXO (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES ('F01', 2, '30', 'Acabamento')",
            "INSERT INTO TIPO_APL (CODIGO, DESCRICAO, ESTOQUE, BAIXA, ATUALIZA) VALUES ('01', 'Corpo', 'N', 'N', 'N')",
            "INSERT INTO PRODUTO (CODIGO, DESCRICAO, FAIXA, ATIVO) VALUES ('CAM01', 'Camisa', 'A', 'S')",
            "INSERT INTO PRO_FLUXO (CODIGO, PARTE, FLUXO, PADRAO) VALUES ('CAM01', '01', 'F01', 'S')",
            "INSERT INTO ENTIDADE (CODCLI, NOME, BLOQUEIO) VALUES ('00001', 'Confecções Alvorada', 'N')",
            "INSERT INTO ENTIDADE (CODCLI, NOME, BLOQUEIO) VALUES ('00010', 'Facção Boa Vista', 'N')",
            "INSERT INTO CADTAG (CODIGO, QTDE) VALUES ('1', 12)",
            "INSERT INTO OF1 (NUMERO, CODIGO, PEDIDO) VALUES ('000123', 'CAM01', '')",
        })
        database.ExecText(sql);
    for (std::size_t size = 0; size < sizes.size(); ++size)
        database.ExecSQL(TStatement("INSERT INTO {FAIXA_ITEN} (FAIXA, TAMANHO, POSICAO) VALUES ('A', ?, ?)",
            sizes.at(size), static_cast<std::int64_t>(size + 1)));
}

} // namespace

std::string TSewingApplication::Ean(int line) { return "789" + Padded(line, 9) + "0"; }

std::string TSewingApplication::Label(int line) { return "L" + Padded(line, 5); }

void TSewingApplication::Fill(TSqlDatabase& database, int lines)
{
    FillEmptyDatabase(database);
    FillFactory(database);
    for (int line = 1; line <= lines; ++line) {
        database.ExecSQL(TStatement(R"(
            INSERT INTO {PA_ITEN} (CODIGO, COR, TAM, DEPOSITO, LOTE, QUANTIDADE, BARRA, BARRA28)
            VALUES ('CAM01', ?, ?, '07', '000000', 0, ?, ?))",
            Colour(line), Size(line), Ean(line), Label(line)));
        database.ExecSQL(TStatement(R"(
            INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, FLUXO, CODCLI, MOV, QT_ORIG, QUANT, QUANT_2, QUANT_I,
                                  QUANT_F)
            VALUES ('000123', 'CAM01', ?, ?, '01', '20', 'F01', '00010', 1, ?, 0, 0, 0, 0))",
            Colour(line), Size(line), PiecesOfLine));
    }
    database.CommitRetaining();
}

TSewingGround::TSewingGround(const TDatabaseAddress& address)
    : database(OpenDatabase(address))
    , preferences(*database)
    , services({
          .database = *database,
          .preferences = preferences,
          .configuration = configuration,
          .user = FindUser(*database, "ADMIN").value(),
          .company = "01",
          .passwords = passwords,
          .openDatabase = [](const std::string& text) { return OpenDatabase(TDatabaseAddress::Parse(text)); },
      })
{
}

TSewingApplication::TSewingApplication(IEventSource& source, IView* view, const TDatabaseAddress& address)
    : TSewingGround(address)
    , TOrvApplication(source, services.Services(), view)
{
    RegisterForm("TfmFacMov", [](TApplication& maker) { return std::make_unique<TfmFacMov>(maker); });
}

TfmFacMov& TSewingApplication::OpenGrid()
{
    auto& screen = dynamic_cast<TfmFacMov&>(LoadForm("TfmFacMov"));
    screen.Show();
    screen.btn00IncluirClick();
    screen.edtOFNum.SetText("000123");
    screen.edtCodproduto.SetText("CAM01");
    screen.EdtSetor.SetText("20");
    screen.edtSetorProx.SetText("30");
    screen.edtFluxo.SetText("F01");
    screen.edtFaccao.SetText("00010");
    screen.edtFacDest.SetText("00001");
    screen.edtMov.SetText("1");
    screen.Retorno_Normal();
    screen.cbBaixaBarras.SetChecked(true);
    return screen;
}

} // namespace alinhavo
