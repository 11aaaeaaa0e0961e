#include "TServicesTest.h"

#include "forms/TButton.h"
#include "forms/TDBCheckBox.h"
#include "forms/TDBComboBox.h"
#include "forms/TDBEdit.h"
#include "forms/TDBNumberEdit.h"
#include "forms/TDBRadioGroup.h"
#include "forms/TGrid.h"
#include "host/TPesquisa.h"

namespace alinhavo {
namespace {

using TCodes = std::vector<std::string>;
using enum TUserEvent::TKind;

/// A register over the shared sectors, all of it bound: what its buttons do is the dataset's own.
class TfmSetores final : public TOrvForm {
public:
    explicit TfmSetores(TApplication& application)
        : TOrvForm(application, "TfmSetores", "Setores")
        , tbCadFluxo(Tabela().Tabela("tbCadFluxo"))
    {
        tbCadFluxo.Open();
        BtnGravar.OnClick.connect(this, &TfmSetores::BtnGravarClick);
        BtnExcluir.OnClick.connect(this, &TfmSetores::BtnExcluirClick);
        PqGrupo.Serve(DBGrupo);
        PqGrupo.OnFechaPesquisa.connect(this, &TfmSetores::PqGrupoFechaPesquisa);
    }

    TOrvTable& tbCadFluxo;
    TGrid DBGrid1{*this, "DBGrid1", tbCadFluxo, {.readOnly = true}};
    TDBEdit DBCodigo{*this, "DBCodigo", tbCadFluxo, "CODIGO", {.maxLength = 3}};
    TDBEdit DBDescricao{*this, "DBDescricao", tbCadFluxo, "DESCRICAO", {.upperCase = true}};
    TDBEdit DBGrupo{*this, "DBGrupo", tbCadFluxo, "GRUPO", {.lookup = true}};
    TDBNumberEdit DBPreco{*this, "DBPreco", tbCadFluxo, "PRECO"};
    TDBNumberEdit DBDias{*this, "DBDias", tbCadFluxo, "DIAS"};
    TDBCheckBox DBLivre{*this, "DBLivre", tbCadFluxo, "BAIXALIVRE"};
    TDBRadioGroup DBPaga{*this, "DBPaga", tbCadFluxo, "IND_PAG", {.items = {"Boas", "Todas"}, .values = {"1", "3"}}};
    TDBComboBox DBConta{*this, "DBConta", tbCadFluxo, "CONTA", {.items = {"3.1", "3.2"}}};
    TButton BtnGravar{*this, "BtnGravar"};
    TButton BtnExcluir{*this, "BtnExcluir"};
    TPesquisa PqGrupo{*this, "PqGrupo", {.BuscaTabela = "CADFLUXO", .BuscaCampo = "CODIGO"}};

    void BtnGravarClick()
    {
        tbCadFluxo.Post();
        CommitRetaining();
    }
    void BtnExcluirClick()
    {
        tbCadFluxo.Delete();
        CommitRetaining();
    }
    void PqGrupoFechaPesquisa() { tbCadFluxo.FieldByName("GRUPO").Set(PqGrupo.RetornoPesquisa("CODIGO")); }
};

class TSharedDatasetsTest : public TServicesTest {
protected:
    void SetUp() override
    {
        TServicesTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto* row : {"'10', 'CORTE', 3", "'20', 'COSTURA', 1", "'30', 'ACABAMENTO', 2"})
            Sql("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO, ORDEM) VALUES (" + std::string(row) + ")");
        screen = std::make_unique<TfmSetores>(*app);
        screen->Show();
        table = &screen->tbCadFluxo;
    }
    void TearDown() override
    {
        screen.reset();
        TServicesTest::TearDown();
    }

    void Act(TUserEvent event) { EXPECT_EQ(app->Handle(event), "") << event.control; }
    /// Fills a field and leaves it.
    void Type(const std::string& control, const std::string& text)
    {
        Act({.kind = Text, .control = control, .text = text});
        Act({.kind = Key, .control = control, .key = {.name = "Enter"}});
    }
    void Press(const std::string& button) { Act({.kind = Click, .control = button}); }

    TCodes Codes() const
    {
        TCodes codes;
        for (std::size_t row = 0; row < table->RecordCount(); ++row)
            codes.push_back(table->CellText(row, table->FieldByName("CODIGO")));
        return codes;
    }
    /// What another user does, committed.
    void OtherUser(const std::string& text)
    {
        const auto other = Connect();
        other->ExecText(text);
        other->CommitRetaining();
    }
    /// What another user sees in a sector.
    std::string Seen(const std::string& column, const std::string& codigo)
    {
        const auto other = Connect();
        return Value(*other, TStatement("SELECT ? FROM {CADFLUXO} WHERE CODIGO = ?", TName(column), codigo));
    }

    std::unique_ptr<TfmSetores> screen;
    TOrvTable* table = nullptr;
};

ON_BOTH_SERVERS(TSharedDatasetsTest);

TEST_P(TSharedDatasetsTest, AnAppendedRowIsTypedAndPosted)
{
    table->Append();
    Type("DBCodigo", "40");
    Type("DBDescricao", "bordado");
    Type("DBPreco", "1,25");
    Act({.kind = Check, .control = "DBLivre", .flag = true});
    Act({.kind = Select, .control = "DBPaga", .index = 1});
    Act({.kind = Select, .control = "DBConta", .index = 0});
    Press("BtnGravar");
    EXPECT_EQ(table->State(), TDataSetState::Browse);
    EXPECT_EQ(Seen("DESCRICAO", "40"), "BORDADO");
    EXPECT_EQ(Seen("PRECO", "40"), "1.25");
    EXPECT_EQ(Seen("BAIXALIVRE", "40"), "S");
    EXPECT_EQ(Seen("IND_PAG", "40"), "3");
    EXPECT_EQ(Seen("CONTA", "40"), "3.1");
    EXPECT_EQ(Seen("DIAS", "40"), "null") << "what was never typed is null";
    EXPECT_EQ(Codes(), (TCodes{"10", "20", "30", "40"}));
}

TEST_P(TSharedDatasetsTest, AnEditedRowWritesOnlyWhatWasChanged)
{
    table->Locate("CODIGO", {"20"});
    table->Edit();
    Type("DBDescricao", "montagem");
    OtherUser("UPDATE {CADFLUXO} SET PRECO = 9 WHERE CODIGO = '20'");
    Press("BtnGravar");
    EXPECT_EQ(Seen("DESCRICAO", "20"), "MONTAGEM");
    EXPECT_EQ(Seen("PRECO", "20"), "9");
}

TEST_P(TSharedDatasetsTest, ClearingAControlWritesNull)
{
    Sql("UPDATE {CADFLUXO} SET DIAS = 5 WHERE CODIGO = '10'");
    table->Refresh();
    EXPECT_EQ(screen->DBDias.text(), "5");
    table->Edit();
    Type("DBDias", "");
    Press("BtnGravar");
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADFLUXO} WHERE CODIGO = '10' AND DIAS IS NULL"), "1");
}

TEST_P(TSharedDatasetsTest, ACancelledEditShowsTheStoredRowAgain)
{
    table->Locate("CODIGO", {"20"});
    table->Edit();
    Type("DBDescricao", "montagem");
    table->Cancel();
    EXPECT_EQ(screen->DBDescricao.text(), "COSTURA");
    EXPECT_TRUE(screen->DBDescricao.ReadOnly());

    table->Append();
    Type("DBCodigo", "40");
    table->Cancel();
    EXPECT_EQ(Codes(), (TCodes{"10", "20", "30"}));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADFLUXO}"), "3");
}

TEST_P(TSharedDatasetsTest, ADeletedRowLeavesTheScreenOnTheNext)
{
    table->Locate("CODIGO", {"20"});
    Press("BtnExcluir");
    EXPECT_EQ(screen->DBCodigo.text(), "30");
    EXPECT_EQ(Seen("CODIGO", "20"), "no row");
    Press("BtnExcluir");
    Press("BtnExcluir");
    EXPECT_EQ(screen->DBCodigo.text(), "");
    Press("BtnExcluir");
    EXPECT_EQ(user.Read, TCodes{"tbCadFluxo has no row to delete"});
}

TEST_P(TSharedDatasetsTest, AFilterHidesRowsFromGridAndControls)
{
    table->FilterBy("DESCRICAO", "COSTURA");
    EXPECT_EQ(screen->DBGrid1.RowCount(), 1U);
    EXPECT_EQ(screen->DBCodigo.text(), "20");
    EXPECT_FALSE(table->Locate("CODIGO", {"10"})) << "what the filter hides is not found";
    table->ClearFilter();
    EXPECT_TRUE(table->Locate("CODIGO", {"10"}));
    EXPECT_EQ(Codes(), (TCodes{"10", "20", "30"}));
}

TEST_P(TSharedDatasetsTest, ARowThatIsPostedOutOfTheFilterLeavesTheView)
{
    table->SetFilter([this] { return table->FieldByName("ORDEM").AsInteger() < 3; });
    EXPECT_EQ(Codes(), (TCodes{"20", "30"}));
    table->First();
    table->Edit();
    table->FieldByName("ORDEM").Set(7);
    table->Post();
    EXPECT_EQ(Codes(), TCodes{"30"});
    EXPECT_EQ(screen->DBCodigo.text(), "30");
}

TEST_P(TSharedDatasetsTest, ARowIsLocatedByAnyColumnsWithoutRegardToTheOrder)
{
    table->SortBy("ORDEM");
    EXPECT_TRUE(table->Locate("DESCRICAO;ORDEM", {"CORTE", 3}));
    EXPECT_EQ(screen->DBCodigo.text(), "10");
    EXPECT_FALSE(table->Locate("DESCRICAO", {"LAVANDERIA"}));
    EXPECT_EQ(screen->DBCodigo.text(), "10");
}

TEST_P(TSharedDatasetsTest, AnOrderKeepsTheRowAndPlacesNewOnes)
{
    table->Locate("CODIGO", {"20"});
    table->SortBy("DESCRICAO");
    EXPECT_EQ(Codes(), (TCodes{"30", "10", "20"}));
    EXPECT_EQ(screen->DBCodigo.text(), "20");
    table->Append();
    Type("DBCodigo", "40");
    Type("DBDescricao", "BORDADO");
    Press("BtnGravar");
    EXPECT_EQ(Codes(), (TCodes{"30", "40", "10", "20"}));
    EXPECT_EQ(screen->DBCodigo.text(), "40");
    table->Refresh();
    EXPECT_EQ(Codes(), (TCodes{"30", "40", "10", "20"})) << "the order outlives a refresh";
}

TEST_P(TSharedDatasetsTest, ARefreshShowsWhatAnotherUserCommitted)
{
    table->Locate("CODIGO", {"20"});
    OtherUser("UPDATE {CADFLUXO} SET DESCRICAO = 'MONTAGEM' WHERE CODIGO = '20'");
    OtherUser("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('15', 'BORDADO')");
    OtherUser("DELETE FROM {CADFLUXO} WHERE CODIGO = '30'");
    EXPECT_EQ(Codes(), (TCodes{"10", "20", "30"}));
    table->Refresh();
    EXPECT_EQ(Codes(), (TCodes{"10", "15", "20"}));
    EXPECT_EQ(screen->DBCodigo.text(), "20");
    EXPECT_EQ(screen->DBDescricao.text(), "MONTAGEM");
}

TEST_P(TSharedDatasetsTest, ARefreshStandsOnTheFirstRowWhenItsOwnIsGone)
{
    table->Locate("CODIGO", {"20"});
    OtherUser("DELETE FROM {CADFLUXO} WHERE CODIGO = '20'");
    table->Refresh();
    EXPECT_EQ(screen->DBCodigo.text(), "10");
}

TEST_P(TSharedDatasetsTest, ADuplicateReachesTheScreenAndTheRowStaysInEdit)
{
    table->Append();
    Type("DBCodigo", "40");
    Type("DBDescricao", "corte");
    Press("BtnGravar");
    EXPECT_EQ(user.Read, TCodes{"duplicate value in CADFLUXO (DESCRICAO)"});
    EXPECT_EQ(table->State(), TDataSetState::Insert);
    EXPECT_EQ(screen->DBDescricao.text(), "CORTE");
    Type("DBDescricao", "corte fino");
    Press("BtnGravar");
    EXPECT_EQ(Seen("DESCRICAO", "40"), "CORTE FINO");
}

TEST_P(TSharedDatasetsTest, ARowThatAnotherUserDeletedReachesTheScreenAndStaysInEdit)
{
    table->Locate("CODIGO", {"30"});
    table->Edit();
    Type("DBDescricao", "passadoria");
    OtherUser("DELETE FROM {CADFLUXO} WHERE CODIGO = '30'");
    Press("BtnGravar");
    EXPECT_EQ(user.Read, TCodes{"O registro foi excluído por outro usuário."});
    EXPECT_EQ(table->State(), TDataSetState::Edit);
}

TEST_P(TSharedDatasetsTest, ARowInUseReachesTheScreenAndStays)
{
    Sql("INSERT INTO {FACCAO} (NUMERO, OP, PARTE) VALUES ('000123', '20', '01')");
    table->Locate("CODIGO", {"20"});
    Press("BtnExcluir");
    EXPECT_EQ(user.Read, TCodes{"rows of FACCAO refer to CADFLUXO (CODIGO)"});
    EXPECT_EQ(screen->DBCodigo.text(), "20");
    EXPECT_EQ(Codes(), (TCodes{"10", "20", "30"}));
}

TEST_P(TSharedDatasetsTest, ARefusedRowLeavesWhatWasWrittenBeforeItPending)
{
    table->Append();
    table->FieldByName("CODIGO").Set("40");
    table->Post();
    table->Append();
    Type("DBCodigo", "10");
    Press("BtnGravar");
    EXPECT_EQ(user.Read, TCodes{"duplicate value in CADFLUXO (CODIGO)"});
    EXPECT_EQ(Seen("CODIGO", "40"), "no row");
    table->Cancel();
    services->Tabela().CommitRetaining();
    EXPECT_EQ(Seen("CODIGO", "40"), "40");
}

TEST_P(TSharedDatasetsTest, TwoScreensShareTheRowAndItsEdit)
{
    TfmSetores second(*app);
    table->Locate("CODIGO", {"20"});
    EXPECT_EQ(second.DBCodigo.text(), "20");
    table->Edit();
    Type("DBDescricao", "montagem");
    EXPECT_EQ(second.DBDescricao.text(), "MONTAGEM");
    EXPECT_FALSE(second.DBDescricao.ReadOnly());
}

TEST_P(TSharedDatasetsTest, AFieldWithALookupIsFilledByF4AndByF5)
{
    table->Edit();
    user.Picks({1});
    Act({.kind = Key, .control = "DBGrupo", .key = {.name = "F4"}});
    EXPECT_EQ(screen->DBGrupo.text(), "20");
    user.Picks({2});
    Act({.kind = Key, .control = "DBGrupo", .key = {.name = "F5"}});
    EXPECT_EQ(screen->DBGrupo.text(), "30");
    Act({.kind = Key, .control = "DBGrupo", .key = {.name = "F6"}});
    EXPECT_EQ(screen->DBGrupo.text(), "30");
}

} // namespace
} // namespace alinhavo
