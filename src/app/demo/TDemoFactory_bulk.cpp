#include "app/demo/TDemoFactory.h"
#include "host/TTableDecl.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

constexpr int weeksOfHistory = 104;
constexpr int weeksOfOpenOrders = 13; ///< before that all orders are finished
constexpr std::size_t share = 3; ///< a copy takes every third order
constexpr int weekStep = 7; ///< has no common divisor with the weeks, so that the copies spread over all of them

/// How far a copy of the orders is from them.
struct TShift {
    int orders; ///< added to numbers of orders
    int salesOrders;
    std::int64_t lines; ///< added to keys of FACCAO
    int days; ///< earlier
};

/// A table with rows of orders, and the column that says of which.
struct TOrderTable {
    std::string_view name;
    std::string_view order = "NUMERO";
};

constexpr auto orderTables = std::to_array<TOrderTable>({{"OF1"}, {"OF2"}, {"OF_ITEN"}, {"OF_SETOR"}, {"PCP_MOV"},
    {"PCPFTOF"}, {"FACCAO"}, {"FACCAO3"}, {"PA_MOV", "DOCUMENTO"}});
constexpr auto salesTables = std::to_array<TOrderTable>({{"PEDIDO"}, {"PEDIDO4"}, {"PED_ITEN"}});

/// The number `by` further, with the zeros of its width; a blank one stays.
void AddNumber(TStatement& sql, std::string_view column, int by)
{
    sql.Add(
        "CASE WHEN ? = '' THEN '' ELSE LPAD(CAST(CAST(? AS INTEGER) + CAST(? AS INTEGER) AS VARCHAR(6)), 6, '0') END",
        TName(column), TName(column), by);
}

/// What stands in the column of a copy.
void AddColumn(TStatement& sql, const TOrderTable& table, const TColumnDecl& column, const TShift& shift, bool ofSales)
{
    if (column.name == table.order)
        AddNumber(sql, column.name, ofSales ? shift.salesOrders : shift.orders);
    else if (column.name == "PEDIDO")
        AddNumber(sql, column.name, shift.salesOrders);
    else if (column.name == "ID_ANT" || column.kind == TColumnKind::Identity)
        sql.Add("? + CAST(? AS BIGINT)", TName(column.name), shift.lines);
    else if (column.name == "IDENTIFICADOR")
        sql.Add("? + CAST(? AS BIGINT)", TName(column.name), shift.orders);
    else if (column.kind == TColumnKind::Date)
        sql.Add("? - CAST(? AS INTEGER)", TName(column.name), shift.days);
    else if (column.kind == TColumnKind::DateTime)
        sql.Add("CAST(CAST(? AS DATE) - CAST(? AS INTEGER) AS TIMESTAMP)", TName(column.name), shift.days);
    else
        sql.Add("?", TName(column.name));
}

/// Only the keys of FACCAO are referred to; the other tables number their rows themselves.
std::vector<TColumnDecl> CopiedColumns(const TOrderTable& table)
{
    const auto& declared = FindTable(table.name)->columns;
    std::vector<TColumnDecl> columns(declared.begin(), declared.end());
    if (table.name != "FACCAO")
        std::erase_if(columns, [](const TColumnDecl& column) { return column.kind == TColumnKind::Identity; });
    return columns;
}

/// All rows of some numbers, once more.
TStatement CopyOf(const TOrderTable& table, const TShift& shift, const std::string& numbers, bool ofSales)
{
    TStatement names;
    TStatement values;
    const TFragment none("");
    const TFragment comma(", ");
    for (bool first = true; const TColumnDecl& column : CopiedColumns(table)) {
        names.Add(first ? none : comma).Add("?", TName(column.name));
        values.Add(first ? none : comma);
        AddColumn(values, table, column, shift, ofSales);
        first = false;
    }
    TStatement sql("INSERT INTO {?} (", TName(table.name));
    sql.Add(names).Add(") SELECT ").Add(values);
    sql.Add(" FROM {?} WHERE ? IN (?)", TName(table.name), TName(table.order), TLiteralList(numbers));
    if (table.name == "PA_MOV")
        sql.Add(" AND ORIGEM = 'FC'");
    if (table.name == "FACCAO" || table.name == "FACCAO3")
        sql.Add(" ORDER BY IDENTIFICADOR");
    return sql;
}

/// Every so manieth, from that one on.
std::string ListOf(const TTableData& rows, std::size_t from = 0, std::size_t every = 1)
{
    std::string list;
    for (std::size_t row = from; row < rows.RowCount(); row += every)
        list.append(list.empty() ? "" : ",").append(Aspas(rows.Column(0).Text(row)));
    return list;
}

} // namespace

// Orders are copied by sets with all that the screens wrote for them, so that a copy differs from what was driven through the
// screens in its numbers and days alone. What is long past is finished.
void TDemoFactory::Multiply(int scale)
{
    if (scale <= 1)
        return;
    const TTableData all = database_.Open({"SELECT NUMERO FROM {OF1} ORDER BY NUMERO"});
    const TTableData finished = database_.Open({R"(
        SELECT NUMERO FROM {FACCAO} GROUP BY NUMERO
        HAVING SUM(CASE WHEN QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0 THEN 1 ELSE 0 END) = 0 ORDER BY NUMERO)"});
    const auto lines = database_.Open({"SELECT MAX(IDENTIFICADOR) FROM {FACCAO}"}).Column(0).Integer(0);

    for (int copy = 1; copy < scale; ++copy) {
        const int weeks = copy * weekStep % (weeksOfHistory + 1);
        const TShift shift{.orders = copy * static_cast<int>(orders_.size()),
            .salesOrders = copy * summary_.salesOrders,
            .lines = copy * lines,
            .days = weeks * 7};
        const std::string orders
            = ListOf(weeks < weeksOfOpenOrders ? all : finished, static_cast<std::size_t>(copy) % share, share);
        const std::string sales = ListOf(database_.Open({"SELECT DISTINCT PEDIDO FROM {OF1} WHERE NUMERO IN (?) AND "
                                                         "PEDIDO <> '' ORDER BY PEDIDO",
            TLiteralList(orders)}));
        for (const TOrderTable& table : orderTables)
            database_.ExecSQL(CopyOf(table, shift, orders, false));
        for (const TOrderTable& table : salesTables)
            database_.ExecSQL(CopyOf(table, shift, sales, true));
        database_.CommitRetaining();
    }
    StockCopies();
    NumberLinesFrom(scale * lines + 1);
    CountOrders();
}

/// The stock of products is what its history adds up to.
void TDemoFactory::StockCopies()
{
    database_.ExecSQL({R"(
        UPDATE {PA_ITEN} SET QUANTIDADE = (
            SELECT SUM(CASE WHEN M.SAIDA = 'S' THEN -M.QUANTIDADE ELSE M.QUANTIDADE END)
              FROM {PA_MOV} M
             WHERE M.CODIGO = {PA_ITEN}.CODIGO AND M.COR = {PA_ITEN}.COR AND M.TAM = {PA_ITEN}.TAM
               AND M.QUALIDADE = {PA_ITEN}.TIPO AND M.DEPOSITO = {PA_ITEN}.DEPOSITO AND M.LOTE = {PA_ITEN}.LOTE)
         WHERE EXISTS (
            SELECT 1 FROM {PA_MOV} M
             WHERE M.CODIGO = {PA_ITEN}.CODIGO AND M.COR = {PA_ITEN}.COR AND M.TAM = {PA_ITEN}.TAM
               AND M.QUALIDADE = {PA_ITEN}.TIPO AND M.DEPOSITO = {PA_ITEN}.DEPOSITO AND M.LOTE = {PA_ITEN}.LOTE))"});
    database_.CommitRetaining();
}

/// What is inserted next gets that key.
void TDemoFactory::NumberLinesFrom(std::int64_t key)
{
    database_.ExecText("ALTER TABLE {FACCAO} ALTER COLUMN IDENTIFICADOR RESTART WITH " + std::to_string(key));
    database_.CommitRetaining();
}

void TDemoFactory::CountOrders()
{
    const auto orders = database_.Open({"SELECT COUNT(*) FROM {OF1}"});
    summary_.orders = static_cast<int>(orders.Column(0).Integer(0));
    summary_.salesOrders = static_cast<int>(database_.Open({"SELECT COUNT(*) FROM {PEDIDO}"}).Column(0).Integer(0));
    summary_.pieces = static_cast<int>(database_.Open({"SELECT SUM(QTDE_OF) FROM {OF_ITEN}"}).Column(0).Integer(0));
    summary_.movements = static_cast<int>(database_.Open({"SELECT COUNT(*) FROM {FACCAO3}"}).Column(0).Integer(0));
}

} // namespace alinhavo
