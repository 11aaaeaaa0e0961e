#include "host/TTabela.h"

#include "TFakeDatabase.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace alinhavo {
namespace {

class TTabelaTest : public testing::Test {
protected:
    TFakeDatabase db;
    TTabela tabela{db, "02"};
};

TEST_F(TTabelaTest, NamesAreFoundInAnyCase)
{
    tabela.AbreTabela("TBCADFLUXO");
    EXPECT_TRUE(tabela.Tabela("tbCadFluxo").Active());
    EXPECT_EQ(&tabela.Tabela("tbcadfluxo"), &tabela.Tabela("TbCadFluxo"));
    EXPECT_EQ(tabela.FindComponent("tbCadFluxo"), &tabela.Tabela("tbCadFluxo"));
}

TEST_F(TTabelaTest, EverySharedDatasetStandsOnItsTable)
{
    const std::pair<const char*, const char*> expected[] = {{"tbCadFluxo", "CADFLUXO"}, {"tbEntidade", "ENTIDADE"},
        {"tbProduto", "PRODUTO"}, {"TbTipoApl", "TIPO_APL"}, {"tbFluxo", "FLUXO"}, {"tbEstampa", "ESTAMPA"},
        {"tbEstampaCli", "ESTAMPA_CLI"}, {"tbDefeito", "DEFEITO"}, {"tbDef_Mov", "DEF_MOV"}, {"tbTabQul", "TABQUL"},
        {"tbTabPreco", "TABPRECO"}, {"tbTabPrazos", "TABPRZ"}, {"TbTabela", "TABELA"}, {"tbRegiao", "REGIAO"},
        {"TbPessoal", "PESSOAL"}, {"tbMateriais", "MATERIAL"}, {"TbGrupo_Ma", "GRUPO_MA"}, {"TbGrupo", "GRUPO_PA"},
        {"tbFaixa", "FAIXA"}, {"tbFaccao04", "FACCAO4"}, {"TbCor", "CADCOR"}, {"tbColecao", "COLECAO"}};
    for (const auto& [name, table] : expected)
        EXPECT_EQ(tabela.Tabela(name).Table().name, table) << name;
}

TEST_F(TTabelaTest, OpensAreNotCounted)
{
    tabela.AbreTabela("tbCor");
    tabela.AbreTabela("tbCor");
    tabela.FechaTabela("tbCor");
    EXPECT_FALSE(tabela.Tabela("tbCor").Active());
}

TEST_F(TTabelaTest, ClosingDoesNotTakeAwayARowThatIsBeingTyped)
{
    auto& tbCor = tabela.Tabela("tbCor");
    tbCor.Open();
    tbCor.Append();
    tbCor.FieldByName("COR").Set("000009");
    tabela.FechaTabela("tbCor");
    EXPECT_EQ(tbCor.FieldByName("COR").AsString(), "000009");
    tbCor.Cancel();
    tabela.FechaTabela("tbCor");
    EXPECT_FALSE(tbCor.Active());
}

TEST_F(TTabelaTest, ADatasetThatIsOpenedAgainIsWhole)
{
    auto& tbCor = tabela.Tabela("tbCor");
    tbCor.Open();
    tbCor.Restrict("COR", {"2"});
    tbCor.FilterBy("DESCRICAO", "Azul");
    tbCor.SortBy("DESCRICAO");
    tabela.FechaTabela("tbCor");
    tabela.AbreTabela("tbCor");
    EXPECT_FALSE(tbCor.Filtered());
    EXPECT_TRUE(tbCor.Order().empty());
    tbCor.RecordCount();
    EXPECT_EQ(db.Statements.back(), "SELECT COR, DESCRICAO FROM {CADCOR} ORDER BY COR");
}

TEST_F(TTabelaTest, AnUnknownNameIsAMistakeOfTheProgram)
{
    EXPECT_THROW(tabela.AbreTabela("tbNada"), std::logic_error);
}

TEST_F(TTabelaTest, OpeningEverythingReadsNothing)
{
    for (const auto* name : {"tbProduto", "tbEntidade", "tbDef_Mov", "tbFaccao04"})
        tabela.AbreTabela(name);
    EXPECT_TRUE(db.Statements.empty());
}

TEST_F(TTabelaTest, TheCompanyIsTheSessionsOwnAndAlwaysOpen)
{
    db.OnOpen = [](const TStatement& sql) {
        EXPECT_EQ(sql.Values(), std::vector<TValue>{"02"});
        return TFakeDatabase::Rows({"EMP_PAT", "EMP_PERC_MO1", "EMP_PERC_MO2"}, {{"02", 3.65, 1.5}});
    };
    EXPECT_TRUE(tabela.tbEmpresa().Active());
    EXPECT_EQ(tabela.EMP_PAT(), "02");
    EXPECT_EQ(tabela.PercentualMaoDeObra1(), 3.65);
    EXPECT_EQ(tabela.PercentualMaoDeObra2(), 1.5);
    EXPECT_EQ(db.Statements.size(), 1U);
}

} // namespace
} // namespace alinhavo
