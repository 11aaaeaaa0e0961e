#include "app/command_senha.h"

#include "platform/database/OpenDatabase.h"
#include "platform/services/setPassword.h"

#include <exception>
#include <iostream>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

namespace alinhavo {
namespace {

/// While it lives, what is typed on the terminal is not shown.
class TSilentTerminal {
public:
    TSilentTerminal()
    {
        tcgetattr(STDIN_FILENO, &before_);
        auto silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~TSilentTerminal() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
    TSilentTerminal(const TSilentTerminal&) = delete;
    TSilentTerminal& operator=(const TSilentTerminal&) = delete;

private:
    termios before_{};
};

std::string Line()
{
    std::string line;
    std::getline(std::cin, line);
    return line;
}

std::string Asked(std::string_view question)
{
    const TSilentTerminal silent;
    std::cerr << question << std::flush;
    auto answer = Line();
    std::cerr << "\n";
    return answer;
}

std::string NewPassword()
{
    if (isatty(STDIN_FILENO) == 0)
        return Line();
    const auto password = Asked("Nova senha: ");
    if (password != Asked("Repita a senha: "))
        throw std::runtime_error("as senhas são diferentes.");
    return password;
}

} // namespace

int RunSenha(const TSenhaOptions& options)
try {
    const auto address = TDatabaseAddress::Parse(options.database);
    if (!DatabaseExists(address))
        throw std::runtime_error("não existe o banco " + address.Text() + ".");
    const auto database = OpenDatabase(address);
    SetPassword(*database, options.user, NewPassword());
    std::cout << "A senha de " << options.user << " foi gravada.\n";
    return 0;
} catch (const std::exception& error) {
    std::cerr << "A senha não foi gravada: " << error.what() << "\n";
    return 1;
}

} // namespace alinhavo
