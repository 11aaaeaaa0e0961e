#pragma once

#include "host/TprReport.h"

#include <string>

namespace alinhavo {

/// Stands where there is no report engine: says so to whoever asks for a report, and keeps the name asked for.
class TReportsNotInstalled final : public IReports {
public:
    void Chama_Relatorio(TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen,
        std::string_view email) override;
    void Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen) override;
    void Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen) override;

    /// "" when none was asked for.
    const std::string& LastLayout() const { return lastLayout_; }

private:
    void Refuse(std::string_view layout, TForm& screen);

    std::string lastLayout_;
};

} // namespace alinhavo
