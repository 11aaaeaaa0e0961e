#include "app/command_exporta.h"
#include "app/command_importa.h"
#include "app/command_prepara.h"
#include "TImportTest.h"

#include "forms/text.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

namespace alinhavo {
namespace {

using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

const std::filesystem::path Root = ALINHAVO_SOURCE_DIR;

/// The commands, run as the command line runs them.
class ExchangeCommands : public TImportTest {
protected:
    void SetUp() override
    {
        TImportTest::SetUp();
        if (!db)
            return;
        const auto other = OtherAddress();
        empty = IsFirebird() ? other.path : other.uri;
        Run([&] { return RunPrepara({.database = empty}); });
        ASSERT_EQ(code, 0) << err;
    }

    void Run(const std::function<int()>& command)
    {
        CaptureStdout();
        CaptureStderr();
        code = command();
        out = GetCapturedStdout();
        err = GetCapturedStderr();
    }
    void Importa(const std::string& table, const std::string& file, bool write)
    {
        TImportaOptions options;
        options.table = table;
        options.file = file;
        options.database = empty;
        options.write = write;
        Run([&] { return RunImporta(options); });
    }
    std::string Rows(const std::string& table) const
    {
        const auto database = OpenDatabase(TDatabaseAddress::Parse(empty));
        return Value(*database, {"SELECT COUNT(*) FROM {?}", TName(table)});
    }
    static std::string Content(const std::filesystem::path& file)
    {
        std::ostringstream content;
        content << std::ifstream(file, std::ios::binary).rdbuf();
        return content.str();
    }

    std::string empty; ///< a database that prepara has made
    int code = 0;
    std::string out, err;
};
ON_BOTH_SERVERS(ExchangeCommands);

/// "alinhavo importa TABELA docs/…/ARQUIVO --banco dados/fabrica.fdb --grava"
std::vector<std::vector<std::string>> CommandsOfManual()
{
    std::vector<std::vector<std::string>> commands;
    std::ifstream manual(Root / "docs/manual/primeiros-passos.md");
    for (std::string line; std::getline(manual, line);) {
        auto words = Explode(Trim(line), " ");
        if (line.starts_with("    ") && words.size() > 3 && words[0] == "alinhavo" && words[1] == "importa")
            commands.push_back(std::move(words));
    }
    return commands;
}

TEST_P(ExchangeCommands, ThoseOfTheManualBringInItsExamplesWithoutAnError)
{
    const auto commands = CommandsOfManual();
    ASSERT_EQ(commands.size(), 15U);
    for (const auto& words : commands) {
        Importa(words[2], (Root / words[3]).string(), words.back() == "--grava");
        EXPECT_EQ(code, 0) << words[3] << ": " << out << err;
        EXPECT_THAT(out, HasSubstr("nenhuma errada.\nGravado.\n")) << words[3];
    }
    EXPECT_EQ(Rows("PRODUTO"), "6");
    EXPECT_EQ(Rows("OF_ITEN"), "18");
}

TEST_P(ExchangeCommands, WithoutGravaNothingIsWritten)
{
    Importa("TABTAM", (Root / "docs/manual/exemplos/01-tamanhos.csv").string(), false);
    EXPECT_EQ(code, 0);
    EXPECT_THAT(out, HasSubstr("repita o comando com --grava"));
    EXPECT_EQ(Rows("TABTAM"), "0");
    EXPECT_EQ(Rows("GERALOG"), "0");
}

TEST_P(ExchangeCommands, WrongLinesAreToldInAFileBesideAndTheOthersWritten)
{
    const auto file = File("COR;DESCRICAO\nAZUL;Azul\nVERMELHO;Vermelho\n").string();
    Importa("CADCOR", file, true);
    EXPECT_EQ(code, 1);
    EXPECT_THAT(out, HasSubstr("linha 3, coluna COR: O texto tem 8 caracteres; cabem 6. (VERMELHO)"));
    EXPECT_THAT(Content(file + ".erros.csv"), HasSubstr("3;COR;VERMELHO;"));
    EXPECT_EQ(Rows("CADCOR"), "1");
    EXPECT_EQ(Rows("GERALOG"), "1");

    File("COR;DESCRICAO\nAZUL;Azul\n");
    Importa("CADCOR", file, true);
    EXPECT_EQ(code, 0);
    EXPECT_FALSE(std::filesystem::exists(file + ".erros.csv")) << "it would be taken for this one's";
}

TEST_P(ExchangeCommands, WhatCannotBeDoneIsTold)
{
    Importa("NADA", File("A\n1\n").string(), true);
    EXPECT_EQ(code, 2);
    EXPECT_THAT(err, HasSubstr("não há a tabela \"NADA\""));
    Importa("FACCAO3", File("A\n1\n").string(), true);
    EXPECT_EQ(code, 2);
    EXPECT_THAT(err, HasSubstr("não aceita importação"));
}

TEST_P(ExchangeCommands, AnExportIsReadBackUnchanged)
{
    Importa("CADCOR", File("COR;DESCRICAO\nAZUL;\"=1;\"\"2\"\"\"\nROSA;'@a\nLILAS;\"uma\nduas\"\n").string(), true);
    for (const std::string name : {"cores.csv", "cores.xlsx"}) {
        TExportaOptions options;
        options.table = "cadcor";
        options.file = (folder.Path() / name).string();
        options.database = empty;
        Run([&] { return RunExporta(options); });
        EXPECT_EQ(code, 0) << err;
        Importa("CADCOR", options.file, true);
        EXPECT_THAT(out, HasSubstr("3 linhas: 3 iguais, nenhuma errada.")) << name;
    }
}

} // namespace
} // namespace alinhavo
