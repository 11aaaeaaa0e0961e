#pragma once

#include "forms/TValue.h"
#include "host/TTableDecl.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What a cell of a file is as the value of a column, or why it is none.
struct TCellReading {
    TValue value = {}; ///< of the column's kind; null for an empty cell
    std::string reason = {}; ///< Portuguese; empty: the value stands
};

/// Reads the cells of one column as Brazilians write them. What the points in its numbers mean is decided for the whole column,
/// since a single "1.234" does not tell.
class TColumnReader {
public:
    explicit TColumnReader(const TColumnDecl& column)
        : column_(column)
        , choices_(Choices(column))
    {
    }

    const TColumnDecl& Column() const { return column_; }

    /// Looks at a cell; each one is seen before the first is read.
    void See(const TValue& cell);
    /// Points divide thousands, unless the column has no comma and some number in which they cannot.
    bool PointIsDecimal() const { return pointedDecimals_ && !commas_; }

    TCellReading Read(const TValue& cell) const;

private:
    TCellReading ReadChoice(const TValue& cell) const;
    TCellReading ReadText(const TValue& cell) const;
    TCellReading ReadInteger(const TValue& cell) const;
    TCellReading ReadFloat(const TValue& cell) const;
    TCellReading ReadDate(const TValue& cell) const;

    const TColumnDecl& column_;
    std::vector<TChoice> choices_;
    bool commas_ = false;
    bool pointedDecimals_ = false;
};

/// "20/11/2026", "20/11/26", "20-11-2026", "20.11.2026" or "2026-11-20", with or without an hour; blank for anything else.
TDateTime DateFromFile(std::string_view text);

} // namespace alinhavo
