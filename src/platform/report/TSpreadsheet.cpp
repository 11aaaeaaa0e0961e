#include "platform/report/TSpreadsheet.h"

#include "forms/text.h"
#include "platform/report/TWorkFolder.h"

#include <algorithm>
#include <fstream>
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
    }
    ~TBook()
    {
        if (book_)
            workbook_close(book_);
    }
    TBook(const TBook&) = delete;
    TBook& operator=(const TBook&) = delete;

    void AddSheet(const std::string& name, const TDataSet& rows, const std::set<std::string>& totalled);
    std::string Finish();

private:
    void WriteTitles(const std::vector<const TField*>& fields);
    void WriteCell(lxw_row_t row, lxw_col_t column, const TField& field, const TValue& value);
    void WriteTotals(lxw_row_t row, const std::vector<const TField*>& fields, const std::set<std::string>& totalled);

    std::string File() const { return (folder_.Path() / "relatorio.xlsx").string(); }

    TWorkFolder folder_;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* bold_ = nullptr;
    lxw_format* date_ = nullptr;
};

std::vector<const TField*> ShownFields(const TDataSet& rows)
{
    std::vector<const TField*> fields;
    for (const auto* field : rows.Fields()) {
        if (field->options.visible && fields.size() < LXW_COL_MAX)
            fields.push_back(field);
    }
    return fields;
}

void TBook::AddSheet(const std::string& name, const TDataSet& rows, const std::set<std::string>& totalled)
{
    sheet_ = workbook_add_worksheet(book_, Left(name, LXW_SHEETNAME_MAX).c_str());
    if (!sheet_)
        throw std::runtime_error("A planilha \"" + name + "\" não pode ser criada.");
    const auto fields = ShownFields(rows);
    const auto count = std::min(rows.RecordCount(), MostRows);
    worksheet_set_column(sheet_, 0, LXW_COL_MAX - 1, ColumnWidth, nullptr);
    worksheet_freeze_panes(sheet_, 1, 0);
    WriteTitles(fields);
    for (std::size_t row = 0; row < count; ++row) {
        for (std::size_t column = 0; column < fields.size(); ++column)
            WriteCell(static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(column), *fields[column],
                rows.CellValue(row, *fields[column]));
    }
    if (count > 0)
        WriteTotals(static_cast<lxw_row_t>(count + 1), fields, totalled);
}

void TBook::WriteTitles(const std::vector<const TField*>& fields)
{
    for (std::size_t column = 0; column < fields.size(); ++column) {
        const auto& title = fields[column]->options.title;
        worksheet_write_string(
            sheet_, 0, static_cast<lxw_col_t>(column), (title.empty() ? fields[column]->Name() : title).c_str(), bold_);
    }
}

void TBook::WriteCell(lxw_row_t row, lxw_col_t column, const TField& field, const TValue& value)
{
    if (value.IsNull())
        return;
    if (field.Kind() == TFieldKind::Text)
        worksheet_write_string(sheet_, row, column, Left(value.AsString(), LongestText).c_str(), nullptr);
    else if (value.IsDate())
        worksheet_write_unixtime(sheet_, row, column, value.AsDateTime().Seconds(), date_);
    else
        worksheet_write_number(sheet_, row, column, value.AsFloat(), nullptr);
}

void TBook::WriteTotals(lxw_row_t row, const std::vector<const TField*>& fields, const std::set<std::string>& totalled)
{
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (!totalled.contains(UpperCase(fields[index]->Name())))
            continue;
        const auto column = static_cast<lxw_col_t>(index);
        char range[LXW_MAX_CELL_RANGE_LENGTH] = {};
        lxw_rowcol_to_range(range, 1, column, row - 1, column);
        worksheet_write_formula_num(sheet_, row, column, ("=SUM(" + std::string(range) + ")").c_str(), bold_,
            fields[index]->DataSet().Sum(fields[index]->Name()));
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
        if (rows)
            book.AddSheet(name, *rows, totalled);
    }
    return book.Finish();
}

} // namespace alinhavo
