#include "platform/services/TRights.h"

#include "forms/TApplication.h"
#include "forms/text.h"
#include "platform/services/singleValue.h"

#include <algorithm>

namespace alinhavo {
namespace {

struct TRightWords {
    std::string_view column; ///< of ACESSO
    std::string_view action;
};

TRightWords WordsOf(TDireito right)
{
    switch (right) {
    case TDireito::Altera:
        return {"ALTERA", "incluir ou alterar"};
    case TDireito::Exclui:
        return {"EXCLUI", "excluir"};
    case TDireito::Consulta:
        return {"CONSULTA", "consultar"};
    }
    return {};
}

/// A password stays no longer in memory than it is looked at.
void Forget(std::string& password)
{
    std::ranges::fill(password, '\0');
    password.clear();
}

} // namespace

bool TRights::Allowed(std::string_view screenClass, TDireito right)
{
    const TStatement sql(R"(
        SELECT 1 FROM {ACESSO} A JOIN {ACESSO_MENU} M ON M.NIVEL = A.LOCAL
         WHERE A.USUARIO = ? AND UPPER(M.NOME_FORM) = ? AND A.? = 'Sim'
         FETCH FIRST 1 ROWS ONLY)",
        user_, UpperCase(screenClass), TName(WordsOf(right).column));
    return !SingleValue(database_, sql).IsNull();
}

bool TRights::Check(TForm& screen, std::string_view screenClass, TDireito right)
{
    if (Allowed(screenClass, right))
        return true;
    screen.Mensagem("Usuário sem permissão para " + std::string(WordsOf(right).action) + ".");
    return false;
}

bool TRights::AskSupervisor(TForm& screen)
{
    TDialog step;
    step.kind = TDialog::TKind::Supervisor;
    step.title = screen.Caption();
    step.text = "Esta operação precisa da senha de um supervisor.";
    step.buttons = TButtons::OkCancel;
    if (screen.Application().ShowDialog(step) != TModalResult::Ok)
        return false;
    const auto refusal = Refusal(step.value, step.password);
    Forget(step.password);
    if (!refusal.empty())
        screen.Mensagem(refusal);
    return refusal.empty();
}

// Guesses are slowed down as at the login, apart for each user who makes them.
std::string TRights::Refusal(std::string_view nameOrCode, std::string_view password)
{
    const auto now = std::chrono::steady_clock::now();
    if (const auto wait = guard_.BeginAtOnce(nameOrCode, user_, now); wait > TLoginGuard::TDuration::zero())
        return TLoginGuard::TooMany(wait);
    if (IsSupervisor(nameOrCode, password)) {
        guard_.Succeeded(nameOrCode, user_);
        return {};
    }
    guard_.Failed(nameOrCode, user_, now);
    return "Supervisor ou senha inválidos.";
}

bool TRights::IsSupervisor(std::string_view nameOrCode, std::string_view password)
{
    const auto found = database_.Open(TStatement(R"(
        SELECT SENHA, SUPERVISOR, BLOQUEADO FROM {ACESSO_USUARIOS}
         WHERE UPPER(NOME) = ? OR UPPER(CODIGO) = ?)",
        UpperCase(nameOrCode), UpperCase(nameOrCode)));
    for (std::size_t row = 0; row < found.RowCount(); ++row) {
        if (found.Column(1).Text(row) == "S" && found.Column(2).Text(row) != "S"
            && passwords_.Matches(found.Column(0).Text(row), password))
            return true;
    }
    return false;
}

} // namespace alinhavo
