#include "app/command_importa.h"

#include "app/tableOfCommand.h"
#include "platform/database/OpenDatabase.h"
#include "platform/exchange/TTableExchange.h"
#include "platform/services/TAuditLog.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr std::size_t ErrorsShown = 10;

std::string ErrorPath(const TImportaOptions& options)
{
    return options.errors.empty() ? options.file + ".erros.csv" : options.errors;
}

/// The first wrong lines on the screen, all of them in the file. Without any, no older file is left to be mistaken for theirs.
void TellErrors(const TImportaOptions& options, const IImport& import)
{
    const auto path = ErrorPath(options);
    if (import.Counts().wrong == 0) {
        std::filesystem::remove(path);
        return;
    }
    std::size_t shown = 0;
    for (const TImportRemark& remark : import.Remarks()) {
        if (remark.state != TLineState::Wrong || ++shown > ErrorsShown)
            continue;
        std::cout << "  linha " << remark.line << (remark.column.empty() ? "" : ", coluna " + remark.column) << ": "
                  << remark.reason << (remark.content.empty() ? "" : " (" + remark.content + ")") << "\n";
    }
    if (!(std::ofstream(path, std::ios::binary) << ErrorFile(import.Remarks()) << std::flush))
        throw std::runtime_error("o arquivo " + path + " não pode ser gravado.");
    std::cout << "As linhas erradas estão em " << path << ".\n";
}

void Write(TOrvDatabase& database, const TTableDecl& table, const std::string& file, IImport& import)
{
    import.Write();
    TAuditLog(database, "(linha de comando)")
        .Write(ImportLog, ImportLogText(std::filesystem::path(file).filename().string(), import.Counts()),
            TOperacaoLog::Processo, table.name);
    database.CommitRetaining();
    std::cout << "Gravado.\n";
}

} // namespace

int RunImporta(const TImportaOptions& options)
try {
    const TTableDecl& table = TableOfCommand(options.table);
    const auto database = OpenForCommand(options.database, options.company);
    const auto existing = options.existing == "ignora" ? TExistingRows::Skip : TExistingRows::Update;
    const auto import = TTableExchange(*database).Compare(table, options.file, existing);
    std::cout << table.caption << " (" << table.name << "), de " << options.file << " (" << import->Form() << ")\n"
              << Summary(import->Counts()) << ".\n";
    TellErrors(options, *import);
    if (import->Counts().ToWrite() == 0)
        std::cout << "Não há o que gravar.\n";
    else if (options.write)
        Write(*database, table, options.file, *import);
    else
        std::cout << "Nada foi gravado; para gravar, repita o comando com --grava.\n";
    return import->Counts().wrong == 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << "Nada foi importado: " << error.what() << "\n";
    return 2;
}

} // namespace alinhavo
