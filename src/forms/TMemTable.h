#pragma once

#include "forms/TDataSet.h"

namespace alinhavo {

/// A dataset that lives in the screen. Always open.
class TMemTable : public TDataSet {
public:
    using TDataSet::TDataSet;

    /// Replaces all rows by those of the source, matched by field name; fields without a namesake stay null.
    /// No events per row; the cursor stands on the first row.
    void Load(TDataSet& source);
    /// Adds the source's rows behind those present.
    void AppendFrom(TDataSet& source);
    /// Same fields as the source, without its rows (added fields of before are removed first).
    void CopyStructure(const TDataSet& source);

    /// Shows only the rows whose `fields` equal the master's current `masterFields` ("NUMERO;COR"), as the master moves.
    void SetMaster(TDataSet& master, std::string_view masterFields, std::string_view fields);
    void ClearMaster();
};

/// Another look at a table: the same rows with a cursor, filter and order of its own. What one changes the other shows.
class TMemTableClone final : public TDataSet {
public:
    explicit TMemTableClone(TDataSet& source);
};

} // namespace alinhavo
