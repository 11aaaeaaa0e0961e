#include "forms/TCellTest.h"

namespace alinhavo {

bool TCellTest::Holds(const TTableData& data, std::size_t row) const
{
    const TColumnData& cells = data.Column(column);
    if (value.IsNull() || cells.IsNull(row))
        return value.IsNull() && cells.IsNull(row);
    if (cells.Kind() == TFieldKind::Text && value.IsText())
        return cells.Text(row) == value.Text();
    if (cells.Kind() == TFieldKind::Integer && value.IsInteger())
        return cells.Integer(row) == value.AsInteger();
    if (cells.Kind() == TFieldKind::Float && value.IsFloat())
        return cells.Float(row) == value.AsFloat();
    return Compare(data, row) == 0;
}

} // namespace alinhavo
