#include "platform/services/TTableWriter.h"

#include "host/TTableDecl.h"

namespace alinhavo {

TTableWriter::TTableWriter(TOrvDatabase& database, std::string_view table, std::string_view columns)
    : database_(database)
    , head_("INSERT INTO {?} (", TName(table))
{
    bool first = true;
    for (const std::string_view column : ColumnNames(columns)) {
        if (!first)
            head_.Add(", ");
        head_.Add("?", TName(column));
        first = false;
    }
    head_.Add(") VALUES (");
}

void TTableWriter::Row(std::span<const TValue> values)
{
    TStatement statement = head_;
    bool first = true;
    for (const TValue& value : values) {
        if (!first)
            statement.Add(", ");
        statement.Add("?", value);
        first = false;
    }
    statement.Add(")");
    database_.ExecSQL(statement);
    ++rows_;
}

} // namespace alinhavo
