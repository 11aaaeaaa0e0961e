#include "platform/session/roteiro/TReportNotes.h"

namespace alinhavo::roteiro {

void TReportNotes::Chama_Relatorio(
    TprReport& report, TprTxReport& textReport, std::string_view layout, TForm&, std::string_view)
{
    Begin(layout);
    Note(report);
    Note(textReport);
}

void TReportNotes::Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm&)
{
    Begin(layout);
    Note(report);
}

void TReportNotes::Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm&)
{
    Begin(layout);
    Note(report);
}

void TReportNotes::Begin(std::string_view layout)
{
    layout_ = layout;
    text_.clear();
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
