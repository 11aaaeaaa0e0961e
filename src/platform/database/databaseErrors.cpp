#include "platform/database/databaseErrors.h"

#include "host/EDatabaseError.h"
#include "platform/database/TConstraint.h"
#include "platform/database/TDialect.h"

namespace alinhavo {
namespace {

using enum TDatabaseErrorKind;

std::string Named(std::string_view table, std::string_view columns)
{
    return std::string(table) + (columns.empty() ? "" : " (" + std::string(columns) + ")");
}

[[noreturn]] void Raise(TDatabaseErrorKind kind, const char* text) { throw EDatabaseError(kind, text); }

} // namespace

void RaiseDuplicate(std::string_view constraint, std::string_view table)
{
    const auto* known = FindConstraint(constraint);
    const std::string name = known ? std::string(known->table->name) : UpperName(table);
    const std::string columns = known ? std::string(known->columns) : "";
    throw EDatabaseError(Duplicate, "duplicate value in " + Named(name, columns), name, columns);
}

void RaiseReferenced(std::string_view constraint, std::string_view table)
{
    const auto* known = FindConstraint(constraint);
    if (!known || !known->foreignKey)
        throw EDatabaseError(Referenced, "rows of " + UpperName(table) + " refer to the row", UpperName(table));
    const std::string name(known->table->name);
    const auto& key = *known->foreignKey;
    throw EDatabaseError(Referenced, "rows of " + name + " refer to " + Named(key.table, key.references), name,
        std::string(key.columns));
}

void RaiseNotFound(std::string_view constraint, std::string_view table)
{
    const auto* known = FindConstraint(constraint);
    if (!known || !known->foreignKey)
        throw EDatabaseError(
            Referenced, "a row of " + UpperName(table) + " refers to one that does not exist", UpperName(table));
    const std::string name(known->table->name);
    const std::string columns(known->columns);
    const auto& key = *known->foreignKey;
    throw EDatabaseError(Referenced,
        Named(name, columns) + " refers to a row of " + Named(key.table, key.references) + " that does not exist", name,
        columns);
}

void RaiseNotNull(std::string_view table, std::string_view column)
{
    const auto name = UpperName(table);
    const auto columns = UpperName(column);
    throw EDatabaseError(NotNull, Named(name, columns) + " must have a value", name, columns);
}

void RaiseLock() { Raise(Lock, "Registro em uso por outro usuário. Tente novamente em instantes."); }
void RaiseConnection()
{
    Raise(Connection, "A conexão com o banco de dados foi perdida. O que não estava confirmado não foi gravado.");
}
void RaiseDisk()
{
    Raise(Other, "O banco de dados não pôde ser gravado: o disco do servidor está cheio ou com defeito.");
}
void RaiseCancelled() { Raise(Cancelled, "Operação cancelada."); }
void RaiseTooLong() { Raise(Conversion, "a text is too long for its column"); }
void RaiseNoNumber() { Raise(Conversion, "a text is no number"); }
void RaiseNoDate() { Raise(Conversion, "a text is no date"); }
void RaiseOutOfRange() { Raise(Conversion, "a number is out of range"); }
void RaiseNoUtf8() { Raise(Conversion, "a text holds bytes that are no characters"); }

} // namespace alinhavo
