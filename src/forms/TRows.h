#pragma once

#include "forms/TTableData.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace alinhavo {

class TRowEdit;

/// The number of a row in a TRows; it stays the row's own while the row lives and is not given to another one before the
/// data is replaced.
using TRowNumber = std::uint32_t;

/// What a dataset that shows rows hears of them, whoever of those sharing them changed them.
class IRowsObserver {
public:
    virtual ~IRowsObserver() = default;
    virtual void RowAdded(TRowNumber row) = 0;
    virtual void RowChanging(TRowNumber row) = 0; ///< still with its old values
    virtual void RowChanged(TRowNumber row) = 0;
    virtual void RowRemoving(TRowNumber row) = 0;
    virtual void RowsReplaced() = 0; ///< rows and columns are others
};

/// The rows that a dataset and its clones share. Each row has a place in the order of arrival, which a row inserted
/// before another one takes in front of it.
class TRows {
public:
    TRows() = default;
    TRows(const TRows&) = delete;
    TRows& operator=(const TRows&) = delete;

    const TTableData& Data() const { return data_; }
    /// Changes with every replacement; rows of an earlier generation are gone.
    std::uint64_t Generation() const { return generation_; }
    /// Numbers handed out so far: the bound of a loop over all rows.
    TRowNumber Bound() const { return static_cast<TRowNumber>(places_.size()); }
    bool IsAlive(TRowNumber row) const { return row < places_.size() && places_[row] != Gone; }
    bool ArrivedBefore(TRowNumber left, TRowNumber right) const
    {
        return places_[left] != places_[right] ? places_[left] < places_[right] : left < right;
    }
    /// The numbers ascend with the places: no row was inserted before another one.
    bool NumbersAreInOrder() const { return numbersAreInOrder_; }

    /// Null in the rows there are.
    std::size_t AddColumn(const std::string& name, TFieldKind kind, int size)
    {
        return data_.AddColumn(name, kind, size);
    }
    TRowNumber Append(const TRowEdit& cells);
    /// In front of `next`, behind `previous` where there is one.
    TRowNumber Insert(const TRowEdit& cells, std::optional<TRowNumber> previous, TRowNumber next);
    void Change(TRowNumber row, const TRowEdit& cells);
    void Remove(TRowNumber row);
    /// Rows of a table with the same columns, behind those present.
    void Append(const TTableData& block);
    void Replace(TTableData data);
    void Clear();

    std::size_t Bytes() const;

    void Attach(IRowsObserver& observer) { observers_.push_back(&observer); }
    void Detach(IRowsObserver& observer) { std::erase(observers_, &observer); }

private:
    using TPlace = std::uint64_t;
    static constexpr TPlace Gone = 0;
    static constexpr TPlace Step = TPlace(1) << 32;

    TRowNumber Store(const TRowEdit& cells, TPlace place);
    void Write(TRowNumber row, const TRowEdit& cells);
    TPlace NewLastPlace() { return lastPlace_ += Step; }
    TPlace PlaceBetween(std::optional<TRowNumber> previous, TRowNumber next);
    void SpreadPlaces();
    /// Without the rows that were removed.
    void StartAfresh();
    void PlaceAll();

    TTableData data_;
    std::vector<TPlace> places_; ///< by row
    TPlace lastPlace_ = 0;
    std::size_t alive_ = 0;
    bool numbersAreInOrder_ = true;
    std::uint64_t generation_ = 1;
    std::vector<IRowsObserver*> observers_;
};

} // namespace alinhavo
