#pragma once

#include <string>

namespace alinhavo {

struct TAtualizaOptions {
    std::string database; ///< a Firebird file or the address of a database
    std::string company = "01";
};

/// `alinhavo atualiza`: brings a database to this program's schema, and has the server count its rows anew. Nobody may be at work in
/// it. The process's exit code.
int RunAtualiza(const TAtualizaOptions& options);

} // namespace alinhavo
