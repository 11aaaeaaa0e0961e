#include "platform/services/TUserPasswords.h"

#include "host/TOrvDatabase.h"
#include "platform/services/singleValue.h"

namespace alinhavo {
namespace {

/// Where the login has a network address: all of a user's sessions count together.
constexpr std::string_view Inside = "";

} // namespace

std::string TUserPasswords::Confere(std::string_view senha)
{
    const auto now = std::chrono::steady_clock::now();
    if (const auto wait = guard_.BeginAtOnce(user_, Inside, now); wait > TLoginGuard::TDuration::zero())
        return TLoginGuard::TooMany(wait);
    const auto stored
        = SingleValue(database_, TStatement("SELECT SENHA FROM {ACESSO_USUARIOS} WHERE CODIGO = ?", user_)).AsString();
    if (passwords_.Matches(stored, senha)) {
        guard_.Succeeded(user_, Inside);
        return {};
    }
    guard_.Failed(user_, Inside, now);
    return "A senha atual não confere.";
}

void TUserPasswords::Grava(std::string_view usuario, std::string_view senha)
{
    database_.ExecSQL(
        TStatement("UPDATE {ACESSO_USUARIOS} SET SENHA = ? WHERE CODIGO = ?", passwords_.Hash(senha), usuario));
}

} // namespace alinhavo
