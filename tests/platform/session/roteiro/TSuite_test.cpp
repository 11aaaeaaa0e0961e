#include "platform/session/roteiro/TSuite.h"

#include "platform/services/TEmptyDatabase.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

/// Roteiros over real databases: Firebird files, and PostgreSQL where the tests have a server.
class RoteiroSuite : public ::testing::TestWithParam<TDatabaseServer> {
protected:
    void SetUp() override
    {
        const auto* server = std::getenv("ALINHAVO_TEST_POSTGRESQL");
        if (GetParam() == TDatabaseServer::PostgreSql && !server)
            GTEST_SKIP() << "ALINHAVO_TEST_POSTGRESQL is not set";
        folder_ = fs::temp_directory_path() / ("roteiro_suite_" + std::to_string(std::random_device{}()));
        fs::create_directories(folder_);
        copies_.emplace(
            GetParam() == TDatabaseServer::PostgreSql ? std::optional(TDatabaseAddress::Parse(server)) : std::nullopt,
            TDatabaseCopies::TFills{{TFactory::Empty, FillEmptyDatabase}});
    }
    void TearDown() override
    {
        copies_.reset();
        if (!folder_.empty())
            fs::remove_all(folder_);
    }

    fs::path Write(const std::string& name, std::string_view text) const
    {
        fs::create_directories((folder_ / name).parent_path());
        std::ofstream(folder_ / name) << text;
        return folder_ / name;
    }

    /// What the suite reports of a story, without the folder's name.
    std::string Report(std::string_view story)
    {
        std::ostringstream report;
        TSuite(*copies_, [](TApplication&) {}).Play({Write("a.rot", story)}, report);
        auto text = report.str();
        for (auto found = text.find(folder_.string()); found != std::string::npos; found = text.find(folder_.string()))
            text.erase(found, folder_.string().size() + 1);
        return text;
    }

    fs::path folder_;
    std::optional<TDatabaseCopies> copies_;
};

constexpr auto wentWell = "1 passed, 0 failed\n";

TEST_P(RoteiroSuite, ReportsFileAndLineOfWhatDidNotGoAsWritten)
{
    EXPECT_EQ(Report("confere sql \"SELECT COUNT(*) FROM EMPRESA\" = 1"), wentWell);
    EXPECT_EQ(Report("banco vazio\n\nconfere sql \"SELECT COUNT(*) FROM EMPRESA\" = 2"),
        "a.rot:3: expected \"2\", got \"1\"\n    confere sql \"SELECT COUNT(*) FROM EMPRESA\" = 2\n0 passed, 1 "
        "failed\n");
    EXPECT_EQ(Report("banco vazio\nclicar x"),
        "a.rot:2: expected a line of the language, got no line of the language begins so: clicar\n0 passed, 1 "
        "failed\n");
}

TEST_P(RoteiroSuite, GivesEachFileADatabaseOfItsOwn)
{
    const auto story = "sql INSERT INTO CADCOR (COR, DESCRICAO) VALUES ('000009', 'Azul')\n"
                       "confere sql \"SELECT COUNT(*) FROM CADCOR\" = 1";
    std::vector<fs::path> files;
    for (int i = 0; i < 6; ++i)
        files.push_back(Write(std::to_string(i) + ".rot", story));
    std::ostringstream report;
    EXPECT_EQ(TSuite(*copies_, [](TApplication&) {}).Play(files, report), 0);
    EXPECT_EQ(report.str(), "6 passed, 0 failed\n");
}

TEST_P(RoteiroSuite, AStatementThatFailsLeavesNothingPending)
{
    EXPECT_EQ(Report("sql INSERT INTO NADA (A) VALUES (1)").find("a.rot:1: expected no error, got "), 0u);
}

TEST_P(RoteiroSuite, SetsParametersSettingsAndTheDayOfStatements)
{
    EXPECT_EQ(
        Report("parametro FAC20 = N\nparametro FAC20 = T\najuste CodBarLeitAut = N\nhoje 20/11/2026\nusuario ADMIN\n"
               "confere sql \"SELECT VALOR FROM PARAMETRO WHERE GRUPO = 'FAC' AND NUMERO = 20\" = T\n"
               "confere sql \"SELECT CHAVE, VALOR FROM PREFERENCIA\" = Parametros.CodBarLeitAut N\n"
               "confere sql \"SELECT CURRENT_DATE FROM EMPRESA\" = 20/11/2026\n"
               "confere sql pendente \"SELECT CURRENT_DATE FROM EMPRESA\" = 20/11/2026"),
        wentWell);
}

TEST_P(RoteiroSuite, LetsTheStatementFailThatIsPlannedTo)
{
    EXPECT_EQ(Report("usuario ADMIN\nabre TfmLog\nfalha 2 em \"select data_hora\" \"disco cheio\"\nclica btnConsultar\n"
                     "clica btnConsultar\n  ! \"disco cheio\"\nclica btnConsultar"),
        wentWell);
    EXPECT_EQ(Report("usuario ADMIN\nabre TfmLog\nfalha 1 \"disco cheio\"\nclica btnConsultar\n  ! \"disco cheio\""),
        wentWell);
    EXPECT_EQ(
        Report("usuario ADMIN\nabre TfmLog\nfalha 1 em \"DELETE\" \"disco cheio\"\nclica btnConsultar"), wentWell);
}

TEST_P(RoteiroSuite, ReadsTheLogOfASession)
{
    const std::string log = "sql INSERT INTO GERALOG (MODULO, TEXTO) VALUES ('FLUXO', 'Um')\n"
                            "sql INSERT INTO GERALOG (MODULO, TEXTO) VALUES ('FLUXO', 'Dois')\nusuario ADMIN\n";
    EXPECT_EQ(
        Report(log
            + "confere log \"FLUXO\" \"Um\"\nconfere log ultimo \"FLUXO\" \"Dois\"\nconfere log \"FLUXO\" linhas = 2"),
        wentWell);
    EXPECT_EQ(Report(log + "confere log ultimo \"FLUXO\" \"Um\""),
        "a.rot:4: expected \"Um\", got \"Dois\"\n    confere log ultimo \"FLUXO\" \"Um\"\n0 passed, 1 failed\n");
}

TEST_P(RoteiroSuite, VerifiesTheTablesOfTheStory)
{
    EXPECT_EQ(Report("verifica"), wentWell);
    const std::string line
        = "sql INSERT INTO FACCAO (NUMERO, CODIGO, COR, TAM, QT_ORIG, QUANT, QUANT_2, QUANT_I, QUANT_F, "
          "PARTE) VALUES ('000123', 'CAM01', '000009', 'M', 5, 0, 0, 0, 0, '01')\n";
    EXPECT_EQ(Report(line + "verifica"),
        "a.rot:2: expected no error in the tables, got \n    [ordem] A posição é de uma OF que não existe: "
        "NUMERO=000123\n    verifica\n0 passed, 1 failed\n");
    // What is only a remark is let pass.
    EXPECT_EQ(Report("sql INSERT INTO OF1 (NUMERO, CODIGO) VALUES ('000123', 'CAM01')\n" + line
                  + "sql UPDATE FACCAO SET QT_ORIG = -1\nverifica"),
        wentWell);
}

TEST_P(RoteiroSuite, KnowsNoUserWhoIsBlocked)
{
    EXPECT_EQ(Report("sql UPDATE ACESSO_USUARIOS SET BLOQUEADO = 'S'\nusuario ADMIN"),
        "a.rot:2: expected no error, got there is no user ADMIN, or he is blocked\n    usuario ADMIN\n0 passed, 1 "
        "failed\n");
}

TEST_P(RoteiroSuite, FindsTheStoriesOfAFolderAndNotWhatTheyShare)
{
    Write("b/dois.rot", "");
    Write("b/comum/pedido.rot", "");
    Write("a/um.rot", "");
    Write("a/leia.txt", "");
    EXPECT_EQ(TSuite::Find({folder_}), (std::vector{folder_ / "a/um.rot", folder_ / "b/dois.rot"}));
    EXPECT_EQ(TSuite::Find({folder_ / "b/comum/pedido.rot"}).size(), 1u);
    EXPECT_THROW(TSuite::Find({folder_ / "nada"}), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(On, RoteiroSuite, ::testing::Values(TDatabaseServer::Firebird, TDatabaseServer::PostgreSql),
    [](const auto& test) { return test.param == TDatabaseServer::Firebird ? "Firebird" : "PostgreSql"; });

} // namespace
} // namespace alinhavo::roteiro
