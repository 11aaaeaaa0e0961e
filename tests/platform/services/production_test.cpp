#include "TServicesTest.h"

#include "forms/TMemTable.h"

namespace alinhavo {
namespace {

class TProductionTest : public TServicesTest {
protected:
    void Sector(const std::string& code, const std::string& days, const std::string& week)
    {
        Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO, DIAS, DIAS_SEMANA) VALUES ('" + code + "', 'S" + code + "', "
            + days + ", " + week + ")");
    }
    std::string Return(TDateTime from, const char* sector)
    {
        return Funcoes().CalculaPrevRetorno(from, sector, "01", "000123").Text();
    }
    void Price(const std::string& table, const std::string& price, const std::string& colourAndSize = "NULL, NULL")
    {
        Sql("INSERT INTO {TABELA} (NUMERO, CODIGO, SETOR, PARTE, PRECO, COR, TAM) VALUES ('" + table
            + "', 'CAM01', '20', '01', " + price + ", " + colourAndSize + ")");
    }
    double Price() { return Funcoes().GeraPreco("000123", "CAM01", "20", "01", "F0001", "000001", "M", 10); }

    const TDateTime friday = TDateTime::FromDate(2026, 11, 20);
};

ON_BOTH_SERVERS(TProductionTest);

TEST_P(TProductionTest, TheLeadTimeIsCountedInTheSectorsWorkingDays)
{
    Sector("5", "3", "5");
    Sector("6", "3", "6");
    Sector("7", "3", "7");
    Sector("1", "2", "1");
    EXPECT_EQ(Return(friday, "5"), "25/11/2026");
    EXPECT_EQ(Return(friday, "6"), "24/11/2026");
    EXPECT_EQ(Return(friday, "7"), "23/11/2026");
    EXPECT_EQ(Return(friday, "1"), "30/11/2026");
}

TEST_P(TProductionTest, ASectorThatDoesNotSayWorksFromMondayToFriday)
{
    Sector("20", "1", "NULL");
    EXPECT_EQ(Return(friday, "20"), "23/11/2026");
}

TEST_P(TProductionTest, APlannedLeadTimeOfTheOrdersPartComesFirst)
{
    Sector("20", "1", "7");
    Sql("INSERT INTO {PCP_MOV} (NUMERO, SETOR, PARTE, DIAS) VALUES ('000123', '20', '02', 9)");
    EXPECT_EQ(Return(friday, "20"), "21/11/2026");
    Sql("INSERT INTO {PCP_MOV} (NUMERO, SETOR, PARTE, DIAS) VALUES ('000123', '20', '01', NULL)");
    EXPECT_EQ(Return(friday, "20"), "21/11/2026");
    Sql("UPDATE {PCP_MOV} SET DIAS = 5 WHERE PARTE = '01'");
    EXPECT_EQ(Return(friday, "20"), "25/11/2026");
}

TEST_P(TProductionTest, WithoutALeadTimeTheDateStays)
{
    Sector("20", "NULL", "5");
    EXPECT_EQ(Return(friday, "20"), "20/11/2026");
    EXPECT_EQ(Return(friday, "99"), "20/11/2026");
    EXPECT_EQ(Return(friday, ""), "20/11/2026");
    EXPECT_TRUE(Funcoes().CalculaPrevRetorno({}, "20", "01", "000123").IsBlank());
}

TEST(TPlanning, WholeWeeksAreCountedAsDayByDay)
{
    for (int week = 1; week <= 7; ++week) {
        for (int start = 0; start < 7; ++start) {
            const auto from = TDateTime::FromDate(2026, 11, 16).AddDays(start);
            auto stepped = from;
            for (int days = 1; days <= 40; ++days) {
                do
                    stepped = stepped.AddDays(1);
                while (stepped.DayOfWeek() > week);
                ASSERT_EQ(TPlanning::AddWorkingDays(from, days, week), stepped) << week << " " << start << " " << days;
            }
        }
    }
}

TEST_P(TProductionTest, ThePriceComesFromTheFirstTableThatHasOne)
{
    Sector("20", "1", "5");
    Sql("INSERT INTO {TIPO_OP} (CODIGO, TABELA) VALUES ('1', 'T')");
    Sql("INSERT INTO {OF1} (NUMERO, CODIGO, TIPO_OP, TABELA) VALUES ('000123', 'CAM01', '1', 'O')");
    Sql("INSERT INTO {ENTIDADE} (CODCLI, TABELA) VALUES ('F0001', 'F')");
    Sql("INSERT INTO {REGIAO} (REGIAO, PADRAO) VALUES ('P', 'S')");
    EXPECT_EQ(Price(), 0);
    Price("P", "4");
    EXPECT_EQ(Price(), 4);
    Price("F", "0");
    EXPECT_EQ(Price(), 4);
    Sql("DELETE FROM {TABELA} WHERE NUMERO = 'F'");
    Price("F", "3");
    EXPECT_EQ(Price(), 3);
    Price("O", "2.0006");
    EXPECT_EQ(Price(), 2.001);
    Price("T", "0.0004");
    EXPECT_EQ(Price(), 2.001);
    Sql("DELETE FROM {TABELA} WHERE NUMERO = 'T'");
    Price("T", "1");
    EXPECT_EQ(Price(), 1);
}

TEST_P(TProductionTest, PricesByColourAndSizeCountWhereTheyAreKeptSo)
{
    Sector("20", "1", "5");
    Sql("INSERT INTO {REGIAO} (REGIAO, PADRAO) VALUES ('P', 'S')");
    Price("P", "4", "'000002', 'M'");
    Price("P", "5", "'000001', 'M'");
    EXPECT_EQ(Price(), 4);
    Sql("INSERT INTO {PARAMETRO} (GRUPO, NUMERO, VALOR) VALUES ('FAC', 270, 'S')");
    EXPECT_EQ(Price(), 5);
}

TEST_P(TProductionTest, CertificatesAreDemandedByTheProductAndHeldForATime)
{
    std::string missing = "x";
    EXPECT_TRUE(Funcoes().ValidaCertificados("CAM01", "F0001", friday, missing, "P"));
    EXPECT_EQ(missing, "");

    Sql("INSERT INTO {CERTIFICADO} (CODIGO, DESCRICAO) VALUES ('ABVTEX', 'Fornecedor aprovado')");
    Sql("INSERT INTO {CERTIFICADO} (CODIGO, DESCRICAO) VALUES ('BSCI', 'Auditoria social')");
    Sql("INSERT INTO {PRODUTO_CERTIFICADO} (PRODUTO, CERTIFICADO) VALUES ('CAM01', 'BSCI')");
    Sql("INSERT INTO {PRODUTO_CERTIFICADO} (PRODUTO, CERTIFICADO) VALUES ('CAM01', 'ABVTEX')");
    EXPECT_FALSE(Funcoes().ValidaCertificados("CAM01", "F0001", friday, missing, "P"));
    EXPECT_EQ(missing, "ABVTEX - Fornecedor aprovado\nBSCI - Auditoria social");

    Sql(R"(INSERT INTO {ENTIDADE_CERTIFICADO} (CODCLI, CERTIFICADO, DT_INICIO, DT_FIM)
           VALUES ('F0001', 'ABVTEX', '11/20/2026', '11/21/2026'))");
    Sql("INSERT INTO {ENTIDADE_CERTIFICADO} (CODCLI, CERTIFICADO) VALUES ('F0001', 'BSCI')");
    EXPECT_FALSE(Funcoes().ValidaCertificados("CAM01", "F0001", friday.AddDays(-1), missing, "P"));
    EXPECT_TRUE(Funcoes().ValidaCertificados("CAM01", "F0001", friday, missing, "P"));
    EXPECT_TRUE(Funcoes().ValidaCertificados("CAM01", "F0001", friday.AddDays(1), missing, "P"));
    EXPECT_FALSE(Funcoes().ValidaCertificados("CAM01", "F0001", friday.AddDays(2), missing, "P"));
    EXPECT_EQ(missing, "ABVTEX - Fornecedor aprovado");
    app->SetNow(friday);
    EXPECT_TRUE(Funcoes().ValidaCertificados("CAM01", "F0001", {}, missing, "P"));
}

TEST_P(TProductionTest, ADateInAClosedPeriodIsRefusedAloud)
{
    Sql("INSERT INTO {PERIODO_FECHADO} (GRUPO, DT_INICIO, DT_FIM) VALUES ('IV', NULL, '11/20/2026')");
    bool closed = false;
    Do([&] { closed = form->Contabil().PeriodoConciliado(*form, "IV", friday); });
    EXPECT_TRUE(closed);
    EXPECT_EQ(user.Read, std::vector<std::string>{"A data 20/11/2026 pertence a um período fechado."});
    Do([&] { closed = form->Contabil().PeriodoConciliado(*form, "IV", friday.AddDays(1)); });
    EXPECT_FALSE(closed);
    Do([&] { closed = form->Contabil().PeriodoConciliado(*form, "CP", friday); });
    EXPECT_FALSE(closed);
    Do([&] { closed = form->Contabil().PeriodoConciliado(*form, "IV", {}); });
    EXPECT_FALSE(closed);
    EXPECT_EQ(user.Read.size(), 1U);
}

TEST_P(TProductionTest, APayableIsSplitByClass)
{
    form->Contabil().SetRateioClasse("000042", "030101", "CP", 150.25, "0", 1, friday, 1);
    EXPECT_EQ(
        Cell("SELECT NUMERO || '|' || NUM_OS || '|' || TIPO || '|' || CLASSE || '|' || SEQUENCIA FROM {RATEIO_CLASSE}"),
        "000042|030101|CP|0|1");
    EXPECT_EQ(Cell("SELECT VALOR FROM {RATEIO_CLASSE} WHERE DATA = ? AND INDICE = 1", friday), "150.25");
    EXPECT_TRUE(db->Pending());
}

/// A report's rows as the inventory takes them.
struct TRelatorio : TMemTable {
    TStringField Codigo{*this, "FAC_CODIGO", 15};
    TStringField Cor{*this, "FAC_COR", 6};
    TFloatField Quant{*this, "QUANT_PEND"};

    void Add(const char* codigo, const char* cor, double quant)
    {
        Append();
        Codigo = codigo;
        Cor = cor;
        Quant = quant;
        Post();
    }
};

TEST_P(TProductionTest, AnInventoryTakesTheRowsShownAndReplacesItsOwnOfTheDay)
{
    app->SetNow(friday);
    TRelatorio rows;
    rows.Add("CAM01", "01", 5);
    rows.Add("CAM01", "01", 7);
    rows.Add("CAM01", "02", 0);
    rows.Add("CAL01", "", 3);
    const TColunasInventario columns{.produto = "FAC_CODIGO",
        .cor = "FAC_COR",
        .tam = "",
        .numero = "",
        .lote = "",
        .descricao = "",
        .unidade = "",
        .codcli = "",
        .quantidade = "QUANT_PEND",
        .preco = "",
        .posse = "",
        .parte = ""};
    Funcoes().GeraInventario(columns, rows);
    EXPECT_FALSE(db->Pending());
    const auto lines = [&] {
        return Cell("SELECT LIST[CODIGO || ' ' || CAST(QUANTIDADE AS INTEGER), '; ', IDENTIFICADOR] FROM {INVENTARIO}");
    };
    EXPECT_EQ(lines(), "CAM01 5; CAM01 7; CAL01 3");

    rows.FilterBy("FAC_CODIGO", "CAM01");
    rows.First();
    rows.Edit();
    rows.Quant = 6;
    rows.Post();
    Funcoes().GeraInventario(columns, rows);
    EXPECT_EQ(lines(), "CAL01 3; CAM01 6; CAM01 7");

    app->SetNow(friday.AddDays(1));
    Funcoes().GeraInventario(columns, rows);
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {INVENTARIO}"), "5");
}

} // namespace
} // namespace alinhavo
