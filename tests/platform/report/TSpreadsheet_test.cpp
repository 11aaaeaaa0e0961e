#include "platform/report/TSpreadsheet.h"

#include "TReportTest.h"

#include <cstdio>
#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::HasSubstr;
using TSpreadsheets = TReportTest;

/// A file of the workbook.
std::string Unzipped(const std::string& book, const std::string& file)
{
    const TWorkFolder folder;
    const auto path = folder.Path() / "x.xlsx";
    std::ofstream(path, std::ios::binary) << book;
    auto* pipe = popen(("unzip -p " + path.string() + " " + file).c_str(), "r");
    std::string text;
    char block[4096];
    for (auto size = fread(block, 1, sizeof block, pipe); size > 0; size = fread(block, 1, sizeof block, pipe))
        text.append(block, size);
    pclose(pipe);
    return text;
}

TEST_F(TSpreadsheets, hold_the_rows_with_their_kinds_and_the_totals)
{
    TbRel.Add("=1+1", "000123", 10);
    TbRel.Add("00002", "000124", 5.5);
    Report.Groups = {{"TbRel", "FACCAO", {"QUANT"}}};
    const auto sheet = Unzipped(Spreadsheet(Report), "xl/worksheets/sheet1.xml");
    EXPECT_THAT(sheet, HasSubstr("<is><t>=1+1</t></is>"));
    EXPECT_THAT(sheet, HasSubstr("<is><t>000124</t></is>"));
    EXPECT_THAT(sheet, HasSubstr("<v>5.5</v>"));
    EXPECT_THAT(sheet, HasSubstr("<f>SUM(C2:C3)</f><v>15.5</v>"));
    EXPECT_THAT(sheet, HasSubstr("<v>46346</v>"));
}

TEST_F(TSpreadsheets, of_a_report_without_rows_hold_the_titles)
{
    EXPECT_THAT(Unzipped(Spreadsheet(Report), "xl/worksheets/sheet1.xml"), HasSubstr("<is><t>NUMERO</t></is>"));
}

} // namespace
} // namespace alinhavo
