#include "client/TfmFolhas.h"

#include "forms/TApplication.h"
#include "platform/report/htmlText.h"
#include "platform/session/TShownReport.h"

namespace alinhavo {

namespace {

constexpr int LinesOfText = 150;
constexpr int PageLines = 66;
constexpr int LongRows = 25000;

/// Whatever could run, fetch or lead away, had it come into a document.
constexpr std::string_view Hostile = R"(<!doctype html><html onclick="parent.invadido=1"><head>
<script>parent.invadido = 2; window.invadido = 2</script>
<meta http-equiv="refresh" content="0;url=/quem"><base href="https://exemplo.invalid/">
<link rel="stylesheet" href="/assets/x.css"></head><body onload="parent.invadido=3">
<img src="x" onerror="parent.invadido=4"><svg onload="parent.invadido=5"></svg><iframe srcdoc="<script>parent.parent.invadido=6</script>"></iframe>
<object data="/quem"></object><form action="/sair" method="post"><button>Sair</button></form>
<a href="javascript:parent.invadido=7">Texto da folha</a></body></html>)";

enum class TKind { Graphic, Text };

void ShowReport(TApplication& application, TKind kind, std::string title, std::string document)
{
    const TprReport data;
    TFinishedReport finished;
    finished.title = std::move(title);
    finished.isText = kind == TKind::Text;
    finished.document = std::move(document);
    finished.data = &data;
    TShownReport report(finished, [](const auto&) {});
    TDialog viewer{.kind = TDialog::TKind::Report, .title = finished.title, .report = &report};
    application.ShowDialog(viewer);
}

} // namespace

TfmFolhas::TfmFolhas(TApplication& app)
    : TForm(app, "TfmFolhas", "Folhas")
{
    btnTexto.OnClick.connect(this, &TfmFolhas::btnTextoClick);
    btnLonga.OnClick.connect(this, &TfmFolhas::btnLongaClick);
    btnHostil.OnClick.connect(this, &TfmFolhas::btnHostilClick);
}

void TfmFolhas::btnTextoClick()
{
    std::string text;
    for (int line = 1; line <= LinesOfText; ++line) {
        text += "Linha " + std::to_string(line) + "   <b>Peças & partes</b>\n";
        if (line % PageLines == 0)
            text += '\f';
    }
    ShowReport(Application(), TKind::Text, "Ficha de corte", text);
}

void TfmFolhas::btnLongaClick()
{
    std::string html = "<!doctype html><html><head><style>@page{size:A4 landscape;margin:11mm 10mm 15mm;@bottom-right{"
                       "content:\"Página \" counter(page) \" de \" counter(pages)}}body{font:8.5pt Arial;margin:0}"
                       "table{width:100%;border-collapse:collapse}</style></head><body><table><thead><tr><th>OP<th>Cor"
                       "<th>Peças</tr></thead><tbody>";
    for (int row = 1; row <= LongRows; ++row)
        html += "<tr><td>" + std::to_string(row) + "</td><td>Açaí</td><td>" + std::to_string(row % 97) + "</td></tr>";
    ShowReport(Application(), TKind::Graphic, "Longa", SealedHtml(html + "</tbody></table></body></html>"));
}

void TfmFolhas::btnHostilClick()
{
    ShowReport(Application(), TKind::Graphic, "Hostil", SealedHtml(std::string(Hostile)));
}

} // namespace alinhavo
