#include "host/EDatabaseError.h"
#include "platform/database/firebird/TFirebirdDialect.h"
#include "platform/database/postgresql/TPostgreSqlDialect.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

std::string Firebird(std::string_view sql, const std::string& company = "01")
{
    return TFirebirdDialect(company).Translate(sql).text;
}
std::string PostgreSql(std::string_view sql, const std::string& company = "01")
{
    return TPostgreSqlDialect(company).Translate(sql).text;
}

TEST(TDialect, TablesHaveTheCompanysName)
{
    EXPECT_EQ(Firebird("SELECT * FROM {FACCAO} F, {Empresa}"), "SELECT * FROM FACCAO F, EMPRESA");
    EXPECT_EQ(Firebird("SELECT * FROM {faccao} F, {EMPRESA}", "02"), "SELECT * FROM FACCAO_02 F, EMPRESA");
    EXPECT_EQ(PostgreSql("SELECT * FROM {FACCAO} F, {EMPRESA}", "02"), "SELECT * FROM emp02.faccao F, public.empresa");
}

TEST(TDialect, NamesThatAreNoneAreRefused)
{
    for (const auto* sql : {"SELECT 1 FROM {}", "SELECT 1 FROM {A;B}", "SELECT 1 FROM {", "SELECT 1 FROM {A B}"})
        EXPECT_THROW(Firebird(sql), EDatabaseError) << sql;
    for (const auto* company : {"", "001", "0;", "0'"})
        EXPECT_THROW(Firebird("SELECT 1 FROM {A}", company), EDatabaseError) << company;
}

TEST(TDialect, QuotedTextAndCommentsStay)
{
    const auto* sql = "SELECT '{FACCAO} ? ORDER BY ''x''', \"ORDER BY ?\" -- {X} ?\n /* ? ORDER BY LIST[ */ FROM T";
    EXPECT_EQ(PostgreSql(sql), sql);
    EXPECT_EQ(Firebird(sql), sql);
}

TEST(TDialect, PlaceholdersAreNumberedWhereTheServerWantsIt)
{
    EXPECT_EQ(PostgreSql("SELECT ? FROM T WHERE A = ? AND B = '?'"), "SELECT $1 FROM T WHERE A = $2 AND B = '?'");
    EXPECT_EQ(Firebird("SELECT ? FROM T WHERE A = ?"), "SELECT ? FROM T WHERE A = ?");
}

TEST(TDialect, EachKeyOfAnOrderSaysWhereNullsStand)
{
    EXPECT_EQ(
        PostgreSql("SELECT A FROM T ORDER BY A, B DESC"), "SELECT A FROM T ORDER BY A NULLS FIRST, B DESC NULLS LAST ");
    EXPECT_EQ(PostgreSql("SELECT A FROM T order  by F(A, B), C asc NULLS LAST"),
        "SELECT A FROM T order  by F(A, B) NULLS FIRST, C asc NULLS LAST ");
    EXPECT_EQ(PostgreSql("SELECT A FROM (SELECT A FROM T ORDER BY A) X WHERE A IN (1, 2)"),
        "SELECT A FROM (SELECT A FROM T ORDER BY A NULLS FIRST ) X WHERE A IN (1, 2)");
    EXPECT_EQ(PostgreSql("SELECT A FROM T ORDER BY A FETCH FIRST 1 ROWS ONLY"),
        "SELECT A FROM T ORDER BY A  NULLS FIRST FETCH FIRST 1 ROWS ONLY");
    EXPECT_EQ(PostgreSql("SELECT ROW_NUMBER() OVER (PARTITION BY B, C ORDER BY A) FROM T"),
        "SELECT ROW_NUMBER() OVER (PARTITION BY B, C ORDER BY A NULLS FIRST ) FROM T");
    EXPECT_EQ(Firebird("SELECT A FROM T ORDER BY A"), "SELECT A FROM T ORDER BY A ");
}

TEST(TDialect, ABeginningIsFoundByTheServersOperator)
{
    const auto* sql = "SELECT A FROM T WHERE A starting  WITH ? OR STARTING = 1";
    EXPECT_EQ(PostgreSql(sql), "SELECT A FROM T WHERE A ^@ $1 OR STARTING = 1");
    EXPECT_EQ(Firebird(sql), "SELECT A FROM T WHERE A STARTING WITH ? OR STARTING = 1");
}

TEST(TDialect, ListsBecomeTheServersAggregate)
{
    EXPECT_EQ(PostgreSql("SELECT LIST[SETOR, ' ', ORDEM] FROM {FLUXO}"),
        "SELECT string_agg(CAST(SETOR AS VARCHAR), ' ' ORDER BY ORDEM NULLS FIRST) FROM emp01.fluxo");
    EXPECT_EQ(PostgreSql("SELECT LIST[SUBSTRING(A FROM 1 FOR 2) || ?, ', ', B DESC, F(C, D)] FROM T"),
        "SELECT string_agg(CAST(SUBSTRING(A FROM 1 FOR 2) || $1 AS VARCHAR), ', ' ORDER BY B DESC NULLS LAST, F(C, D) "
        "NULLS"
        " FIRST) FROM T");
    EXPECT_EQ(PostgreSql("SELECT LIST[A] FROM T"), "SELECT string_agg(CAST(A AS VARCHAR), ',') FROM T");
}

TEST(TDialect, TheKeysOfAListAreOrderedByTheirType)
{
    const auto isNumeric = [](std::string_view key) {
        const auto sql = "SELECT LIST[A, ' ', " + std::string(key) + "] FROM {FLUXO} F";
        return TFirebirdDialect("01").Translate(sql).lists.at(0).keys.at(0).numeric;
    };
    EXPECT_TRUE(isNumeric("ORDEM"));
    EXPECT_TRUE(isNumeric("F.ORDEM DESC"));
    EXPECT_TRUE(isNumeric("CAST(SETOR AS INTEGER)"));
    EXPECT_TRUE(isNumeric("SUM(X)"));
    EXPECT_FALSE(isNumeric("SETOR"));
    EXPECT_FALSE(isNumeric("CODIGO || SETOR"));
}

TEST(TDialect, AListThatIsWrittenWronglyIsRefused)
{
    for (const auto* sql : {"SELECT LIST[A, ' ', B FROM T", "SELECT LIST[A, B, C] FROM T",
             "SELECT LIST[DISTINCT A, ' ', B] FROM T", "SELECT A FROM T WHERE LIST[A, ' '] = ''",
             "SELECT A FROM T ORDER BY LIST[A, ' ']", "SELECT A) FROM T", "SELECT (A FROM T"})
        EXPECT_THROW(Firebird(sql), EDatabaseError) << sql;
}

TEST(TDialect, ValuesAreWrittenAsLiterals)
{
    const std::vector<TValue> values{
        TValue("O'Neil "), TValue(7), TValue(2.5), TValue(TDateTime::FromDate(2026, 12, 31)), TValue(), TValue("")};
    EXPECT_EQ(TFirebirdDialect("01").TranslateWith("SELECT ?, ?, ?, ?, ?, ?", values).text,
        "SELECT CAST('O''Neil' AS VARCHAR(6)), 7, 2.5e0, CAST('12/31/2026' AS DATE), NULL, CAST('' AS VARCHAR(1))");
    EXPECT_THROW(TFirebirdDialect("01").TranslateWith("SELECT ?, ?", {TValue(1)}), EDatabaseError);
}

TEST(TDialect, TheKindOfAStatementIsKnown)
{
    const TPostgreSqlDialect dialect("01");
    EXPECT_EQ(dialect.Translate(" -- x\n select 1").kind, TSqlKind::Read);
    EXPECT_EQ(dialect.Translate("WITH X AS (SELECT 1) SELECT * FROM X").kind, TSqlKind::Read);
    EXPECT_EQ(dialect.Translate("MERGE INTO T").kind, TSqlKind::Write);
    EXPECT_EQ(dialect.Translate("CREATE TABLE T (A INTEGER)").kind, TSqlKind::Definition);
}

} // namespace
} // namespace alinhavo
