#include "host/EDatabaseError.h"
#include "platform/database/databaseErrors.h"
#include "platform/database/postgresql/TPostgreSqlConnection.h"
#include "platform/database/TConstraint.h"
#include "platform/database/TDialect.h"

namespace alinhavo::postgresql {
namespace {

using enum TDatabaseErrorKind;

// One state stands for both directions; only the message, in whatever language, names the table that is referred to in one of
// them.
[[noreturn]] void RaiseForeignKey(const EPostgreSql& failure)
{
    const auto* known = FindConstraint(failure.Constraint());
    const bool namesBoth = known && known->foreignKey
        && failure.Primary().find("\"" + LowerName(known->foreignKey->table) + "\"") != std::string::npos;
    if (namesBoth)
        RaiseReferenced(failure.Constraint(), failure.Table());
    RaiseNotFound(failure.Constraint(), failure.Table());
}

[[noreturn]] void RaiseConversion(const std::string& state)
{
    if (state == "22001")
        RaiseTooLong();
    if (state == "22003")
        RaiseOutOfRange();
    if (state == "22007" || state == "22008")
        RaiseNoDate();
    if (state == "22012")
        throw EDatabaseError(Other, "division by zero");
    if (state == "22021" || state == "22P05")
        RaiseNoUtf8();
    throw EDatabaseError(Conversion, "a text is no number or date");
}

[[noreturn]] void RaiseSyntax(const std::string& state)
{
    if (state == "42P01")
        throw EDatabaseError(Syntax, "unknown table in the statement");
    if (state == "42703")
        throw EDatabaseError(Syntax, "unknown column in the statement");
    if (state == "42804" || state == "42846")
        throw EDatabaseError(Conversion, "values of different types are mixed");
    throw EDatabaseError(Syntax, "the statement is not understood");
}

} // namespace

void RaiseDatabaseError(const EPostgreSql& failure)
{
    const auto& state = failure.State();
    if (state.empty() || state.starts_with("08") || state == "57P01" || state == "57P02" || state == "57P03")
        RaiseConnection();
    if (state == "57014")
        RaiseCancelled();
    if (state == "53100" || state == "58030")
        RaiseDisk();
    if (state == "23505")
        RaiseDuplicate(failure.Constraint(), failure.Table());
    if (state == "23503")
        RaiseForeignKey(failure);
    if (state == "23502")
        RaiseNotNull(failure.Table(), failure.Column());
    if (state == "55P03" || state == "40P01" || state == "40001")
        RaiseLock();
    if (state.starts_with("22"))
        RaiseConversion(state);
    if (state.starts_with("42") && state != "42501")
        RaiseSyntax(state);
    throw EDatabaseError(Other, "the database refused the operation");
}

} // namespace alinhavo::postgresql
