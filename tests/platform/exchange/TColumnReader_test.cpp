#include "platform/exchange/TColumnReader.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

using enum TColumnKind;

constexpr TColumnDecl text4{"TAM", Text, 4};
constexpr TColumnDecl flag{.name = "ATIVO", .kind = Text, .width = 1, .choices = yesNo};
constexpr TColumnDecl kind{.name = "TIPO", .kind = Text, .width = 1, .choices = "E=Entrada,S=Saída"};
constexpr TColumnDecl number{"PRECO", Float};
constexpr TColumnDecl whole{"ORDEM", Integer};
constexpr TColumnDecl day{"DATA", Date};
constexpr TColumnDecl moment{"HORA", DateTime};

/// Of the last cell, all of them being seen; its value as text, or "!" and the reason.
std::string Read(const TColumnDecl& column, const std::vector<TValue>& cells)
{
    TColumnReader reader(column);
    for (const TValue& cell : cells)
        reader.See(cell);
    const auto [value, reason] = reader.Read(cells.back());
    return reason.empty() ? value.IsNull() ? "nulo" : value.AsString() : "!" + reason;
}

TEST(ColumnReader, NumbersHaveADecimalCommaAndPointsBetweenThousands)
{
    EXPECT_EQ(Read(number, {"1.234,56"}), "1234.56");
    EXPECT_EQ(Read(number, {"1.234.567"}), "1234567");
    EXPECT_EQ(Read(number, {"0,5"}), "0.5");
    EXPECT_EQ(Read(number, {",5"}), "0.5");
    EXPECT_EQ(Read(number, {"-1.000,5"}), "-1000.5");
    EXPECT_EQ(Read(number, {" R$ 1.234,50 "}), "1234.5");
    EXPECT_EQ(Read(number, {"12"}), "12");
}

TEST(ColumnReader, APointIsDecimalWhereTheColumnHasNumbersInWhichItCanBeNothingElse)
{
    EXPECT_EQ(Read(number, {"10.5", "1.234"}), "1.234");
    EXPECT_EQ(Read(number, {"0.125"}), "0.125");
    EXPECT_EQ(Read(number, {"1.234"}), "1234");
    EXPECT_EQ(Read(number, {"1,5", "1.234"}), "1234");
}

TEST(ColumnReader, TwoWaysOfWritingNumbersInOneColumnAreNotGuessedAt)
{
    EXPECT_EQ(Read(number, {"1,5", "10.5"}), "!Não é um número como 1.234,56: os decimais vêm depois de vírgula.");
    EXPECT_EQ(Read(number, {"1,234.56"}), "!Não é um número.");
}

TEST(ColumnReader, WhatIsNoNumberIsTold)
{
    for (const char* cell : {"doze", "1,2,3", "1..2", "1.23.456,0", "--1", "1e5", "12 un", "-", ",", "nan", "inf"})
        EXPECT_EQ(Read(number, {cell}).front(), '!') << cell;
    EXPECT_EQ(Read(number, {TDateTime::FromDate(2026, 11, 20)}).front(), '!');
}

TEST(ColumnReader, AWholeNumberMayBeWrittenWithDecimalsOfZero)
{
    EXPECT_EQ(Read(whole, {"12"}), "12");
    EXPECT_EQ(Read(whole, {"1.234,00"}), "1234");
    EXPECT_EQ(Read(whole, {7.0}), "7");
    EXPECT_EQ(Read(whole, {"1,5"}), "!A coluna só aceita números inteiros.");
    EXPECT_EQ(Read(whole, {"99999999999999999999"}), "!O número é grande demais.");
    EXPECT_EQ(Read(whole, {1e300}), "!O número é grande demais.");
}

TEST(ColumnReader, DatesAreReadAsBrazilianOnesAsIsoAndAsTheSpreadsheetHasThem)
{
    for (const TValue& cell : {TValue("20/11/2026"), TValue("20/11/26"), TValue("20-11-2026"), TValue("20.11.2026"),
             TValue("2026-11-20"), TValue(" 20/11/2026 "), TValue("20/11/2026 00:00"), TValue("2026-11-20T00:00:00"),
             TValue(TDateTime::FromDate(2026, 11, 20)), TValue(46346)})
        EXPECT_EQ(Read(day, {cell}), "20/11/2026") << cell.AsString();
    EXPECT_EQ(Read(day, {"5/1/2026"}), "05/01/2026");
}

TEST(ColumnReader, WhatIsNoDateIsTold)
{
    for (const TValue& cell : {TValue("31/02/2026"), TValue("2026-13-01"), TValue("11/20/2026"), TValue("amanhã"),
             TValue("20/11"), TValue("1.5"), TValue(0.5), TValue(5)})
        EXPECT_EQ(Read(day, {cell}), "!Não é uma data como 20/11/2026.") << cell.AsString();
    EXPECT_EQ(Read(day, {"20/11/0026"}), "!O ano 26 não faz sentido.");
}

TEST(ColumnReader, AnHourIsKeptOnlyWhereTheColumnHoldsOne)
{
    EXPECT_EQ(Read(moment, {"20/11/2026 14:30"}), "20/11/2026 14:30:00");
    EXPECT_EQ(Read(moment, {"2026-11-20 14:30:15"}), "20/11/2026 14:30:15");
    EXPECT_EQ(Read(day, {"20/11/2026 14:30"}), "!A coluna guarda o dia, sem a hora.");
}

TEST(ColumnReader, WidthIsCountedInCharacters)
{
    EXPECT_EQ(Read(text4, {"ÃÇÉÕ"}), "ÃÇÉÕ");
    EXPECT_EQ(Read(text4, {"GRANDE"}), "!O texto tem 6 caracteres; cabem 4.");
    EXPECT_EQ(Read(text4, {"GG      "}), "GG") << "texts are kept without trailing blanks";
}

TEST(ColumnReader, AChoiceIsGivenByItsValueOrByWhatItMeans)
{
    for (const char* cell : {"S", "s", "Sim", "SIM", " sim "})
        EXPECT_EQ(Read(flag, {cell}), "S") << cell;
    for (const char* cell : {"N", "n", "Não", "nao", "NÃO"})
        EXPECT_EQ(Read(flag, {cell}), "N") << cell;
    EXPECT_EQ(Read(kind, {"saida"}), "S");
    EXPECT_EQ(Read(text4, {"Sim"}), "Sim");
    const TColumnDecl numbered{.name = "IND_PAG", .kind = Integer, .choices = "1=Primeira,2=Segunda"};
    EXPECT_EQ(Read(numbered, {"2"}), "2");
    EXPECT_EQ(Read(numbered, {2.0}), "2");
    EXPECT_EQ(Read(numbered, {"segunda"}), "2");
    EXPECT_EQ(Read(numbered, {"3"}), "!Só pode ser 1 (Primeira), 2 (Segunda).");
}

TEST(ColumnReader, WhatIsNoChoiceIsToldWithThoseThatAre)
{
    EXPECT_EQ(Read(flag, {"X"}), "!Só pode ser S (Sim), N (Não).");
    EXPECT_EQ(Read(kind, {"--"}), "!Só pode ser E (Entrada), S (Saída).");
}

TEST(ColumnReader, ANumberOfASpreadsheetIsATextWhereTheColumnIs)
{
    EXPECT_EQ(Read(text4, {42.0}), "42");
    EXPECT_EQ(Read({"BARRA", Text, 20}, {7891234567895.0}), "7891234567895");
    EXPECT_EQ(Read({"OBS", Text, 20}, {TDateTime::FromDate(2026, 11, 20)}), "20/11/2026");
}

TEST(ColumnReader, DamagedTextsAreTold)
{
    EXPECT_EQ(Read(text4, {"a\xE7"}), "!O texto tem caracteres inválidos: o arquivo foi gravado em outra codificação.");
    EXPECT_EQ(Read(text4, {std::string("a\0", 2)}), "!O texto tem caracteres de controle.");
    EXPECT_EQ(Read(text4, {"#N/D"}), "!A fórmula da planilha deu erro.");
}

TEST(ColumnReader, AnEmptyCellIsNullInEveryColumn)
{
    for (const TColumnDecl& column : {text4, flag, number, whole, day})
        EXPECT_EQ(Read(column, {TValue()}), "nulo");
}

} // namespace
} // namespace alinhavo
