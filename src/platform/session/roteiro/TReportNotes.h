#pragma once

#include "host/TprReport.h"

#include <string>

namespace alinhavo::roteiro {

/// Notes the reports that are asked for: the layout's name, and the texts that the screen gives to it (title, variables, the
/// visible rows of its datasets).
class TReportNotes final : public IReports {
public:
    void Chama_Relatorio(TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen,
        std::string_view email) override;
    void Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen) override;
    void Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen) override;

    const std::string& Layout() const { return layout_; } ///< of the last one; "" when none was asked for
    const std::string& Text() const { return text_; }

private:
    void Begin(std::string_view layout);
    void Note(const TprReportBase& report);
    void NoteRows(TDataSet& rows);

    std::string layout_;
    std::string text_;
};

} // namespace alinhavo::roteiro
