#pragma once

#include "forms/TDataSet.h"
#include "host/TOrvDatabase.h"
#include "host/TTableDecl.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A table of the database as a dataset, with a field for each column: rows are read as they are asked for, and Post and
/// Delete write them at once in the shared transaction. A write that fails leaves the row in edit. Changes of other users
/// show at Refresh.
///
/// Opening fetches nothing. What is asked for decides what is read: a Locate on the table's key reads that row alone;
/// showing the table in a grid, counting it or moving through it reads, once, all rows that Restrict leaves. (A located
/// row that is in edit is the only one until it is posted.)
class TOrvTable : public TDataSet {
public:
    /// std::logic_error when no table of that name is declared.
    TOrvTable(TComponent& owner, std::string name, TOrvDatabase& database, std::string_view table);

    const TTableDecl& Table() const { return table_; }

    void Open(); ///< nothing while it is open
    void Close() override;
    /// Reads again what is shown. The order stays, and by its key the current row.
    void Refresh();
    /// Only the rows whose columns ("CODIGO;PARTE") equal the values; what is read is just these.
    void Restrict(std::string_view columns, const std::vector<TValue>& values);
    void Unrestrict();
    bool Locate(std::string_view columns, const std::vector<TValue>& values) override;

protected:
    void WriteRow() override;
    void EraseRow() override;
    void NeedAllRows() override;
    void NeedCurrentRow() override;
    void ListenerAdded() override;

private:
    enum class TExtent { Nothing, LocatedRow, Everything };

    TStatement Rows() const; ///< SELECT of all columns under the restriction
    void AddOldKey(TStatement& sql) const;
    void ReadEverything();
    void ForgetRows();
    bool IsKey(std::string_view columns) const;
    std::vector<TValue> KeyValues() const;
    void InsertRow();
    void UpdateRow();

    TOrvDatabase& database_;
    const TTableDecl& table_;
    std::string key_; ///< as Locate takes it: "CODIGO;PARTE"
    std::vector<std::string> restrictedColumns_;
    std::vector<TValue> restrictedValues_;
    TExtent extent_ = TExtent::Nothing;
};

} // namespace alinhavo
