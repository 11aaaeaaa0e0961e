#include "platform/services/setPassword.h"

#include "forms/text.h"
#include "host/TOrvDatabase.h"
#include "platform/services/THashedPasswords.h"

#include <stdexcept>
#include <string>

namespace alinhavo {

void SetPassword(TOrvDatabase& database, std::string_view nameOrCode, std::string_view password)
{
    if (password.empty())
        throw std::runtime_error("a senha não pode ficar em branco.");
    if (password.size() > LongestPassword)
        throw std::runtime_error("a senha é longa demais.");
    const auto found
        = database.Open(TStatement("SELECT CODIGO FROM {ACESSO_USUARIOS} WHERE UPPER(NOME) = ? OR UPPER(CODIGO) = ?",
            UpperCase(nameOrCode), UpperCase(nameOrCode)));
    const std::string user(nameOrCode);
    if (found.RowCount() == 0)
        throw std::runtime_error("não existe o usuário " + user + ".");
    if (found.RowCount() > 1)
        throw std::runtime_error("mais de um usuário tem o nome ou código " + user + ".");
    database.ExecSQL(TStatement("UPDATE {ACESSO_USUARIOS} SET SENHA = ? WHERE CODIGO = ?",
        THashedPasswords().Hash(password), std::string(found.Column(0).Text(0))));
    database.CommitRetaining();
}

} // namespace alinhavo
