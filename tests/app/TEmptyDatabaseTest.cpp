#include "platform/services/TEmptyDatabase.h"

#include "host/TTableDecl.h"
#include "platform/database/TDatabaseTest.h"

#include <array>

namespace alinhavo {
namespace {

class EmptyDatabase : public TDatabaseTest { };
ON_BOTH_SERVERS(EmptyDatabase);

constexpr auto screens = std::to_array<std::string_view>({"TFmFacPre", "TFmFacPreco", "TFmFacProdFunc",
    "TFmFacTempoFun", "TFmRelDefeito", "TfmAlteraFaccao", "TfmCadDef", "TfmCadFluxo", "TfmCadPacote", "TfmCadTipoDef",
    "TfmEstampaCli", "TfmFacDistrib", "TfmFacFluxo", "TfmFacInspecao", "TfmFacLanca", "TfmFacMov", "TfmFacMovDef",
    "TfmFacPrecoCorTam", "TfmFacRecPre", "TfmFacRelNF", "TfmFacReprocesso", "TfmMovEstRej", "TfmRelCadDefeito",
    "TfmRelEnvReproc", "TfmRelEstampa", "TfmRelFacCorte", "TfmRelFacDia", "TfmRelFacDiaSetor", "TfmRelFacEspelho",
    "TfmRelFacPag", "TfmRelFacPen", "TfmRelFaccao01"});

TEST_P(EmptyDatabase, AdminHasEveryRightOnEveryScreen)
{
    static_assert(screens.size() == 32);
    FillEmptyDatabase(*db);
    for (const std::string_view screen : screens)
        EXPECT_EQ(Value(*db,
                      {R"(
            SELECT COUNT(*) FROM {ACESSO} A JOIN {ACESSO_MENU} M ON M.NIVEL = A.LOCAL
             WHERE A.USUARIO = 'ADMIN' AND M.NOME_FORM = ?
               AND A.ALTERA = 'Sim' AND A.EXCLUI = 'Sim' AND A.CONSULTA = 'Sim')",
                          screen}),
            "1")
            << screen;
}

TEST_P(EmptyDatabase, AdminIsASupervisorAndNoOrdinaryUser)
{
    FillEmptyDatabase(*db);
    EXPECT_EQ(Value(*db, {"SELECT SUPERVISOR FROM {ACESSO_USUARIOS} WHERE NOME = 'ADMIN'"}), "S");
    EXPECT_NE(Value(*db, {"SELECT TIPO FROM {ACESSO_USUARIOS} WHERE NOME = 'ADMIN'"}), "0");
}

TEST_P(EmptyDatabase, HoldsTheCompanyTheMenuAndAdminAndNothingElse)
{
    FillEmptyDatabase(*db);
    std::vector<std::string_view> filled;
    for (const TTableDecl& table : Tables()) {
        if (Value(*db, {"SELECT COUNT(*) FROM {?}", TName(table.name)}) != "0")
            filled.push_back(table.name);
    }
    EXPECT_EQ(filled, (std::vector<std::string_view>{"ACESSO", "ACESSO_MENU", "ACESSO_USUARIOS", "EMPRESA"}));
    EXPECT_EQ(Value(*db, {"SELECT EMP_PAT FROM {EMPRESA}"}), "01");
}

TEST_P(EmptyDatabase, IsCommitted)
{
    FillEmptyDatabase(*db);
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(Value(*Connect(), {"SELECT COUNT(*) FROM {EMPRESA}"}), "1");
}

} // namespace
} // namespace alinhavo
