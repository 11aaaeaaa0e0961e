#pragma once

#include "forms/TSortKey.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TDataSet;

/// The order in which a person has the rows of a grid before him. The dataset's own order, which the screen's rules rest on,
/// stays as it is.
///
/// The rows are sorted when the order is chosen and when the data are replaced. In between each keeps its place, also when its
/// values change, so that nothing moves away from under the one who types; a row that is new stands at the end.
class TGridOrder {
public:
    /// An empty field: the rows stand as in the dataset.
    void Choose(std::string_view field, TDirection direction);
    const std::string& Field() const { return field_; }
    TDirection Direction() const { return direction_; }

    /// The dataset has other rows than before, or shows other ones.
    void RowsChanged() { settled_ = false; }
    /// The dataset's row at that place, both counted from 0.
    std::size_t DataRow(const TDataSet& rows, std::size_t place) const;
    std::size_t Place(const TDataSet& rows, std::size_t dataRow) const;

private:
    void Settle(const TDataSet& rows) const;
    std::vector<std::size_t> Kept(const std::vector<std::int64_t>& numbers) const;
    bool Known(std::int64_t number) const;

    static constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

    std::string field_;
    TDirection direction_ = TDirection::Ascending;
    mutable bool settled_ = false;
    mutable std::uint64_t generation_ = 0; ///< of the rows that were sorted; 0: none were
    mutable std::vector<std::size_t> dataRows_; ///< by place; empty: as in the dataset
    mutable std::vector<std::size_t> places_; ///< by the dataset's row
    mutable std::vector<std::size_t> placesByNumber_; ///< by the row's number
};

} // namespace alinhavo
