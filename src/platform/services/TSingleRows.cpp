#include "platform/services/TSingleRows.h"

#include "forms/text.h"
#include "platform/services/singleValue.h"

namespace alinhavo {
namespace {

/// "A,B" and "1,2" as the condition A = 1 AND B = 2.
void AddKey(TStatement& sql, std::string_view columns, std::string_view values, char separator)
{
    const auto names = Explode(columns, std::string_view(&separator, 1));
    const TLiteralList list(values, separator);
    if (names.size() != list.Values().size())
        throw EDatabaseError(TDatabaseErrorKind::Syntax, "there are not as many values as columns");
    for (std::size_t index = 0; index < names.size(); ++index)
        sql.Add(index == 0 ? TFragment(" WHERE ? = ?") : TFragment(" AND ? = ?"), TName(Trim(names[index])),
            list.Values()[index]);
}

} // namespace

bool TSingleRows::Exists(std::string_view table, std::string_view columns, std::string_view values)
{
    TStatement sql("SELECT 1 FROM {?}", TName(table));
    AddKey(sql, columns, values, ',');
    return !SingleValue(database_, sql.Add(" FETCH FIRST 1 ROWS ONLY")).IsNull();
}

TValue TSingleRows::Find(
    std::string_view table, std::string_view keyColumns, std::string_view column, std::string_view values)
{
    TStatement sql("SELECT ? FROM {?}", TName(column), TName(table));
    AddKey(sql, keyColumns, values, ';');
    return SingleValue(database_, sql.Add(" FETCH FIRST 1 ROWS ONLY"));
}

} // namespace alinhavo
