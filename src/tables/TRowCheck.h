#pragma once

#include "host/TOrvDatabase.h"
#include "host/TTableDecl.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace alinhavo {

/// What a row holds, by column.
using TRowValues = std::function<TValue(const TColumnDecl&)>;

/// The columns that a person sees, in their order.
std::vector<const TColumnDecl*> SeenColumns(const TTableDecl& table);
/// Of these the ones that a list has room for.
std::vector<const TColumnDecl*> ListedColumns(const TTableDecl& table);
/// Ticked: it holds "S" or "N".
bool IsTicked(const TColumnDecl& column);
/// As a person reads a value: dates, numbers with a comma.
std::string ShownValue(const TValue& value);

/// What holds of the rows that a person puts into a table, asked before they are written. All refusals are Portuguese
/// texts for that person; an empty one means that nothing is wrong. It remembers which codes exist: made for one
/// operation, not kept.
class TRowCheck {
public:
    TRowCheck(TOrvDatabase& database, const TTableDecl& table);

    /// What a typed or pasted text stands for in the column, a choice by its value or its caption. A text that stands for
    /// nothing of its kind raises std::invalid_argument with the refusal.
    TValue Typed(const TColumnDecl& column, std::string_view text) const;
    /// A code of another table without its leading zeros, which spreadsheets drop, gets them back; else the value itself.
    TValue Completed(const TColumnDecl& column, const TValue& value);
    /// It is blank and may not be.
    std::string Missing(const TColumnDecl& column, const TValue& value) const;
    /// It is too long, none of the choices, or a code that does not exist.
    std::string Wrong(const TColumnDecl& column, const TValue& value);
    /// Another row has this one's key. `own`, where it is given, is the key of the row that becomes this one.
    std::string Duplicate(const TRowValues& row, const std::vector<TValue>& own = {});
    /// Rows of other tables that hold a code of this one: why it cannot go.
    std::string InUse(const TRowValues& row);

    /// The description of the code that stands in the column; empty where there is none.
    std::string Meaning(const TColumnDecl& column, const TValue& value);
    /// What tells the row apart for a person: "Código 000009".
    std::string KeyText(const TRowValues& row) const;
    /// The same without captions, as audit lines are found by it: "000009".
    std::string KeyValues(const TRowValues& row) const;

private:
    bool Exists(const TReference& reference, const TValue& value);
    const TColumnDecl& Column(std::string_view name) const;
    std::vector<std::string_view> TellingColumns() const;

    TOrvDatabase& database_;
    const TTableDecl& table_;
    std::map<std::pair<const TColumnDecl*, std::string>, bool> known_; ///< by the column referred to, and code
};

} // namespace alinhavo
