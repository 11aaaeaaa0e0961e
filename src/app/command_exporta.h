#pragma once

#include <string>

namespace alinhavo {

struct TExportaOptions {
    std::string table;
    std::string file; ///< a workbook when its name ends in ".xlsx", else separated text
    std::string database; ///< a Firebird file or the address of a database
    std::string company = "01";
};

/// Writes a table into a file: 0, or 2 when that could not be done.
int RunExporta(const TExportaOptions& options);

} // namespace alinhavo
