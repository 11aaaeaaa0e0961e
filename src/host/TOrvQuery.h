#pragma once

#include "forms/TDataSet.h"
#include "host/TOrvDatabase.h"

#include <utility>

namespace alinhavo {

/// A query and its result. The statement is filled piece by piece, opened or executed; its rows may be edited in a grid
/// without being written anywhere. Fields are those of the result; typed members of a derived type are bound by name.
class TOrvQuery : public TDataSet {
public:
    explicit TOrvQuery(TOrvDatabase& database, std::string name = {});
    TOrvQuery(TComponent& owner, std::string name, TOrvDatabase& database);
    /// Opened at once.
    TOrvQuery(TOrvDatabase& database, const TStatement& statement);

    /// Cleared and filled before Open or ExecSQL.
    TStatement SQL;

    /// Fetches the whole result; the cursor stands on its first row. Fields of an earlier result that the new one lacks
    /// are gone. EDatabaseError leaves the query closed.
    void Open();
    /// Fetches it anew, keeping the order and, where its row is still there at the same place, the cursor.
    void Reopen();
    /// The number of rows touched; also in RowsAffected.
    std::int64_t ExecSQL();
    std::int64_t RowsAffected() const { return rowsAffected_; }

private:
    TOrvDatabase& database_;
    std::int64_t rowsAffected_ = 0;
};

} // namespace alinhavo
