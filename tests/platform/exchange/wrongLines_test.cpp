#include "TImportTest.h"

#include <gmock/gmock.h>
#include <map>

namespace alinhavo {
namespace {

constexpr int Lines = 10'000;
constexpr int Wrong = 200;

/// What stands in a line of orders; a wrong one differs from a good one in one cell.
struct TOrderLine {
    std::string number;
    std::string product = "CAM01";
    std::string client = "00001";
    std::string type = "1";
    std::string prices = "001";
    std::string period = "2026";
    std::string programme = "P1";
    std::string begin = "20/11/2026";
    std::string percent = "1,5";
    std::string open = {};
    std::string note = "nota";
    std::string more = {};

    std::string Text() const
    {
        return number + ";" + product + ";" + client + ";" + type + ";" + prices + ";" + period + ";" + programme + ";"
            + begin + ";" + percent + ";" + open + ";" + note + more + "\r\n";
    }
};

struct TKind {
    void (*spoil)(TOrderLine&);
    std::string column;
    std::string reason;
};

const std::vector<TKind>& Kinds()
{
    static const std::vector<TKind> kinds{
        {[](TOrderLine& line) { line.number = ""; }, "OF", "Falta preencher: é parte da chave."},
        {[](TOrderLine& line) { line.number += "9"; }, "OF", "O texto tem 7 caracteres; cabem 6."},
        {[](TOrderLine& line) { line.number = "000003"; }, "", "A chave já está na linha 2."},
        {[](TOrderLine& line) { line.product = "NADA"; }, "Produto", "Não existe em Produtos (PRODUTO)."},
        {[](TOrderLine& line) { line.client = "99999"; }, "Cliente",
            "Não existe em Clientes, fornecedores e facções (ENTIDADE)."},
        {[](TOrderLine& line) { line.type = "9"; }, "Tipo de OP", "Não existe em Tipos de OP (TIPO_OP)."},
        {[](TOrderLine& line) { line.prices = "009"; }, "Tabela de preços",
            "Não existe em Tabelas de preços (REGIAO)."},
        {[](TOrderLine& line) { line.period = "1999"; }, "Período", "Não existe em Períodos (TABPRZ)."},
        {[](TOrderLine& line) { line.programme = "PROGRAMA 1"; }, "Programação", "O texto tem 10 caracteres; cabem 8."},
        {[](TOrderLine& line) { line.begin = "31/02/2026"; }, "Data de início", "Não é uma data como 20/11/2026."},
        {[](TOrderLine& line) { line.begin = "amanhã"; }, "Data de início", "Não é uma data como 20/11/2026."},
        {[](TOrderLine& line) { line.begin = "20/11/0026"; }, "Data de início", "O ano 26 não faz sentido."},
        {[](TOrderLine& line) { line.begin = "20/11/2026 14:30"; }, "Data de início",
            "A coluna guarda o dia, sem a hora."},
        {[](TOrderLine& line) { line.percent = "doze"; }, "Percentual", "Não é um número."},
        {[](TOrderLine& line) { line.percent = "10.5"; }, "Percentual",
            "Não é um número como 1.234,56: os decimais vêm depois de vírgula."},
        {[](TOrderLine& line) { line.percent = "#N/D"; }, "Percentual", "A fórmula da planilha deu erro."},
        {[](TOrderLine& line) { line.open = "5"; }, "Peças em aberto",
            "Esta coluna é escrita pelo próprio sistema, conforme o trabalho."},
        {[](TOrderLine& line) { line.note = "a\xE7\xE3o"; }, "Observação",
            "O texto tem caracteres inválidos: o arquivo foi gravado em outra codificação."},
        {[](TOrderLine& line) {
             line.note = "a\x07"
                         "b";
         },
            "Observação", "O texto tem caracteres de controle."},
        {[](TOrderLine& line) { line.more = ";sobra"; }, "", "A linha tem mais células do que o arquivo tem títulos."},
    };
    return kinds;
}

std::string Number(int line)
{
    const auto digits = std::to_string(line + 1);
    return std::string(6 - digits.size(), '0') + digits;
}

/// Ten thousand orders, from 000003 on; each fiftieth, and none of the first hundred, is wrong.
class WrongLines : public TImportTest {
protected:
    void SetUp() override
    {
        TImportTest::SetUp();
        if (!db)
            return;
        Execute({{"INSERT INTO {TIPO_OP} (CODIGO, DESCRICAO) VALUES ('1', 'Normal')"},
            {"INSERT INTO {TABPRZ} (PRAZO) VALUES ('2026')"}});
        file_ = "\xEF\xBB\xBFOF;Produto;Cliente;Tipo de OP;Tabela de preços;Período;Programação;Data de "
                "início;Percentual;Peças em aberto;Observação\r\n";
        std::string earlier = file_;
        for (int number = 2; number < Lines + 2; ++number) {
            TOrderLine line{.number = Number(number)};
            const int fileLine = number;
            const auto wrong = static_cast<std::size_t>(fileLine / 49);
            if (fileLine % 49 == 0 && expected_.size() < Wrong && fileLine > 100) {
                const auto& kind = Kinds()[wrong % Kinds().size()];
                kind.spoil(line);
                expected_[fileLine] = kind.column + "|" + kind.reason;
            } else if (number < 3000) {
                earlier += line.Text();
                ++same_;
            } else if (number < 5000) {
                const auto now = line.Text();
                line.percent = "7";
                earlier += line.Text();
                line.percent = "1,5";
                ++changed_;
            }
            file_ += line.Text();
        }
        Import("OF1", earlier);
    }

    std::string file_;
    std::map<int, std::string> expected_; ///< column and reason by line
    int same_ = 0;
    int changed_ = 0;
};
ON_BOTH_SERVERS(WrongLines);

TEST_P(WrongLines, ExactlyThoseAreReportedEachWithItsColumnAndReason)
{
    ASSERT_EQ(Kinds().size(), 20U);
    ASSERT_EQ(expected_.size(), static_cast<std::size_t>(Wrong));
    std::map<int, std::string> reported;
    const auto import = Compare("OF1", file_);
    for (const TImportRemark& remark : import->Remarks()) {
        if (remark.state == TLineState::Wrong)
            reported[remark.line] += remark.column + "|" + remark.reason;
    }
    EXPECT_EQ(reported, expected_);
}

TEST_P(WrongLines, TheOthersAreWrittenAndThoseThatWereThereUpdated)
{
    const auto counts = Import("OF1", file_);
    EXPECT_EQ(counts,
        (TImportCounts{.added = Lines - Wrong - same_ - changed_,
            .changed = changed_,
            .same = same_,
            .skipped = 0,
            .wrong = Wrong}));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {OF1} WHERE PERC = 1.5"), std::to_string(Lines - Wrong));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {OF1} WHERE PERC = 7"), "0");
}

TEST_P(WrongLines, TheOthersAreWrittenAndThoseThatWereThereLeftAlone)
{
    const auto counts = Import("OF1", file_, TExistingRows::Skip);
    EXPECT_EQ(counts,
        (TImportCounts{.added = Lines - Wrong - same_ - changed_,
            .changed = 0,
            .same = same_,
            .skipped = changed_,
            .wrong = Wrong}));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {OF1} WHERE PERC = 7"), std::to_string(changed_));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {OF1} WHERE PERC = 1.5"), std::to_string(Lines - Wrong - changed_));
}

} // namespace
} // namespace alinhavo
