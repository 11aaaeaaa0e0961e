#include "sewing/TReaderService.h"
#include "sewing/TSewingApplication.h"
#include "TAnsweringUser.h"
#include "TDatabaseTest.h"

namespace alinhavo {
namespace {

/// ANA reads the labels of six lines.
class TReadingTest : public TDatabaseTest {
protected:
    static constexpr int Lines = 6;

    void SetUp() override
    {
        TDatabaseTest::SetUp();
        if (IsSkipped())
            return;
        TSewingApplication::Fill(*db, Lines);
        Open();
    }
    void TearDown() override
    {
        app.reset();
        TDatabaseTest::TearDown();
    }

    void Open()
    {
        app = std::make_unique<TSewingApplication>(user, &user, Address());
        user.Do(*app, [this] { screen = &app->OpenGrid(); });
    }
    void Sql(const std::string& text)
    {
        db->ExecText(text);
        db->CommitRetaining();
    }
    void Reads(const std::string& code)
    {
        user.Do(*app, [&] { screen->EdtBarra.SetText(code); });
    }
    /// F5 or F10 in the grid.
    void Presses(const std::string& name)
    {
        user.Do(*app, [&] {
            TKey key{.name = name};
            screen->dbg00GradeKeyDown(key);
            EXPECT_TRUE(key.Swallowed());
        });
    }
    double Quant(std::size_t row) const { return screen->TbTemp.CellValue(row, screen->TbTemp.Quant).AsFloat(); }
    double Total() const { return screen->TbTemp.Sum("Quant"); }

    TAnsweringUser user;
    std::unique_ptr<TSewingApplication> app;
    TfmFacMov* screen = nullptr;
};

ON_BOTH_SERVERS(TReadingTest);

TEST_P(TReadingTest, ABatchComesFromTheServiceOverHttp)
{
    TReaderService service("segredo");
    service.Keeps("77", {{TSewingApplication::Ean(1), 10}, {TSewingApplication::Ean(6), 2.5}});
    app->Host.funcoes.GravaAjuste("RFID", "endereco", service.Url());
    app->Host.funcoes.GravaAjuste("RFID", "chave", "segredo");
    user.Says(TModalResult::Ok, "77");
    Presses("F5");
    EXPECT_EQ(user.Titles, std::vector<std::string>{"Movimentação RFID"});
    EXPECT_EQ(user.Read, std::vector<std::string>{});
    EXPECT_EQ(Quant(0), 10);
    EXPECT_EQ(Quant(5), 2.5);
    EXPECT_EQ(Total(), 12.5);
    EXPECT_EQ(service.Requests(), std::vector<std::string>{"GET /batches/77?type=F&supplier=Mozaiko HTTP/1.1"});
}

TEST_P(TReadingTest, TheParametersAreReadWhenTheFirstBatchIsAsked)
{
    TReaderService service("segredo");
    service.Keeps("77", {{TSewingApplication::Ean(1), 1}});
    EXPECT_FALSE(app->Host.rfid.Configurado());
    app->Host.funcoes.GravaAjuste("RFID", "endereco", service.Url());
    app->Host.funcoes.GravaAjuste("RFID", "chave", "errada");
    user.Says(TModalResult::Ok, "77");
    Presses("F5");
    EXPECT_TRUE(app->Host.rfid.Configurado());
    EXPECT_EQ(user.Read.back(), "Falha no processo.\nO serviço RFID recusou a chave de acesso.");

    app->Host.funcoes.GravaAjuste("RFID", "chave", "segredo");
    user.Says(TModalResult::Ok, "77");
    Presses("F5");
    EXPECT_EQ(Total(), 0) << "what is configured is not read again";
}

TEST_P(TReadingTest, F10SetsTheServiceThatTheNextBatchComesFrom)
{
    TReaderService service("segredo");
    service.Keeps("77", {{TSewingApplication::Ean(3), 4}});
    user.Says(TModalResult::Ok, service.Url());
    user.Says(TModalResult::Ok, "segredo");
    Presses("F10");
    user.Says(TModalResult::Ok, "77");
    Presses("F5");
    EXPECT_EQ(Quant(2), 4);
}

TEST_P(TReadingTest, AnUnknownBatchTellsWhatTheServiceSays)
{
    TReaderService service("segredo");
    app->Host.funcoes.GravaAjuste("RFID", "endereco", service.Url());
    app->Host.funcoes.GravaAjuste("RFID", "chave", "segredo");
    user.Says(TModalResult::Ok, "78");
    Presses("F5");
    EXPECT_EQ(user.Read, std::vector<std::string>{"Falha no processo.\nLote desconhecido."});
    EXPECT_EQ(Total(), 0);
}

TEST_P(TReadingTest, ABatchOfMoreCodesThanOneQueryTakesFindsThemAll)
{
    app.reset();
    Sql("DELETE FROM PA_ITEN");
    TReaderService::TBatch batch;
    for (int code = 1; code <= 450; ++code) {
        const auto ean = TSewingApplication::Ean(code);
        Sql("INSERT INTO PA_ITEN (CODIGO, COR, TAM, DEPOSITO, LOTE, BARRA) VALUES ('CAM01', '00000"
            + std::string(code % 2 ? "1" : "2") + "', 'P', '07', '000000', '" + ean + "')");
        batch.emplace_back(ean, 0.25);
    }
    Open();
    TReaderService service("segredo");
    service.Keeps("77", batch);
    app->Host.funcoes.GravaAjuste("RFID", "endereco", service.Url());
    app->Host.funcoes.GravaAjuste("RFID", "chave", "segredo");
    user.Says(TModalResult::Ok, "77");
    Presses("F5");
    EXPECT_EQ(Quant(0), 56.25);
    EXPECT_EQ(Quant(5), 56.25);
}

TEST_P(TReadingTest, RowsTellWhatIsReadOnlyWhileCodesAreRead)
{
    auto& grid = screen->dbg00Grade;
    user.Do(*app, [&] {
        for (const auto& [necessidade, quant] :
            {std::pair{0.0, 0.0}, {5.0, 4.0}, {5.0, 5.0}, {5.0, 99.0}, {5.0, 100.0}}) {
            screen->TbTemp.Edit();
            screen->TbTemp.Necessidade = necessidade;
            screen->TbTemp.Quant = quant;
            screen->TbTemp.Post();
            screen->TbTemp.Next();
        }
    });
    EXPECT_EQ(grid.RowColor(0), TRowColor::Normal);
    EXPECT_EQ(grid.RowColor(1), TRowColor::Normal);
    EXPECT_EQ(grid.RowColor(2), TRowColor::Highlight);
    EXPECT_EQ(grid.RowColor(3), TRowColor::Highlight);
    EXPECT_EQ(grid.RowColor(4), TRowColor::Good);
    user.Do(*app, [&] { screen->cbBaixaBarras.SetChecked(false); });
    for (std::size_t row = 0; row < Lines; ++row)
        EXPECT_EQ(grid.RowColor(row), TRowColor::Normal) << row;
}

TEST_P(TReadingTest, AReadingTellsTheGridOnce)
{
    struct TListener final : IDataSetListener {
        void DataSetRowsChanged() override { ++rows; }
        void DataSetCursorChanged() override { }
        void DataSetRowChanged() override { }
        int rows = 0;
    } listener;
    screen->TbTemp.AddListener(listener);
    Reads(TSewingApplication::Ean(4));
    screen->TbTemp.RemoveListener(listener);
    EXPECT_EQ(Total(), 1);
    EXPECT_EQ(listener.rows, 1);
}

} // namespace
} // namespace alinhavo
