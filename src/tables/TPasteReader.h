#pragma once

#include "forms/TPastedRows.h"
#include "tables/TRowCheck.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace alinhavo {

/// A pasted row that may be written.
struct TPasteRow {
    std::map<const TColumnDecl*, TValue> values;

    TRowValues Values() const;
};

/// Why a pasted row may not be written.
struct TPasteProblem {
    int row; ///< as the user pasted it, from 1; a heading counts
    std::string text; ///< of the cell, empty where the row as a whole is wrong
    std::string reason;
};

/// Makes rows of a table out of pasted cells. When the first row holds captions or names of columns it says which column is
/// which; otherwise the cells stand for the listed columns in their order.
class TPasteReader {
public:
    TPasteReader(TOrvDatabase& database, const TTableDecl& table, const TPastedRows& pasted);

    /// Why nothing of it can be read; empty when the rows were read.
    const std::string& Refusal() const { return refusal_; }
    const std::vector<TPasteRow>& Rows() const { return rows_; }
    /// The first one of each row that has any.
    const std::vector<TPasteProblem>& Problems() const { return problems_; }

private:
    const TColumnDecl* ColumnOf(std::string_view heading) const;
    bool TakeHeading(const std::vector<std::string>& cells);
    void TakeRow(int number, const std::vector<std::string>& cells);
    bool Fill(TPasteRow& row, int number, const std::vector<std::string>& cells);
    bool IsRight(const TPasteRow& row, int number);
    void Complain(int number, std::string_view text, std::string reason);

    const TTableDecl& table_;
    TRowCheck check_;
    std::vector<const TColumnDecl*> columns_; ///< of the cells
    std::set<std::string> keys_; ///< of the rows read
    std::vector<TPasteRow> rows_;
    std::vector<TPasteProblem> problems_;
    std::string refusal_;
};

} // namespace alinhavo
