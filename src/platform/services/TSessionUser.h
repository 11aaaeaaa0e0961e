#pragma once

#include <string>

namespace alinhavo {

/// Whose session it is.
struct TSessionUser {
    std::string code; ///< ACESSO_USUARIOS.CODIGO
    std::string name; ///< ACESSO_USUARIOS.NOME
};

} // namespace alinhavo
