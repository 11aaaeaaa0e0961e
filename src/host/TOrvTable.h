#pragma once

#include "forms/TDataSet.h"
#include "host/TOrvDatabase.h"
#include "host/TTableDecl.h"

namespace alinhavo {

/// A table of the database as a dataset: rows are read as they are asked for, and Post and Delete write them at once in
/// the shared transaction. An EDatabaseError of a write leaves the row in edit. Changes of other users show at Refresh.
///
/// Opening fetches nothing. What is asked for decides what is read: Restrict and a Locate on key columns read by key;
/// moving through an unrestricted table, counting it or showing it in a grid reads it whole, once.
class TOrvTable : public TDataSet {
public:
    TOrvTable(TComponent& owner, std::string name, TOrvDatabase& database, std::string_view table);

    const TTableDecl& Table() const { return table_; }

    void Open();
    void Close() override;
    /// Reads again what is shown; keeps the order and, by its key, the current row.
    void Refresh();
    /// Only the rows whose columns ("CODIGO;PARTE") equal the values; what is read is just these.
    void Restrict(std::string_view columns, const std::vector<TValue>& values);
    void Unrestrict();
    bool LocateKey(std::string_view columns, const std::vector<TValue>& values);

protected:
    void WriteRow() override;
    void EraseRow() override;

private:
    TOrvDatabase& database_;
    const TTableDecl& table_;
};

} // namespace alinhavo
