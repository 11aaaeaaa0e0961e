#pragma once

#include "host/TprReport.h"
#include "platform/report/INames.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace alinhavo {

/// What the names of a template stand for at the place where its report has got to: the rows that are run over, innermost
/// first, what the template defined, the screen's variables, its datasets, and last its callback. Case does not count.
class TScope final : public INames {
public:
    /// A piece of a band's rows: all of them, or those of a group.
    struct TRange {
        std::string name; ///< of the group; that of the dataset for all rows
        std::size_t first = 0;
        std::size_t last = 0; ///< behind the last one
    };

    /// The rows that a band runs over.
    struct TFrame {
        std::string name; ///< of the dataset
        TDataSet* rows = nullptr;
        std::vector<std::size_t> shown; ///< those that pass the band's condition
        std::size_t at = 0; ///< in `shown`
        std::vector<TRange> ranges; ///< innermost last; never empty
    };

    TScope(const TprReportBase& report, std::map<std::string, TDataSet*, std::less<>> hosts);

    /// A name of the engine's own ("usuario"); the screen's variable of that name comes before.
    void SetStandard(std::string_view name, TValue value);
    void Define(std::string_view name, TReportValue value);

    /// Null when there is none.
    TDataSet* FindDataSet(std::string_view name) const;
    const TprReportBase& Report() const { return report_; }

    void Enter(TFrame frame) { frames_.push_back(std::move(frame)); }
    void Leave() { frames_.pop_back(); }
    bool InBand() const { return !frames_.empty(); }
    TFrame& Frame() { return frames_.back(); }

    /// Field of the rows that are run over, with the row where it stands; null fields when there is none.
    struct TPlaced {
        const TFrame* frame = nullptr;
        const TField* field = nullptr;
    };
    TPlaced FindPlaced(std::string_view name) const;

    std::optional<TReportValue> Value(std::string_view name) override;
    bool IsDataSet(std::string_view name) const override { return FindDataSet(name) != nullptr; }
    TValue Cell(std::string_view dataset, std::string_view field) override;
    TValue Unknown(std::string_view name, const std::vector<TValue>& arguments) override;

    /// Names that neither the data nor the callback knew, in order.
    const std::set<std::string>& UnknownNames() const { return unknown_; }

private:
    const TFrame* FindFrame(std::string_view dataset) const;

    const TprReportBase& report_;
    std::unordered_map<std::string, TDataSet*> dataSets_; ///< by name in upper case, as all that follow
    std::unordered_map<std::string, TValue> variables_;
    std::unordered_map<std::string, TValue> standard_;
    std::unordered_map<std::string, TReportValue> defined_;
    std::vector<TFrame> frames_;
    std::set<std::string> unknown_;
};

} // namespace alinhavo
