#pragma once

#include <string>
#include <vector>

namespace alinhavo {

struct TRoteiroOptions {
    std::vector<std::string> files; ///< and folders
    std::string database; ///< a database of the PostgreSQL server to use; empty: Firebird files
    std::string reports; ///< folder in which the reports that are asked for are left; empty: they are not kept
};

/// `alinhavo roteiro`: plays the files and says what did not go as written. The process's exit code.
int RunRoteiro(const TRoteiroOptions& options);

} // namespace alinhavo
