#include "TServicesTest.h"

#include <cmath>

namespace alinhavo {
namespace {

class TStockTest : public TServicesTest {
protected:
    void SetUp() override
    {
        TServicesTest::SetUp();
        if (IsSkipped())
            return;
        Sql("INSERT INTO {PRODUTO} (CODIGO, DESCRICAO) VALUES ('CAM01', 'Camisa')");
        Sql("INSERT INTO {MATERIAL} (CODIGO, DESCRICAO) VALUES ('TEC01', 'Tecido')");
        Sql("INSERT INTO {DEPOSITO} (CODIGO, DESCRICAO) VALUES ('001', 'Central')");
        Sql("INSERT INTO {TABBAI} (CODIGO, TIPO, TIPO_ESTOQUE) VALUES ('010', 'E', 5)");
        Sql("INSERT INTO {TABBAI} (CODIGO, TIPO, TIPO_ESTOQUE) VALUES ('020', 'S', 14)");
    }

    TEstoque Posting(const char* code, double quantity)
    {
        TEstoque posting(services->Services().stock);
        posting.Codigo = code;
        posting.Cor = "000001";
        posting.Tam = "M";
        posting.Lote = "000000";
        posting.Deposito = "001";
        posting.Qualidade = "1";
        posting.Documento = "000123";
        posting.Origem = "FC";
        posting.TipoMovimento = "010";
        posting.Quantidade = quantity;
        return posting;
    }
    std::string Products()
    {
        return Cell("SELECT LIST[CAST(QUANTIDADE AS INTEGER), ' ', IDENTIFICADOR] FROM {PA_ITEN}");
    }
    std::string Average() { return Cell("SELECT PRECO_MED FROM {MAT_ITEN}"); }
};

ON_BOTH_SERVERS(TStockTest);

TEST_P(TStockTest, TheTypesOfProductionAreThoseConfigured)
{
    auto posting = Posting("CAM01", 1);
    EXPECT_EQ(posting.CodigoTipoMovEstoque(TTipoMovimentoEstoque::EntradaProducao), "010");
    EXPECT_EQ(posting.CodigoTipoMovEstoque(TTipoMovimentoEstoque::SaidaProducao), "020");
    Sql("DELETE FROM {TABBAI} WHERE CODIGO = '020'");
    EXPECT_EQ(posting.CodigoTipoMovEstoque(TTipoMovimentoEstoque::SaidaProducao), "");
}

TEST_P(TStockTest, GoodsEnterAndLeaveTheirPlace)
{
    auto posting = Posting("CAM01", 10);
    posting.MovimentaEstoqueProduto();
    posting.Quantidade = 3;
    posting.Saida = true;
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Products(), "7");
    posting.Lote = "000123";
    posting.Saida = false;
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Products(), "7 3");
    EXPECT_TRUE(db->Pending());
}

TEST_P(TStockTest, EveryPostingStandsInTheHistory)
{
    app->SetNow(TDateTime::FromDateTime(2026, 11, 20, 8, 0, 0));
    auto posting = Posting("CAM01", 10);
    posting.Custo = 12.5;
    posting.Parte = "01";
    posting.Observacao = "ANA";
    posting.MovimentaEstoqueProduto();
    posting.Saida = true;
    posting.Data = TDateTime::FromDate(2026, 11, 19);
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Values(*db, TStatement(R"(
        SELECT DOCUMENTO || '|' || ORIGEM || '|' || TIPO_MOV || '|' || SAIDA || '|' || PARTE || '|' || OBSERVACAO || '|'
               || USUARIO || '|' || TAM FROM {PA_MOV} ORDER BY IDENTIFICADOR)")),
        (std::vector<std::string>{"000123|FC|010|N|01|ANA|ANA|M", "000123|FC|010|S|01|ANA|ANA|M"}));
    EXPECT_EQ(Values(*db, TStatement("SELECT DATA FROM {PA_MOV} ORDER BY IDENTIFICADOR")),
        (std::vector<std::string>{"20/11/2026", "19/11/2026"}));
    EXPECT_EQ(Cell("SELECT MAX(CUSTO) FROM {PA_MOV}"), "12.5");
}

TEST_P(TStockTest, APostingTakesTheRowThatHoldsTheBarcode)
{
    Sql(R"(INSERT INTO {PA_ITEN} (CODIGO, COR, TAM, TIPO, DEPOSITO, LOTE, BARRA)
           VALUES ('CAM01', '000001', 'M', '1', '001', '000000', '7891234567895'))");
    auto posting = Posting("CAM01", 4);
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Products(), "4");
}

TEST_P(TStockTest, ABlankColourIsAColourLikeANullOne)
{
    Sql("INSERT INTO {PA_ITEN} (CODIGO, TAM, TIPO, DEPOSITO, LOTE, QUANTIDADE) VALUES ('CAM01', 'M', '1', '001', "
        "'000000', 2)");
    auto posting = Posting("CAM01", 4);
    posting.Cor = "";
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Products(), "6");
}

TEST_P(TStockTest, StockMayFallBelowZero)
{
    auto posting = Posting("CAM01", 4);
    posting.Saida = true;
    posting.MovimentaEstoqueProduto();
    EXPECT_EQ(Products(), "-4");
}

TEST_P(TStockTest, APostingThatCannotBeDoneSaysWhyAndWritesNothing)
{
    auto posting = Posting("CAM99", 1);
    EXPECT_EQ(Failure([&] { posting.MovimentaEstoqueProduto(); }), "Produto \"CAM99\" não cadastrado.");
    EXPECT_EQ(Failure([&] { posting.MovimentaEstoqueMaterial(); }), "Material \"CAM99\" não cadastrado.");
    posting.Codigo = "CAM01";
    posting.Deposito = "9";
    EXPECT_EQ(Failure([&] { posting.MovimentaEstoqueProduto(); }), "Depósito \"9\" não cadastrado.");
    posting.Deposito = "001";
    posting.TipoMovimento = "";
    EXPECT_EQ(Failure([&] { posting.MovimentaEstoqueProduto(); }), "Tipo de movimento de estoque \"\" não cadastrado.");
    posting.TipoMovimento = "010";
    for (const double quantity : {0.0, -1.0, std::nan("")}) {
        posting.Quantidade = quantity;
        EXPECT_EQ(Failure([&] { posting.MovimentaEstoqueProduto(); }),
            "A quantidade do movimento de estoque deve ser maior que zero.");
    }
    EXPECT_FALSE(db->Pending());
}

TEST_P(TStockTest, AnEntryWithACostMovesTheAveragePriceOfAMaterial)
{
    auto posting = Posting("TEC01", 10);
    posting.Custo = 2;
    posting.MovimentaEstoqueMaterial();
    EXPECT_EQ(Average(), "2");
    posting.Quantidade = 30;
    posting.Custo = 4;
    posting.MovimentaEstoqueMaterial();
    EXPECT_EQ(Average(), "3.5");
    posting.Custo = 0;
    posting.MovimentaEstoqueMaterial();
    EXPECT_EQ(Average(), "3.5");
    posting.Custo = 99;
    posting.Saida = true;
    posting.MovimentaEstoqueMaterial();
    EXPECT_EQ(Average(), "3.5");
    EXPECT_EQ(Cell("SELECT QTDE FROM {MAT_ITEN}"), "40");
    EXPECT_EQ(Values(*db, TStatement("SELECT CUSTO FROM {MAT_MOV} ORDER BY IDENTIFICADOR")),
        (std::vector<std::string>{"2", "4", "null", "99"}));
}

TEST_P(TStockTest, AnEntryIntoEmptyStockSetsThePrice)
{
    auto posting = Posting("TEC01", 5);
    posting.Saida = true;
    posting.MovimentaEstoqueMaterial();
    posting.Saida = false;
    posting.Custo = 7;
    posting.MovimentaEstoqueMaterial();
    EXPECT_EQ(Average(), "7");
}

TEST_P(TStockTest, TheSheetTellsWhatWasTakenAndWhatIsThere)
{
    Sql("INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('000001', 'Azul')");
    Sql("UPDATE {MATERIAL} SET UNIDADE = 'KG', GRUPO = '01'");
    Sql("INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B) VALUES ('000123', '000001', 'M', 6, 4)");
    Sql(R"(INSERT INTO {PCPFTOF} (NUMERO, ID, TIPO, INSUMO, INSUMO_ORIG, COR, TAM, COR_I, COR_I_ORIG, PARTE, SETOR, CONSUMO)
           VALUES ('000123', 1, 'M', 'TEC01', 'TEC00', '000001', 'M', '000001', '000001', '01', '20', 0.5))");
    Sql(R"(INSERT INTO {PCPFTOF} (NUMERO, ID, TIPO, INSUMO, COR, TAM, COR_I, PARTE, SETOR, CONSUMO)
           VALUES ('000123', 2, 'P', 'CAM01', '000001', 'M', '000001', '02', '10', 1))");
    Sql("INSERT INTO {MATERIAL} (CODIGO) VALUES ('TEC00')");
    auto posting = Posting("TEC01", 20);
    posting.MovimentaEstoqueMaterial();
    posting.Origem = "BC";
    posting.Saida = true;
    posting.Quantidade = 3;
    posting.Parte = "01";
    posting.MovimentaEstoqueMaterial();
    posting.Codigo = "TEC00";
    posting.Quantidade = 2;
    posting.Parte = "02";
    posting.MovimentaEstoqueMaterial();

    TOrvQuery sheet(*db);
    Funcoes().CarregaPCPFTOF({.numero = "000123"}, sheet);
    ASSERT_EQ(sheet.RecordCount(), 2U);
    const auto cell = [&](const char* name) { return sheet.FieldByName(name).AsString(); };
    EXPECT_EQ(cell("DESCRICAO"), "Tecido");
    EXPECT_EQ(cell("UNIDADE"), "KG");
    EXPECT_EQ(cell("GRUPO"), "01");
    EXPECT_EQ(cell("DESCCOR_I"), "Azul");
    EXPECT_EQ(cell("CONSUMO_TOTAL"), "5");
    EXPECT_EQ(cell("QTDE_BAI"), "3");
    EXPECT_EQ(cell("QTDE_BAI_SUBS"), "2");
    EXPECT_EQ(cell("QTDE_EST"), "17");
    EXPECT_EQ(cell("QTDE_BAI_PROD"), "0");
    sheet.Next();
    EXPECT_EQ(cell("DESCRICAO"), "Camisa");

    Funcoes().CarregaPCPFTOF({.numero = "000123", .setor = "20", .parte = "01"}, sheet);
    EXPECT_EQ(sheet.RecordCount(), 1U);
    EXPECT_EQ(cell("QTDE_BAI_SUBS"), "0");
    Funcoes().CarregaPCPFTOF({.numero = "000123", .grupo = "02"}, sheet);
    EXPECT_TRUE(sheet.IsEmpty());
}

} // namespace
} // namespace alinhavo
