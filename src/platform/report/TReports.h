#pragma once

#include "host/TprReport.h"
#include "platform/report/TLua.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

struct TRenderSetup;

/// A report that was made, while its screen shows it.
struct TFinishedReport {
    std::string layout; ///< name of its template
    std::string title;
    std::string email; ///< to whom it may be sent; empty: it is not offered
    bool isText = false;
    std::string document; ///< HTML, or pages of plain text
    std::set<std::string> unknownNames; ///< that its template uses and nobody knows
    const TprReportBase* data = nullptr; ///< for the spreadsheet; of the session's thread, until the showing ends
};

/// The report engine: makes a report of a template and the screen's data, and has it shown.
class TReports final : public IReports {
public:
    /// Shows a report until the user has done with it. Runs on the session's thread.
    using TShow = std::function<void(const TFinishedReport&, TForm&)>;

    struct TSetup {
        std::vector<std::filesystem::path>
            layouts; ///< folders of the templates, the factory's own before those delivered
        std::filesystem::path sharedRoot; ///< pictures are taken only from below it
        TShow show;
        TReportLimits limits = {};
    };

    explicit TReports(TSetup setup)
        : setup_(std::move(setup))
    {
    }

    void Chama_Relatorio(TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen,
        std::string_view email) override;
    void Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen) override;
    void Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen) override;

    /// Gives up the report that is being made, from any thread.
    void Cancel() { cancelled_ = true; }

private:
    enum class TKind { Graphic, Text };

    void Run(const TprReportBase& report, TKind kind, std::string_view layout, TForm& screen, std::string_view email);
    TFinishedReport Make(const TprReportBase& report, TKind kind, std::string_view layout, TForm& screen);
    TRenderSetup Surroundings(TForm& screen, std::string_view layout) const;

    TSetup setup_;
    std::atomic<bool> cancelled_ = false;
};

} // namespace alinhavo
