#pragma once

#include "forms/TDataSet.h"

namespace alinhavo {

/// A dataset that lives in the screen. Always open.
class TMemTable : public TDataSet {
public:
    TMemTable(TComponent& owner, std::string name);
    explicit TMemTable(std::string name = {});

    /// Empties the table, which stays open.
    void Close() override { EmptyTable(); }

    /// Replaces all rows by the visible ones of the source, matched by field name; fields without a namesake stay null.
    /// A row that the source has in edit is left first. No events per row; the cursor stands on the first row.
    void Load(TDataSet& source);
    /// Adds the source's visible rows behind those present.
    void AppendFrom(TDataSet& source);
    /// Same fields as the source, without its rows (added fields of before are removed first, with all rows).
    void CopyStructure(const TDataSet& source);

    /// Shows only the rows whose `fields` equal the master's current `masterFields` ("NUMERO;COR"), as the master moves;
    /// none while the master is empty. A new row takes the master's values. Each AfterScroll of the master is followed by
    /// this table's own. A row in edit here is left before the master moves.
    void SetMaster(TDataSet& master, std::string_view masterFields, std::string_view fields);
    void ClearMaster() { LeaveMaster(); }
};

} // namespace alinhavo
