#include "TDemoTest.h"

#include "app/demo/TMovementClerk.h"
#include "host/TTableDecl.h"
#include "platform/verification/TVerification.h"

#include <set>

namespace alinhavo {
namespace {

constexpr const char* lastOfHistory = "026300";
constexpr int copiedOrders = 300; ///< how far the number of a copy is from its order's
constexpr int copiedDays = 49; ///< how much earlier it is

/// The factory with its history, and every third order once more.
class DemoHistory : public TDemoTest {
protected:
    void SetUp() override
    {
        TDemoTest::SetUp();
        if (!IsSkipped())
            db = &FactoryAtWork(GetParam());
    }

    void ExpectNoError()
    {
        for (const TViolation& violation : Verify(*db))
            EXPECT_NE(violation.severity, TSeverity::Error) << violation.check << ": " << violation.keys;
    }

    /// Rows of an order, without what numbers them.
    TTableData RowsOf(std::string_view table, std::string_view orderColumn, const std::string& order)
    {
        TStatement sql("SELECT 1 AS ONE");
        for (const TColumnDecl& column : FindTable(table)->columns) {
            if (IsCompared(column, orderColumn))
                sql.Add(", ?", TName(column.name));
        }
        sql.Add(" FROM {?} WHERE ? = ? ORDER BY COR, TAM, ?", TName(table), TName(orderColumn), order,
            TName(table == "OF_ITEN" ? "QTDE" : "IDENTIFICADOR"));
        return db->Open(sql);
    }

    static bool IsCompared(const TColumnDecl& column, std::string_view orderColumn)
    {
        static const std::set<std::string_view> numbers{"IDENTIFICADOR", "ID_ANT", "PEDIDO"};
        return column.name != orderColumn && !numbers.contains(column.name) && column.kind != TColumnKind::DateTime;
    }
};
ON_BOTH_SERVERS(DemoHistory);

TEST_P(DemoHistory, OrdersStandInEveryStage)
{
    const auto orders = [&](const TStatement& having) {
        TStatement sql("SELECT COUNT(*) FROM (SELECT NUMERO FROM {FACCAO} WHERE NUMERO <= ? GROUP BY NUMERO HAVING ",
            lastOfHistory);
        return Count(sql.Add(having).Add(") ORDERS"));
    };
    const int begun = orders({"COUNT(*) > 0"});
    const int open = orders({"SUM(CASE WHEN QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0 THEN 1 ELSE 0 END) > 0"});
    EXPECT_GT(begun, 200);
    EXPECT_LT(begun, 300) << "some have not begun";
    EXPECT_GT(open, 60);
    EXPECT_GT(begun - open, 60) << "finished";
    EXPECT_GT(Count({R"(
        SELECT COUNT(DISTINCT OP) FROM {FACCAO}
         WHERE NUMERO <= ? AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0)",
                  lastOfHistory}),
        10)
        << "sectors where something waits";
}

TEST_P(DemoHistory, PiecesAreSpoiltAndBatchesDivided)
{
    EXPECT_GT(Count({"SELECT SUM(QUANT_2) FROM {FACCAO3}"}), 50);
    EXPECT_GT(Count({"SELECT SUM(QUANT_I) FROM {FACCAO3}"}), 5);
    EXPECT_GT(Count({"SELECT SUM(QUANT_F) FROM {FACCAO3}"}), 10);
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {FACCAO} WHERE MOV > 1"}), 500);
    EXPECT_GT(Count({"SELECT COUNT(*) FROM {PA_MOV} WHERE ORIGEM = 'FC'"}), 500) << "finished goods in stock";
}

TEST_P(DemoHistory, NothingContradictsTheRules) { ExpectNoError(); }

TEST_P(DemoHistory, ACopiedOrderDiffersFromTheOneDrivenThroughTheScreenInNumbersAndDaysAlone)
{
    const std::string copy
        = Texts({"SELECT MIN(DOCUMENTO) FROM {PA_MOV} WHERE ORIGEM = 'FC' AND DOCUMENTO > ?", lastOfHistory}).front();
    const std::string order = "0" + std::to_string(std::stoi(copy) - copiedOrders);
    for (const auto& [table, column] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
             {"FACCAO", "NUMERO"}, {"FACCAO3", "NUMERO"}, {"OF_ITEN", "NUMERO"}, {"PA_MOV", "DOCUMENTO"}}) {
        const TTableData driven = RowsOf(table, column, order);
        const TTableData copied = RowsOf(table, column, copy);
        ASSERT_GT(driven.RowCount(), 0U) << table;
        ASSERT_EQ(driven.RowCount(), copied.RowCount()) << table;
        for (std::size_t row = 0; row < driven.RowCount(); ++row) {
            for (std::size_t i = 0; i < driven.ColumnCount(); ++i) {
                const TValue value = driven.Column(i).Value(row);
                const TValue expected = value.IsDate() ? TValue(value.AsDateTime().AddDays(-copiedDays)) : value;
                EXPECT_EQ(copied.Column(i).Value(row).AsString(), expected.AsString())
                    << table << "." << driven.Column(i).Name();
            }
        }
    }
}

TEST_P(DemoHistory, ACopiedOrderMovesOnThroughTheScreen)
{
    const TTableData waiting = db->Open({R"(
        SELECT NUMERO, OP, MOV FROM {FACCAO}
         WHERE NUMERO > ? AND OP IN ('02', '05', '06') AND PARTE = '01'
           AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0
         ORDER BY IDENTIFICADOR)",
        lastOfHistory});
    ASSERT_GT(waiting.RowCount(), 0U);
    const std::string order(waiting.Column(0).Text(0));
    const std::string sector(waiting.Column(1).Text(0));
    const std::string batch = waiting.Column(2).Value(0).AsString();
    const auto before = Count({"SELECT MAX(IDENTIFICADOR) FROM {FACCAO}"});
    {
        TMovementClerk clerk(*db, {"ANA", "ANA"});
        clerk.BeginDay(Today());
        clerk.Move({.order = order, .part = "01", .sector = sector, .batch = batch},
            [](int pending) { return TMovementClerk::TLeaving{.good = pending}; });
    }
    EXPECT_GT(Count({"SELECT MAX(IDENTIFICADOR) FROM {FACCAO} WHERE NUMERO = ?", order}), before);
    ExpectNoError();
}

} // namespace
} // namespace alinhavo
