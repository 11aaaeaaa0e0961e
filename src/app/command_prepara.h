#pragma once

#include <string>

namespace alinhavo {

struct TPreparaOptions {
    std::string database; ///< a Firebird file or the address of a database
    std::string company = "01";
};

/// `alinhavo prepara`: makes an empty database where there is none, else brings the one that is there to this program's schema; has
/// the server count its rows anew either way. Nobody may be at work in it. The process's exit code.
int RunPrepara(const TPreparaOptions& options);

} // namespace alinhavo
