#include "forms/TRowView.h"

#include <algorithm>
#include <utility>

namespace alinhavo {

namespace {

/// Up to so many waiting rows are put in their places one by one.
constexpr std::size_t FewRows = 16;

} // namespace

void TRowView::SetKeys(std::vector<TKey> keys)
{
    keys_ = std::move(keys);
    settled_ = 0;
}

void TRowView::Fill(const std::function<bool(TRowNumber)>& accepts)
{
    const std::optional<TRowNumber> current = Current();
    FillFromStart(accepts);
    if (current)
        cursor_ = Seek(*current);
}

void TRowView::FillFromStart(const std::function<bool(TRowNumber)>& accepts)
{
    std::vector<TRowNumber> shown;
    for (TRowNumber row = 0; row < rows_->Bound(); ++row) {
        if (rows_->IsAlive(row) && accepts(row))
            shown.push_back(row);
    }
    shown_ = std::move(shown);
    settled_ = keys_.empty() && rows_->NumbersAreInOrder() ? shown_.size() : 0;
    cursor_ = 0;
    Settle();
    cursor_ = 0;
}

TRowNumber TRowView::Row(std::size_t position) const
{
    Settle();
    return shown_[position];
}

const std::vector<TRowNumber>& TRowView::Shown() const
{
    Settle();
    return shown_;
}

std::size_t TRowView::Cursor() const
{
    Settle();
    return cursor_;
}

std::optional<TRowNumber> TRowView::Current() const
{
    if (cursor_ >= shown_.size())
        return std::nullopt;
    return shown_[cursor_];
}

std::size_t TRowView::Seek(TRowNumber row) const
{
    Settle();
    const auto place = std::ranges::lower_bound(
        shown_, row, [this](TRowNumber left, TRowNumber right) { return Precedes(left, right); });
    return static_cast<std::size_t>(place - shown_.begin());
}

std::optional<std::size_t> TRowView::Find(TRowNumber row) const
{
    // One who goes through the rows looks for the next.
    if (const auto next = Cursor() + 1; next < shown_.size() && shown_[next] == row)
        return next;
    const std::size_t position = Seek(row);
    if (position == shown_.size() || shown_[position] != row)
        return std::nullopt;
    return position;
}

std::optional<std::size_t> TRowView::FindFirst(const std::vector<TCellTest>& tests) const
{
    Settle();
    if (const auto alongKeys = AlongKeys(tests))
        return FindAlongKeys(*alongKeys);
    const auto found = std::ranges::find_if(shown_, [&](TRowNumber row) {
        return std::ranges::all_of(tests, [&](const TCellTest& test) { return test.Holds(rows_->Data(), row); });
    });
    if (found == shown_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - shown_.begin());
}

std::optional<std::vector<TCellTest>> TRowView::AlongKeys(const std::vector<TCellTest>& tests) const
{
    if (tests.size() > keys_.size())
        return std::nullopt;
    std::vector<TCellTest> ordered;
    for (std::size_t key = 0; key < tests.size(); ++key) {
        const auto test = std::ranges::find(tests, keys_[key].column, &TCellTest::column);
        if (test == tests.end())
            return std::nullopt;
        ordered.push_back(*test);
    }
    return ordered;
}

std::optional<std::size_t> TRowView::FindAlongKeys(const std::vector<TCellTest>& tests) const
{
    const auto compare = [&](TRowNumber row) {
        for (std::size_t key = 0; key < tests.size(); ++key) {
            const int order = tests[key].Compare(rows_->Data(), row);
            if (order != 0)
                return keys_[key].direction == TDirection::Descending ? -order : order;
        }
        return 0;
    };
    const auto place = std::ranges::partition_point(shown_, [&](TRowNumber row) { return compare(row) < 0; });
    if (place == shown_.end() || compare(*place) != 0)
        return std::nullopt;
    return static_cast<std::size_t>(place - shown_.begin());
}

void TRowView::Add(TRowNumber row)
{
    const bool isLast = settled_ == shown_.size() && (shown_.empty() || Precedes(shown_.back(), row));
    shown_.push_back(row);
    if (isLast)
        settled_ = shown_.size();
}

void TRowView::Remove(std::size_t position)
{
    Settle();
    shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(position));
    settled_ = shown_.size();
    if (position < cursor_)
        --cursor_;
}

void TRowView::Replace(std::size_t position)
{
    if (StandsRight(position))
        return;
    const bool isCurrent = position == cursor_;
    const TRowNumber row = shown_[position];
    shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(position));
    settled_ = shown_.size();
    if (position < cursor_)
        --cursor_;
    Add(row);
    if (isCurrent)
        SetCursorOnLastAdded();
}

bool TRowView::StandsRight(std::size_t position) const
{
    return (position == 0 || Precedes(shown_[position - 1], shown_[position]))
        && (position + 1 == shown_.size() || Precedes(shown_[position], shown_[position + 1]));
}

bool TRowView::Precedes(TRowNumber left, TRowNumber right) const
{
    for (const TKey& key : keys_) {
        const int order = rows_->Data().Column(key.column).Compare(left, right);
        if (order != 0)
            return key.direction == TDirection::Descending ? order > 0 : order < 0;
    }
    return rows_->ArrivedBefore(left, right);
}

void TRowView::Settle() const
{
    if (settled_ == shown_.size())
        return;
    const std::optional<TRowNumber> current = Current();
    const auto precedes = [this](TRowNumber left, TRowNumber right) { return Precedes(left, right); };
    const auto waiting = shown_.begin() + static_cast<std::ptrdiff_t>(settled_);
    if (shown_.size() - settled_ <= FewRows) {
        for (auto row = waiting; row != shown_.end(); ++row)
            std::rotate(std::upper_bound(shown_.begin(), row, *row, precedes), row, row + 1);
    } else {
        std::sort(waiting, shown_.end(), precedes);
        std::inplace_merge(shown_.begin(), waiting, shown_.end(), precedes);
    }
    settled_ = shown_.size();
    cursor_ = current ? Seek(*current) : shown_.size();
}

} // namespace alinhavo
