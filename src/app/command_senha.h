#pragma once

#include <string>

namespace alinhavo {

struct TSenhaOptions {
    std::string user; ///< name or code
    std::string database; ///< a Firebird file or the address of a database
};

/// `alinhavo senha`: gives a user a password, asked twice on the terminal without showing it, or the first line of the standard
/// input when that is no terminal. The process's exit code.
int RunSenha(const TSenhaOptions& options);

} // namespace alinhavo
