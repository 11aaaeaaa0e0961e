#include "platform/exchange/EExchange.h"
#include "platform/exchange/TFileTable.h"
#include "platform/report/separatedCell.h"

#include "forms/text.h"

#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

/// The cells of each line, between bars, behind its number.
std::vector<std::string> Lines(std::string_view bytes)
{
    std::vector<std::string> lines;
    for (const TFileLine& line : ReadSeparatedText(bytes).lines) {
        auto text = std::to_string(line.number);
        for (const TValue& cell : line.cells)
            text += "|" + (cell.IsNull() ? "nulo" : cell.AsString());
        lines.push_back(text);
    }
    return lines;
}

std::string Form(std::string_view bytes) { return ReadSeparatedText(bytes).form; }

TEST(SeparatedText, TheSeparatorIsTheFirstOfTabSemicolonAndCommaThatTheTitlesHave)
{
    EXPECT_THAT(Lines("A;B,C;D\n1;2,5;3\n"), ElementsAre("1|A|B,C|D", "2|1|2,5|3"));
    EXPECT_THAT(Lines("A,B\n1,2\n"), ElementsAre("1|A|B", "2|1|2"));
    EXPECT_THAT(Lines("A\tB\n1,5\t2;3\n"), ElementsAre("1|A|B", "2|1,5|2;3"));
    EXPECT_EQ(Form("A\tB\n"), "CSV, UTF-8, separado por tabulação");
    EXPECT_THAT(
        Lines("Código;Tipo (1 foto, 2 medida, 3 outro)\n"), ElementsAre("1|Código|Tipo (1 foto, 2 medida, 3 outro)"));
    EXPECT_EQ(Form("\n\nA,B\n;;;;\n"), "CSV, UTF-8, separado por ,");
}

TEST(SeparatedText, ASeparatorWithinQuotesDoesNotCount)
{
    EXPECT_THAT(Lines("\"A,B,C,D\";E\n1;2\n"), ElementsAre("1|A,B,C,D|E", "2|1|2"));
}

TEST(SeparatedText, AFileOfOneColumnNeedsNoSeparator)
{
    EXPECT_THAT(Lines("COR\nAZUL\n"), ElementsAre("1|COR", "2|AZUL"));
}

TEST(SeparatedText, Utf8IsReadWithItsMarkAndWithout)
{
    EXPECT_THAT(Lines("\xEF\xBB\xBF"
                      "AÇÃO;B\n"),
        ElementsAre("1|AÇÃO|B"));
    EXPECT_THAT(Lines("AÇÃO;B\n"), ElementsAre("1|AÇÃO|B"));
}

TEST(SeparatedText, WhatIsNoUtf8IsWindows1252)
{
    EXPECT_THAT(Lines("Cal\xE7"
                      "a;\x80 5\x96"
                      "6\n"),
        ElementsAre("1|Calça|€ 5–6"));
    EXPECT_EQ(Form("Cal\xE7"
                   "a;B\n"),
        "CSV, Windows-1252, separado por ;");
}

TEST(SeparatedText, DamageInUtf8StaysWhereItIs)
{
    const auto table = ReadSeparatedText("AÇÃO;Descrição\nCal\xE7"
                                         "a;Côr\n");
    EXPECT_THAT(table.form, HasSubstr("UTF-8"));
    EXPECT_FALSE(ValidUtf8(table.lines.at(1).cells.at(0).Text()));
    EXPECT_EQ(table.lines.at(1).cells.at(1).Text(), "Côr");
}

TEST(SeparatedText, AByteThatWindows1252LacksStaysMalformed)
{
    const auto table = ReadSeparatedText("Cal\xE7"
                                         "a;\x81\n");
    EXPECT_EQ(table.lines.at(0).cells.at(0).Text(), "Calça");
    EXPECT_FALSE(ValidUtf8(table.lines.at(0).cells.at(1).Text()));
}

TEST(SeparatedText, Utf16IsRefusedWithWhatToDo)
{
    EXPECT_THAT(
        [] {
            ReadSeparatedText({"\xFF\xFE"
                               "A\0",
                4});
        },
        ThrowsMessage<EExchange>(HasSubstr("CSV em UTF-8")));
}

TEST(SeparatedText, QuotesHoldSeparatorsLineBreaksAndQuotes)
{
    EXPECT_THAT(Lines("A;B\n\"um;\ndois \"\"x\"\"\";2\n3;4\n"), ElementsAre("1|A|B", "2|um;\ndois \"x\"|2", "3|3|4"));
}

TEST(SeparatedText, AQuoteWithinATextIsALetter)
{
    EXPECT_THAT(Lines("A;B\nTubo 3\";\"x\"y\n"), ElementsAre("1|A|B", "2|Tubo 3\"|xy"));
}

TEST(SeparatedText, QuotesThatNeverCloseAreTold)
{
    EXPECT_THAT([] { ReadSeparatedText("A;B\n1;\"2\n3;4\n"); },
        ThrowsMessage<EExchange>("As aspas abertas na linha 2 não se fecham."));
}

TEST(SeparatedText, EveryEndOfALineIsOne)
{
    EXPECT_THAT(Lines("A\r\n1\r2\n3"), ElementsAre("1|A", "2|1", "3|2", "4|3"));
}

TEST(SeparatedText, EmptyLinesCountAndAreLeftOut)
{
    EXPECT_THAT(Lines("A;B\n\n;\n  ;\n1;2\n"), ElementsAre("1|A|B", "5|1|2"));
    EXPECT_THAT(Lines(""), ElementsAre());
}

TEST(SeparatedText, AnEmptyCellIsNull)
{
    EXPECT_THAT(Lines("A;B;C\n;\"\";x\n"), ElementsAre("1|A|B|C", "2|nulo|nulo|x"));
}

TEST(SeparatedText, WhatIsBeyondTheLimitsIsRefused)
{
    EXPECT_THAT([] { ReadSeparatedText("A;B;C\n", {.columns = 2}); },
        ThrowsMessage<EExchange>("A linha 1 tem colunas demais."));
    EXPECT_THAT([] { ReadSeparatedText("A;B\n1;2\n", {.cells = 3}); },
        ThrowsMessage<EExchange>("O arquivo tem células demais."));
}

TEST(SeparatedText, TheApostropheBeforeAFormulaGoesOffAsItCameOn)
{
    for (const std::string text :
        {"=1+1", "+5", "-3", "@a", "\tx", "'=1", "''=1", "'a", "'", "''", "a=1", "", "Camisa", "\r"})
        EXPECT_EQ(WithoutFormulaMark(WithFormulaMark(text)), text) << text;
    EXPECT_EQ(WithFormulaMark("=1+1"), "'=1+1");
    EXPECT_THAT(Lines("A\n'=1+1\n'a\n"), ElementsAre("1|A", "2|=1+1", "3|'a"));
}

} // namespace
} // namespace alinhavo
