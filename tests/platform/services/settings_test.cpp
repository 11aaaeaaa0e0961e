#include "TServicesTest.h"

#include "host/TfmFotoProd.h"

#include <fstream>

namespace alinhavo {
namespace {

class TSettingsTest : public TServicesTest { };

ON_BOTH_SERVERS(TSettingsTest);

TEST_P(TSettingsTest, ASettingThatWasNeverWrittenHasItsDefault)
{
    EXPECT_EQ(Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S"), "S");
    Funcoes().GravaAjuste("Parametros", "CodBarLeitAut", "N");
    EXPECT_EQ(Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S"), "N");
    Funcoes().GravaAjuste("Parametros", "CodBarLeitAut", "");
    EXPECT_EQ(Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S"), "");
}

TEST_P(TSettingsTest, ASettingIsItsUsersOwn)
{
    TUserSettings other(*preferences, "002");
    Funcoes().GravaAjuste("Parametros", "CodBarLeitAut", "N");
    EXPECT_EQ(other.Read("Parametros", "CodBarLeitAut", "S"), "S");
}

TEST_P(TSettingsTest, WritingASettingCommitsNoPendingWork)
{
    db->ExecSQL(TStatement("INSERT INTO {CADCOR} (COR) VALUES ('01')"));
    Funcoes().GravaAjuste("Parametros", "CodBarLeitAut", "N");
    EXPECT_TRUE(db->Pending());
    db->RollbackRetaining();
    EXPECT_EQ(Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S"), "N");
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), "0");
}

TEST_P(TSettingsTest, ARegisteredFileIsFound)
{
    std::filesystem::create_directories(folder / "fotos");
    std::ofstream(folder / "fotos" / "camisa.png") << "x";
    Sql("INSERT INTO {ARQUIVO} (CODIGO, TIPO, CAMINHO) VALUES ('CAM01', 7, '\\fotos\\camisa.png')");
    EXPECT_EQ(Funcoes().BuscaArquivo("CAM01", TTipo::Produto), (folder / "fotos" / "camisa.png").string());
    EXPECT_EQ(Funcoes().BuscaArquivo("CAM01", TTipo::Produto2), "");
}

TEST_P(TSettingsTest, AnUnregisteredFileIsFoundByItsKindAndCode)
{
    std::filesystem::create_directories(folder / "arquivos" / "produtos");
    std::ofstream(folder / "arquivos" / "produtos" / "CAM01.jpg") << "x";
    EXPECT_EQ(
        Funcoes().BuscaArquivo("CAM01", TTipo::Produto), (folder / "arquivos" / "produtos" / "CAM01.jpg").string());
    EXPECT_EQ(Funcoes().BuscaArquivo("CAM02", TTipo::Produto), "");
    EXPECT_EQ(Funcoes().BuscaArquivo("", TTipo::Produto), "");
}

TEST_P(TSettingsTest, NoFileOutsideTheSharedFolderIsAnswered)
{
    const auto inside = folder / "compartilhada";
    std::filesystem::create_directories(inside / "arquivos" / "produtos");
    std::ofstream(folder / "segredo.jpg") << "x";
    std::filesystem::create_symlink(folder / "segredo.jpg", inside / "arquivos" / "produtos" / "ATALHO.jpg");
    Sql("INSERT INTO {ARQUIVO} (CODIGO, TIPO, CAMINHO) VALUES ('A', 7, '../segredo.jpg')");
    Sql("INSERT INTO {ARQUIVO} (CODIGO, TIPO, CAMINHO) VALUES ('B', 7, '" + (folder / "segredo.jpg").string() + "')");

    TAttachedFiles files(*db, inside);
    EXPECT_EQ(files.Find("A", TTipo::Produto), "");
    EXPECT_EQ(files.Find("B", TTipo::Produto), "");
    EXPECT_EQ(files.Find("ATALHO", TTipo::Produto), "");
    EXPECT_EQ(files.Find("../../../segredo", TTipo::Produto), "");
}

TEST_P(TSettingsTest, TheRootOfTheSharedFilesIsAnsweredInFull)
{
    EXPECT_EQ(std::filesystem::weakly_canonical(Funcoes().LeIni("caminho", "PATH")),
        std::filesystem::weakly_canonical(folder / ""));
    EXPECT_EQ(Funcoes().LeIni("Nada", "nada"), "");
}

TEST_P(TSettingsTest, ThePictureViewerShowsTheFilesThatAreThere)
{
    std::ofstream(folder / "um.png") << "x";
    TfmFotoProd viewer(*form);
    viewer.Arquivo = (folder / "um.png").string();
    viewer.Arquivo2 = (folder / "dois.png").string();
    Do([&] { viewer.Mostra(); });
    EXPECT_EQ(user.Files, std::vector<std::string>{viewer.Arquivo});

    viewer.Arquivo.clear();
    Do([&] { viewer.Mostra(); });
    EXPECT_EQ(user.Read, std::vector<std::string>{"Foto não encontrada."});
}

TEST(TConfiguration, ValuesAreFoundWithoutRegardToCase)
{
    const auto configuration
        = TConfiguration::Parse("\xEF\xBB\xBF; comentário\r\n[Caminho]\r\nPath = /srv/dados \r\n\n[RFID]\nchave=a=b\n");
    EXPECT_EQ(configuration.Value("caminho", "PATH"), "/srv/dados");
    EXPECT_EQ(configuration.Value("RFID", "chave"), "a=b");
    EXPECT_EQ(configuration.Value("RFID", "endereco", "nenhum"), "nenhum");
}

TEST(TConfiguration, ALineThatSaysNothingIsNamed)
{
    try {
        TConfiguration::Parse("[Caminho]\npath\n", "alinhavo.ini");
        FAIL();
    } catch (const std::runtime_error& failure) {
        EXPECT_EQ(std::string(failure.what()), "alinhavo.ini, linha 2: esperado \"chave = valor\".");
    }
}

TEST(TConfiguration, WithoutAFileTheSharedFilesAreInTheCurrentFolder)
{
    EXPECT_EQ(TConfiguration().SharedRoot(), (std::filesystem::current_path() / "").lexically_normal());
}

TEST(TConfiguration, AMissingFileLeavesTheDefaults)
{
    const auto configuration = TConfiguration::Load("/nao/existe/alinhavo.ini");
    EXPECT_EQ(configuration.Value("Banco", "endereco", "x"), "x");
    EXPECT_EQ(configuration.SharedRoot(), std::filesystem::path("/nao/existe/"));
}

TEST(TConfiguration, WithoutAFileTheSharedRootIsTheCurrentFolder)
{
    EXPECT_EQ(TConfiguration().SharedRoot(), std::filesystem::current_path() / "");
}

} // namespace
} // namespace alinhavo
