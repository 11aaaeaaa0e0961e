#include "platform/session/TSession.h"

#include "forms/text.h"

#include <utility>

namespace alinhavo {

TSession::TSession(IEventSource& source, IView* view, TSessionSetup setup)
    : TSessionParts{TSessionServices(std::move(setup))}
    , TOrvApplication(source, services.Services(), view)
{
}

std::optional<TSessionUser> FindUser(TOrvDatabase& database, std::string_view nameOrCode)
{
    const auto found = database.Open(TStatement(R"(
        SELECT CODIGO, NOME, BLOQUEADO FROM {ACESSO_USUARIOS}
         WHERE UPPER(NOME) = ? OR UPPER(CODIGO) = ? ORDER BY CODIGO)",
        UpperCase(nameOrCode), UpperCase(nameOrCode)));
    for (std::size_t row = 0; row < found.RowCount(); ++row) {
        if (found.Column(2).Text(row) != "S")
            return TSessionUser{std::string(found.Column(0).Text(row)), std::string(found.Column(1).Text(row))};
    }
    return std::nullopt;
}

} // namespace alinhavo
