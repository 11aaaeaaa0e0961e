#include "platform/session/roteiro/TRunner.h"

#include "platform/session/roteiro/TParser.h"
#include "TPlayedScreens.h"

#include <gtest/gtest.h>
#include <map>
#include <stdexcept>

namespace alinhavo::roteiro {
namespace {

/// A world without a database: queries answer what the test has put under their text.
class TPaperWorld final : public IWorld {
public:
    void Begin(TFactory factory) override { begun.push_back(factory); }
    void Execute(const std::string& sql) override
    {
        if (sql == "falha")
            throw std::runtime_error("syntax error");
        executed.push_back(sql);
    }
    TTableData Query(const std::string& sql) override { return Answer("committed " + sql); }
    std::vector<std::string> Violations() override { return violations; }
    void SetParameter(const TParameter& parameter) override { executed.push_back(parameter.group); }
    void SetSetting(const TSetting& setting) override { executed.push_back(setting.name); }
    void SetNow(TDateTime now) override { now_ = now; }
    void SetRfid(const TRfid& rfid) override { executed.push_back(rfid.batch); }
    std::unique_ptr<IPlayedSession> LogIn(const std::string& user) override
    {
        if (user == "NINGUEM")
            throw std::runtime_error("there is no user NINGUEM");
        return std::make_unique<TSessionOnPaper>(*this);
    }
    std::filesystem::path Upload(const std::filesystem::path& file) override { return file; }

    TTableData Answer(const std::string& sql) const
    {
        TTableData data;
        const auto found = answers.find(sql);
        if (found == answers.end())
            return data;
        for (std::size_t i = 0; i < found->second.size(); ++i) {
            const auto& value = found->second[i];
            data.AddColumn(
                "C" + std::to_string(i), value.IsText() || value.IsNull() ? TFieldKind::Text : TFieldKind::Float);
        }
        const auto row = data.AppendRow();
        for (std::size_t i = 0; i < found->second.size(); ++i)
            data.Column(i).Set(row, found->second[i]);
        return data;
    }

    std::vector<TFactory> begun;
    std::vector<std::string> executed;
    std::map<std::string, std::vector<TValue>> answers;
    std::vector<std::string> violations;

private:
    class TSessionOnPaper final : public IPlayedSession {
    public:
        explicit TSessionOnPaper(TPaperWorld& world)
            : world_(world)
            , thread_([&world](IEventSource& source) {
                auto application = std::make_unique<TApplication>(source);
                application->RegisterForm("TfmTela", [](TApplication& app) { return std::make_unique<TfmTela>(app); });
                application->RegisterForm(
                    "TfmDetalhe", [](TApplication& app) { return std::make_unique<TfmDetalhe>(app); });
                application->SetNow(world.now_);
                return application;
            })
        {
        }
        TSessionThread& Thread() override { return thread_; }
        TTableData Query(const std::string& sql) override { return world_.Answer("pending " + sql); }
        void PlanFailure(const TPlannedFailure& failure) override { world_.executed.push_back(failure.text); }
        std::string LastReport() override { return "WFacMov"; }
        std::string LastReportText() override { return "Total\n12 peças"; }

    private:
        TPaperWorld& world_;
        TSessionThread thread_;
    };

    TDateTime now_;
};

class RoteiroRunner : public ::testing::Test {
protected:
    /// "line: expected …, got …" of each failure, of lines behind those that open the screen (three).
    std::vector<std::string> Play(const std::string& story)
    {
        return PlayWhole("usuario ANA\nabre TfmTela\n\n" + story);
    }

    std::vector<std::string> PlayWhole(const std::string& story)
    {
        std::vector<std::string> failures;
        for (const auto& failure : TRunner(world).Run(TParser::ParseText(story, "historia.rot")))
            failures.push_back(std::to_string(failure.place.line) + ": expected " + failure.mismatch.expected + ", got "
                + failure.mismatch.got);
        return failures;
    }

    TPaperWorld world;
};

using Failures = std::vector<std::string>;

#define EXPECT_WENT_WELL(story) EXPECT_EQ(Play(story), Failures{})
#define EXPECT_FAILURE(story, text) EXPECT_EQ(Play(story), Failures{text})

// Fields

TEST_F(RoteiroRunner, FillsFieldsAndLeavesThemWithEnter)
{
    EXPECT_WENT_WELL("digita edtCodigo 000123\nconfere edtCodigo = 000123\nconfere edtSetor foco");
    EXPECT_WENT_WELL("digita edtCodigo abc\ndigita edtCodigo \"\"\nconfere edtCodigo = \"\"");
    EXPECT_WENT_WELL("digita edtPreco 12,5\nconfere edtPreco = 12.50\nconfere edtPreco = 12,5");
    EXPECT_WENT_WELL("digita edtData 1/2/2026\nconfere edtData = 01/02/2026");
    EXPECT_WENT_WELL("passa edtCodigo\nconfere edtSetor foco");
}

TEST_F(RoteiroRunner, WritesCharacterByCharacterWithoutLeaving)
{
    EXPECT_WENT_WELL("escreve edtBarra 123\nconfere edtBarra = 123\nconfere edtBarra foco");
    EXPECT_WENT_WELL("escreve edtBarra 12345\nconfere edtBarra = 5\nconfere edtSetor = 1234");
    EXPECT_WENT_WELL("escreve edtBarra 1\nescreve edtBarra 2\nconfere edtBarra = 12");
    EXPECT_WENT_WELL("escreve edtBarra 1\npassa edtCodigo\nescreve edtBarra 2\nconfere edtBarra = 2");
    EXPECT_WENT_WELL("escreve edtCodigo áx9\nconfere edtCodigo = á9");
}

TEST_F(RoteiroRunner, PressesKeys)
{
    EXPECT_WENT_WELL("tecla edtCodigo F5\nconfere edtCodigo = F5");
    EXPECT_WENT_WELL("tecla edtCodigo a\ntecla edtCodigo b\nconfere edtCodigo = ab");
    EXPECT_WENT_WELL("tecla edtCodigo x\nconfere edtCodigo = \"\"");
    EXPECT_WENT_WELL("tecla edtSetor Shift+Tab\nconfere edtCodigo foco");
    EXPECT_FAILURE("tecla edtCodigo F99", "4: expected what a person can do, got A tecla \"F99\" não existe.");
}

TEST_F(RoteiroRunner, ChoosesByCodeOrText)
{
    EXPECT_WENT_WELL("escolhe CbParte 02\nconfere CbParte = \"02 |Calça\"");
    EXPECT_WENT_WELL("escolhe CbParte \"01 |Corpo\"\nconfere CbParte = \"01 |Corpo\"");
    EXPECT_WENT_WELL("escolhe rgTipo Pendentes\nconfere rgTipo = Pendentes");
    EXPECT_WENT_WELL("confere CbParte itens = \"01 |Corpo\" \"02 |Calça\"");
    EXPECT_FAILURE("escolhe CbParte 03", "4: expected the item \"03\", got \"01 |Corpo\" \"02 |Calça\"");
    EXPECT_FAILURE(
        "confere CbParte itens = \"01 |Corpo\"", "4: expected \"01 |Corpo\", got \"01 |Corpo\" \"02 |Calça\"");
}

TEST_F(RoteiroRunner, TicksBoxesAndTurnsPages)
{
    EXPECT_WENT_WELL("marca CbProximo\nconfere CbProximo marcado\ndesmarca CbProximo\nconfere CbProximo desmarcado");
    EXPECT_FAILURE("confere CbProximo marcado", "4: expected CbProximo marcado, got desmarcado");
    EXPECT_WENT_WELL(
        "confere edtAcesso invisivel\naba PageControl2 Acesso\nconfere edtAcesso visivel\ndigita edtAcesso 1");
    EXPECT_FAILURE("aba PageControl2 Outra", "4: expected the page \"Outra\", got \"Geral\" \"Acesso\"");
}

TEST_F(RoteiroRunner, RefusesWhatAPersonCouldNotDo)
{
    EXPECT_FAILURE(
        "digita edtTrancado 1", "4: expected what a person can do, got O controle edtTrancado está desabilitado.");
    EXPECT_FAILURE(
        "digita edtOculto 1", "4: expected what a person can do, got O controle edtOculto não está visível.");
    EXPECT_FAILURE(
        "digita edtLeitura 1", "4: expected what a person can do, got O controle edtLeitura é somente leitura.");
    EXPECT_FAILURE(
        "digita edtAcesso 1", "4: expected what a person can do, got O controle edtAcesso não está visível.");
    EXPECT_FAILURE("clica btnNada", "4: expected what a person can do, got A tela Tela não tem o controle btnNada.");
    EXPECT_FAILURE("abre TfmNada", "4: expected what a person can do, got A tela TfmNada não existe.");
}

TEST_F(RoteiroRunner, TellsWhenAHandlerKeepsTheFocus)
{
    EXPECT_FAILURE("escreve edtSetor 99\ndigita edtCodigo 1\n  ! \"Setor não encontrado.\"",
        "5: expected the focus in edtCodigo, got the focus in edtSetor");
}

TEST_F(RoteiroRunner, ChecksControls)
{
    EXPECT_WENT_WELL("confere edtCodigo habilitado\nconfere edtTrancado desabilitado\nconfere edtOculto invisivel\n"
                     "confere edtCodigo visivel\nconfere edtCodigo foco\nconfere btnDuas habilitado");
    EXPECT_EQ(
        Play("confere edtCodigo = 1\nconfere edtTrancado habilitado\nconfere edtCodigo desabilitado\n"
             "confere edtOculto visivel\nconfere edtCodigo invisivel\nconfere edtSetor foco\nconfere edtNada = 1"),
        (Failures{
            "4: expected \"1\", got \"\"",
            "5: expected edtTrancado habilitado, got desabilitado",
            "6: expected edtCodigo desabilitado, got habilitado",
            "7: expected edtOculto visivel, got invisivel",
            "8: expected edtCodigo invisivel, got visivel",
            "9: expected edtSetor foco, got the focus in edtCodigo",
            "10: expected a control edtNada, got none of that name in TfmTela",
        }));
}

// Dialogs

TEST_F(RoteiroRunner, AnswersTheDialogsInTheirOrder)
{
    EXPECT_WENT_WELL("clica btnDuas\n  ! \"Primeira.\"\n  ! \"Segunda.\" titulo \"Aviso\"");
    EXPECT_WENT_WELL("clica btnPergunta\n  ? \"Deseja continuar?\" Sim\nconfere edtCodigo = sim");
    EXPECT_WENT_WELL("clica btnPergunta\n  ? \"Deseja…\" Não\nconfere edtCodigo = não");
    EXPECT_WENT_WELL("clica btnPergunta\n  ? \"…continuar?\" Enter titulo \"Tela\"\nconfere edtCodigo = não");
    EXPECT_WENT_WELL("clica btnPergunta\n  ? \"Deseja continuar?\" Esc\nconfere edtCodigo = não");
    EXPECT_WENT_WELL("clica btnAlarme\n  ? \"Leitura inválida.\" Enter\n  ? \"Leitura inválida.\" OK");
    EXPECT_WENT_WELL("clica btnErro\n  ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_WENT_WELL("digita edtSetor 99\n  ! \"Setor não encontrado.\"\nconfere edtSetor foco");
}

TEST_F(RoteiroRunner, ADialogThatIsNotWrittenIsAFailure)
{
    EXPECT_FAILURE("clica btnErro", "4: expected no dialog, got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE("clica btnDuas\n  ! \"Primeira.\"", "4: expected no dialog, got ! \"Segunda.\" titulo \"Aviso\"");
    EXPECT_FAILURE("clica btnDetalhe", "4: expected no dialog, got the modal screen TfmDetalhe");
}

TEST_F(RoteiroRunner, AWrittenDialogThatDoesNotComeIsAFailure)
{
    EXPECT_FAILURE(
        "digita edtSetor 1\n  ! \"Setor não encontrado.\"", "5: expected ! \"Setor não encontrado.\", got no dialog");
    EXPECT_FAILURE(
        "clica btnErro\n  ! \"disco cheio\"\n  ? \"Mais?\" Sim", "6: expected ? \"Mais?\" Sim, got no dialog");
    EXPECT_FAILURE("clica CbProximo\n  modal TfmDetalhe",
        "4: expected what a person can do, got O controle CbProximo não aceita essa ação.");
}

TEST_F(RoteiroRunner, ADialogOfAnotherKindOrTextIsAFailure)
{
    EXPECT_FAILURE(
        "clica btnErro\n  ! \"disco\"", "5: expected ! \"disco\", got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE(
        "clica btnErro\n  ! \"disco cheio\" titulo \"Tela\"", "5: expected titulo \"Tela\", got titulo \"Alinhavo\"");
    EXPECT_FAILURE("clica btnErro\n  ? \"disco cheio\" OK",
        "5: expected ? \"disco cheio\", got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE("clica btnPergunta\n  ! \"Deseja continuar?\"",
        "5: expected ! \"Deseja continuar?\", got ? \"Deseja\ncontinuar?\" titulo \"Tela\"");
    EXPECT_FAILURE("clica btnPergunta\n  ? \"Deseja continuar?\" Cancelar",
        "5: expected what a person can do, got A pergunta \"Tela\" não oferece essa resposta.");
    EXPECT_FAILURE(
        "clica btnErro\n  pesquisa cancela", "5: expected pesquisa, got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE(
        "clica btnErro\n  supervisor ANA", "5: expected supervisor, got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE("clica btnErro\n  arquivo a.png", "5: expected arquivo, got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE(
        "clica btnErro\n  > \"A\" \"B\" = c", "5: expected > \"A\" \"B\", got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE("clica btnErro\n  modal TfmDetalhe",
        "5: expected the modal screen TfmDetalhe, got ! \"disco cheio\" titulo \"Alinhavo\"");
    EXPECT_FAILURE(
        "clica btnDetalhe\n  modal TfmOutra", "5: expected the modal screen TfmOutra, got the modal screen TfmDetalhe");
}

TEST_F(RoteiroRunner, FillsInputBoxesSupervisorsAndFiles)
{
    EXPECT_WENT_WELL("clica btnEntrada\n  > \"Lançar Nota\" \"Nota:\" = 1234567\nconfere edtCodigo = 123456");
    EXPECT_WENT_WELL("clica btnEntrada\n  > \"Lançar Nota\" \"Nota:\" = cancela\nconfere edtCodigo = nada");
    EXPECT_FAILURE("clica btnEntrada\n  > \"Lançar Nota\" \"Data:\" = 1",
        "5: expected > \"Lançar Nota\" \"Data:\", got > \"Lançar Nota\" \"Nota:\"");
    EXPECT_WENT_WELL("clica btnSupervisor\n  supervisor MARIA\nconfere edtCodigo = MARIA");
    EXPECT_WENT_WELL("clica btnSupervisor\n  supervisor recusa\nconfere edtCodigo = nada");
    EXPECT_WENT_WELL("clica btnArquivo\n  arquivo a.png\nconfere edtCodigo = a.png");
    EXPECT_WENT_WELL("clica btnArquivo\n  arquivo cancela\nconfere edtCodigo = \"\"");
}

TEST_F(RoteiroRunner, PicksRowsOfLookups)
{
    EXPECT_WENT_WELL("clica btnPesquisa\n  pesquisa cancela\nconfere edtCodigo = nada");
    EXPECT_WENT_WELL("clica btnPesquisa\n  pesquisa Cor=000009,Tam=M\nconfere edtCodigo = 1");
    EXPECT_WENT_WELL("clica btnPesquisa\n  pesquisa Cor=000009 Cor=000001\nconfere edtCodigo = 2");
    EXPECT_WENT_WELL("clica btnPesquisa\n  pesquisa sem Cor=000007\nconfere edtCodigo = nada");
    EXPECT_FAILURE("clica btnPesquisa\n  pesquisa Cor=000007",
        "5: expected the row Cor=000007 in the lookup, got it is not offered");
    EXPECT_FAILURE("clica btnPesquisa\n  pesquisa sem Cor=000009",
        "5: expected no row Cor=000009 in the lookup, got it is offered");
    EXPECT_FAILURE("clica btnPesquisa\n  pesquisa Nada=1", "5: expected a column Nada, got none of that name");
}

// Modal screens

TEST_F(RoteiroRunner, PlaysInsideModalScreens)
{
    EXPECT_WENT_WELL("clica btnDetalhe\n  modal TfmDetalhe\n    digita edtNota 77\n    clica btnOk\n  ! \"Detalhe "
                     "fechado.\"\nconfere edtCodigo = 77");
    EXPECT_WENT_WELL(
        "clica btnDetalhe\n  modal TfmDetalhe\n    clica btnOk\n      ? \"Fechar sem nota?\" Sim\n  ! \"Detalhe…\"");
    EXPECT_WENT_WELL(
        "clica btnDetalhe\n  modal TfmDetalhe\n    fecha TfmDetalhe\n  ! \"Detalhe…\"\nconfere edtCodigo = nada");
}

TEST_F(RoteiroRunner, AModalScreenThatStaysOpenIsAFailure)
{
    EXPECT_FAILURE("clica btnDetalhe\n  modal TfmDetalhe\n    digita edtNota 77",
        "4: expected no dialog, got the modal screen TfmDetalhe");
    EXPECT_FAILURE("clica btnDetalhe\n  modal TfmDetalhe\n    digita edtNota 77\n  ! \"Detalhe fechado.\"",
        "7: expected ! \"Detalhe fechado.\", got the modal screen TfmDetalhe");
}

TEST_F(RoteiroRunner, WhatIsDoneInAModalScreenThatIsClosedIsAFailure)
{
    EXPECT_FAILURE("clica btnDetalhe\n  modal TfmDetalhe\n    fecha TfmDetalhe\n    clica btnOk\n  ! \"Detalhe…\"",
        "7: expected the modal screen still open, got it is closed");
}

TEST_F(RoteiroRunner, GoesOnBehindAFailedCheckAndStopsAtAFailedAction)
{
    EXPECT_EQ(Play("confere edtCodigo = 1\nconfere edtSetor = 2\nclica btnNada\nconfere edtSetor = 3").size(), 3u);
}

// Grids

TEST_F(RoteiroRunner, FillsCellsAndStaysInTheColumn)
{
    EXPECT_WENT_WELL("celula dbg00Grade 1 Quant 5\nconfere celula dbg00Grade 1 Quant = 5\ntecla dbg00Grade 7\n"
                     "tecla dbg00Grade Enter\nconfere celula dbg00Grade 2 Quant = 7");
    EXPECT_WENT_WELL("celula dbg00Grade Cor=000009,Tam=M Quantidade 2,5\nconfere celula TbGrade 2 Quant = 2.5");
    EXPECT_WENT_WELL(
        "celula dbg00Grade 1 Quant 5\ncelula dbg00Grade 1 Quant \"\"\nconfere celula dbg00Grade 1 Quant = nulo");
    EXPECT_WENT_WELL(
        "celula dbg00Grade 3 Cor 000003\nconfere dbg00Grade linhas = 3\nconfere celula dbg00Grade 3 Cor = 000003");
    EXPECT_WENT_WELL("celula dbg00Grade 1 Sel S\nconfere celula dbg00Grade 1 Sel = S");
    EXPECT_FAILURE("celula dbg00Grade 4 Quant 5", "4: expected a row 4, got 2 rows");
    EXPECT_FAILURE("celula dbg00Grade Cor=7 Quant 5", "4: expected a row Cor=7, got none among 2");
    EXPECT_FAILURE("celula dbg00Grade 1 Nada 5", "4: expected a column Nada, got none of that name in dbg00Grade");
    EXPECT_FAILURE("celula dbg00Grade 1 \"A mover\" 5",
        "4: expected what a person can do, got A coluna A mover de dbg00Grade é somente leitura.");
}

TEST_F(RoteiroRunner, MovesClicksAndSorts)
{
    EXPECT_WENT_WELL("linha dbg00Grade 2\nduplo dbg00Grade 2\nconfere edtCodigo = 000009");
    EXPECT_WENT_WELL("titulo dbg00Grade Cor\nconfere celula dbg00Grade 1 Cor = 000009");
}

TEST_F(RoteiroRunner, UsesMenusAsTheyOpen)
{
    EXPECT_WENT_WELL("menu dbg00Grade \"Zerar Quantidades\"\nconfere soma dbg00Grade Quant = 0");
    EXPECT_WENT_WELL("confere menu dbg00Grade \"Copiar coluna\" invisivel\n"
                     "confere menu dbg00Grade coluna Quant \"Copiar coluna\" visivel\n"
                     "confere menu dbg00Grade \"Zerar Quantidades\" habilitado");
    EXPECT_FAILURE("menu dbg00Grade coluna Cor \"Copiar coluna\"",
        "4: expected what a person can do, got O item \"Copiar coluna\" do menu não está disponível.");
    EXPECT_FAILURE(
        "menu dbg00Grade Nada", "4: expected the item \"Nada\", got \"Zerar Quantidades\" \"Copiar coluna\"");
    EXPECT_FAILURE("confere menu dbg00Grade \"Zerar Quantidades\" invisivel",
        "4: expected Zerar Quantidades invisivel, got visivel");
    EXPECT_FAILURE("confere menu dbg00Grade \"Zerar Quantidades\" desabilitado",
        "4: expected Zerar Quantidades desabilitado, got habilitado");
}

TEST_F(RoteiroRunner, ChecksGridsAndTables)
{
    EXPECT_WENT_WELL("confere dbg00Grade linhas = 2\nconfere TbGrade linhas = 2\nconfere soma TbGrade Saldo = 30\n"
                     "confere celula dbg00Grade Cor=000009 Saldo = 20,0\nconfere dbg00Grade coluna Quant editavel\n"
                     "confere dbg00Grade coluna Saldo somenteleitura\nconfere dbg00Grade coluna Saldo visivel");
    EXPECT_EQ(
        Play("confere dbg00Grade vazia\nconfere soma dbg00Grade Saldo = 31\nconfere celula dbg00Grade 1 Saldo = 11\n"
             "confere celula dbg00Grade 3 Saldo = 1\nconfere dbg00Grade coluna Quant somenteleitura\n"
             "confere dbg00Grade coluna Saldo editavel\nconfere dbg00Grade coluna Saldo invisivel\n"
             "confere celula dbg00Grade 1 Cor = 1"),
        (Failures{
            "4: expected 0 rows, got 2 rows",
            "5: expected 31, got 30",
            "6: expected \"11\", got \"10\"",
            "7: expected a row 3, got 2 rows",
            "8: expected Quant somenteleitura, got editavel",
            "9: expected Saldo editavel, got somenteleitura",
            "10: expected Saldo invisivel, got visivel",
            "11: expected \"1\", got \"000001\"",
        }));
}

// The world

TEST_F(RoteiroRunner, ComparesAQuerysRowColumnByColumn)
{
    world.answers["committed um"] = {TValue(12), TValue(), TValue("Ana  Lima"), TValue(2.5)};
    world.answers["pending um"] = {TValue(13)};
    EXPECT_WENT_WELL("confere sql \"um\" = 12 nulo \"Ana Lima\" 2,5\nconfere sql pendente \"um\" = 13");
    EXPECT_EQ(Play("confere sql \"um\" = 12 \"\" \"Ana Lima\" 2,5\nconfere sql \"um\" = 12\nconfere sql \"dois\" = 1\n"
                   "confere sql pendente \"um\" = 12"),
        (Failures{
            "4: expected \"12\" \"\" \"Ana Lima\" \"2,5\", got \"12\" nulo \"Ana  Lima\" \"2.5\"",
            "5: expected \"12\", got \"12\" nulo \"Ana  Lima\" \"2.5\"",
            "6: expected \"1\", got 0 rows",
            "7: expected \"12\", got \"13\"",
        }));
}

TEST_F(RoteiroRunner, TellsEachViolationAndGoesOn)
{
    EXPECT_WENT_WELL("verifica");
    world.violations = {"[ordem] sem OF: NUMERO=1", "[excesso] saiu mais: NUMERO=2"};
    EXPECT_EQ(Play("verifica\nconfere edtCodigo = x"),
        (Failures{
            "4: expected no error in the tables, got \n    [ordem] sem OF: NUMERO=1\n    [excesso] saiu mais: NUMERO=2",
            "5: expected \"x\", got \"\"",
        }));
}

TEST_F(RoteiroRunner, ChecksTheLogAndTheReport)
{
    world.answers["pending SELECT TEXTO FROM {GERALOG} WHERE MODULO = 'OF' ORDER BY IDENTIFICADOR"]
        = {TValue("OF 1 movida")};
    EXPECT_WENT_WELL(
        "confere log \"OF\" \"OF 1…\"\nconfere log ultimo \"OF\" \"OF 1 movida\"\nconfere log \"OF\" linhas = 1\n"
        "confere log \"FLUXO\" linhas = 0\nconfere relatorio \"WFacMov\"\nconfere relatorio contem \"Total 12\"");
    EXPECT_EQ(Play("confere log \"OF\" \"OF 2\"\nconfere log \"FLUXO\" \"x\"\nconfere log \"OF\" linhas = 2\nconfere "
                   "relatorio nenhum\n"
                   "confere relatorio \"WFacPag\"\nconfere relatorio contem \"13\""),
        (Failures{
            "4: expected \"OF 2\", got \"OF 1 movida\"",
            "5: expected \"x\", got none",
            "6: expected 2 lines, got 1 lines",
            "7: expected no report, got \"WFacMov\"",
            "8: expected \"WFacPag\", got \"WFacMov\"",
            "9: expected \"13\", got \"Total\n12 peças\"",
        }));
}

TEST_F(RoteiroRunner, BeginsWithAnEmptyDatabaseUnlessTheFileSaysOtherwise)
{
    EXPECT_EQ(PlayWhole("sql um"), Failures{});
    EXPECT_EQ(PlayWhole("banco demo\nsql dois"), Failures{});
    EXPECT_EQ(world.begun, (std::vector{TFactory::Empty, TFactory::Demonstration}));
    EXPECT_EQ(world.executed, (std::vector<std::string>{"um", "dois"}));
    EXPECT_EQ(PlayWhole("sql um\nbanco demo"),
        Failures{"2: expected the database named before all else, got it is in use already"});
}

TEST_F(RoteiroRunner, NeedsAUserAndOneWhoIsKnown)
{
    EXPECT_EQ(
        PlayWhole("abre TfmTela"), Failures{"1: expected a user in session A (usuario), got nobody is logged in"});
    EXPECT_EQ(PlayWhole("confere edtX = 1"), Failures{"1: expected a user (usuario), got nobody is logged in"});
    EXPECT_EQ(PlayWhole("usuario NINGUEM"), Failures{"1: expected no error, got there is no user NINGUEM"});
    EXPECT_EQ(PlayWhole("sql falha"), Failures{"1: expected no error, got syntax error"});
}

TEST_F(RoteiroRunner, SetsTheDayOfSessionsOpenAndToCome)
{
    EXPECT_EQ(PlayWhole("hoje 20/11/2026\nusuario ANA\nhoje 21/11/2026 14:30\nsessao B\nusuario BIA"), Failures{});
}

TEST_F(RoteiroRunner, SwitchesBetweenSessionsAlsoWhileADialogWaits)
{
    const std::string begin = "usuario ANA\nabre TfmTela\nsessao B\nusuario BIA\nabre TfmTela\nsessao A\n";
    EXPECT_EQ(PlayWhole(begin + R"(digita edtCodigo 1
clica btnPergunta
  sessao B
  digita edtCodigo 2
  confere edtCodigo = 2
  sessao A
  confere edtCodigo = 1
  ? "Deseja continuar?" Sim
confere edtCodigo = sim
sessao B
confere edtCodigo = 2
)"),
        Failures{});
    EXPECT_EQ(PlayWhole(begin
                  + "clica btnDetalhe\n  modal TfmDetalhe\n    sessao B\n    digita edtCodigo 5\n    sessao A\n"
                    "    digita edtNota 3\n    clica btnOk\n  ! \"Detalhe…\"\nconfere edtCodigo = 3"),
        Failures{});
    EXPECT_EQ(PlayWhole(begin + "clica btnPergunta\n  sessao B\n  ? \"Deseja continuar?\" Sim"),
        Failures{"7: expected the session whose dialog waits, got session B"});
}

TEST_F(RoteiroRunner, ReturnsToAnotherScreen)
{
    EXPECT_WENT_WELL("abre TfmDetalhe\nconfere edtNota foco\nem TfmTela\nconfere edtCodigo visivel\nfecha "
                     "TfmDetalhe\nfecha TfmTela");
    EXPECT_FAILURE("fecha TfmTela\nconfere edtCodigo visivel", "5: expected a screen that is open, got none");
}

} // namespace
} // namespace alinhavo::roteiro
