#pragma once

#include "platform/report/TReports.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace alinhavo::roteiro {

/// Where the templates of a roteiro's reports are, and where its reports go.
struct TReportFolders {
    std::filesystem::path layouts = {}; ///< empty: there are no templates
    std::filesystem::path kept = {}; ///< each report is left here as a file; empty: none is
};

/// Makes the reports that are asked for, and notes the last one: its layout, and what a person reads in it. Of a layout
/// without a template the texts that the screen gives are noted (title, variables, the visible rows of its datasets). A
/// name in a template that nobody knows is said in a box, which no roteiro expects.
class TReportNotes final : public IReports {
public:
    TReportNotes(TReportFolders folders, const std::filesystem::path& sharedRoot);

    void Chama_Relatorio(TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen,
        std::string_view email) override;
    void Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen) override;
    void Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen) override;

    const std::string& Layout() const { return layout_; } ///< of the last one; "" when none was asked for
    const std::string& Text() const { return text_; }

private:
    /// False when there is no template.
    bool Begin(std::string_view layout);
    void Show(const TFinishedReport& report, TForm& screen);
    void Keep(const TFinishedReport& report) const;
    void Note(const TprReportBase& report);
    void NoteRows(TDataSet& rows);

    TReportFolders folders_;
    TReports engine_;
    std::string layout_;
    std::string text_;
};

} // namespace alinhavo::roteiro
