#include "TDatabaseTest.h"

#include "forms/text.h"

#include <algorithm>
#include <random>

namespace alinhavo {
namespace {

using enum TDatabaseErrorKind;
using TTexts = std::vector<std::string>;

class Query : public TDatabaseTest {
protected:
    void AddSector(const std::string& code, const std::string& name)
    {
        db->ExecSQL({"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES (?, ?)", code, name});
    }
    void AddFlow(const std::string& flow, const TValue& order, const TValue& sector)
    {
        db->ExecSQL({"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES (?, ?, ?)", flow, order, sector});
    }
};
ON_BOTH_SERVERS(Query);

TEST_P(Query, ResultsAreTypedByColumn)
{
    const auto date = TDateTime::FromDate(2026, 11, 20);
    const auto hour = TDateTime::FromDateTime(2026, 11, 20, 14, 30, 59);
    db->ExecSQL({"INSERT INTO {GERALOG} (MODULO, DATA_HORA) VALUES (?, ?)", "Ação", hour});
    db->ExecSQL({"INSERT INTO {FACCAO} (NUMERO, OP, MOV, QT_ORIG, DT_S) VALUES (?, ?, ?, ?, ?)", "000123", nullptr,
        TValue(9'000'000'000), 2.5, date});

    const auto log = db->Open({"SELECT MODULO, DATA_HORA FROM {GERALOG}"});
    EXPECT_EQ(log.Column(0).Text(0), "Ação");
    EXPECT_EQ(log.Column(1).Kind(), TFieldKind::DateTime);
    EXPECT_EQ(log.Column(1).Value(0).AsDateTime(), hour);

    const auto position = db->Open({"SELECT NUMERO, OP, MOV, QT_ORIG, DT_S FROM {FACCAO}"});
    EXPECT_EQ(position.Column(0).Kind(), TFieldKind::Text);
    EXPECT_EQ(position.Column(0).Size(), 6);
    EXPECT_TRUE(position.Column(1).IsNull(0));
    EXPECT_EQ(position.Column(2).Kind(), TFieldKind::Integer);
    EXPECT_EQ(position.Column(2).Integer(0), 9'000'000'000);
    EXPECT_EQ(position.Column(3).Kind(), TFieldKind::Float);
    EXPECT_EQ(position.Column(3).Float(0), 2.5);
    EXPECT_EQ(position.Column(4).Kind(), TFieldKind::Date);
    EXPECT_EQ(position.Column(4).Value(0).AsDateTime(), date);
}

TEST_P(Query, DatesBefore1970AndAtTheEdgesComeBack)
{
    for (const auto date : {TDateTime::FromDate(1, 1, 1), TDateTime::FromDate(1969, 12, 31),
             TDateTime::FromDate(2000, 1, 1), TDateTime::FromDate(9999, 12, 31)})
        db->ExecSQL({"INSERT INTO {GERALOG} (MODULO, DATA_HORA) VALUES (?, ?)", "M", date});
    EXPECT_EQ(Values(*db, {"SELECT DATA_HORA FROM {GERALOG} ORDER BY IDENTIFICADOR"}),
        (TTexts{"01/01/0001", "31/12/1969", "01/01/2000", "31/12/9999"}));
}

TEST_P(Query, AffectedRowsAreCounted)
{
    AddSector("010", "Corte");
    AddSector("020", "Costura");
    EXPECT_EQ(db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = ?", 1}), 2);
    EXPECT_EQ(db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = ? WHERE CODIGO = ?", 1, "999"}), 0);
    EXPECT_EQ(db->ExecSQL({"INSERT INTO {FLUXO} (CODIGO, SETOR) SELECT ?, CODIGO FROM {CADFLUXO}", "001"}), 2);
    EXPECT_EQ(db->ExecSQL({"DELETE FROM {FLUXO}"}), 2);
}

TEST_P(Query, ARowThatIsWrittenCanBeAnswered)
{
    const auto data = db->Open({"INSERT INTO {FLUXO} (CODIGO) VALUES (?) RETURNING IDENTIFICADOR", "001"});
    ASSERT_EQ(data.RowCount(), 1U);
    EXPECT_EQ(data.Column(0).Name(), "IDENTIFICADOR");
    EXPECT_GT(data.Column(0).Integer(0), 0);
    EXPECT_TRUE(db->Pending());
}

TEST_P(Query, NamesOfColumnsAreInUpperCaseUnlessQuoted)
{
    const auto data = db->Open({"SELECT COUNT(*) AS total, COUNT(*) AS \"Quantas\" FROM {CADFLUXO}"});
    EXPECT_EQ(data.Column(0).Name(), "TOTAL");
    EXPECT_EQ(data.Column(1).Name(), "Quantas");
}

TEST_P(Query, SumsAndMeansOfWholeNumbersAreWholeNumbers)
{
    AddFlow("001", 2, "010");
    AddFlow("001", 3, "020");
    const auto data = db->Open({"SELECT SUM(ORDEM) AS S, AVG(ORDEM) AS M, COUNT(*) AS C FROM {FLUXO}"});
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(data.Column(i).Kind(), TFieldKind::Integer);
    EXPECT_EQ(data.Column(0).Integer(0), 5);
    EXPECT_EQ(data.Column(1).Integer(0), 2);
    EXPECT_EQ(Value(*db, {"SELECT SUM(ORDEM) FROM {FLUXO} WHERE CODIGO = ?", "zz"}), "null");
    EXPECT_EQ(Value(*db, {"SELECT AVG(ORDEM) FROM {FLUXO} WHERE CODIGO = ?", "zz"}), "null");
}

TEST_P(Query, DecimalExpressionsComeAsNumbers)
{
    AddSector("010", "Corte");
    for (const auto* expression : {"123456.789", "-0.001", "0.5", "100000000.25", "-70000.5"})
        EXPECT_EQ(db->OpenText(std::string("SELECT ") + expression + " AS N FROM {CADFLUXO}").Column(0).Float(0),
            std::stod(expression));
    EXPECT_EQ(Value(*db, {"SELECT CAST(12.5 AS NUMERIC(15, 3)) FROM {CADFLUXO}"}), "12.5");
}

TEST_P(Query, TextsAreStoredWithoutTrailingBlanks)
{
    AddSector("010", "Corte   ");
    EXPECT_EQ(Value(*db, {"SELECT CHAR_LENGTH(DESCRICAO) FROM {CADFLUXO}"}), "5");
    EXPECT_EQ(Value(*db, {"SELECT CODIGO FROM {CADFLUXO} WHERE DESCRICAO = ?", "Corte "}), "010");
    EXPECT_EQ(Value(*db, {"SELECT 'x  ' FROM {CADFLUXO}"}), "x");
}

TEST_P(Query, EmptyTextIsNoNull)
{
    AddSector("010", "");
    EXPECT_EQ(Value(*db, {"SELECT DESCRICAO FROM {CADFLUXO} WHERE DESCRICAO = ''"}), "");
    EXPECT_EQ(Value(*db, {"SELECT CODIGO FROM {CADFLUXO} WHERE DESCRICAO IS NULL"}), "no row");
}

TEST_P(Query, WidthsCountCharacters)
{
    db->ExecSQL({"INSERT INTO {CADCOR} (COR) VALUES (?)", "ÁÉÍÓÚÇ"});
    EXPECT_EQ(Value(*db, {"SELECT COR FROM {CADCOR}"}), "ÁÉÍÓÚÇ");
    EXPECT_EQ(Value(*db, {"SELECT SUBSTRING(COR FROM 2 FOR 3) FROM {CADCOR}"}), "ÉÍÓ");
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {CADCOR} (COR) VALUES (?)", "ÁÉÍÓÚÇÃ"})->Kind(), Conversion);
}

TEST_P(Query, ALongerTextIsSimplyNotFound)
{
    db->ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", "000009", "Azul"});
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADCOR} WHERE COR = ?", "0000090"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADCOR} WHERE COR LIKE ?", "%0%0%0%9%"}), "1");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADCOR} WHERE COR = ?", "000009"}), "1");
}

TEST_P(Query, NumbersMatchTextColumnsByTheirText)
{
    AddFlow("1", 5, "010");
    EXPECT_EQ(Value(*db, {"SELECT SETOR FROM {FLUXO} WHERE CODIGO = ?", 1}), "010");
    EXPECT_EQ(Value(*db, {"SELECT SETOR FROM {FLUXO} WHERE ORDEM = ?", "5"}), "010");
    EXPECT_EQ(Value(*db, {"SELECT SETOR FROM {FLUXO} WHERE ORDEM = ?", 5.0}), "010");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FLUXO} WHERE ORDEM > ?", 4.5}), "1");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FLUXO} WHERE ORDEM < ?", 4.5}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FLUXO} WHERE ORDEM = ?", 4.5}), "0");
}

TEST_P(Query, TextsThatAreNoNumberOrDateAreRefused)
{
    AddFlow("1", 5, "010");
    for (const auto* text : {"abc", "", "1,5", "1.5"})
        EXPECT_EQ(Refusal(*db, {"UPDATE {FLUXO} SET DESCRICAO = 'x' WHERE ORDEM = ?", text})->Kind(), Conversion)
            << text;
    db->ExecSQL({"INSERT INTO {FACCAO} (NUMERO) VALUES (?)", "1"});
    for (const auto* text : {"abc", "", "1,5"})
        EXPECT_EQ(Refusal(*db, {"UPDATE {FACCAO} SET QT_ORIG = ?", text})->Kind(), Conversion) << text;
    EXPECT_EQ(Refusal(*db, {"UPDATE {FACCAO} SET DT_S = ?", "31/12/2026"})->Kind(), Conversion);
    EXPECT_EQ(Refusal(*db, {"UPDATE {FACCAO} SET DT_S = ?", "ontem"})->Kind(), Conversion);
    EXPECT_EQ(Refusal(*db, {"UPDATE {FACCAO} SET DT_S = ?", 5})->Kind(), Conversion);
}

TEST_P(Query, DatesAreBoundAndWrittenMonthFirst)
{
    db->ExecSQL({"INSERT INTO {FACCAO} (NUMERO, DT_S) VALUES (?, ?)", "1", "12/31/2026"});
    db->ExecSQL({"INSERT INTO {FACCAO} (NUMERO, DT_S) VALUES (?, '01/02/2026')", "2"});
    EXPECT_EQ(Values(*db, {"SELECT DT_S FROM {FACCAO} ORDER BY NUMERO"}), (TTexts{"31/12/2026", "02/01/2026"}));
    EXPECT_EQ(
        Value(*db,
            {"SELECT NUMERO FROM {FACCAO} WHERE DT_S BETWEEN '01/01/2026' AND ?", TDateTime::FromDate(2026, 1, 2)}),
        "2");
    EXPECT_EQ(Value(*db, {"SELECT NUMERO FROM {FACCAO} WHERE DT_S > CAST('06/30/2026' AS DATE)"}), "1");
    EXPECT_EQ(Value(*db, {"SELECT DT_S + ? FROM {FACCAO} WHERE NUMERO = '2'", 30}), "01/02/2026");
}

TEST_P(Query, ValuesMayStandWhereTheServerCannotKnowTheirType)
{
    AddSector("010", "Corte");
    const auto date = TDateTime::FromDate(2026, 11, 20);
    const auto data = db->Open({"SELECT ? AS T, ? AS I, ? AS F, ? AS D, ? AS N FROM {CADFLUXO} WHERE ? = ?", "a  ", 7,
        2.5, date, nullptr, "x", "x"});
    ASSERT_EQ(data.RowCount(), 1U);
    EXPECT_EQ(data.Column(0).Text(0), "a");
    EXPECT_EQ(data.Column(1).Integer(0), 7);
    EXPECT_EQ(data.Column(2).Float(0), 2.5);
    EXPECT_EQ(data.Column(3).Value(0).AsDateTime(), date);
    EXPECT_TRUE(data.Column(4).IsNull(0));
    EXPECT_EQ(
        Value(*db, {"SELECT CASE WHEN CODIGO = ? THEN ? ELSE ? END FROM {CADFLUXO}", "010", "sim", "não"}), "sim");
    EXPECT_EQ(Value(*db, {"SELECT COALESCE(GRUPO, ?) FROM {CADFLUXO}", "sem grupo algum"}), "sem grupo algum");
    EXPECT_EQ(Value(*db, {"SELECT CODIGO || ? FROM {CADFLUXO}", " - corte e risco"}), "010 - corte e risco");
    EXPECT_EQ(Value(*db, {"SELECT SUBSTRING(DESCRICAO FROM ? FOR ?) FROM {CADFLUXO}", 2, 3}), "ort");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE ? IS NULL", "x"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE COALESCE(?, '') = ''", nullptr}), "1");
}

TEST_P(Query, RowsAreWrittenFromASelectOfValuesAndColumns)
{
    AddSector("010", "Corte");
    AddSector("020", "Costura");
    EXPECT_EQ(
        db->ExecSQL({"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR, DESCRICAO)"
                     " SELECT DISTINCT ?, ?, CODIGO, CASE WHEN CODIGO = ? THEN ? ELSE DESCRICAO END FROM {CADFLUXO}",
            "001", 10, "010", "Sala de corte"}),
        2);
    EXPECT_EQ(Values(*db, {"SELECT DESCRICAO FROM {FLUXO} ORDER BY SETOR"}), (TTexts{"Sala de corte", "Costura"}));
    EXPECT_EQ(Value(*db, {"SELECT SUM(ORDEM) FROM {FLUXO}"}), "20");
}

TEST_P(Query, ValuesNeverBecomePartOfTheStatement)
{
    const std::string nasty = "'; DELETE FROM CADFLUXO; -- \" {FACCAO} ? \\' LIST[a]";
    const auto name = nasty.substr(0, 29);
    AddSector("010", name);
    EXPECT_EQ(Value(*db, {"SELECT DESCRICAO FROM {CADFLUXO} WHERE DESCRICAO = ?", name}), name);
    EXPECT_EQ(Value(*db, {"SELECT ? FROM {CADFLUXO}", nasty}), nasty);
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE CODIGO = ?", nasty}), "0");
}

TEST_P(Query, BytesThatAreNoCharactersAreRefused)
{
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {CADCOR} (COR) VALUES (?)", "\xC3"})->Kind(), Conversion);
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {CADCOR} (COR) VALUES (?)", std::string("a\0b", 3)})->Kind(), Conversion);
}

TEST_P(Query, NullsSortLowest)
{
    AddFlow("001", 2, "b");
    AddFlow("001", nullptr, "n");
    AddFlow("001", 1, "a");
    AddFlow("002", nullptr, "o");
    EXPECT_EQ(Values(*db, {"SELECT SETOR FROM {FLUXO} ORDER BY ORDEM, SETOR"}), (TTexts{"n", "o", "a", "b"}));
    EXPECT_EQ(Values(*db, {"SELECT SETOR FROM {FLUXO} ORDER BY ORDEM DESC, SETOR DESC"}), (TTexts{"b", "a", "o", "n"}));
    EXPECT_EQ(Values(*db, {"SELECT SETOR, COALESCE(ORDEM, 0) AS O FROM {FLUXO} ORDER BY 2 DESC, CODIGO, 1"}),
        (TTexts{"b", "a", "n", "o"}));
    EXPECT_EQ(Values(*db, {"SELECT SETOR FROM {FLUXO} ORDER BY ORDEM DESC, SETOR FETCH FIRST 3 ROWS ONLY"}),
        (TTexts{"b", "a", "n"}));
}

TEST_P(Query, TextsSortAlikeOnEachServerAndInMemory)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const TTexts letters{"a", "A", "á", "Á", "ã", "b", "B", "c", "ç", "Ç", "z", "Z", "0", "1", "9", " ", "-", "/", ".",
        "_", "(", "+", "é", "õ", "ü", "ñ", "º", "ª", "&", "'", "#", "%", ",", "*"};
    TTexts texts;
    for (int i = 0; i < 400; ++i) {
        std::string text;
        const auto length = 1 + random() % 6;
        for (std::size_t j = 0; j < length; ++j)
            text += letters[random() % letters.size()];
        text = TrimRight(text);
        if (text.empty() || std::ranges::find(texts, text) != texts.end())
            continue;
        texts.push_back(text);
        AddFlow("x", i, nullptr);
        db->ExecSQL({"UPDATE {FLUXO} SET DESCRICAO = ? WHERE ORDEM = ?", text, i});
    }
    std::ranges::sort(texts, [](const auto& left, const auto& right) { return CompareText(left, right) < 0; });
    EXPECT_EQ(Values(*db, {"SELECT DESCRICAO FROM {FLUXO} ORDER BY DESCRICAO"}), texts);
    for (std::size_t i = 0; i + 1 < texts.size(); i += 10)
        EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FLUXO} WHERE DESCRICAO < ?", texts[i]}), std::to_string(i));
    EXPECT_EQ(Value(*db, {"SELECT MAX(DESCRICAO) FROM {FLUXO}"}), texts.back());
}

TEST_P(Query, CaseAndAccentsAreToldApart)
{
    AddSector("010", "Ação");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE DESCRICAO = ?", "AÇÃO"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE DESCRICAO = ?", "Acao"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE UPPER(DESCRICAO) = ?", "AÇÃO"}), "1");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE DESCRICAO LIKE ?", "aç%"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO} WHERE UPPER(DESCRICAO) LIKE ?", "AÇ%"}), "1");
    AddSector("020", "AÇÃO");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO}"}), "2");
}

TEST_P(Query, TextsAreFoundByTheirBeginning)
{
    for (const auto* code : {"789123", "789124", "78_", "79", "Á1"})
        db->ExecSQL({"INSERT INTO {PA_ITEN} (BARRA) VALUES (?)", code});
    const auto count = [&](const char* beginning) {
        return Value(*db, {"SELECT COUNT(*) FROM {PA_ITEN} WHERE BARRA STARTING WITH ?", beginning});
    };
    EXPECT_EQ(count("7891"), "2");
    EXPECT_EQ(count("78_"), "1");
    EXPECT_EQ(count("7%"), "0");
    EXPECT_EQ(count("Á"), "1");
    EXPECT_EQ(count("A"), "0");
    EXPECT_EQ(count(""), "5");
    EXPECT_EQ(count("789123456789012345"), "0");
}

TEST_P(Query, TodayAndNowAreWhatWasSet)
{
    AddSector("010", "Corte");
    const TStatement today("SELECT CURRENT_DATE AS HOJE FROM {CADFLUXO}");
    const TStatement now("SELECT CURRENT_TIMESTAMP AS AGORA FROM {CADFLUXO}");
    const auto serverNow = db->Open(now).Column(0).Value(0).AsDateTime();
    EXPECT_EQ(db->Open(today).Column(0).Value(0).AsDateTime(), serverNow.Date());
    EXPECT_GT(serverNow, TDateTime::FromDate(2025, 1, 1));

    db->SetNow(TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0));
    EXPECT_EQ(Value(*db, today), "20/11/2026");
    EXPECT_EQ(Value(*db, now), "20/11/2026 14:30:00");
    db->SetNow({});
    EXPECT_EQ(db->Open(today).Column(0).Value(0).AsDateTime(), serverNow.Date());
}

TEST_P(Query, ListsAreInTheirOrder)
{
    AddFlow("001", 10, "30");
    AddFlow("001", 9, "20");
    AddFlow("001", nullptr, "10");
    AddFlow("002", 1, nullptr);
    AddFlow("002", 2, "x'y");
    EXPECT_EQ(Values(*db, {"SELECT LIST[SETOR, ' ', ORDEM] AS L FROM {FLUXO} GROUP BY CODIGO ORDER BY CODIGO"}),
        (TTexts{"10 20 30", "x'y"}));
    EXPECT_EQ(
        Values(*db, {"SELECT LIST[SETOR || '!', ', ', ORDEM DESC] AS L FROM {FLUXO} GROUP BY CODIGO ORDER BY CODIGO"}),
        (TTexts{"30!, 20!, 10!", "x'y!"}));
    EXPECT_EQ(Value(*db, {"SELECT '<' || LIST[SETOR, '''', CODIGO DESC, SETOR DESC] || '>' AS L FROM {FLUXO}"}),
        "<x'y'30'20'10>");
    EXPECT_EQ(Value(*db, {"SELECT LIST[SETOR, ' ', ORDEM] FROM {FLUXO} WHERE CODIGO = ?", "zz"}), "null");
}

TEST_P(Query, ListsOfDistinctElementsAreInTheirOwnOrder)
{
    for (const auto* sector : {"b", "á", "a", "b", "a"})
        AddFlow("001", 1, sector);
    EXPECT_EQ(Value(*db, {"SELECT LIST[DISTINCT SETOR, ','] AS L FROM {FLUXO}"}), "a,á,b");
}

TEST_P(Query, AListMayComeFromASubselect)
{
    AddSector("010", "Corte");
    AddFlow("002", 1, "010");
    AddFlow("001", 2, "010");
    const auto data
        = db->Open({"SELECT C.CODIGO, (SELECT LIST[F.CODIGO, ',', F.ORDEM DESC] FROM {FLUXO} F"
                    " WHERE F.SETOR = C.CODIGO AND F.CODIGO <> ?) AS FLUXOS FROM {CADFLUXO} C WHERE C.CODIGO = ?",
            "zz", "010"});
    EXPECT_EQ(data.Column(1).Text(0), "001,002");
}

TEST_P(Query, AListIsRefusedWhereItWouldBeComparedOrStored)
{
    EXPECT_EQ(
        Refusal(*db, {"SELECT CODIGO FROM {FLUXO} GROUP BY CODIGO HAVING LIST[SETOR, ' ', ORDEM] = ?", "a"})->Kind(),
        Syntax);
    EXPECT_EQ(
        Refusal(*db, {"SELECT CODIGO FROM {FLUXO} WHERE (SELECT LIST[SETOR, ' '] FROM {FLUXO}) = ?", "a"})->Kind(),
        Syntax);
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {FLUXO} (CODIGO) SELECT LIST[SETOR, ' '] FROM {FLUXO}"})->Kind(), Syntax);
}

TEST_P(Query, AStatementThatClosesTheTransactionIsRefused)
{
    for (const auto* text : {"COMMIT", " rollback", "", "   ", "xyz"}) {
        try {
            db->ExecText(text);
            FAIL() << text;
        } catch (const EDatabaseError& error) {
            EXPECT_EQ(error.Kind(), Syntax);
        }
    }
}

TEST_P(Query, ManyStatementsMoreThanTheCacheHolds)
{
    AddSector("010", "Corte");
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 400; ++i) {
            const auto number = std::to_string(i);
            ASSERT_EQ(db->OpenText("SELECT " + number + " AS N FROM {CADFLUXO}").Column(0).Integer(0), i);
        }
}

TEST_P(Query, OnStatementIsCalledBeforeAndMayFail)
{
    std::vector<std::string> seen;
    db->OnStatement = [&](const TStatement& statement) {
        seen.push_back(statement.Rendered());
        if (seen.size() == 2)
            throw EDatabaseError(Other, "disco cheio");
    };
    AddSector("010", "Corte");
    EXPECT_EQ(Refusal(*db, {"DELETE FROM {CADFLUXO}"})->what(), std::string("disco cheio"));
    EXPECT_EQ(seen[0], "INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('010', 'Corte')");
    db->OnStatement = nullptr;
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADFLUXO}"}), "1");
}

} // namespace
} // namespace alinhavo
