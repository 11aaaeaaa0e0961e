#include "platform/session/roteiro/TReportNotes.h"

#include "forms/TForm.h"
#include "platform/report/htmlText.h"
#include "platform/report/TTemplateFolder.h"

#include <fstream>
#include <utility>

namespace alinhavo::roteiro {

TReportNotes::TReportNotes(TReportFolders folders, const std::filesystem::path& sharedRoot)
    : folders_(std::move(folders))
    , engine_({.layouts = {folders_.layouts},
          .sharedRoot = sharedRoot,
          .show = [this](const TFinishedReport& report, TForm& screen) { Show(report, screen); }})
{
}

void TReportNotes::Chama_Relatorio(
    TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen, std::string_view email)
{
    if (Begin(layout))
        return engine_.Chama_Relatorio(report, textReport, layout, screen, email);
    Note(report);
    Note(textReport);
}

void TReportNotes::Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen)
{
    if (Begin(layout))
        return engine_.Chama_RelatorioWin(report, layout, screen);
    Note(report);
}

void TReportNotes::Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen)
{
    if (Begin(layout))
        return engine_.Chama_RelatorioTxt(report, layout, screen);
    Note(report);
}

bool TReportNotes::Begin(std::string_view layout)
{
    layout_ = layout;
    text_.clear();
    return !folders_.layouts.empty() && std::filesystem::exists(folders_.layouts / TemplateFile(layout));
}

void TReportNotes::Show(const TFinishedReport& report, TForm& screen)
{
    text_ = report.isText ? report.document : HtmlText(report.document);
    Keep(report);
    for (const auto& name : report.unknownNames)
        screen.Mensagem("O modelo " + report.layout + " usa um nome que ninguém conhece: " + name);
}

void TReportNotes::Keep(const TFinishedReport& report) const
{
    if (!folders_.kept.empty())
        std::ofstream(folders_.kept / (report.layout + (report.isText ? ".txt" : ".html"))) << report.document;
}

void TReportNotes::Note(const TprReportBase& report)
{
    text_ += report.Title + "\n";
    for (const auto& [name, value] : report.Variables)
        text_ += value.AsString() + "\n";
    for (const auto& [name, rows] : report.DataSets) {
        if (rows)
            NoteRows(*rows);
    }
}

void TReportNotes::NoteRows(TDataSet& rows)
{
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
        for (const auto* field : rows.Fields())
            text_ += rows.CellText(row, *field) + " ";
        text_ += "\n";
    }
}

} // namespace alinhavo::roteiro
