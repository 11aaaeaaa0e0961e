#include "forms/TRowEdit.h"

#include <utility>

namespace alinhavo {

const TValue* TRowEdit::Find(std::size_t column) const
{
    return column < values_.size() && values_[column] ? &*values_[column] : nullptr;
}

void TRowEdit::Set(std::size_t column, TValue value)
{
    if (column >= values_.size())
        values_.resize(column + 1);
    if (!values_[column])
        columns_.push_back(column);
    values_[column] = std::move(value);
}

void TRowEdit::Clear()
{
    for (const std::size_t column : columns_)
        values_[column].reset();
    columns_.clear();
    modified = false;
}

} // namespace alinhavo
