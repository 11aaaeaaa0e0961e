#pragma once

#include <string>
#include <vector>

namespace alinhavo {

struct TRoteiroOptions {
    std::vector<std::string> files; ///< and folders
    std::string database; ///< a database of the PostgreSQL server to use; empty: Firebird files
};

/// `alinhavo roteiro`: plays the files and says what did not go as written. The process's exit code.
int RunRoteiro(const TRoteiroOptions& options);

} // namespace alinhavo
