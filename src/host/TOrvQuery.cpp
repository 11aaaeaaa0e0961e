#include "host/TOrvQuery.h"

namespace alinhavo {

TOrvQuery::TOrvQuery(TOrvDatabase& database, std::string name)
    : TDataSet(std::move(name))
    , database_(database)
{
}

TOrvQuery::TOrvQuery(TComponent& owner, std::string name, TOrvDatabase& database)
    : TDataSet(owner, std::move(name))
    , database_(database)
{
}

TOrvQuery::TOrvQuery(TOrvDatabase& database, const TStatement& statement)
    : SQL(statement)
    , database_(database)
{
    Open();
}

void TOrvQuery::Open()
{
    Close();
    Adopt(database_.Open(SQL), true);
}

void TOrvQuery::Reopen()
{
    const auto place = RecNo();
    Open();
    if (place > 0)
        GoToRow(place - 1);
}

std::int64_t TOrvQuery::ExecSQL() { return rowsAffected_ = database_.ExecSQL(SQL); }

} // namespace alinhavo
