#include "platform/exchange/EExchange.h"
#include "platform/exchange/TFileTable.h"
#include "platform/report/TWorkFolder.h"

#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <zip.h>

namespace alinhavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

class Workbook : public testing::Test {
protected:
    /// A workbook of which only the parts given differ from a plain one.
    std::filesystem::path Write(const std::string& rows, const std::map<std::string, std::string>& parts = {})
    {
        std::map<std::string, std::string> all{
            {"xl/workbook.xml",
                R"(<x:workbook xmlns:x="m" xmlns:r="n"><x:sheets><x:sheet r:id="rId2"/></x:sheets></x:workbook>)"},
            {"xl/_rels/workbook.xml.rels",
                R"(<Relationships><Relationship Id="rId2" Target="worksheets/dados.xml"/></Relationships>)"},
            {"xl/styles.xml",
                R"(<styleSheet><numFmts><numFmt numFmtId="164" formatCode="dd/mm/yyyy"/><numFmt numFmtId="165" formatCode="0.00 &quot;dias&quot;"/></numFmts>)"
                R"(<cellStyleXfs><xf numFmtId="14"/></cellStyleXfs>)"
                R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="164"/><xf numFmtId="165"/></cellXfs></styleSheet>)"},
            {"xl/sharedStrings.xml",
                R"(<sst><si><t>Código</t></si><si><r><t xml:space="preserve">Meia </t></r><r><t>malha</t></r><rPh><t>x</t></rPh></si><si><t>a_x000D_b_x005F_</t></si></sst>)"},
            {"xl/worksheets/dados.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"},
        };
        for (const auto& [name, content] : parts)
            all[name] = content;
        return Pack(all);
    }

    std::filesystem::path Pack(const std::map<std::string, std::string>& parts)
    {
        const auto path = folder.Path() / "teste.xlsx";
        std::filesystem::remove(path);
        zip_t* archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
        for (const auto& [name, content] : parts)
            zip_file_add(archive, name.c_str(), zip_source_buffer(archive, content.data(), content.size(), 0), 0);
        EXPECT_EQ(zip_close(archive), 0);
        return path;
    }

    /// Each line: its number and its cells, between bars.
    std::vector<std::string> Lines(const std::filesystem::path& file, const TFileLimits& limits = {})
    {
        std::vector<std::string> lines;
        for (const TFileLine& line : ReadTableFile(file, limits).lines) {
            auto text = std::to_string(line.number);
            for (const TValue& cell : line.cells)
                text += "|" + (cell.IsNull() ? "nulo" : cell.AsString());
            lines.push_back(text);
        }
        return lines;
    }

    TWorkFolder folder;
};

TEST_F(Workbook, TextsAreSharedWrittenInPlaceOrResultsOfFormulas)
{
    EXPECT_THAT(
        Lines(Write(
            R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="s"><v>1</v></c></row>)"
            R"(<row r="2"><c r="A2" t="inlineStr"><is><t>x</t></is></c><c r="B2" t="str"><f>A1</f><v>y</v></c></row>)")),
        ElementsAre("1|Código|Meia malha", "2|x|y"));
}

TEST_F(Workbook, EscapedCharactersAreBroughtBack)
{
    EXPECT_THAT(Lines(Write(R"(<row><c t="s"><v>2</v></c></row>)")), ElementsAre("1|a\rb_"));
}

TEST_F(Workbook, ANumberWithTheFormatOfADateIsADate)
{
    const auto table = ReadTableFile(Write(R"(<row r="1"><c s="1"><v>46346</v></c><c s="2"><v>46346.5</v></c>)"
                                           R"(<c s="3"><v>46346</v></c><c><v>46346</v></c></row>)"));
    const auto& cells = table.lines.at(0).cells;
    EXPECT_EQ(cells.at(0).AsString(), "20/11/2026");
    EXPECT_EQ(cells.at(1).AsString(), "20/11/2026 12:00:00");
    EXPECT_TRUE(cells.at(2).IsFloat()) << "the letters of its format stand in quotes";
    EXPECT_TRUE(cells.at(3).IsFloat());
    EXPECT_EQ(table.form, "planilha XLSX");
}

TEST_F(Workbook, DaysMayBeCountedFrom1904)
{
    EXPECT_THAT(
        Lines(Write(R"(<row><c s="1"><v>44884</v></c></row>)",
            {{"xl/workbook.xml",
                R"(<workbook xmlns:r="n"><workbookPr date1904="1"/><sheets><sheet r:id="rId2"/></sheets></workbook>)"}})),
        ElementsAre("1|20/11/2026"));
}

TEST_F(Workbook, CellsStandWhereTheirNamesSay)
{
    EXPECT_THAT(Lines(Write(R"(<row r="3"><c r="C3"><v>1.5</v></c></row><row r="5"><c r="A5" t="b"><v>1</v></c></row>)"
                            R"(<row><c/><c><v>2</v></c></row>)")),
        ElementsAre("3|nulo|nulo|1.5", "5|S", "6|nulo|2"));
}

TEST_F(Workbook, RowsWithoutContentAreLeftOut)
{
    EXPECT_THAT(
        Lines(Write(R"(<row r="1"><c r="A1" s="1"/></row><row r="2"><c><v>1</v></c></row>)")), ElementsAre("2|1"));
}

TEST_F(Workbook, ABombIsRefusedBeforeItUnfolds)
{
    EXPECT_THAT(
        [&] { Lines(Write("<row><c><v>1</v></c></row>" + std::string(10'000'000, ' ')), {.bytes = 1'000'000}); },
        ThrowsMessage<EExchange>("A planilha é grande demais depois de descompactada."));
}

TEST_F(Workbook, OneTextInManyCellsIsRefusedAsWell)
{
    std::string rows;
    for (int i = 0; i < 1000; ++i)
        rows += R"(<row><c t="s"><v>0</v></c></row>)";
    const std::string text(10'000, 'x');
    EXPECT_THAT(
        [&] {
            Lines(Write(rows, {{"xl/sharedStrings.xml", "<sst><si><t>" + text + "</t></si></sst>"}}),
                {.bytes = 1'000'000});
        },
        ThrowsMessage<EExchange>("A planilha tem textos demais."));
}

TEST_F(Workbook, AColumnFarAwayIsRefused)
{
    EXPECT_THAT([&] { Lines(Write(R"(<row r="1"><c r="XFD1"><v>1</v></c></row>)")); },
        ThrowsMessage<EExchange>("A linha 1 tem colunas demais."));
}

TEST_F(Workbook, ADocumentTypeIsRefused)
{
    EXPECT_THAT(
        [&] {
            Lines(Write("", {{"xl/workbook.xml", R"(<!DOCTYPE x [<!ENTITY a "aaaa">]><workbook/>)"}}));
        },
        ThrowsMessage<EExchange>("A planilha está danificada."));
}

TEST_F(Workbook, ADamagedFileIsRefused)
{
    const auto path = folder.Path() / "x.xlsx";
    std::ofstream(path) << "PK\x03\x04 e mais nada";
    EXPECT_THAT([&] { Lines(path); }, ThrowsMessage<EExchange>(HasSubstr("danificada")));
    EXPECT_THAT([&] { Lines(Pack({{"outra", "coisa"}})); }, ThrowsMessage<EExchange>(HasSubstr("danificada")));
    EXPECT_THAT([&] { Lines(Write("<row><c>")); }, ThrowsMessage<EExchange>(HasSubstr("danificada")));
}

TEST_F(Workbook, AnOldWorkbookIsRefusedWithWhatToDo)
{
    const auto path = folder.Path() / "x.xls";
    std::ofstream(path) << "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    EXPECT_THAT([&] { Lines(path); }, ThrowsMessage<EExchange>(HasSubstr("salve-a como XLSX")));
}

} // namespace
} // namespace alinhavo
