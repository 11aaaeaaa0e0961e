#include "forms/TGridOrder.h"

#include "forms/TDataSet.h"

#include <algorithm>
#include <numeric>

namespace alinhavo {

void TGridOrder::Choose(std::string_view field, TDirection direction)
{
    field_ = field;
    direction_ = direction;
    generation_ = 0;
    settled_ = false;
}

std::size_t TGridOrder::DataRow(const TDataSet& rows, std::size_t place) const
{
    Settle(rows);
    return place < dataRows_.size() ? dataRows_[place] : place;
}

std::size_t TGridOrder::Place(const TDataSet& rows, std::size_t dataRow) const
{
    Settle(rows);
    return dataRow < places_.size() ? places_[dataRow] : dataRow;
}

void TGridOrder::Settle(const TDataSet& rows) const
{
    if (settled_)
        return;
    settled_ = true;
    dataRows_.clear();
    places_.clear();
    if (field_.empty() || !rows.Active() || !rows.FindField(field_)) {
        generation_ = 0;
        return;
    }
    const auto numbers = rows.RowNumbers();
    const auto strangers = std::ranges::count_if(numbers, [this](std::int64_t number) { return !Known(number); });
    const bool keeps = generation_ == rows.Bookmark().generation && strangers <= 1;
    dataRows_ = keeps ? Kept(numbers) : rows.Sorted(field_, direction_);
    generation_ = rows.Bookmark().generation;

    places_.resize(numbers.size());
    placesByNumber_.assign(numbers.empty() ? 0 : static_cast<std::size_t>(std::ranges::max(numbers) + 1), Nowhere);
    for (std::size_t place = 0; place < dataRows_.size(); ++place) {
        const auto dataRow = dataRows_[place];
        places_[dataRow] = place;
        if (numbers[dataRow] >= 0)
            placesByNumber_[static_cast<std::size_t>(numbers[dataRow])] = place;
    }
}

bool TGridOrder::Known(std::int64_t number) const
{
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < placesByNumber_.size() && placesByNumber_[index] != Nowhere;
}

/// The rows in the places that they had, and the one that is new behind them.
std::vector<std::size_t> TGridOrder::Kept(const std::vector<std::int64_t>& numbers) const
{
    std::vector<std::size_t> kept(numbers.size());
    std::iota(kept.begin(), kept.end(), std::size_t(0));
    const auto placeBefore = [&](std::size_t dataRow) {
        const auto number = numbers[dataRow];
        return Known(number) ? placesByNumber_[static_cast<std::size_t>(number)] : Nowhere;
    };
    std::ranges::stable_sort(kept, {}, placeBefore);
    return kept;
}

} // namespace alinhavo
