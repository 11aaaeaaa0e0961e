#include "faults/TWatchedDatabase.h"

namespace alinhavo {

TTableData TWatchedDatabase::Open(const TStatement& statement)
{
    Moment();
    auto rows = database_->Open(statement);
    Moment();
    return rows;
}

std::int64_t TWatchedDatabase::ExecSQL(const TStatement& statement)
{
    Moment();
    const auto touched = database_->ExecSQL(statement);
    Moment();
    return touched;
}

void TWatchedDatabase::CommitRetaining()
{
    const bool pending = Pending();
    Moment();
    database_->CommitRetaining();
    if (pending && OnCommitted)
        OnCommitted();
    Moment();
}

void TWatchedDatabase::RollbackRetaining()
{
    Moment();
    database_->RollbackRetaining();
    Moment();
}

void TWatchedDatabase::Moment() const
{
    if (OnMoment)
        OnMoment();
}

} // namespace alinhavo
