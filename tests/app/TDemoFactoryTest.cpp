#include "TDemoTest.h"

#include "app/demo/codes.h"
#include "platform/services/TCertificates.h"
#include "platform/services/THashedPasswords.h"
#include "platform/services/TTechnicalSheet.h"

#include <array>
#include <set>

namespace alinhavo {
namespace {

class DemoFactory : public TDemoTest { };
ON_BOTH_SERVERS(DemoFactory);

TEST_P(DemoFactory, TheSameSeedAndDayGiveTheSameRowsOnEveryServer)
{
    constexpr int another = 2;
    EXPECT_EQ(Checksums(*db), Checksums(FilledDatabase(TDatabaseServer::Firebird, Seed, Today(), another)));
}

TEST_P(DemoFactory, HasAsMuchAsItSays)
{
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {OF1}"}), 300);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {CADFLUXO}"}), 14);
    EXPECT_EQ(Count({"SELECT COUNT(DISTINCT SETOR) FROM {FAC_PROD}"}), 9) << "sectors outside";
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {PRODUTO} WHERE COALESCE(FAIXA, '') <> ''"}), 62);
    EXPECT_EQ(Count({"SELECT COUNT(DISTINCT CODCLI) FROM {PESSOAL} WHERE CODCLI IS NOT NULL"}), 25);
    EXPECT_EQ(Count({"SELECT COUNT(DISTINCT FAMILIA) FROM {PRODUTO}"}), 11);
}

TEST_P(DemoFactory, NothingHasMovedYet)
{
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {FACCAO}"}), 0);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {FACCAO3}"}), 0);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {OF_ITEN} WHERE QTDE_B <> 0 OR QTDE_C <> 0"}), 0);
}

TEST_P(DemoFactory, EveryBarCodeIsABrazilianEanWithItsCheckDigitAndStandsOnce)
{
    const auto codes = Texts({"SELECT BARRA FROM {PA_ITEN} WHERE COALESCE(BARRA, '') <> ''"});
    ASSERT_GT(codes.size(), 1000U);
    for (const std::string& code : codes) {
        ASSERT_EQ(code.size(), 13U);
        EXPECT_TRUE(code.starts_with("789")) << code;
        EXPECT_EQ(code.back(), EanCheckDigit(code.substr(0, 12))) << code;
    }
    EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size());
}

TEST_P(DemoFactory, EveryColourAndSizeOfAnOrderCanBeScanned)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF_ITEN} I JOIN {OF1} O ON O.NUMERO = I.NUMERO
         WHERE (SELECT COUNT(*) FROM {PA_ITEN} P
                 WHERE P.CODIGO = O.CODIGO AND P.COR = I.COR AND P.TAM = I.TAM AND CHAR_LENGTH(P.BARRA28) = 6) <> 1)"}),
        0);
}

TEST_P(DemoFactory, EverySectorOfAFlowExistsAndCarriesItsName)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {FLUXO} F LEFT JOIN {CADFLUXO} S ON S.CODIGO = F.SETOR
         WHERE S.CODIGO IS NULL OR S.DESCRICAO <> F.DESCRICAO)"}),
        0);
}

TEST_P(DemoFactory, EachPartOfAnOrderedProductHasAFlowAndOnePartIsTheDefault)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {PRO_FLUXO} P
         WHERE NOT EXISTS (SELECT 1 FROM {FLUXO} F WHERE F.CODIGO = P.FLUXO)
            OR NOT EXISTS (SELECT 1 FROM {TIPO_APL} T WHERE T.CODIGO = P.PARTE))"}),
        0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF1} O
         WHERE (SELECT COUNT(*) FROM {PRO_FLUXO} P WHERE P.CODIGO = O.CODIGO AND P.PADRAO = 'S') <> 1)"}),
        0);
}

TEST_P(DemoFactory, ThereAreProductsOfOneTwoAndThreePartsWhichMeetInTheLastSector)
{
    EXPECT_EQ(Texts({R"(
        SELECT DISTINCT CAST(PARTES AS VARCHAR(2)) FROM (SELECT COUNT(*) AS PARTES FROM {PRO_FLUXO} GROUP BY CODIGO) X
         ORDER BY 1)"}),
        (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(Texts({R"(
        SELECT DISTINCT F.SETOR FROM {FLUXO} F
         WHERE F.ORDEM = (SELECT MAX(L.ORDEM) FROM {FLUXO} L WHERE L.CODIGO = F.CODIGO))"}),
        (std::vector<std::string>{"14"}));
}

TEST_P(DemoFactory, OneFlowIsFreeAndHasFreeSectorsToChooseFrom)
{
    EXPECT_EQ(Texts({"SELECT CODIGO FROM {ROTEIRO} WHERE BAIXALIVRE = 'S'"}), (std::vector<std::string>{"004"}));
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {FLUXO} F JOIN {CADFLUXO} S ON S.CODIGO = F.SETOR
         WHERE F.CODIGO = '004' AND S.BAIXALIVRE = 'S')"}),
        2);
    EXPECT_GT(
        Count({"SELECT COUNT(*) FROM {OF1} O JOIN {PRO_FLUXO} P ON P.CODIGO = O.CODIGO WHERE P.FLUXO = '004'"}), 0);
}

TEST_P(DemoFactory, EachSwitchOfASectorIsOnSomewhereAndOffSomewhere)
{
    for (const std::string_view column : {"BAIXALIVRE", "BAIXAMAIOR", "BAIXAPARCIAL", "BAIXAMOV", "BAIXADEFEITO",
             "BAIXACONSUMO", "MOVREPROVADO", "ALT_PRECO", "INVENTARIO", "IMP_FLUXO"}) {
        EXPECT_EQ(Texts({"SELECT DISTINCT ? FROM {CADFLUXO} ORDER BY 1", TName(column)}),
            (std::vector<std::string>{"N", "S"}))
            << column;
    }
}

TEST_P(DemoFactory, GradeRowsLieWithinTheSizeRangeOfTheirProduct)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF_ITEN} I
          JOIN {OF1} O ON O.NUMERO = I.NUMERO
          JOIN {PRODUTO} P ON P.CODIGO = O.CODIGO
          LEFT JOIN {FAIXA_ITEN} F ON F.FAIXA = P.FAIXA AND F.TAMANHO = I.TAM
         WHERE F.TAMANHO IS NULL)"}),
        0);
    EXPECT_EQ(
        Count({"SELECT COUNT(*) FROM {OF1} O WHERE NOT EXISTS (SELECT 1 FROM {OF_ITEN} I WHERE I.NUMERO = O.NUMERO)"}),
        0);
}

TEST_P(DemoFactory, OpenPiecesOfAnOrderAreThoseOfItsGrade)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF1} O
         WHERE O.ATIVOS <> (SELECT SUM(I.QTDE) FROM {OF_ITEN} I WHERE I.NUMERO = O.NUMERO))"}),
        0);
}

TEST_P(DemoFactory, OrdersMakeWhatTheirSalesOrdersAskFor)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF_ITEN} I
          JOIN {OF1} O ON O.NUMERO = I.NUMERO
          LEFT JOIN {PED_ITEN} P ON P.NUMERO = O.PEDIDO AND P.CODIGO = O.CODIGO AND P.COR = I.COR AND P.TAM = I.TAM
         WHERE COALESCE(O.PEDIDO, '') <> '' AND COALESCE(P.QUANTIDADE, 0) <> I.QTDE)"}),
        0);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {PED_ITEN} WHERE QTDE + QTDE_F + QTDE_CANC <> QUANTIDADE"}), 0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {PED_ITEN} P
         WHERE NOT EXISTS (SELECT 1 FROM {OF1} O WHERE O.PEDIDO = P.NUMERO AND O.CODIGO = P.CODIGO))"}),
        0);
}

TEST_P(DemoFactory, OrdersAndSalesOrdersNameTheSameClientAndPeriod)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF1} O LEFT JOIN {PEDIDO} P ON P.NUMERO = O.PEDIDO
         WHERE COALESCE(O.PEDIDO, '') <> '' AND (COALESCE(P.CODCLI, '') <> O.CODCLI OR P.PERIODO <> O.PERIODO))"}),
        0);
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {OF1} WHERE COALESCE(PEDIDO, '') = ''"}), 0) << "some make for stock";
    EXPECT_GT(Count({"SELECT COUNT(DISTINCT NUMERO) FROM {PED_ITEN} WHERE QTDE_CANC > 0"}), 0) << "some are called off";
}

// The price of a planned step, table by table; a table decides where no earlier one has a price.
TEST_P(DemoFactory, EachOfTheFourPriceTablesDecidesSomeStep)
{
    const TTableData steps = db->Open({R"(
        SELECT MAX(TT.PRECO), MAX(TO1.PRECO), MAX(TE.PRECO), MAX(TR.PRECO)
          FROM {PCP_MOV} M
          JOIN {OF1} O ON O.NUMERO = M.NUMERO
          JOIN {TIPO_OP} Y ON Y.CODIGO = O.TIPO_OP
          JOIN {ENTIDADE} E ON E.CODCLI = M.CODCLI
          LEFT JOIN {TABELA} TT ON TT.CODIGO = O.CODIGO AND TT.NUMERO = Y.TABELA AND TT.SETOR = M.SETOR AND TT.PARTE = M.PARTE
          LEFT JOIN {TABELA} TO1 ON TO1.CODIGO = O.CODIGO AND TO1.NUMERO = O.TABELA AND TO1.SETOR = M.SETOR AND TO1.PARTE = M.PARTE
          LEFT JOIN {TABELA} TE ON TE.CODIGO = O.CODIGO AND TE.NUMERO = E.TABELA AND TE.SETOR = M.SETOR AND TE.PARTE = M.PARTE
          JOIN {REGIAO} R ON R.PADRAO = 'S'
          LEFT JOIN {TABELA} TR ON TR.CODIGO = O.CODIGO AND TR.NUMERO = R.REGIAO AND TR.SETOR = M.SETOR AND TR.PARTE = M.PARTE
         GROUP BY M.NUMERO, M.SETOR, M.PARTE)"});
    std::array<int, 4> decided{};
    for (std::size_t row = 0; row < steps.RowCount(); ++row) {
        std::size_t table = 0;
        while (table < decided.size() && steps.Column(table).Float(row) <= 0)
            ++table;
        ASSERT_LT(table, decided.size()) << "a step without a price";
        ++decided[table];
    }
    for (const int count : decided)
        EXPECT_GT(count, 10);
}

TEST_P(DemoFactory, OnePriceTableIsTheDefault)
{
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {REGIAO} WHERE PADRAO = 'S'"}), 1);
}

TEST_P(DemoFactory, EveryOutsideStepHasOneMainSubcontractorWhoMayReceiveTheGoods)
{
    const TTableData main = db->Open({R"(
        SELECT F.PRODUTO, F.CODCLI, E.BLOQUEIO FROM {FAC_PROD} F JOIN {ENTIDADE} E ON E.CODCLI = F.CODCLI
         WHERE F.PRINCIPAL = 'S')"});
    TCertificates certificates(*db);
    for (std::size_t row = 0; row < main.RowCount(); ++row) {
        const std::string_view product = main.Column(0).Text(row);
        EXPECT_EQ(main.Column(2).Text(row), "N");
        EXPECT_TRUE(certificates.Missing(product, main.Column(1).Text(row), Today()).empty()) << product;
    }
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM (SELECT SUM(CASE WHEN PRINCIPAL = 'S' THEN 1 ELSE 0 END) AS MAINS FROM {FAC_PROD}
                               GROUP BY PRODUTO, SETOR, PARTE) X WHERE MAINS <> 1)"}),
        0);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {ENTIDADE} WHERE BLOQUEIO = 'S'"}), 1);
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {ENTIDADE_CERTIFICADO} WHERE DT_FIM < ?", Today()}), 0);
}

TEST_P(DemoFactory, EveryMaterialOfATechnicalSheetIsKnownAndUsedInASectorOfItsPartsFlow)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {PCPFTOF} F
          LEFT JOIN {MATERIAL} M ON M.CODIGO = F.INSUMO
          LEFT JOIN {PRODUTO} P ON P.CODIGO = F.INSUMO
          LEFT JOIN {PCPFAIXA} X ON X.FAIXA = F.FAIXA
          LEFT JOIN {PCPAPL} A ON A.CODIGO = F.APLICACAO
         WHERE X.FAIXA IS NULL OR A.CODIGO IS NULL OR (F.TIPO = 'M' AND M.CODIGO IS NULL)
            OR (F.TIPO = 'P' AND P.CODIGO IS NULL))"}),
        0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {PCPFTOF} F JOIN {OF1} O ON O.NUMERO = F.NUMERO
          JOIN {PRO_FLUXO} P ON P.CODIGO = O.CODIGO AND P.PARTE = F.PARTE
         WHERE NOT EXISTS (SELECT 1 FROM {FLUXO} X WHERE X.CODIGO = P.FLUXO AND X.SETOR = F.SETOR))"}),
        0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {OF1} O
         WHERE NOT EXISTS (SELECT 1 FROM {PCPFTOF} F WHERE F.NUMERO = O.NUMERO))"}),
        0);
}

TEST_P(DemoFactory, TheSheetOfAnOrderComesOnceForEachSizeAndAddsUpToWhatTheOrderConsumes)
{
    const std::string order = Texts({"SELECT MIN(NUMERO) FROM {PCPFTOF} WHERE INSUMO = 'ETQ001'"}).front();
    TOrvQuery sheet(*db);
    TTechnicalSheet::Load({.numero = order}, sheet);
    double labels = 0;
    std::set<std::string> sizes;
    for (sheet.First(); !sheet.Eof(); sheet.Next()) {
        if (sheet.FieldByName("INSUMO").AsString() != "ETQ001")
            continue;
        labels += sheet.FieldByName("CONSUMO_TOTAL").AsFloat();
        sizes.insert(sheet.FieldByName("TAM").AsString());
    }
    EXPECT_EQ(labels, Count({"SELECT ATIVOS FROM {OF1} WHERE NUMERO = ?", order})) << "one label for each piece";
    EXPECT_EQ(
        static_cast<int>(sizes.size()), Count({"SELECT COUNT(DISTINCT TAM) FROM {OF_ITEN} WHERE NUMERO = ?", order}));
}

TEST_P(DemoFactory, NoMoreIsReservedThanALotHolds)
{
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {MAT_RESERVA}"}), 40);
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {PED_RESERVA}"}), 0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM (
            SELECT CODIGO, COR, DEPOSITO, LOTE, SUM(QTDE) AS RESERVADO FROM {MAT_RESERVA} GROUP BY CODIGO, COR, DEPOSITO, LOTE) R
          LEFT JOIN {MAT_ITEN} M ON M.CODIGO = R.CODIGO AND M.COR = R.COR AND M.DEPOSITO = R.DEPOSITO AND M.LOTE = R.LOTE
         WHERE M.CODIGO IS NULL OR R.RESERVADO > M.QTDE + 0.0005)"}),
        0);
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM (
            SELECT CODIGO, COR, DEPOSITO, LOTE, SUM(QTDE) AS RESERVADO FROM {PED_RESERVA} GROUP BY CODIGO, COR, DEPOSITO, LOTE) R
          LEFT JOIN {PA_ITEN} P ON P.CODIGO = R.CODIGO AND P.COR = R.COR AND P.TAM = '0' AND P.DEPOSITO = R.DEPOSITO AND P.LOTE = R.LOTE
         WHERE P.CODIGO IS NULL OR R.RESERVADO > P.QUANTIDADE + 0.0005)"}),
        0);
}

TEST_P(DemoFactory, OneMaterialGroupIsTheFabricOfTheCut)
{
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {GRUPO_MA} WHERE DESP = 'S'"}), 1);
}

TEST_P(DemoFactory, DefectsAreChargedInEachWay)
{
    EXPECT_EQ(Texts({"SELECT DISTINCT DESCONTO FROM {DEFEITO} ORDER BY 1"}),
        (std::vector<std::string>{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {DEFEITO} D LEFT JOIN {CADFLUXO} S ON S.CODIGO = D.SETOR
          LEFT JOIN {TABQUL} Q ON Q.CODIGO = D.QUALIDADE WHERE S.CODIGO IS NULL OR Q.CODIGO IS NULL)"}),
        0);
}

TEST_P(DemoFactory, TheWarehousesThatTheMovementLooksForExistOnce)
{
    for (const std::string_view priority : {"1", "7", "8"})
        EXPECT_EQ(Count({"SELECT COUNT(*) FROM {DEPOSITO} WHERE PRIORIDADE = ?", priority}), 1) << priority;
    EXPECT_EQ(Texts({"SELECT TIPO FROM {TABBAI} WHERE TIPO_ESTOQUE IN (5, 14) ORDER BY TIPO_ESTOQUE"}),
        (std::vector<std::string>{"E", "S"}));
}

TEST_P(DemoFactory, TheFactoryItselfIsTheHolderThatTheParametersName)
{
    EXPECT_EQ(Count({R"(
        SELECT COUNT(*) FROM {PARAMETRO} P JOIN {ENTIDADE} E ON E.CODCLI = P.VALOR WHERE P.GRUPO = 'FAC' AND P.NUMERO = 80)"}),
        1);
}

TEST_P(DemoFactory, ThereIsAUserOfEachKind)
{
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {ACESSO_USUARIOS} WHERE TIPO = '0' AND SUPERVISOR = 'N'"}), 0);
    EXPECT_GT(
        Count({"SELECT COUNT(*) FROM {ACESSO_USUARIOS} WHERE TIPO <> '0' AND SUPERVISOR = 'S' AND NOME <> 'ADMIN'"}),
        0);
    EXPECT_EQ(Texts({R"(
        SELECT U.NOME FROM {ACESSO_USUARIOS} U JOIN {PESSOAL} P ON P.CODIGO = U.CODFUN
          JOIN {ENTIDADE} E ON E.CODCLI = P.CODCLI)"}),
        (std::vector<std::string>{"DIRCEU"}));
    EXPECT_EQ(Texts({"SELECT DISTINCT U.NOME FROM {ACESSO_USUARIOS} U JOIN {ACESSO_SETOR} S ON S.CODIGO = U.CODFUN"}),
        (std::vector<std::string>{"BRUNO"}));
    const auto maySave = [&](std::string_view screen) {
        return Texts({R"(
            SELECT A.USUARIO FROM {ACESSO} A JOIN {ACESSO_MENU} M ON M.NIVEL = A.LOCAL
             WHERE M.NOME_FORM = ? AND A.ALTERA = 'Sim' ORDER BY 1)",
            screen});
    };
    EXPECT_EQ(maySave("TfmFacInspecao"), (std::vector<std::string>{"ADMIN", "JOAO", "MARIA"}));
    EXPECT_EQ(maySave("TfmRelFacPag"), (std::vector<std::string>{"ADMIN", "CELIA"}));
    EXPECT_EQ(maySave("TfmFacMov"), (std::vector<std::string>{"ADMIN", "ANA", "BRUNO", "DIRCEU", "MARIA"}));
}

TEST_P(DemoFactory, EveryUserLogsInWithTheDemonstrationPassword)
{
    const THashedPasswords passwords;
    const auto stored = Texts({"SELECT DISTINCT SENHA FROM {ACESSO_USUARIOS}"});
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_TRUE(passwords.Matches(stored.front(), TDemoFactory::Password));
    EXPECT_FALSE(passwords.Matches(stored.front(), "Demo"));
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {ACESSO_USUARIOS}"}), static_cast<int>(TDemoFactory::Users().size()));
}

TEST_P(DemoFactory, OpenPeriodsSurroundTheDayAndTheInventoryIsClosedBehindIt)
{
    EXPECT_EQ(
        Count({"SELECT COUNT(*) FROM {TABPRZ} WHERE DT_INICIO <= ? AND DT_FIM >= ? AND ATIVO = 'S'", Today(), Today()}),
        1);
    EXPECT_EQ(
        Count({"SELECT COUNT(*) FROM {OF1} O WHERE NOT EXISTS (SELECT 1 FROM {TABPRZ} P WHERE P.PRAZO = O.PERIODO)"}),
        0);
    EXPECT_EQ(Count({"SELECT COUNT(*) FROM {PERIODO_FECHADO} WHERE GRUPO = 'IV' AND DT_FIM < ?", Today()}), 1);
}

TEST(DemoFactorySeeds, AnotherSeedGivesOtherOrdersOfTheSameFactory)
{
    const auto one = Checksums(FilledDatabase(TDatabaseServer::Firebird, 1, TDateTime::FromDate(2026, 11, 16)));
    const auto two = Checksums(FilledDatabase(TDatabaseServer::Firebird, 2, TDateTime::FromDate(2026, 11, 16)));
    EXPECT_NE(one.at("OF_ITEN"), two.at("OF_ITEN"));
    EXPECT_NE(one.at("PA_ITEN"), two.at("PA_ITEN"));
    EXPECT_EQ(one.at("CADFLUXO"), two.at("CADFLUXO"));
    EXPECT_EQ(one.at("DEFEITO"), two.at("DEFEITO"));
}

} // namespace
} // namespace alinhavo
