#pragma once

#include "forms/TValue.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace alinhavo {

enum class TFieldKind : std::uint8_t { Text, Integer, Float, Date, DateTime };

/// Texts kept once, however often they are used; the number of a text never changes.
class TTextPool {
public:
    using Id = std::uint32_t;

    TTextPool() = default;
    TTextPool(const TTextPool&) = delete;
    TTextPool& operator=(const TTextPool&) = delete;

    Id Add(std::string_view text);
    std::string_view Text(Id id) const { return texts_[id]; }
    std::size_t Bytes() const { return bytes_; } ///< memory held, by estimate

private:
    std::deque<std::string> texts_;
    std::unordered_map<std::string_view, Id> ids_; ///< its keys look into texts_
    std::size_t bytes_ = 0;
};

/// The cells of one column. What is set must be of the column's kind; AppendNull and SetNull suit every kind.
class TColumnData {
public:
    TColumnData(std::string name, TFieldKind kind, int size, std::shared_ptr<TTextPool> pool);

    const std::string& Name() const { return name_; }
    TFieldKind Kind() const { return kind_; }
    int Size() const { return size_; } ///< characters of a text column, 0 when unlimited
    std::size_t Count() const;

    void AppendNull();
    void AppendInteger(std::int64_t value);
    void AppendFloat(double value);
    void AppendText(std::string_view value);
    void AppendDate(TDateTime value);
    /// Converted to the column's kind; the empty text is null in a column that holds no texts.
    void Append(const TValue& value);
    void Set(std::size_t row, const TValue& value);
    void Reserve(std::size_t rows);

    bool IsNull(std::size_t row) const;
    TValue Value(std::size_t row) const;
    /// Only for a Text column; "" for a null.
    std::string_view Text(std::size_t row) const;
    /// Total on every kind, as TValue converts.
    double Float(std::size_t row) const;
    std::int64_t Integer(std::size_t row) const;

    /// Same order as TValue::Compare, without making values.
    int Compare(std::size_t left, std::size_t right) const;

    std::size_t Bytes() const; ///< memory held by the cells, without the text pool

private:
    std::string name_;
    TFieldKind kind_;
    int size_;
    std::shared_ptr<TTextPool> pool_;
    std::vector<std::int64_t> whole_; ///< Integer, Date, DateTime (seconds); the lowest value is null
    std::vector<double> floats_; ///< a NaN is null
    std::vector<TTextPool::Id> texts_; ///< the highest number is null
};

/// Rows and columns in memory: what a query fetched or a memory table holds. Rows are numbered in the order of their
/// arrival and keep their number; a removed row leaves a gap that the owner's view no longer shows. A copy shares the
/// kept texts with its original, so both belong to the same thread.
class TTableData {
public:
    TTableData();

    std::size_t AddColumn(std::string name, TFieldKind kind, int size = 0);
    std::size_t ColumnCount() const { return columns_.size(); }
    TColumnData& Column(std::size_t index) { return columns_[index]; }
    const TColumnData& Column(std::size_t index) const { return columns_[index]; }
    /// Case does not count; -1 when there is none.
    int FindColumn(std::string_view name) const;

    std::size_t RowCount() const;
    /// A row of nulls; its number.
    std::size_t AppendRow();
    void Reserve(std::size_t rows);
    /// Without rows, with the same columns.
    void Clear();
    std::size_t Bytes() const; ///< all cells and the text pool

private:
    std::shared_ptr<TTextPool> pool_;
    std::vector<TColumnData> columns_;
    std::size_t rows_ = 0; ///< counts only while there is no column
};

} // namespace alinhavo
