#include "TReportTest.h"

#include <chrono>
#include <gmock/gmock.h>
#include <thread>

namespace alinhavo {
namespace {

using testing::HasSubstr;
using testing::Not;
using TBrokenTemplates = TReportTest;
using THostileTemplates = TReportTest;

TEST_F(TBrokenTemplates, name_file_line_and_expression)
{
    const auto error = Error("a\nb {{ num(1, }}\n");
    EXPECT_THAT(error, HasSubstr("WTeste.prt, linha 2:"));
    EXPECT_THAT(error, HasSubstr("\nnum(1,"));
}

TEST_F(TBrokenTemplates, name_the_file_that_was_included)
{
    WriteFile("Cabeca.prt", "x\n{{ 'a' + {} }}\n");
    EXPECT_THAT(Error("% inclui Cabeca\n"), HasSubstr("Cabeca.prt, linha 2:"));
    EXPECT_THAT(Error("% inclui Nenhum\n"), HasSubstr("Nenhum.prt: o arquivo não foi encontrado."));
}

TEST_F(TBrokenTemplates, are_told_apart_by_what_is_wrong)
{
    EXPECT_THAT(Error("{{ 1 \n"), HasSubstr("linha 1: falta o \"}}\""));
    EXPECT_THAT(Error("{{ }}\n"), HasSubstr("está vazia"));
    EXPECT_THAT(Error("\n% faixa TbRel\n% linha\n"), HasSubstr("linha 2: falta o \"% fim\""));
    EXPECT_THAT(Error("% faixa TbRel\n% cabeçalho\n% fim\n"), HasSubstr("linha 2:"));
    EXPECT_THAT(Error("% fim\n"), HasSubstr("não tem o que fechar"));
    EXPECT_THAT(Error("% faixa TbOutra\n% fim\n"), HasSubstr("linha 1: a tela não dá ao relatório"));
    EXPECT_THAT(Error("% faixa TbRel\n% grupo a = NADA\n% fim\n"), Not(HasSubstr("NADA")));
    TbRel.Add("1", "1", 1);
    EXPECT_THAT(Error("% faixa TbRel\n% grupo a = NADA\n% fim\n"), HasSubstr("não tem o campo \"NADA\""));
    EXPECT_THAT(Error("% faixa TbRel\n% rodape b\n% fim\n"), HasSubstr("não há grupo"));
    EXPECT_THAT(Error("% se\n% fim\n"), HasSubstr("falta a condição"));
    EXPECT_THAT(Error("% para i = 1\n% fim\n"), HasSubstr("% para i = 1, 31"));
    EXPECT_THAT(Error("% define 1x = 2\n"), HasSubstr("falta um nome"));
    EXPECT_THAT(Error("{{ codbarra('1', 'XYZ') }}"), HasSubstr("\"XYZ\" não existe"));
    EXPECT_THAT(Error("{{ soma('QUANT') }}"), HasSubstr("não há grupo nem tabela"));
    EXPECT_THAT(Error("{{ soma('QUANT +', 'TbRel') }}"), HasSubstr("QUANT +"));
}

TEST_F(TBrokenTemplates, do_not_hide_each_other_from_the_next_report)
{
    EXPECT_THAT(Error("{{ nada() + 'x' }}"), HasSubstr("linha 1"));
    EXPECT_EQ(Html("{{ 1 + 1 }}"), "2\n");
}

TEST_F(THostileTemplates, cannot_loop_for_ever)
{
    Setup.limits.expression = std::chrono::milliseconds(100);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(Error("\n{{ (function() while true do end end)() }}"), HasSubstr("linha 2: a expressão demora demais"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    EXPECT_THAT(Error("% para i = 1, 1e15\n% fim\n"), HasSubstr("o laço é longo demais"));
}

TEST_F(THostileTemplates, cannot_call_themselves_for_ever)
{
    EXPECT_THAT(
        Error("{{ (function(f) return f(f) + 1 end)(function(f) return f(f) + 1 end) }}"), HasSubstr("linha 1"));
    WriteFile("Eu.prt", "% inclui Eu\n");
    EXPECT_THAT(Error("% inclui Eu\n"), HasSubstr("sem fim"));
    TbRel.Add("1", "1", 1);
    EXPECT_THAT(Error("% define f = 'soma(f, \"TbRel\")'\n{{ soma(f, 'TbRel') }}\n"), HasSubstr("overflow"));
}

TEST_F(THostileTemplates, cannot_fill_the_memory)
{
    Setup.limits.memory = 8 << 20;
    EXPECT_THAT(Error("{{ (function() local s = 'x' while true do s = s .. s end end)() }}"), HasSubstr("memória"));
    EXPECT_THAT(Error("{{ (function() local t = {} for i = 1, 1e9 do t[i] = i end end)() }}"), HasSubstr("memória"));
    EXPECT_THAT(Error("{{ esq('x', 1e12) }}"), HasSubstr("um tamanho acima de"));
}

TEST_F(THostileTemplates, cannot_grow_a_report_without_end)
{
    Setup.limits.output = 100000;
    EXPECT_THAT(Error("% para i = 1, 9999\n% para j = 1, 9999\n" + std::string(100, 'x') + "\n% fim\n% fim\n"),
        HasSubstr("grande demais"));
}

TEST_F(THostileTemplates, reach_no_library_of_lua)
{
    for (const auto* name :
        {"io", "os", "require", "load", "loadstring", "dofile", "loadfile", "debug", "package", "string", "coroutine",
            "pcall", "setmetatable", "getmetatable", "rawset", "rawget", "collectgarbage", "_G", "_ENV.io", "print"}) {
        EXPECT_EQ(Html("[{{ " + std::string(name) + " }}]"), "[]\n") << name;
    }
    EXPECT_THAT(Error("{{ ('x'):rep(10) }}"), HasSubstr("linha 1"));
    EXPECT_THAT(Error("{{ io.open('/etc/passwd') }}"), HasSubstr("linha 1"));
}

TEST_F(THostileTemplates, cannot_change_a_name)
{
    EXPECT_THAT(Error("{{ (function() num = nil end)() }}"), HasSubstr("não pode receber um valor"));
}

TEST_F(THostileTemplates, take_no_file_but_pictures_of_the_shared_folder)
{
    EXPECT_EQ(Html("[{{ imagem('/etc/passwd') }}]"), "[]\n");
    WriteFile("segredo.txt", "senha");
    EXPECT_EQ(Html("[{{ imagem('" + (Folder.Path() / "segredo.txt").string() + "') }}]"), "[]\n");
    const TWorkFolder other;
    std::ofstream(other.Path() / "fora.png", std::ios::binary) << "\x89PNG\r\n\x1a\nxyz";
    EXPECT_EQ(Html("[{{ imagem('" + (other.Path() / "fora.png").string() + "') }}]"), "[]\n");
    EXPECT_EQ(
        Html("[{{ imagem('" + Folder.Path().string() + "/../" + other.Path().filename().string() + "/fora.png') }}]"),
        "[]\n");
}

TEST_F(THostileTemplates, cannot_include_a_file_elsewhere)
{
    EXPECT_THAT(Error("% inclui ../../etc/passwd\n"), HasSubstr("só pode ter letras"));
}

TEST_F(THostileTemplates, bring_no_script)
{
    EXPECT_THAT(Error("<p>\n<SCRIPT>alert(1)</script>\n"), HasSubstr("linha 2: um modelo não pode ter <script>"));
}

TEST_F(THostileTemplates, stop_when_the_report_is_cancelled)
{
    std::atomic<bool> cancelled = false;
    Setup.cancelled = &cancelled;
    Setup.limits.expression = std::chrono::seconds(60);
    std::thread person([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        cancelled = true;
    });
    EXPECT_THROW(Html("{{ (function() while true do end end)() }}"), EReportCancelled);
    person.join();
    EXPECT_THROW(Html("% para i = 1, 9999\n{{ i }}\n% fim\n"), EReportCancelled);
}

} // namespace
} // namespace alinhavo
