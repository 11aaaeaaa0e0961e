#pragma once

#include "forms/TGrid.h"
#include "forms/TMemTable.h"

namespace alinhavo {

struct TStringGridOptions {
    std::string caption = {};
    std::string hint = {};
    std::vector<std::string> titles = {}; ///< one column each
    int lines = 10;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// The table behind a string grid; a base, so that it is there before the grid that shows it.
struct TStringGridRows {
    TMemTable rows;
};

/// A grid of texts addressed by column and row, both from 0. The field of column n is "C" and n. A person edits cells
/// and adds no rows.
class TStringGrid final : private TStringGridRows, public TGrid {
public:
    TStringGrid(TContainer& parent, std::string name, TStringGridOptions options = {});

    std::size_t ColCount() const { return DataSet()->Fields().size(); }
    /// Empties the grid.
    void SetTitles(const std::vector<std::string>& titles);
    /// Rows are added at the end, blank, or dropped there.
    void SetRowCount(std::size_t rows);
    /// Outside the grid std::out_of_range.
    std::string Cell(std::size_t column, std::size_t row) const;
    void SetCell(std::size_t column, std::size_t row, std::string_view text);

private:
    std::size_t CheckedRow(std::size_t row) const;
};

} // namespace alinhavo
