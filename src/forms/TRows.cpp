#include "forms/TRows.h"

#include "forms/TRowEdit.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace alinhavo {

TRowNumber TRows::Append(const TRowEdit& cells)
{
    if (alive_ == 0)
        StartAfresh();
    return Store(cells, NewLastPlace());
}

TRowNumber TRows::Insert(const TRowEdit& cells, std::optional<TRowNumber> previous, TRowNumber next)
{
    const TPlace place = PlaceBetween(previous, next);
    numbersAreInOrder_ = false;
    return Store(cells, place);
}

TRowNumber TRows::Store(const TRowEdit& cells, TPlace place)
{
    const TRowNumber row = static_cast<TRowNumber>(data_.AppendRow());
    places_.push_back(place);
    ++alive_;
    Write(row, cells);
    for (IRowsObserver* observer : observers_)
        observer->RowAdded(row);
    return row;
}

void TRows::Write(TRowNumber row, const TRowEdit& cells)
{
    for (const std::size_t column : cells.Columns())
        data_.Column(column).Set(row, *cells.Find(column));
}

void TRows::Change(TRowNumber row, const TRowEdit& cells)
{
    for (IRowsObserver* observer : observers_)
        observer->RowChanging(row);
    Write(row, cells);
    for (IRowsObserver* observer : observers_)
        observer->RowChanged(row);
}

void TRows::Remove(TRowNumber row)
{
    for (IRowsObserver* observer : observers_)
        observer->RowRemoving(row);
    places_[row] = Gone;
    --alive_;
}

void TRows::Append(const TTableData& block)
{
    const std::size_t first = data_.RowCount();
    const std::size_t count = block.RowCount();
    data_.Reserve(first + count);
    for (std::size_t column = 0; column < data_.ColumnCount(); ++column) {
        for (std::size_t row = 0; row < count; ++row)
            data_.Column(column).Append(block.Column(column).Value(row));
    }
    for (std::size_t row = 0; row < count; ++row)
        places_.push_back(NewLastPlace());
    alive_ += count;
    for (IRowsObserver* observer : observers_) {
        for (std::size_t row = first; row < first + count; ++row)
            observer->RowAdded(static_cast<TRowNumber>(row));
    }
}

void TRows::Replace(TTableData data)
{
    data_ = std::move(data);
    PlaceAll();
    ++generation_;
    for (IRowsObserver* observer : observers_)
        observer->RowsReplaced();
}

void TRows::Clear()
{
    StartAfresh();
    for (IRowsObserver* observer : observers_)
        observer->RowsReplaced();
}

void TRows::StartAfresh()
{
    data_.Clear();
    PlaceAll();
    ++generation_;
}

void TRows::PlaceAll()
{
    alive_ = data_.RowCount();
    places_.resize(alive_);
    lastPlace_ = 0;
    std::ranges::generate(places_, [this] { return NewLastPlace(); });
    numbersAreInOrder_ = true;
}

TRows::TPlace TRows::PlaceBetween(std::optional<TRowNumber> previous, TRowNumber next)
{
    const auto middle = [&] { return std::midpoint(previous ? places_[*previous] : Gone, places_[next]); };
    const TPlace lowest = previous ? places_[*previous] : Gone;
    if (middle() == lowest)
        SpreadPlaces();
    return middle();
}

void TRows::SpreadPlaces()
{
    std::vector<TRowNumber> rows(places_.size());
    std::iota(rows.begin(), rows.end(), TRowNumber(0));
    std::ranges::sort(rows, [this](TRowNumber left, TRowNumber right) { return ArrivedBefore(left, right); });
    lastPlace_ = 0;
    for (const TRowNumber row : rows) {
        if (IsAlive(row))
            places_[row] = NewLastPlace();
    }
}

std::size_t TRows::Bytes() const { return data_.Bytes() + places_.capacity() * sizeof(TPlace); }

} // namespace alinhavo
