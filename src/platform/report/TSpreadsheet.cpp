#include "platform/report/TSpreadsheet.h"

#include "forms/text.h"
#include "forms/TGrid.h"
#include "platform/report/TWorkFolder.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <stdexcept>
#include <utility>
#include <xlsxwriter.h>

namespace alinhavo {
namespace {

constexpr std::size_t MostRows = LXW_ROW_MAX - 2;
constexpr std::size_t LongestText = 32767;
constexpr double ColumnWidth = 14;

struct TSheetColumn {
    const TField* field;
    std::string title;
};

/// One workbook while it is written; its bytes at the end.
class TBook {
public:
    TBook()
    {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        auto folder = folder_.Path().string();
        options.tmpdir = folder.data();
        book_ = workbook_new_opt(File().c_str(), &options);
        if (!book_)
            throw std::runtime_error("A planilha não pode ser criada.");
        bold_ = workbook_add_format(book_);
        format_set_bold(bold_);
        date_ = workbook_add_format(book_);
        format_set_num_format(date_, "dd/mm/yyyy");
        moment_ = workbook_add_format(book_);
        format_set_num_format(moment_, "dd/mm/yyyy hh:mm:ss");
    }
    ~TBook()
    {
        if (book_)
            workbook_close(book_);
    }
    TBook(const TBook&) = delete;
    TBook& operator=(const TBook&) = delete;

    /// `rowAt`: the dataset's row for each line.
    using TRowAt = std::function<std::size_t(std::size_t line)>;
    void AddSheet(const std::string& name, const TDataSet& rows, const std::vector<TSheetColumn>& columns,
        const TRowAt& rowAt = std::identity());
    void AddTotals(
        const TDataSet& rows, const std::vector<TSheetColumn>& columns, const std::set<std::string>& totalled);
    std::string Finish();

private:
    void WriteTitles(const std::vector<TSheetColumn>& columns);
    void WriteCell(lxw_row_t row, lxw_col_t column, const TField& field, const TValue& value);

    std::string File() const { return (folder_.Path() / "relatorio.xlsx").string(); }

    TWorkFolder folder_;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* bold_ = nullptr;
    lxw_format* date_ = nullptr;
    lxw_format* moment_ = nullptr; ///< a date with its hour
};

std::size_t WrittenRows(const TDataSet& rows) { return std::min(rows.RecordCount(), MostRows); }

std::vector<TSheetColumn> ShownFields(const TDataSet& rows)
{
    std::vector<TSheetColumn> columns;
    for (const auto* field : rows.Fields()) {
        const auto& title = field->options.title;
        if (field->options.visible && columns.size() < LXW_COL_MAX)
            columns.push_back({field, title.empty() ? field->Name() : title});
    }
    return columns;
}

std::vector<TSheetColumn> ShownColumns(const TGrid& grid)
{
    std::vector<TSheetColumn> columns;
    for (const auto& column : grid.Columns()) {
        const auto* field = grid.DataSet()->FindField(column.field);
        if (column.visible && field && columns.size() < LXW_COL_MAX)
            columns.push_back({field, grid.TitleOf(column)});
    }
    return columns;
}

void TBook::AddSheet(
    const std::string& name, const TDataSet& rows, const std::vector<TSheetColumn>& columns, const TRowAt& rowAt)
{
    sheet_ = workbook_add_worksheet(book_, Left(name, LXW_SHEETNAME_MAX).c_str());
    if (!sheet_)
        throw std::runtime_error("A planilha \"" + name + "\" não pode ser criada.");
    worksheet_set_column(sheet_, 0, LXW_COL_MAX - 1, ColumnWidth, nullptr);
    worksheet_freeze_panes(sheet_, 1, 0);
    WriteTitles(columns);
    for (std::size_t row = 0; row < WrittenRows(rows); ++row) {
        for (std::size_t column = 0; column < columns.size(); ++column)
            WriteCell(static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(column), *columns[column].field,
                rows.CellValue(rowAt(row), *columns[column].field));
    }
}

void TBook::WriteTitles(const std::vector<TSheetColumn>& columns)
{
    for (std::size_t column = 0; column < columns.size(); ++column)
        worksheet_write_string(sheet_, 0, static_cast<lxw_col_t>(column), columns[column].title.c_str(), bold_);
}

void TBook::WriteCell(lxw_row_t row, lxw_col_t column, const TField& field, const TValue& value)
{
    if (value.IsNull())
        return;
    if (field.Kind() == TFieldKind::Text)
        worksheet_write_string(sheet_, row, column, Left(value.AsString(), LongestText).c_str(), nullptr);
    else if (value.IsDate())
        worksheet_write_unixtime(
            sheet_, row, column, value.AsDateTime().Seconds(), value.AsDateTime().HasHour() ? moment_ : date_);
    else
        worksheet_write_number(sheet_, row, column, value.AsFloat(), nullptr);
}

void TBook::AddTotals(
    const TDataSet& rows, const std::vector<TSheetColumn>& columns, const std::set<std::string>& totalled)
{
    const auto row = static_cast<lxw_row_t>(WrittenRows(rows) + 1);
    if (row == 1)
        return;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        const auto& field = *columns[index].field;
        if (!totalled.contains(UpperCase(field.Name())))
            continue;
        const auto column = static_cast<lxw_col_t>(index);
        char range[LXW_MAX_CELL_RANGE_LENGTH] = {};
        lxw_rowcol_to_range(range, 1, column, row - 1, column);
        worksheet_write_formula_num(
            sheet_, row, column, ("=SUM(" + std::string(range) + ")").c_str(), bold_, rows.Sum(field.Name()));
    }
}

std::string TBook::Finish()
{
    if (workbook_close(std::exchange(book_, nullptr)) != LXW_NO_ERROR)
        throw std::runtime_error("A planilha não pode ser gravada.");
    std::ifstream file(File(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

std::string Spreadsheet(const TprReportBase& report)
{
    std::set<std::string> totalled;
    for (const auto& group : report.Groups) {
        for (const auto& field : group.totals)
            totalled.insert(UpperCase(field));
    }
    TBook book;
    for (const auto& [name, rows] : report.DataSets) {
        if (!rows)
            continue;
        const auto columns = ShownFields(*rows);
        book.AddSheet(name, *rows, columns);
        book.AddTotals(*rows, columns, totalled);
    }
    return book.Finish();
}

std::string Spreadsheet(const std::string& sheet, const TDataSet& rows)
{
    TBook book;
    book.AddSheet(sheet, rows, ShownFields(rows));
    return book.Finish();
}

std::string Spreadsheet(const TGrid& grid)
{
    TBook book;
    if (grid.DataSet())
        book.AddSheet(
            "Grade", *grid.DataSet(), ShownColumns(grid), [&](std::size_t line) { return grid.DataRow(line); });
    return book.Finish();
}

} // namespace alinhavo
