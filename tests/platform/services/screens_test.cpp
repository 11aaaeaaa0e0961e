#include "TServicesTest.h"

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "host/TPesquisa.h"

namespace alinhavo {
namespace {

/// A screen with a lookup that keeps what was picked.
class TfmPesquisas final : public TOrvForm {
public:
    explicit TfmPesquisas(TApplication& application)
        : TOrvForm(application, "TfmPesquisas", "Pesquisas")
    {
        PqCor.OnFechaPesquisa.connect(this, &TfmPesquisas::PqCorFechaPesquisa);
    }

    TEdit edtCor{*this, "edtCor", {.caption = "Cor"}};
    TPesquisa PqCor{*this, "PqCor", {.BuscaTabela = "CADCOR", .BuscaCampo = "COR"}};
    std::vector<std::string> Picked;

    void PqCorFechaPesquisa()
    {
        Picked.push_back(PqCor.RetornoPesquisa("COR").AsString() + " " + PqCor.RetornoPesquisa("descricao").AsString());
    }
};

/// Reports success to the screen that runs it, or does not.
class TfmModal final : public TOrvForm {
public:
    explicit TfmModal(TApplication& application)
        : TOrvForm(application, "TfmModal", "Modal")
    {
        btnOk.OnClick.connect(this, &TfmModal::btnOkClick);
        btnFechar.OnClick.connect(this, &TfmModal::btnFecharClick);
    }

    TButton btnOk{*this, "btnOk", {.caption = "OK"}};
    TButton btnFechar{*this, "btnFechar", {.caption = "Fechar"}};

    void btnOkClick()
    {
        App().FindFormByClass("TfmTeste")->ModalResult = TModalResult::Ok;
        Close();
    }
    void btnFecharClick() { Close(); }
};

class TScreensTest : public TServicesTest {
protected:
    void SetUp() override
    {
        TServicesTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto* row :
            {"'01', 'Azul céu'", "'02', 'Verde água'", "'03', 'AZUL-marinho'", "'04', '100% branco'"})
            Sql("INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (" + std::string(row) + ")");
        screen = std::make_unique<TfmPesquisas>(*app);
        app->RegisterForm(
            "TfmModal", [](TApplication& application) { return std::make_unique<TfmModal>(application); });
    }
    void TearDown() override
    {
        screen.reset();
        TServicesTest::TearDown();
    }

    /// What is offered for a text that is typed into the lookup.
    std::vector<std::string> Found(const std::string& text)
    {
        user.Searches(text);
        user.Says(TModalResult::Cancel);
        Do([&] { screen->PqCor.AbrePesquisa(); });
        return user.Offered;
    }

    std::unique_ptr<TfmPesquisas> screen;
};

using TCodes = std::vector<std::string>;

ON_BOTH_SERVERS(TScreensTest);

TEST_P(TScreensTest, ALookupOffersItsTableByKey)
{
    user.Picks({1});
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_EQ(user.Offered, (TCodes{"01", "02", "03", "04"}));
    EXPECT_EQ(user.Titles.back(), "Cores");
    EXPECT_EQ(screen->Picked, TCodes{"02 Verde água"});
    EXPECT_TRUE(screen->PqCor.RetornoPesquisa("COR").IsNull());
}

TEST_P(TScreensTest, ALongDescriptionIsShownAndSearchedToo)
{
    Sql("INSERT INTO {ROTEIRO} (CODIGO, DESCRICAO) VALUES ('001', 'MALHA')");
    Sql("INSERT INTO {ROTEIRO} (CODIGO, DESCRICAO) VALUES ('002', 'CAMISARIA')");
    TPesquisa flows(*screen, "PqFluxo", {.BuscaTabela = "ROTEIRO", .BuscaCampo = "CODIGO"});
    user.Searches("camis");
    user.Says(TModalResult::Cancel);
    Do([&] { flows.AbrePesquisa(); });
    EXPECT_EQ(user.Offered, TCodes{"002"});
}

TEST_P(TScreensTest, AnUnknownColumnOfALookupIsNull)
{
    user.Picks({0});
    bool isNull = false;
    screen->PqCor.OnFechaPesquisa.connect([&] { isNull = screen->PqCor.RetornoPesquisa("NADA").IsNull(); });
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_TRUE(isNull);
}

TEST_P(TScreensTest, WhatIsTypedIsFoundInCodesAndDescriptionsInAnyCase)
{
    EXPECT_EQ(Found("azul"), (TCodes{"01", "03"}));
    EXPECT_EQ(Found("ÁGUA"), TCodes{"02"});
    EXPECT_EQ(Found("04"), TCodes{"04"});
    EXPECT_EQ(Found("roxo"), TCodes{});
    EXPECT_EQ(Found(""), (TCodes{"01", "02", "03", "04"}));
}

TEST_P(TScreensTest, WhatIsTypedIsNeverAPatternNorAStatement)
{
    EXPECT_EQ(Found("%"), TCodes{"04"});
    EXPECT_EQ(Found("_"), TCodes{});
    EXPECT_EQ(Found("!"), TCodes{});
    EXPECT_EQ(Found("' OR '1'='1"), TCodes{});
    EXPECT_EQ(Found(std::string(500, 'x')), TCodes{});
}

TEST_P(TScreensTest, ALookupThatIsCancelledFiresNothing)
{
    user.Says(TModalResult::Cancel);
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_TRUE(screen->Picked.empty());
}

TEST_P(TScreensTest, AFilterIsACondition)
{
    screen->PqCor.Filtro = TStatement("COR IN (?) OR COR = ?", TLiteralList("'02','04'"), "01");
    EXPECT_EQ(Found(""), (TCodes{"01", "02", "04"}));
    EXPECT_EQ(Found("azul"), TCodes{"01"});
}

TEST_P(TScreensTest, SeveralRowsFireTheEventOnceEach)
{
    screen->PqCor.Options.MultiSelecao = true;
    user.Searches("azul");
    user.Picks({1, 0});
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_EQ(screen->Picked, (TCodes{"03 AZUL-marinho", "01 Azul céu"}));
}

TEST_P(TScreensTest, WhatIsPickedStandsInFrontOfWhatASearchFinds)
{
    screen->PqCor.Options.MultiSelecao = true;
    const auto search = [&](const std::string& text, std::vector<std::int64_t> rows) {
        user.Does({.kind = TUserEvent::TKind::Search, .text = text, .rows = std::move(rows)});
    };
    search("", {3, 1});
    search("azul", {0, 1});
    search("água", {1, 0, 2});
    user.Picks({0, 1, 2});
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_EQ(user.Offered, (TCodes{"02", "04", "01"})) << "02 is found as well, and stands there once";
    EXPECT_EQ(screen->Picked, (TCodes{"02 Verde água", "04 100% branco", "01 Azul céu"}));
}

TEST_P(TScreensTest, OnlyRowsOfAMultipleChoiceAreKept)
{
    user.Does({.kind = TUserEvent::TKind::Search, .text = "azul", .rows = {3}});
    EXPECT_EQ(Found(""), (TCodes{"01", "02", "03", "04"}));
    screen->PqCor.Options.MultiSelecao = true;
    user.Does({.kind = TUserEvent::TKind::Search, .text = "azul", .rows = {4}});
    EXPECT_EQ(Found(""), (TCodes{"01", "02", "03", "04"}));
}

TEST_P(TScreensTest, ALookupMayHaveASelectOfItsOwn)
{
    screen->PqCor.Select = TStatement("SELECT COR, UPPER(DESCRICAO) AS DESCRICAO FROM {CADCOR} WHERE COR <> ?", "01");
    screen->PqCor.Filtro = TStatement("COR < ?", "04");
    EXPECT_EQ(Found(""), (TCodes{"02", "03"}));
    EXPECT_EQ(Found("azul"), TCodes{"03"});
}

TEST_P(TScreensTest, ALookupOverASharedDatasetPlacesIt)
{
    auto& tbCor = services->Tabela().Tabela("tbCor");
    tbCor.Open();
    screen->PqCor.BuscaTable = &tbCor;
    user.Searches("água");
    user.Picks({0});
    Do([&] { screen->PqCor.AbrePesquisa(); });
    EXPECT_EQ(tbCor.FieldByName("COR").AsString(), "02");
}

TEST_P(TScreensTest, ALookupOffersNoMoreThanAPersonReads)
{
    for (int i = 0; i < 310; ++i)
        db->ExecSQL(
            TStatement("INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, 'x')", "X" + std::to_string(1000 + i)));
    EXPECT_EQ(Found("").size(), 300U);
}

TEST_P(TScreensTest, ARowTypedInASharedDatasetIsWritten)
{
    auto& tbCor = services->Tabela().Tabela("tbCor");
    tbCor.Open();
    tbCor.Append();
    tbCor.FieldByName("COR").Set("05");
    tbCor.FieldByName("DESCRICAO").Set("Roxo");
    tbCor.Post();
    EXPECT_EQ(Cell("SELECT DESCRICAO FROM {CADCOR} WHERE COR = '05'"), "Roxo");

    tbCor.Append();
    tbCor.FieldByName("COR").Set("05");
    EXPECT_THROW(tbCor.Post(), EDatabaseError);
    EXPECT_EQ(tbCor.State(), TDataSetState::Insert);
    tbCor.Cancel();
    EXPECT_EQ(tbCor.RecordCount(), 5U);
}

TEST_P(TScreensTest, ASectorInUseCannotBeDeletedFromASharedDataset)
{
    Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('10', 'CORTE')");
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE) VALUES ('000123', '10', '01')");
    auto& sectors = services->Tabela().Tabela("tbCadFluxo");
    sectors.Open();
    sectors.First();
    EXPECT_THROW(sectors.Delete(), EDatabaseError);
    EXPECT_EQ(sectors.RecordCount(), 1U);
}

TEST_P(TScreensTest, ASharedDatasetTakesTheIdentityOfItsNewRow)
{
    auto& tbFluxo = services->Tabela().Tabela("tbFluxo");
    tbFluxo.Open();
    tbFluxo.Append();
    tbFluxo.FieldByName("SETOR").Set("10");
    tbFluxo.Post();
    tbFluxo.Edit();
    tbFluxo.FieldByName("SETOR").Set("20");
    tbFluxo.Post();
    EXPECT_EQ(
        Cell("SELECT SETOR FROM {FLUXO} WHERE IDENTIFICADOR = ?", tbFluxo.FieldByName("IDENTIFICADOR").Value()), "20");
}

TEST_P(TScreensTest, AModalScreenReportsSuccessToItsCaller)
{
    bool good = false;
    user.Does({.kind = TUserEvent::TKind::Click, .control = "btnOk"});
    Do([&] { good = form->Executa_Form("TfmModal"); });
    EXPECT_TRUE(good);
    EXPECT_FALSE(form->TelaCarregada("TfmModal"));

    user.Does({.kind = TUserEvent::TKind::Click, .control = "btnFechar"});
    Do([&] { good = form->Executa_Form("TfmModal"); });
    EXPECT_FALSE(good);
}

TEST_P(TScreensTest, AScreenMayBeLoadedWithoutBeingRun)
{
    Do([&] {
        auto* loaded = form->Carrega_Form("TfmModal");
        ASSERT_NE(loaded, nullptr);
        EXPECT_FALSE(loaded->Showing());
        EXPECT_TRUE(form->TelaCarregada("TfmModal"));
    });
}

TEST_P(TScreensTest, AScreenThatIsNotInstalledIsSaidToBeMissing)
{
    Do([&] {
        EXPECT_EQ(form->Carrega_Form("TfmFatMetCobDev"), nullptr);
        EXPECT_FALSE(form->Executa_Form("TfmFatMetCobDev"));
    });
    EXPECT_EQ(user.Read, TCodes(2, "A tela TfmFatMetCobDev não está instalada."));
}

TEST_P(TScreensTest, AFilterFieldIsClearedOnYes)
{
    screen->edtCor.SetText("'01','02'");
    user.Says(TModalResult::No);
    Do([&] { screen->ConfirmaLimparCampo("Cor", screen->edtCor); });
    EXPECT_EQ(screen->edtCor.text(), "'01','02'");
    user.Says(TModalResult::Yes);
    Do([&] { screen->ConfirmaLimparCampo("Cor", screen->edtCor); });
    EXPECT_EQ(screen->edtCor.text(), "");
    EXPECT_EQ(user.Read.back(), "Deseja limpar o campo Cor?");
}

TEST_P(TScreensTest, BusyLastsAsLongAsItsMark)
{
    Do([&] {
        {
            const auto busy = form->Ocupado();
            const auto nested = form->Ocupado();
            EXPECT_TRUE(user.Busy);
        }
        EXPECT_FALSE(user.Busy);
    });
}

TEST_P(TScreensTest, TheDayOfTheApplicationIsThatOfStatements)
{
    app->SetNow(TDateTime::FromDate(2026, 11, 20));
    EXPECT_EQ(form->ConsultaValor("SELECT CURRENT_DATE FROM {CADCOR} WHERE COR = '01'").AsDateTime(), app->Today());
}

TEST_P(TScreensTest, AScreenReadsAndWritesInAFewWords)
{
    auto rows = form->Consulta("SELECT COR FROM {CADCOR} WHERE COR > ? ORDER BY COR", "02");
    EXPECT_EQ(rows.RecordCount(), 2U);
    EXPECT_TRUE(form->ConsultaValor("SELECT COR FROM {CADCOR} WHERE COR = ?", "99").IsNull());
    EXPECT_EQ(form->Executa("DELETE FROM {CADCOR} WHERE COR > ?", "02"), 2);
    EXPECT_TRUE(db->Pending());
    form->RollbackRetaining();
    EXPECT_TRUE(form->Existe("CADCOR", "COR", Aspas("04")));
}

TEST_P(TScreensTest, AMarkIsReplacedAndOtherTextStays)
{
    EXPECT_EQ(form->ConsultaValor("SELECT 'sem {marcas' FROM {CADCOR} WHERE COR = '01'").AsString(), "sem {marcas");
    EXPECT_EQ(form->ConsultaValor("SELECT COUNT(*) FROM {CADCOR}").AsInteger(), 4);
}

} // namespace
} // namespace alinhavo
