#pragma once

#include <string>

namespace alinhavo {

struct TImportaOptions {
    std::string table;
    std::string file;
    std::string database; ///< a Firebird file or the address of a database
    std::string company = "01";
    std::string existing = "atualiza"; ///< or "ignora": rows that are there stay as they are
    std::string errors; ///< where the wrong lines are told; empty: beside the file
    bool write = false;
};

/// Compares a file with its table, tells what is new, changed, the same and wrong, and writes the new and the changed lines when
/// asked: 0 when no line is wrong, 1 when some are, 2 when nothing could be imported.
int RunImporta(const TImportaOptions& options);

} // namespace alinhavo
