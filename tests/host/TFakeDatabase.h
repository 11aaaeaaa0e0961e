#pragma once

#include "host/TOrvDatabase.h"

#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace alinhavo {

/// A connection without a server: keeps the statements it is given and answers what a test tells it to.
class TFakeDatabase final : public TOrvDatabase {
public:
    /// A result of texts and numbers; the kind of a column follows from its value in the first row.
    static TTableData Rows(
        std::initializer_list<const char*> columns, std::initializer_list<std::initializer_list<TValue>> rows);

    std::function<TTableData(const TStatement&)> OnOpen = [](const TStatement&) { return TTableData(); };
    std::function<std::int64_t(const TStatement&)> OnExec = [](const TStatement&) { return 1; };
    std::vector<std::string> Statements; ///< as logs see them, on one line

    TTableData Open(const TStatement& statement) override;
    std::int64_t ExecSQL(const TStatement& statement) override;
    void CommitRetaining() override { Statements.emplace_back("COMMIT"); }
    void RollbackRetaining() override { Statements.emplace_back("ROLLBACK"); }
    bool Pending() const override { return false; }
    std::chrono::steady_clock::time_point PendingSince() const override { return {}; }
    std::string DBLocal(std::string_view table) const override { return std::string(table); }
    void SetNow(TDateTime) override { }
    void Cancel() override { }
};

} // namespace alinhavo
