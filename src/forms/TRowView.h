#pragma once

#include "forms/TCellTest.h"
#include "forms/TRows.h"
#include "forms/TSortKey.h"

#include <functional>
#include <optional>
#include <vector>

namespace alinhavo {

/// The rows of a TRows that one dataset shows, in its order, and its cursor among them. The order is total: rows with
/// equal keys stand in the order of their arrival. Rows that are added are put in their places when the order is next
/// asked for, so that adding many costs one sort.
class TRowView {
public:
    struct TKey {
        std::size_t column;
        TDirection direction;
    };

    explicit TRowView(const TRows& rows)
        : rows_(&rows)
    {
    }

    /// The cursor stays on its row.
    void SetKeys(std::vector<TKey> keys);
    bool IsKeyed() const { return !keys_.empty(); }
    /// All rows anew. The cursor stays on its row, or comes to stand on the one behind it.
    void Fill(const std::function<bool(TRowNumber)>& accepts);
    /// All rows anew, the cursor on the first.
    void FillFromStart(const std::function<bool(TRowNumber)>& accepts);

    std::size_t Count() const { return shown_.size(); }
    TRowNumber Row(std::size_t position) const;
    const std::vector<TRowNumber>& Shown() const;

    /// A position, or Count() behind the last row.
    std::size_t Cursor() const;
    std::optional<TRowNumber> Current() const;
    void SetCursor(std::size_t position) { cursor_ = position; }
    void SetCursorOnLastAdded() { cursor_ = shown_.size() - 1; }

    std::optional<std::size_t> Find(TRowNumber row) const;
    /// Where the row stands or, when it is not shown, where it would.
    std::size_t Seek(TRowNumber row) const;
    /// The first position whose cells pass all tests. Fast when the tests are on the leading keys of the order.
    std::optional<std::size_t> FindFirst(const std::vector<TCellTest>& tests) const;

    void Add(TRowNumber row);
    /// A cursor behind the position goes along with its row; on it, the next row becomes current.
    void Remove(std::size_t position);
    /// After its values changed. The cursor goes along with its row.
    void Replace(std::size_t position);

    std::size_t Bytes() const { return shown_.capacity() * sizeof(TRowNumber); }

private:
    bool Precedes(TRowNumber left, TRowNumber right) const;
    bool StandsRight(std::size_t position) const;
    /// The tests in the order of the leading keys; nothing when they are not on just these.
    std::optional<std::vector<TCellTest>> AlongKeys(const std::vector<TCellTest>& tests) const;
    std::optional<std::size_t> FindAlongKeys(const std::vector<TCellTest>& tests) const;
    void Settle() const;

    const TRows* rows_;
    std::vector<TKey> keys_;
    mutable std::vector<TRowNumber> shown_;
    mutable std::size_t settled_ = 0; ///< rows in front that stand in order; those behind wait for it
    mutable std::size_t cursor_ = 0;
};

} // namespace alinhavo
