#include "app/command_copia.h"
#include "app/command_demo.h"
#include "app/command_exporta.h"
#include "app/command_importa.h"
#include "app/command_prepara.h"
#include "app/command_roteiro.h"
#include "app/command_senha.h"
#include "app/command_servir.h"
#include "app/command_verifica.h"

#include <CLI/CLI.hpp>

namespace {

using namespace alinhavo;

/// An option that takes a day, DD/MM/AAAA.
CLI::Option* AddDay(CLI::App& command, const std::string& name, TDateTime& day, const std::string& help)
{
    return command.add_option_function<std::string>(
        name,
        [&day, name](const std::string& text) {
            day = TDateTime::Parse(text);
            if (day.IsBlank())
                throw CLI::ValidationError(name, "\"" + text + "\" não é uma data.");
        },
        help);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Alinhavo: controle da produção em facções."};
    app.require_subcommand(1);

    TDemoOptions demo;
    CLI::App& demoCommand = *app.add_subcommand("demo", "Cria um banco com a fábrica de demonstração.");
    demoCommand.add_option("--banco", demo.database, "Arquivo Firebird ou endereço do banco a criar.")->required();
    demoCommand.add_option("--semente", demo.seed, "Número que decide o que é sorteado.")->capture_default_str();
    constexpr int largestScale = 1000;
    demoCommand
        .add_option("--escala", demo.scale,
            "Volume, para medir: 100 dá mais de um milhão de movimentos, em dois anos; 10, a décima parte.")
        ->check(CLI::Range(1, largestScale))
        ->capture_default_str();
    AddDay(demoCommand, "--hoje", demo.today, "Dia de que as datas são contadas, DD/MM/AAAA.");

    TRoteiroOptions roteiro;
    CLI::App& roteiroCommand = *app.add_subcommand("roteiro", "Executa roteiros e conta os que deram certo.");
    roteiroCommand.add_option("arquivos", roteiro.files, "Roteiros (.rot) ou pastas deles.")->required();
    roteiroCommand.add_option(
        "--banco", roteiro.database, "Endereço de um banco do servidor PostgreSQL a usar; sem ele, arquivos Firebird.");
    roteiroCommand.add_option(
        "--relatorios", roteiro.reports, "Pasta em que ficam os relatórios que os roteiros pedem.");

    TServirOptions servir;
    CLI::App& servirCommand = *app.add_subcommand("servir", "Atende os navegadores.");
    servirCommand.add_option("--config", servir.configuration, "Arquivo de configuração.")->capture_default_str();
    servirCommand.add_option("--banco", servir.database, "Arquivo Firebird ou endereço do banco.");
    servirCommand.add_option("--endereco", servir.address, "Endereço de rede em que atende.");
    servirCommand.add_option("--porta", servir.port, "Porta em que atende; 0: qualquer uma livre.");
    servirCommand.add_option("--cliente", servir.client, "Pasta do cliente compilado.");
    AddDay(servirCommand, "--hoje", servir.today, "Dia das sessões, DD/MM/AAAA; sem ele, o do relógio.");

    TSenhaOptions senha;
    CLI::App& senhaCommand = *app.add_subcommand("senha", "Dá uma senha a um usuário.");
    senhaCommand.add_option("usuario", senha.user, "Nome ou código do usuário.")->required();
    senhaCommand.add_option("--banco", senha.database, "Arquivo Firebird ou endereço do banco.")->required();

    TVerificaOptions verifica;
    CLI::App& verificaCommand
        = *app.add_subcommand("verifica", "Confere as tabelas entre si e mostra o que não combina.");
    verificaCommand.add_option("--banco", verifica.database, "Arquivo Firebird ou endereço do banco.")->required();
    verificaCommand.add_option("--empresa", verifica.company, "Código da empresa.")->capture_default_str();

    TImportaOptions importa;
    CLI::App& importaCommand = *app.add_subcommand(
        "importa", "Confere um arquivo CSV ou XLSX com uma tabela e, com --grava, grava o que é novo e o que mudou.");
    importaCommand.add_option("tabela", importa.table, "Nome da tabela.")->required();
    importaCommand.add_option("arquivo", importa.file, "Arquivo CSV ou XLSX.")->required()->check(CLI::ExistingFile);
    importaCommand.add_option("--banco", importa.database, "Arquivo Firebird ou endereço do banco.")->required();
    importaCommand.add_option("--empresa", importa.company, "Código da empresa.")->capture_default_str();
    importaCommand
        .add_option(
            "--existentes", importa.existing, "O que fazer com as linhas que a tabela já tem: atualiza ou ignora.")
        ->check(CLI::IsMember({"atualiza", "ignora"}))
        ->capture_default_str();
    importaCommand.add_option(
        "--erros", importa.errors, "Arquivo em que as linhas erradas são relatadas; sem ele, ARQUIVO.erros.csv.");
    importaCommand.add_flag("--grava", importa.write, "Grava; sem isto, só confere.");

    TExportaOptions exporta;
    CLI::App& exportaCommand = *app.add_subcommand("exporta", "Grava uma tabela num arquivo CSV ou XLSX.");
    exportaCommand.add_option("tabela", exporta.table, "Nome da tabela.")->required();
    exportaCommand.add_option("arquivo", exporta.file, "Arquivo a gravar: planilha se termina em .xlsx, senão CSV.")
        ->required();
    exportaCommand.add_option("--banco", exporta.database, "Arquivo Firebird ou endereço do banco.")->required();
    exportaCommand.add_option("--empresa", exporta.company, "Código da empresa.")->capture_default_str();

    TPreparaOptions prepara;
    CLI::App& preparaCommand
        = *app.add_subcommand("prepara", "Cria um banco vazio, ou traz um que existe à versão do programa.");
    preparaCommand.add_option("--banco", prepara.database, "Arquivo Firebird ou endereço do banco.")->required();
    preparaCommand.add_option("--empresa", prepara.company, "Código da empresa.")->capture_default_str();

    TCopiaOptions copia;
    CLI::App& copiaCommand = *app.add_subcommand("copia", "Faz uma cópia do banco, também enquanto se trabalha nele.");
    copiaCommand.add_option("--banco", copia.database, "Arquivo Firebird ou endereço do banco.")->required();
    copiaCommand.add_option("--para", copia.copy, "Arquivo Firebird ou endereço que a cópia terá.")->required();

    TCopiaOptions restaura;
    CLI::App& restauraCommand = *app.add_subcommand("restaura", "Refaz o banco a partir de uma cópia, e o confere.");
    restauraCommand.add_option("--de", restaura.copy, "Arquivo Firebird ou endereço da cópia.")->required();
    restauraCommand.add_option("--banco", restaura.database, "Arquivo Firebird ou endereço do banco.")->required();
    restauraCommand.add_flag("--substitui", restaura.replace, "Substitui o banco que existe.");

    CLI11_PARSE(app, argc, argv);
    if (demoCommand.parsed())
        return RunDemo(demo);
    if (importaCommand.parsed())
        return RunImporta(importa);
    if (exportaCommand.parsed())
        return RunExporta(exporta);
    if (preparaCommand.parsed())
        return RunPrepara(prepara);
    if (copiaCommand.parsed())
        return RunCopia(copia);
    if (restauraCommand.parsed())
        return RunRestaura(restaura);
    if (senhaCommand.parsed())
        return RunSenha(senha);
    if (servirCommand.parsed())
        return RunServir(servir);
    return roteiroCommand.parsed() ? RunRoteiro(roteiro) : RunVerifica(verifica);
}
