#include "app/command_exporta.h"

#include "app/tableOfCommand.h"
#include "forms/text.h"
#include "platform/database/OpenDatabase.h"
#include "platform/exchange/exportTable.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace alinhavo {

int RunExporta(const TExportaOptions& options)
try {
    const TTableDecl& table = TableOfCommand(options.table);
    const auto database = OpenForCommand(options.database, options.company);
    const bool isWorkbook = LowerCase(std::filesystem::path(options.file).extension().string()) == ".xlsx";
    const auto content = ExportTable(*database, table, isWorkbook ? TFileForm::Xlsx : TFileForm::Csv);
    if (!(std::ofstream(options.file, std::ios::binary) << content << std::flush))
        throw std::runtime_error("o arquivo " + options.file + " não pode ser gravado.");
    std::cout << table.caption << " (" << table.name << ") está em " << options.file << ".\n";
    return 0;
} catch (const std::exception& error) {
    std::cerr << "Nada foi exportado: " << error.what() << "\n";
    return 2;
}

} // namespace alinhavo
