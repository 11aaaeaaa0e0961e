// A template that anybody wrote: it makes a report, or ends in an error that names its place, in measured time and memory;
// what the data holds is written so that it can do nothing, and the data stays as it is.

#include "Finding.h"
#include "forms/TMemTable.h"
#include "host/TprReport.h"
#include "platform/report/TRenderer.h"
#include "platform/report/TTemplateFolder.h"
#include "platform/report/TWorkFolder.h"
#include "TFuzzBytes.h"

#include <fstream>

namespace {

using namespace alinhavo;

constexpr std::string_view Hostile = "<a\"&'>";

struct TPendingTable final : TMemTable {
    TPendingTable()
        : TMemTable("TbRel")
    {
        for (const int row : {1, 2, 3}) {
            Append();
            Faccao = row < 3 ? "00001" : "00002";
            Obs = Hostile;
            Quant = row * 1.5;
            if (row > 1)
                Data = TDateTime::FromDate(2026, 11, row);
            Post();
        }
        GoToRow(1);
    }

    TStringField Faccao{*this, "FACCAO", 5};
    TStringField Obs{*this, "OBS", 20};
    TFloatField Quant{*this, "QUANT"};
    TDateField Data{*this, "DATA"};
};

/// A template that others include.
const TWorkFolder& Folder()
{
    static const TWorkFolder folder;
    static const bool written = [] {
        std::ofstream(folder.Path() / "Parte.prt") << "{{ OBS }}\n% se QUANT > 2\n{{ num(QUANT, 2) }}\n% fim\n";
        return true;
    }();
    MustHold(written, "the folder of templates is missing");
    return folder;
}

TRenderSetup Setup()
{
    TRenderSetup setup;
    setup.names["usuario"] = "ANA";
    setup.pictures = Folder().Path();
    setup.limits = {.expression = std::chrono::milliseconds(200), .memory = 4 << 20, .output = 1 << 20};
    return setup;
}

std::string Render(const std::string& text, bool html, TPendingTable& rows)
{
    const TTemplateFolder folder({Folder().Path()});
    const auto layout = TTemplate::Parse("WTeste.prt", text, folder);
    TprReport report;
    report.DataSets["TbRel"] = &rows;
    report.Variables["titulo"] = std::string(Hostile);
    report.Groups = {{"TbRel", "FACCAO", {"QUANT"}}};
    report.OnUnknownFunction = [](std::string_view, const std::vector<TValue>& arguments) {
        return arguments.empty() ? TValue() : arguments.front();
    };
    const auto setup = Setup();
    TRenderer renderer(layout, report, setup);
    return (html ? renderer.Html() : renderer.Text()).text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TFuzzBytes bytes(data, size);
    const bool html = bytes.Choice(4) != 0;
    const auto text = bytes.Until('\0');
    TPendingTable rows;
    std::string rendered;
    try {
        rendered = Render(text, html, rows);
    } catch (const ETemplate& error) {
        MustHold(std::string_view(error.what()).starts_with("Erro no modelo "), "an error names no template");
    }
    MustHold(!html || rendered.find(Hostile) == std::string::npos || text.find(Hostile) != std::string::npos,
        "a value is written as HTML");
    MustHold(rows.RecNo() == 1 + 1 && rows.RecordCount() == 3, "the report moved the screen's cursor");
    MustHold(rows.CellValue(2, rows.Quant).AsFloat() == 4.5, "the report changed the data");
    return 0;
}
