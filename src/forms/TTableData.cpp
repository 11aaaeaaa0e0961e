#include "forms/TTableData.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <cassert>
#include <cmath>
#include <limits>

namespace alinhavo {
namespace {

constexpr auto NullInteger = std::numeric_limits<std::int64_t>::min();
constexpr auto NullFloat = std::numeric_limits<double>::quiet_NaN();
constexpr auto NullText = std::numeric_limits<TTextPool::Id>::max();

/// What a hash table holds for an entry beside the entry itself: a link, the hash, and its share of the buckets.
constexpr std::size_t BytesOfLinks = 3 * sizeof(void*);

std::size_t BytesBeyondObject(const std::string& text)
{
    static const auto inside = std::string().capacity();
    return text.capacity() > inside ? text.capacity() + 1 : 0;
}

} // namespace

TTextPool::Id TTextPool::Add(std::string_view text)
{
    if (const auto known = ids_.find(text); known != ids_.end())
        return known->second;

    const auto id = static_cast<Id>(texts_.size());
    assert(id != NullText);
    const auto& kept = texts_.emplace_back(text);
    ids_.emplace(kept, id);
    bytes_ += sizeof(kept) + BytesBeyondObject(kept) + sizeof(decltype(ids_)::value_type) + BytesOfLinks;
    return id;
}

TColumnData::TColumnData(std::string name, TFieldKind kind, int size, std::shared_ptr<TTextPool> pool)
    : name_(std::move(name))
    , kind_(kind)
    , size_(size)
    , pool_(std::move(pool))
{
}

std::size_t TColumnData::Count() const
{
    switch (kind_) {
    case TFieldKind::Text:
        return texts_.size();
    case TFieldKind::Float:
        return floats_.size();
    default:
        return whole_.size();
    }
}

void TColumnData::AppendNull()
{
    switch (kind_) {
    case TFieldKind::Text:
        texts_.push_back(NullText);
        break;
    case TFieldKind::Float:
        floats_.push_back(NullFloat);
        break;
    default:
        whole_.push_back(NullInteger);
        break;
    }
}

void TColumnData::AppendInteger(std::int64_t value)
{
    assert(kind_ == TFieldKind::Integer);
    whole_.push_back(value);
}

void TColumnData::AppendFloat(double value)
{
    assert(kind_ == TFieldKind::Float);
    floats_.push_back(value);
}

void TColumnData::AppendText(std::string_view value)
{
    assert(kind_ == TFieldKind::Text);
    // Rows often repeat the text of the row before, which saves looking it up.
    const bool repeats = !texts_.empty() && texts_.back() != NullText && pool_->Text(texts_.back()) == value;
    texts_.push_back(repeats ? texts_.back() : pool_->Add(value));
}

void TColumnData::AppendDate(TDateTime value)
{
    assert(kind_ == TFieldKind::Date || kind_ == TFieldKind::DateTime);
    whole_.push_back((kind_ == TFieldKind::Date ? value.Date() : value).Seconds());
}

void TColumnData::Append(const TValue& value)
{
    AppendNull();
    Set(Count() - 1, value);
}

void TColumnData::Set(std::size_t row, const TValue& value)
{
    switch (kind_) {
    case TFieldKind::Text:
        texts_[row] = value.IsNull() ? NullText : pool_->Add(value.AsString());
        break;
    case TFieldKind::Float:
        floats_[row] = value.IsEmpty() ? NullFloat : value.AsFloat();
        break;
    case TFieldKind::Integer:
        whole_[row] = value.IsEmpty() ? NullInteger : value.AsInteger();
        break;
    case TFieldKind::Date:
        whole_[row] = value.AsDateTime().Date().Seconds();
        break;
    case TFieldKind::DateTime:
        whole_[row] = value.AsDateTime().Seconds();
        break;
    }
}

void TColumnData::Reserve(std::size_t rows)
{
    switch (kind_) {
    case TFieldKind::Text:
        texts_.reserve(rows);
        break;
    case TFieldKind::Float:
        floats_.reserve(rows);
        break;
    default:
        whole_.reserve(rows);
        break;
    }
}

bool TColumnData::IsNull(std::size_t row) const
{
    switch (kind_) {
    case TFieldKind::Text:
        return texts_[row] == NullText;
    case TFieldKind::Float:
        return std::isnan(floats_[row]);
    default:
        return whole_[row] == NullInteger;
    }
}

TValue TColumnData::Value(std::size_t row) const
{
    if (IsNull(row))
        return {};
    switch (kind_) {
    case TFieldKind::Text:
        return Text(row);
    case TFieldKind::Float:
        return floats_[row];
    case TFieldKind::Integer:
        return whole_[row];
    default:
        return TDateTime::FromSeconds(whole_[row]);
    }
}

std::string_view TColumnData::Text(std::size_t row) const
{
    assert(kind_ == TFieldKind::Text);
    return texts_[row] == NullText ? std::string_view() : pool_->Text(texts_[row]);
}

double TColumnData::Float(std::size_t row) const
{
    if (kind_ == TFieldKind::Float && !IsNull(row))
        return floats_[row];
    return Value(row).AsFloat();
}

std::int64_t TColumnData::Integer(std::size_t row) const
{
    if (kind_ == TFieldKind::Integer && !IsNull(row))
        return whole_[row];
    return Value(row).AsInteger();
}

int TColumnData::Compare(std::size_t left, std::size_t right) const
{
    const auto order = [](const auto& one, const auto& other) { return one < other ? -1 : one > other ? 1 : 0; };
    if (IsNull(left) || IsNull(right))
        return order(!IsNull(left), !IsNull(right));
    switch (kind_) {
    case TFieldKind::Text:
        return texts_[left] == texts_[right] ? 0 : CompareText(Text(left), Text(right));
    case TFieldKind::Float:
        return order(floats_[left], floats_[right]);
    default:
        return order(whole_[left], whole_[right]);
    }
}

std::size_t TColumnData::Bytes() const
{
    return whole_.capacity() * sizeof(whole_[0]) + floats_.capacity() * sizeof(floats_[0])
        + texts_.capacity() * sizeof(texts_[0]);
}

TTableData::TTableData()
    : pool_(std::make_shared<TTextPool>())
{
}

std::size_t TTableData::AddColumn(std::string name, TFieldKind kind, int size)
{
    const auto rows = RowCount();
    auto& column = columns_.emplace_back(std::move(name), kind, size, pool_);
    column.Reserve(rows);
    while (column.Count() < rows)
        column.AppendNull();
    return columns_.size() - 1;
}

int TTableData::FindColumn(std::string_view name) const
{
    for (std::size_t index = 0; index < columns_.size(); ++index)
        if (SameText(columns_[index].Name(), name))
            return static_cast<int>(index);
    return -1;
}

std::size_t TTableData::RowCount() const { return columns_.empty() ? rows_ : columns_.front().Count(); }

std::size_t TTableData::AppendRow()
{
    const auto row = RowCount();
    for (auto& column : columns_)
        column.AppendNull();
    rows_ = row + 1;
    return row;
}

void TTableData::Reserve(std::size_t rows)
{
    for (auto& column : columns_)
        column.Reserve(rows);
}

void TTableData::Clear()
{
    pool_ = std::make_shared<TTextPool>();
    for (auto& column : columns_)
        column = TColumnData(column.Name(), column.Kind(), column.Size(), pool_);
    rows_ = 0;
}

std::size_t TTableData::Bytes() const
{
    auto bytes = pool_->Bytes();
    for (const auto& column : columns_)
        bytes += column.Bytes();
    return bytes;
}

} // namespace alinhavo
