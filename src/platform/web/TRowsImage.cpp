#include "platform/web/TRowsImage.h"

#include <algorithm>
#include <utility>

namespace alinhavo {

void TRowsImage::SetWindow(std::int64_t first, std::int64_t count)
{
    std::vector<std::size_t> hashes(static_cast<std::size_t>(count), 0);
    for (std::int64_t row = std::max(first, first_); row < std::min(first + count, first_ + std::ssize(hashes_)); ++row)
        hashes[row - first] = hashes_[row - first_];
    first_ = first;
    length_ = count;
    hashes_ = std::move(hashes);
    windowTold_ = false;
}

void TRowsImage::Forget()
{
    count_ = -1;
    windowTold_ = false;
    hashes_.clear();
}

// A client that scrolls away from the current row keeps its window; a margin before the row lets it scroll without asking.
void TRowsImage::Follow(std::int64_t current)
{
    if (current == std::exchange(current_, current) || current < 0)
        return;
    if (current >= first_ && current < first_ + length_)
        return;
    SetWindow(std::max<std::int64_t>(0, current - length_ / 2), length_);
}

void TRowsImage::Tell(
    nlohmann::json& message, std::int64_t count, std::int64_t current, std::int64_t onlyRow, const TRowMaker& make)
{
    Follow(current);
    if (count != count_) {
        message["count"] = count;
        count_ = count;
        onlyRow = -1;
    }
    if (!windowTold_) {
        message["window"] = {first_, length_};
        windowTold_ = true;
    }
    auto rows = ChangedRows(count, onlyRow, make);
    if (!rows.empty())
        message["rows"] = std::move(rows);
}

nlohmann::json TRowsImage::ChangedRows(std::int64_t count, std::int64_t onlyRow, const TRowMaker& make)
{
    const auto end = std::min(count, first_ + length_);
    hashes_.resize(static_cast<std::size_t>(length_), 0);
    std::fill(hashes_.begin() + std::max<std::int64_t>(0, end - first_), hashes_.end(), 0);
    auto rows = nlohmann::json::array();
    for (auto row = first_; row < end; ++row) {
        auto& known = hashes_[row - first_];
        if (onlyRow >= 0 && row != onlyRow && known != 0)
            continue;
        auto cells = make(row);
        const auto hash = std::hash<nlohmann::json>{}(cells) | 1;
        if (hash == known)
            continue;
        known = hash;
        rows.push_back({row, std::move(cells)});
    }
    return rows;
}

} // namespace alinhavo
