#pragma once

#include "forms/TDataSet.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TForm;

/// What a report's template may use. The screen fills it and keeps its datasets open until the report is shown.
class TprReportBase {
public:
    /// Datasets by the name that the template knows them by; bands run over their visible rows.
    std::map<std::string, TDataSet*, std::less<>> DataSets;
    std::map<std::string, TValue, std::less<>> Variables;
    /// Fields whose change of value starts a new group, outermost first, and the fields totalled in each.
    struct TGroup {
        std::string dataset;
        std::string field;
        std::vector<std::string> totals;
    };
    std::vector<TGroup> Groups;
    /// A name that the template uses and the data lack: the value, or null when the screen does not know it either.
    std::function<TValue(std::string_view name, const std::vector<TValue>& arguments)> OnUnknownFunction;
    std::string Title;
};

/// A graphic report: a page designed in HTML and CSS.
class TprReport final : public TprReportBase { };
/// A text report, for a line printer.
class TprTxReport final : public TprReportBase { };

/// Prepares and shows reports. `template` is a layout's name ("WFacPen"); one that is missing or broken tells the user
/// which file and line, and changes nothing. A non-empty `email` offers sending to that address.
class IReports {
public:
    virtual ~IReports() = default;
    virtual void Chama_Relatorio(
        TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen, std::string_view email)
        = 0;
    virtual void Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen) = 0;
    virtual void Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen) = 0;
};

} // namespace alinhavo
