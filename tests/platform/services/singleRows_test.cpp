#include "TServicesTest.h"

namespace alinhavo {
namespace {

class TSingleRowsTest : public TServicesTest {
protected:
    TDatabaseErrorKind Refusal(const std::function<void()>& code)
    {
        try {
            code();
        } catch (const EDatabaseError& error) {
            return error.Kind();
        }
        ADD_FAILURE() << "nothing was refused";
        return TDatabaseErrorKind::Other;
    }
};

ON_BOTH_SERVERS(TSingleRowsTest);

TEST_P(TSingleRowsTest, AMissingRowReadsAsNothing)
{
    EXPECT_TRUE(Funcoes().Busca_Valor("CADCOR", "COR", "DESCRICAO", Aspas("000009")).IsNull());
    EXPECT_EQ(Funcoes().Busca_Valor("CADCOR", "COR", "DESCRICAO", Aspas("000009")).AsString(), "");
    EXPECT_EQ(Funcoes().Busca_Valor("CADCOR", "COR", "DESCRICAO", Aspas("000009")).AsFloat(), 0);
    EXPECT_FALSE(Funcoes().Existe("CADCOR", "COR", Aspas("000009")));
}

TEST_P(TSingleRowsTest, RowsAreFoundBySeveralColumns)
{
    Sql("INSERT INTO {TABTAM} (TAM, ACRESCIMO) VALUES ('M', 2.5)");
    Sql("INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE) VALUES ('000123', '01', 'M', 7)");
    EXPECT_TRUE(Funcoes().Existe("OF_ITEN", "NUMERO,COR,TAM", "'000123','01','M'"));
    EXPECT_TRUE(Funcoes().Existe("OF_ITEN", "NUMERO, COR, TAM", Aspas("000123"), Aspas("01"), Aspas("M")));
    EXPECT_FALSE(Funcoes().Existe("OF_ITEN", "NUMERO,COR,TAM", "'000123','01','G'"));
    EXPECT_EQ(Funcoes().Busca_Valor("OF_ITEN", "NUMERO;COR;TAM", "QTDE", "'000123';'01';'M'").AsFloat(), 7);
    EXPECT_EQ(Funcoes().Busca_Valor("TABTAM", "TAM", "ACRESCIMO", Aspas("M")).AsFloat(), 2.5);
}

TEST_P(TSingleRowsTest, AMovementGoesUnquotedAndMustBeANumber)
{
    Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('10', 'CORTE')");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV) VALUES ('000123', '10', '01', 4)");
    EXPECT_TRUE(Funcoes().Existe("FACCAO", "NUMERO,MOV", Aspas("000123"), "4"));
    EXPECT_FALSE(Funcoes().Existe("FACCAO", "NUMERO,MOV", Aspas("000123"), "5"));
    EXPECT_EQ(
        Refusal([&] { Funcoes().Existe("FACCAO", "NUMERO,MOV", Aspas("000123"), "x"); }), TDatabaseErrorKind::Syntax);
    EXPECT_EQ(
        Refusal([&] { Funcoes().Existe("FACCAO", "NUMERO,MOV", Aspas("000123"), ""); }), TDatabaseErrorKind::Syntax);
}

TEST_P(TSingleRowsTest, AValueNeverBecomesPartOfTheStatement)
{
    Sql("INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('01', 'D''água, clara')");
    EXPECT_TRUE(Funcoes().Existe("CADCOR", "DESCRICAO", Aspas("D'água, clara")));
    EXPECT_FALSE(Funcoes().Existe("CADCOR", "COR", Aspas("' OR '1'='1")));
    EXPECT_EQ(Refusal([&] { Funcoes().Existe("CADCOR", "COR", "'01' OR 1=1"); }), TDatabaseErrorKind::Syntax);
    EXPECT_EQ(Refusal([&] { Funcoes().Existe("CADCOR", "COR=COR OR COR", "'01'"); }), TDatabaseErrorKind::Syntax);
    EXPECT_EQ(Refusal([&] { Funcoes().Existe("CADCOR;", "COR", "'01'"); }), TDatabaseErrorKind::Syntax);
}

TEST_P(TSingleRowsTest, ThereMustBeAsManyValuesAsColumns)
{
    EXPECT_EQ(Refusal([&] { Funcoes().Existe("CADCOR", "COR,DESCRICAO", "'01'"); }), TDatabaseErrorKind::Syntax);
    EXPECT_EQ(Refusal([&] { Funcoes().Existe("CADCOR", "COR", "'01','02'"); }), TDatabaseErrorKind::Syntax);
}

TEST_P(TSingleRowsTest, GlobalTablesAreReadByAllCompanies)
{
    Sql("INSERT INTO EMPRESA (EMP_PAT, EMP_DTINV) VALUES ('01', '12/31/2025')");
    EXPECT_EQ(Funcoes().Busca_Valor("EMPRESA", "EMP_PAT", "EMP_DTINV", Aspas("01")).AsDateTime(),
        TDateTime::FromDate(2025, 12, 31));
}

TEST_P(TSingleRowsTest, AnEmptyTextIsFoundByItsEmptyLiteral)
{
    EXPECT_EQ(Aspas(""), "''");
    Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('10', 'CORTE')");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV, REPROCESSO, OBS) VALUES ('000123', '10', '01', 1, '', '')");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV, REPROCESSO, OBS) VALUES ('000123', '10', '01', 1, '20', 'x')");
    EXPECT_TRUE(Funcoes().Existe("FACCAO", "NUMERO,REPROCESSO,OBS", Aspas("000123"), Aspas(""), Aspas("")));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {FACCAO} WHERE REPROCESSO <> ? AND OBS <> ?", "", ""), "1");
}

TEST_P(TSingleRowsTest, ANumberIsTheLargestPlusOneInFullWidth)
{
    EXPECT_EQ(Funcoes().Proximo("FACCAO4", "CODIGO", 8), "00000001");
    Sql("INSERT INTO {FACCAO4} (CODIGO) VALUES ('00000041')");
    Sql("INSERT INTO {FACCAO4} (CODIGO) VALUES ('00000009')");
    EXPECT_EQ(Funcoes().Proximo("FACCAO4", "CODIGO", 8), "00000042");
}

TEST_P(TSingleRowsTest, CodesThatAreNoPaddedNumbersDoNotDisturbTheNumbering)
{
    for (const auto* code : {"01", "09", "100", "A1", "COR"})
        Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('" + std::string(code) + "', '" + code + "')");
    EXPECT_EQ(Funcoes().Proximo("CADFLUXO", "CODIGO", 2), "101");
    Sql("INSERT INTO {DEFEITO} (CODIGO) VALUES ('00012')");
    Sql("INSERT INTO {DEFEITO} (CODIGO) VALUES ('7')");
    Sql("INSERT INTO {DEFEITO} (CODIGO) VALUES ('X0001')");
    EXPECT_EQ(Funcoes().Proximo("DEFEITO", "CODIGO", 5), "00013");
}

TEST_P(TSingleRowsTest, ANumberIsNotReservedAndTheLoserIsRefused)
{
    const auto mine = Funcoes().Proximo("PAGTO", "NUM_AP", 6);
    EXPECT_EQ(Funcoes().Proximo("PAGTO", "NUM_AP", 6), mine);
    Sql("INSERT INTO {PAGTO} (NUM_AP) VALUES ('" + mine + "')");
    const auto refusal = TDatabaseTest::Refusal(*db, TStatement("INSERT INTO {PAGTO} (NUM_AP) VALUES (?)", mine));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Kind(), TDatabaseErrorKind::Duplicate);
}

TEST_P(TSingleRowsTest, AMovementIsNumberedByOrderSectorAndPart)
{
    Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('20', 'COSTURA')");
    EXPECT_EQ(Funcoes().Proximo_FacMov("000123", "20", "01"), "1");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV) VALUES ('000123', '20', '01', 9)");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV) VALUES ('000123', '20', '01', 10)");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE, MOV) VALUES ('000123', '20', '02', 50)");
    EXPECT_EQ(Funcoes().Proximo_FacMov("000123", "20", "01"), "11");
}

TEST_P(TSingleRowsTest, AParameterThatIsNotSetIsEmpty)
{
    EXPECT_EQ(Funcoes().BuscaParametro("FAC", 240), "");
    Sql("INSERT INTO {PARAMETRO} (GRUPO, NUMERO, VALOR) VALUES ('FAC', 70, 'S')");
    EXPECT_EQ(Funcoes().BuscaParametro("FAC", 70), "S");
    Sql("INSERT INTO {PARAMETRO} (GRUPO, NUMERO) VALUES ('FAC', 10)");
    EXPECT_EQ(Funcoes().BuscaParametro("FAC", 10), "");
}

} // namespace
} // namespace alinhavo
