#include "platform/session/roteiro/TParser.h"

#include "platform/session/roteiro/ERoteiro.h"

#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

std::vector<TLine> Parse(std::string_view text) { return TParser::ParseText(text, "historia.rot"); }

/// The step of a single line.
template <typename TKind>
TKind Step(std::string_view text)
{
    const auto lines = Parse(text);
    EXPECT_EQ(lines.size(), 1u);
    return std::get<TKind>(lines.at(0).step);
}

/// The step of a line that stands indented under an action.
template <typename TKind>
TKind Dialog(std::string_view text)
{
    const auto lines = Parse("clica btnA\n  " + std::string(text));
    return std::get<TKind>(lines.at(0).inner.at(0).step);
}

/// "file:line: what is wrong" of a text that cannot be read.
std::string Error(std::string_view text)
{
    try {
        Parse(text);
    } catch (const ERoteiro& error) {
        return error.Place().file + ":" + std::to_string(error.Place().line) + ": " + error.what();
    }
    return {};
}

bool RowIs(const TRowName& row, std::vector<std::pair<std::string, std::string>> expected)
{
    std::vector<std::pair<std::string, std::string>> got;
    for (const auto& match : std::get<TMatches>(row))
        got.emplace_back(match.column, match.value);
    return got == expected;
}

// The world around the application

TEST(RoteiroParser, ReadsWhichDatabaseTheFileBeginsWith)
{
    EXPECT_EQ(Step<TDatabase>("banco vazio").factory, TFactory::Empty);
    EXPECT_EQ(Step<TDatabase>("banco demo").factory, TFactory::Demonstration);
    EXPECT_EQ(Error("banco cheio"), "historia.rot:1: one of these is missing: demo, vazio");
}

TEST(RoteiroParser, ReadsAParameterAsGroupAndNumber)
{
    const auto step = Step<TParameter>("parametro FAC20 = N");
    EXPECT_EQ(step.group, "FAC");
    EXPECT_EQ(step.number, 20);
    EXPECT_EQ(step.value, "N");
    EXPECT_EQ(Step<TParameter>("parametro FAC80 = \"\"").value, "");
    EXPECT_EQ(Error("parametro FAC = N"), "historia.rot:1: a parameter is a group and a number, as FAC20: FAC");
    EXPECT_EQ(Error("parametro 20 = N"), "historia.rot:1: a parameter is a group and a number, as FAC20: 20");
}

TEST(RoteiroParser, ReadsALocalSetting)
{
    const auto step = Step<TSetting>("ajuste CodBarLeitAut = N");
    EXPECT_EQ(step.name, "CodBarLeitAut");
    EXPECT_EQ(step.value, "N");
    EXPECT_EQ(Error("ajuste CodBarLeitAut N"), "historia.rot:1: \"=\" is missing");
}

TEST(RoteiroParser, TakesAStatementAsItStands)
{
    EXPECT_EQ(Step<TSql>("sql INSERT INTO CADCOR (COR, DESCRICAO) VALUES ('000009', 'Azul \"céu\"')").statement,
        "INSERT INTO CADCOR (COR, DESCRICAO) VALUES ('000009', 'Azul \"céu\"')");
    EXPECT_EQ(Step<TSql>("sql UPDATE A SET B = '#1'  # the first").statement, "UPDATE A SET B = '#1'");
    EXPECT_EQ(Error("sql"), "historia.rot:1: the statement is missing");
}

TEST(RoteiroParser, ReadsWhatTheReaderServiceAnswers)
{
    const auto step = Step<TRfid>("rfid 77 = 7891234567895:10 7891234567901:5,5");
    EXPECT_EQ(step.batch, "77");
    ASSERT_EQ(step.readings.size(), 2u);
    EXPECT_EQ(step.readings[0].code, "7891234567895");
    EXPECT_EQ(step.readings[0].quantity, 10);
    EXPECT_EQ(step.readings[1].quantity, 5.5);
    EXPECT_FALSE(step.failure);
    EXPECT_EQ(Step<TRfid>("rfid 78 falha \"Sem sinal\"").failure, "Sem sinal");
    EXPECT_TRUE(Step<TRfid>("rfid 79 =").readings.empty());
    EXPECT_EQ(Error("rfid 77 = 789:x"), "historia.rot:1: a reading is CODE:quantity: 789:x");
    EXPECT_EQ(Error("rfid 77 = 789"), "historia.rot:1: a reading is CODE:quantity: 789");
}

TEST(RoteiroParser, ReadsTheDateAtNoonUnlessAnHourIsGiven)
{
    EXPECT_EQ(Step<TToday>("hoje 20/11/2026").now, TDateTime::FromDateTime(2026, 11, 20, 12, 0, 0));
    EXPECT_EQ(Step<TToday>("hoje 20/11/2026 14:30").now, TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0));
    EXPECT_EQ(Error("hoje 31/02/2026"), "historia.rot:1: this is no date: 31/02/2026 12:00");
}

TEST(RoteiroParser, ReadsUsersAndSessions)
{
    EXPECT_EQ(Step<TUser>("usuario ANA").name, "ANA");
    EXPECT_EQ(Step<TUser>("usuario \"ANA MARIA\"").name, "ANA MARIA");
    EXPECT_EQ(Step<TSwitchSession>("sessao B").name, "B");
}

TEST(RoteiroParser, ReadsAPlannedFailure)
{
    const auto any = Step<TPlannedFailure>("falha 5 \"disco cheio\"");
    EXPECT_EQ(any.count, 5);
    EXPECT_EQ(any.prefix, "");
    EXPECT_EQ(any.text, "disco cheio");
    const auto some = Step<TPlannedFailure>("falha 2 em \"INSERT INTO FACCAO3\" \"disco cheio\"");
    EXPECT_EQ(some.count, 2);
    EXPECT_EQ(some.prefix, "INSERT INTO FACCAO3");
    EXPECT_EQ(Error("falha 0 \"x\""), "historia.rot:1: the number of statements is no whole number from 1 on: 0");
    EXPECT_EQ(Error("falha 5 disco"), "historia.rot:1: the failure's text in double quotes is missing");
}

// What a person does

TEST(RoteiroParser, ReadsWhatAPersonDoesToScreensAndControls)
{
    EXPECT_EQ(Step<TOpen>("abre TfmFacMov").screen, "TfmFacMov");
    EXPECT_EQ(Step<TClose>("fecha TfmFacMov").screen, "TfmFacMov");
    EXPECT_EQ(Step<TActivate>("em TfmFacMov").screen, "TfmFacMov");
    EXPECT_EQ(Step<TClick>("clica btn00Incluir").control, "btn00Incluir");
    EXPECT_EQ(Step<TPass>("passa edtFaccao").control, "edtFaccao");
    EXPECT_TRUE(Step<TCheck>("marca CbProximo").checked);
    EXPECT_FALSE(Step<TCheck>("desmarca CbProximo").checked);
    EXPECT_EQ(Step<TWrite>("escreve EdtBarra 7891234567895").text, "7891234567895");
    EXPECT_EQ(Step<TChoose>("escolhe CbParte 01").item, "01");
    EXPECT_EQ(Step<TTurn>("aba PageControl2 \"Acesso\"").page, "Acesso");
    EXPECT_EQ(Step<TPress>("tecla edtFacDest Ctrl+Del").key, "Ctrl+Del");
}

TEST(RoteiroParser, ReadsTextsWithAndWithoutQuotes)
{
    EXPECT_EQ(Step<TFill>("digita edtOFNum 000123").text, "000123");
    EXPECT_EQ(Step<TFill>("digita edtObs \"costura  dupla\"").text, "costura  dupla");
    EXPECT_EQ(Step<TFill>("digita edtObs \"\"").text, "");
    EXPECT_EQ(Step<TFill>(R"(digita edtObs "fio \"A\" # 2")").text, "fio \"A\" # 2");
    EXPECT_EQ(Step<TFill>(R"(digita edtPasta "Z:\Layout")").text, "Z:\\Layout");
    EXPECT_EQ(Step<TFill>("digita edtX A=B").text, "A=B");
    EXPECT_EQ(Error("digita edtObs costura dupla"), "historia.rot:1: nothing more is expected here: dupla");
    EXPECT_EQ(Error("digita edtObs \"costura"), "historia.rot:1: the text has no closing quote");
    EXPECT_EQ(Error("digita edtObs \"a\"b"), "historia.rot:1: a blank is missing after the quote");
    EXPECT_EQ(Error("digita edtObs"), "historia.rot:1: the text is missing");
}

TEST(RoteiroParser, ReadsARowByItsNumberOrByItsValues)
{
    const auto byNumber = Step<TFillCell>("celula dbg00Grade 2 Quant 5");
    EXPECT_EQ(std::get<int>(byNumber.row), 2);
    EXPECT_EQ(byNumber.column, "Quant");
    EXPECT_EQ(byNumber.text, "5");
    EXPECT_TRUE(
        RowIs(Step<TFillCell>("celula dbg00Grade Cor=000009,Tam=M Quant 5").row, {{"Cor", "000009"}, {"Tam", "M"}}));
    EXPECT_TRUE(RowIs(Step<TGoToRow>("linha dbg DESCRICAO=\"Azul, claro\"").row, {{"DESCRICAO", "Azul, claro"}}));
    EXPECT_EQ(std::get<int>(Step<TDoubleClick>("duplo dbg00Grade 2").row), 2);
    EXPECT_EQ(Step<TFillCell>("celula dbg 1 \"Qtde. Boa\" 5").column, "Qtde. Boa");
    EXPECT_EQ(Error("linha dbg 0"), "historia.rot:1: the row is no whole number from 1 on: 0");
    EXPECT_EQ(Error("linha dbg Cor"), "historia.rot:1: COLUMN=value is missing");
}

TEST(RoteiroParser, ReadsMenusAndTitles)
{
    const auto plain = Step<TMenu>("menu dbg00Grade \"Zerar Quantidades\"");
    EXPECT_EQ(plain.item, "Zerar Quantidades");
    EXPECT_EQ(plain.column, "");
    EXPECT_EQ(Step<TMenu>("menu dbg00Grade coluna Quant \"Zerar\"").column, "Quant");
    EXPECT_EQ(Step<TPaste>("cola DBGrid1 \"01|Azul\" 02").rows, (std::vector<std::string>{"01|Azul", "02"}));
    EXPECT_EQ(Step<TTitleClick>("titulo DBGrid1 DESCRICAO").column, "DESCRICAO");
}

// What must be so

TEST(RoteiroParser, ReadsChecksOfControls)
{
    EXPECT_EQ(Step<TExpectText>("confere edtSetorProx = 20").value.text, "20");
    EXPECT_EQ(Step<TExpectText>("confere edtSetorProx = \"\"").value, (TText{"", true}));
    EXPECT_EQ(Step<TExpectState>("confere edtX habilitado").state, TState::Enabled);
    EXPECT_EQ(Step<TExpectState>("confere edtX desabilitado").state, TState::Disabled);
    EXPECT_EQ(Step<TExpectState>("confere edtX visivel").state, TState::Visible);
    EXPECT_EQ(Step<TExpectState>("confere edtX invisivel").state, TState::Invisible);
    EXPECT_EQ(Step<TExpectState>("confere edtX foco").state, TState::Focused);
    EXPECT_EQ(Step<TExpectState>("confere CbProximo marcado").state, TState::Checked);
    EXPECT_EQ(Step<TExpectState>("confere CbProximo desmarcado").state, TState::Unchecked);
    EXPECT_EQ(Step<TExpectItems>("confere CbParte itens = \"01 |Corpo\" \"02 |Calça\"").items,
        (std::vector<std::string>{"01 |Corpo", "02 |Calça"}));
    EXPECT_EQ(Error("confere edtX azul"),
        "historia.rot:1: one of these is missing: desabilitado, desmarcado, foco, habilitado, invisivel, marcado, "
        "visivel");
    EXPECT_EQ(Error("confere edtX ="), "historia.rot:1: the value is missing");
}

TEST(RoteiroParser, ReadsChecksOfGrids)
{
    EXPECT_EQ(Step<TExpectRows>("confere dbg00Grade linhas = 12").count, 12);
    EXPECT_EQ(Step<TExpectRows>("confere dbg00Grade vazia").count, 0);
    EXPECT_EQ(Step<TExpectSum>("confere soma dbg00Grade Quant = 30,5").value.text, "30,5");
    const auto cell = Step<TExpectCell>("confere celula dbg00Grade 1 Saldo = 30");
    EXPECT_EQ(std::get<int>(cell.row), 1);
    EXPECT_EQ(cell.column, "Saldo");
    EXPECT_EQ(cell.value.text, "30");
    EXPECT_EQ(Step<TExpectColumn>("confere dbg00Grade coluna Quant somenteleitura").state, TState::ReadOnly);
    EXPECT_EQ(Step<TExpectColumn>("confere dbg00Grade coluna Quant editavel").state, TState::Editable);
    EXPECT_EQ(Step<TExpectColumn>("confere dbg00Grade coluna Quant visivel").state, TState::Visible);
    EXPECT_EQ(Step<TExpectColumn>("confere dbg00Grade coluna Quant invisivel").state, TState::Invisible);
    EXPECT_EQ(Step<TExpectMenu>("confere menu dbg00Grade \"Zerar\" visivel").state, TState::Visible);
    const auto menu = Step<TExpectMenu>("confere menu dbg00Grade coluna Quant \"Zerar\" desabilitado");
    EXPECT_EQ(menu.column, "Quant");
    EXPECT_EQ(menu.state, TState::Disabled);
}

TEST(RoteiroParser, ReadsChecksOfTheDatabase)
{
    const auto committed
        = Step<TExpectSql>(R"(confere sql "SELECT A, B, C FROM T WHERE D = 'x'" = 12 nulo "Ana Lima")");
    EXPECT_EQ(committed.statement, "SELECT A, B, C FROM T WHERE D = 'x'");
    EXPECT_FALSE(committed.pending);
    ASSERT_EQ(committed.values.size(), 3u);
    EXPECT_TRUE(committed.values[1].IsNull());
    EXPECT_EQ(committed.values[2].text, "Ana Lima");
    EXPECT_TRUE(Step<TExpectSql>("confere sql pendente \"SELECT 1 FROM T\" = 1").pending);
    EXPECT_FALSE((TText{"nulo", true}).IsNull());
}

TEST(RoteiroParser, ReadsChecksOfTheLog)
{
    const auto some = Step<TExpectLog>("confere log \"MOVIMENTO OF\" \"MOVIMENTO DE OF…\"");
    EXPECT_EQ(some.module, "MOVIMENTO OF");
    EXPECT_EQ(some.text, "MOVIMENTO DE OF…");
    EXPECT_FALSE(some.last);
    EXPECT_TRUE(Step<TExpectLog>("confere log ultimo \"MOVIMENTO OF\" \"x\"").last);
    EXPECT_EQ(Step<TExpectLogRows>("confere log \"MOVIMENTO OF\" linhas = 2").count, 2);
}

TEST(RoteiroParser, ReadsChecksOfTheReport)
{
    EXPECT_EQ(Step<TExpectReport>("confere relatorio \"WFacMov\"").layout, "WFacMov");
    EXPECT_EQ(Step<TExpectReport>("confere relatorio nenhum").layout, "");
    EXPECT_EQ(Step<TExpectReportText>("confere relatorio contem \"Total 12\"").text, "Total 12");
}

TEST(RoteiroParser, ReadsVerificationsWithoutAnythingBehindThem)
{
    Step<TExpectSound>("verifica");
    EXPECT_ANY_THROW(Step<TExpectSound>("verifica FACCAO"));
}

// Dialogs

TEST(RoteiroParser, ReadsMessagesAndQuestions)
{
    EXPECT_EQ(Dialog<TMessage>("! \"Setor não encontrado.\"").text, "Setor não encontrado.");
    EXPECT_EQ(Dialog<TMessage>("! \"Setor\" titulo \"Movimento de Facção\"").title, "Movimento de Facção");
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" Sim").answer, TAnswer::Yes);
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" Não").answer, TAnswer::No);
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" Cancelar").answer, TAnswer::Cancel);
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" OK").answer, TAnswer::Ok);
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" Enter").answer, TAnswer::Enter);
    EXPECT_EQ(Dialog<TQuestion>("? \"Continuar?\" Esc").answer, TAnswer::Esc);
    EXPECT_EQ(Dialog<TQuestion>("? \"A?\" Sim titulo \"B\"").title, "B");
    EXPECT_EQ(Dialog<TQuestion>("? \"A?\" titulo \"B\" Sim").title, "B");
    EXPECT_EQ(Error("clica a\n  ? \"A?\" Talvez"),
        "historia.rot:2: one of these is missing: Cancelar, Enter, Esc, Não, OK, Sim");
}

TEST(RoteiroParser, ReadsInputBoxesSupervisorsAndFiles)
{
    const auto input = Dialog<TInput>("> \"Lançar Nota Remessa\" \"Nota:\" = 1234567");
    EXPECT_EQ(input.title, "Lançar Nota Remessa");
    EXPECT_EQ(input.prompt, "Nota:");
    EXPECT_EQ(input.value, "1234567");
    EXPECT_EQ(Dialog<TInput>("> \"A\" \"B\" = cancela").value, std::nullopt);
    EXPECT_EQ(Dialog<TInput>("> \"A\" \"B\" = \"cancela\"").value, "cancela");
    EXPECT_EQ(Dialog<TSupervisor>("supervisor MARIA").name, "MARIA");
    EXPECT_EQ(Dialog<TSupervisor>("supervisor recusa").name, std::nullopt);
    EXPECT_EQ(Dialog<TFile>("arquivo foto.png").name, "foto.png");
    EXPECT_EQ(Dialog<TFile>("arquivo cancela").name, std::nullopt);
}

TEST(RoteiroParser, ReadsLookups)
{
    EXPECT_EQ(Dialog<TLookup>("pesquisa cancela").kind, TLookup::TKind::Cancel);
    const auto several = Dialog<TLookup>("pesquisa CODIGO=01 CODIGO=02,COR=\"AZUL CLARO\"");
    EXPECT_EQ(several.kind, TLookup::TKind::Pick);
    ASSERT_EQ(several.rows.size(), 2u);
    EXPECT_TRUE(RowIs(several.rows[1], {{"CODIGO", "02"}, {"COR", "AZUL CLARO"}}));
    const auto missing = Dialog<TLookup>("pesquisa sem CODIGO=03");
    EXPECT_EQ(missing.kind, TLookup::TKind::NotOffered);
    EXPECT_TRUE(RowIs(missing.rows.at(0), {{"CODIGO", "03"}}));
}

// Indentation

TEST(RoteiroParser, PutsDialogsUnderTheActionThatRaisesThem)
{
    const auto lines = Parse(R"(
# a story
clica btnA          # presses
  ! "Um"

  modal TfmB
    clica BitBtn3
      ? "Sai?" Sim
    confere edtX = 1
  ! "Dois"
clica btnC
)");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].place.line, 3);
    EXPECT_EQ(lines[0].source, "clica btnA");
    ASSERT_EQ(lines[0].inner.size(), 3u);
    const auto& modal = lines[0].inner[1];
    EXPECT_EQ(std::get<TModal>(modal.step).screen, "TfmB");
    ASSERT_EQ(modal.inner.size(), 2u);
    EXPECT_TRUE(std::holds_alternative<TQuestion>(modal.inner[0].inner.at(0).step));
    EXPECT_EQ(lines[0].inner[2].place.line, 10);
}

TEST(RoteiroParser, LetsChecksStatementsAndOtherSessionsStandAmongDialogs)
{
    const auto lines = Parse("clica a\n  sql DELETE FROM T\n  sessao B\n  digita edtX 1\n  sessao A\n  ! \"Um\"");
    EXPECT_EQ(lines.at(0).inner.size(), 5u);
    EXPECT_EQ(Error("clica a\n  digita edtX 1"), "historia.rot:2: a dialog is expected here, not an action");
}

TEST(RoteiroParser, RefusesLinesThatStandWhereTheyCannot)
{
    EXPECT_EQ(Error("! \"Um\""), "historia.rot:1: a dialog stands indented under the action that raises it");
    EXPECT_EQ(Error("clica a\n  modal TfmB\n    ! \"Um\""),
        "historia.rot:3: a dialog stands indented under the action that raises it");
    EXPECT_EQ(Error("confere edtX = 1\n  ! \"Um\""),
        "historia.rot:2: the line above raises no dialog, nothing is indented under it");
    EXPECT_EQ(Error("clica a\n    ! \"Um\"\n  ! \"Dois\""), "historia.rot:3: the line is indented as none above it");
    EXPECT_EQ(Error("  clica a"), "historia.rot:1: the line is indented as none above it");
    EXPECT_EQ(Error("clica a\n\t! \"Um\""), "historia.rot:2: lines are indented with blanks, not with tabs");
}

TEST(RoteiroParser, RefusesWhatIsNoLineOfTheLanguage)
{
    EXPECT_EQ(Error("banco vazio\nclicar btnA"), "historia.rot:2: no line of the language begins so: clicar");
    EXPECT_EQ(Error("clica"), "historia.rot:1: the control is missing");
    EXPECT_EQ(Error("digita edtX \xff"), "historia.rot:1: the line is not written in UTF-8");
}

TEST(RoteiroParser, TakesAHashInQuotesAsText)
{
    EXPECT_EQ(Step<TFill>("digita edtX \"a # b\"   # comment").text, "a # b");
    EXPECT_EQ(Step<TFill>("digita edtX a#b").text, "a");
    EXPECT_EQ(Step<TFill>("digita edtX D'Ávila # it's a comment").text, "D'Ávila");
    EXPECT_TRUE(Parse("# nothing but a comment\n\n   # and another").empty());
}

TEST(RoteiroParser, ReadsLinesThatEndAsOnOtherSystems)
{
    const auto lines = Parse("clica a\r\n  ! \"Um\"\r\n");
    EXPECT_EQ(std::get<TClick>(lines.at(0).step).control, "a");
    EXPECT_EQ(lines[0].inner.size(), 1u);
}

// Included files

class RoteiroFiles : public ::testing::Test {
protected:
    RoteiroFiles()
        : folder_(fs::temp_directory_path() / ("roteiro_parser_" + std::to_string(std::random_device{}())))
    {
        fs::create_directories(folder_ / "a" / "b");
    }
    ~RoteiroFiles() override { fs::remove_all(folder_); }

    fs::path Write(const std::string& name, std::string_view text) const
    {
        const auto path = folder_ / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << text;
        return path;
    }

    fs::path folder_;
};

TEST_F(RoteiroFiles, IncludedLinesKeepTheirOwnFileAndLine)
{
    const auto common = Write("comum/pedido.rot", "# set-up\nsql DELETE FROM OF1\n");
    const auto lines = TParser::ParseFile(Write("a.rot", "banco vazio\ninclui comum/pedido.rot\nabre TfmA\n"));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1].place.file, common.string());
    EXPECT_EQ(lines[1].place.line, 2);
    EXPECT_EQ(lines[2].place.line, 3);
}

TEST_F(RoteiroFiles, AnIncludedFileIsLookedForBesideTheFileThenInTheFoldersAbove)
{
    Write("comum/x.rot", "abre TfmAbove\n");
    const auto file = Write("a/b/c.rot", "inclui comum/x.rot\n");
    EXPECT_EQ(std::get<TOpen>(TParser::ParseFile(file).at(0).step).screen, "TfmAbove");
    Write("a/b/comum/x.rot", "abre TfmBeside\n");
    EXPECT_EQ(std::get<TOpen>(TParser::ParseFile(file).at(0).step).screen, "TfmBeside");
}

TEST_F(RoteiroFiles, AModalScreensLinesMayBeIncluded)
{
    Write("x.rot", "digita edtX 1\nclica BitBtn3\n");
    const auto lines = TParser::ParseFile(Write("a.rot", "clica a\n  modal TfmB\n    inclui x.rot\n"));
    EXPECT_EQ(lines.at(0).inner.at(0).inner.size(), 2u);
}

TEST_F(RoteiroFiles, AFileThatIncludesItselfIsRefused)
{
    Write("b.rot", "inclui a.rot\n");
    const auto file = Write("a.rot", "inclui b.rot\n");
    EXPECT_THROW(TParser::ParseFile(file), ERoteiro);
}

TEST_F(RoteiroFiles, AFileThatIsNotThereIsRefusedAtItsLine)
{
    const auto file = Write("a.rot", "banco vazio\ninclui nada.rot\n");
    try {
        TParser::ParseFile(file);
        FAIL();
    } catch (const ERoteiro& error) {
        EXPECT_EQ(error.Place().file, file.string());
        EXPECT_EQ(error.Place().line, 2);
        EXPECT_STREQ(error.what(), "the file to include is not found: nada.rot");
    }
    EXPECT_THROW(TParser::ParseFile(folder_ / "nada.rot"), ERoteiro);
    EXPECT_THROW(TParser::ParseFile(folder_), ERoteiro);
}

// Anything at all

/// Lines of the language, cut, joined and mixed with noise: they are read or refused, and nothing else.
TEST(RoteiroParser, SurvivesGarbage)
{
    const std::vector<std::string> pieces{"confere", "celula", "sql", "\"", "\\\"", "=", ",", ":", "#", "…", "\n",
        "\n  ", "\n    ", " ", "\t", "modal", "!", "?", ">", "Sim", "inclui", "falha", "rfid", "hoje", "99/99/9999",
        "pesquisa", "sem", "menu", "coluna", "log", "ultimo", "linhas", "00000000000000000000000001", "-1", "edtX",
        "\xc3", "\xff", "'", "nulo", "titulo", "clica", "\r", std::string(1, '\0')};
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    int read = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto count = random() % 12; count > 0; --count)
            text += pieces[random() % pieces.size()] + (random() % 2 == 0 ? " " : "");
        try {
            Parse(text);
            ++read;
        } catch (const ERoteiro& error) {
            EXPECT_STRNE(error.what(), "");
        }
    }
    EXPECT_GT(read, 0);
}

} // namespace
} // namespace alinhavo::roteiro
