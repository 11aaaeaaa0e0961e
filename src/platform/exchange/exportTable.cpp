#include "platform/exchange/exportTable.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/TOrvQuery.h"
#include "platform/exchange/EExchange.h"
#include "platform/exchange/headers.h"
#include "platform/report/separatedCell.h"
#include "platform/report/TSpreadsheet.h"

#include <algorithm>

namespace alinhavo {
namespace {

constexpr std::size_t MostRowsOfWorkbook = 1'048'575; ///< besides the titles

TStatement Select(const TTableDecl& table, const std::vector<const TColumnDecl*>& columns)
{
    TStatement sql("SELECT ");
    for (const TColumnDecl* column : columns) {
        if (column != columns.front())
            sql.Add(", ");
        sql.Add("?", TName(column->name));
    }
    sql.Add(" FROM {?} ORDER BY ", TName(table.name));
    const auto key = ColumnNames(table.key);
    for (const auto name : key) {
        if (name != key.front())
            sql.Add(", ");
        sql.Add("?", TName(name));
    }
    return sql;
}

/// A number has a comma before its decimals and nothing between its thousands, so that nobody need guess.
std::string Cell(const TValue& value)
{
    if (value.IsFloat())
        return Replace(FloatToStr(value.AsFloat()), ".", ",");
    return QuotedCell(value.IsText() ? WithFormulaMark(value.Text()) : value.AsString());
}

std::string SeparatedText(const TOrvQuery& rows)
{
    std::string text = "\xEF\xBB\xBF";
    const auto fields = rows.Fields();
    const auto append
        = [&](const TField* field, const std::string& cell) { text += (field == fields.front() ? "" : ";") + cell; };
    for (const TField* field : fields)
        append(field, QuotedCell(WithFormulaMark(field->options.title)));
    text += "\r\n";
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
        for (const TField* field : fields)
            append(field, Cell(rows.CellValue(row, *field)));
        text += "\r\n";
    }
    return text;
}

} // namespace

void OpenTable(const TTableDecl& table, TOrvQuery& rows)
{
    const auto columns = ExchangedColumns(table);
    if (columns.empty())
        throw EExchange("A tabela " + std::string(table.name) + " não tem o que exportar.");
    rows.SQL = Select(table, columns);
    rows.Open();
    for (const TColumnDecl* column : columns)
        rows.FieldByName(column->name).options.title = TitleOfColumn(table, *column);
}

std::string ExportTable(TOrvDatabase& database, const TTableDecl& table, TFileForm form)
{
    TOrvQuery rows(database);
    OpenTable(table, rows);
    if (form == TFileForm::Csv)
        return SeparatedText(rows);
    if (rows.RecordCount() > MostRowsOfWorkbook)
        throw EExchange("A tabela tem mais linhas do que cabem numa planilha; exporte-a como CSV.");
    return Spreadsheet(std::string(table.name), rows);
}

} // namespace alinhavo
