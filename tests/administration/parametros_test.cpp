#include "administration/parametros.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

namespace alinhavo {
namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// The parameters that a source reads by their literal names, as "FAC20".
std::set<std::string> Read(const std::string& source)
{
    static const std::regex call(R"re(BuscaParametro\(\s*"(\w+)",\s*(\d+)\s*\))re");
    std::set<std::string> names;
    for (std::sregex_iterator match(source.begin(), source.end(), call), end; match != end; ++match)
        names.insert((*match)[1].str() + (*match)[2].str());
    return names;
}

TEST(Parameters, AllThatTheCodeReadsAreDescribed)
{
    std::set<std::string> described;
    for (const auto& parameter : Parametros())
        described.insert(NomeDoParametro(parameter));
    std::size_t read = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(ALINHAVO_SOURCE_DIR "/src")) {
        if (file.path().extension() != ".cpp" && file.path().extension() != ".h")
            continue;
        for (const auto& name : Read(ReadFile(file.path()))) {
            ++read;
            EXPECT_TRUE(described.contains(name)) << name << " in " << file.path().filename();
        }
    }
    EXPECT_GE(read, 15U);
}

TEST(Parameters, ACallIsFoundWhereverItsLineBreaks)
{
    EXPECT_EQ(Read("x(BuscaParametro(\"FAC\", 20)), BuscaParametro(\n    \"PCP\", 140)"),
        (std::set<std::string>{"FAC20", "PCP140"}));
}

TEST(Parameters, StandInTheirOrderAndOnce)
{
    std::vector<std::pair<std::string_view, int>> keys;
    for (const auto& parameter : Parametros())
        keys.emplace_back(parameter.grupo, parameter.numero);
    EXPECT_TRUE(std::ranges::is_sorted(keys));
    EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
}

TEST(Parameters, EachIsExplainedAndTakesSomeValue)
{
    for (const auto& parameter : Parametros()) {
        const auto name = NomeDoParametro(parameter);
        EXPECT_FALSE(parameter.titulo.empty()) << name;
        EXPECT_TRUE(parameter.significado.ends_with('.')) << name;
        EXPECT_FALSE(parameter.telas.empty()) << name;
        EXPECT_TRUE(!parameter.opcoes.empty() || parameter.livre != TValorLivre::Nenhum) << name;
        EXPECT_LE(parameter.titulo.size(), 80U) << name;
    }
}

TEST(Parameters, AValueIsToldByItsMeaning)
{
    const auto& depth = *BuscaDeclaracao("FAC", 20);
    EXPECT_EQ(SignificadoDoValor(depth, "T"), "Só por tamanho");
    EXPECT_EQ(SignificadoDoValor(depth, "x"), "x");
    EXPECT_EQ(SignificadoDoValor(*BuscaDeclaracao("FAC", 10), ""), "Desligado");
    EXPECT_EQ(BuscaDeclaracao("FAC", 21), nullptr);
}

} // namespace
} // namespace alinhavo
