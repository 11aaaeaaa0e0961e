#include "app/command_copia.h"

#include "app/command_verifica.h"
#include "app/TLocalControl.h"
#include "forms/numbers.h"
#include "host/EDatabaseError.h"
#include "platform/database/copyContents.h"
#include "platform/database/OpenDatabase.h"

#include <exception>
#include <filesystem>
#include <iostream>

namespace alinhavo {
namespace {

/// The server may stand in another folder.
std::string Absolute(const std::string& database)
{
    const auto address = TDatabaseAddress::Parse(database);
    return address.IsEmbedded() ? std::filesystem::absolute(address.path).string() : database;
}

std::string Count(std::int64_t number) { return FormatDecimal(static_cast<double>(number), 0); }

void Summarize(const TCopiedContents& copied, const std::string& where, std::ostream& told)
{
    told << Count(copied.tables) << " tabelas e " << Count(copied.rows) << " linhas em " << where << ".\n";
}

} // namespace

int MakeCopy(const TCopiaOptions& options, std::ostream& told)
try {
    const auto to = TDatabaseAddress::Parse(options.copy);
    Summarize(CopyContents(TDatabaseAddress::Parse(options.database), to, options.replace), to.Text(), told);
    return 0;
} catch (const std::exception& error) {
    told << "A cópia não foi feita: " << error.what() << "\n";
    return 1;
}

int RunCopia(const TCopiaOptions& options)
try {
    const auto copy = Absolute(options.copy);
    if (const auto code = AskServer(options.database, {"copia", copy}, std::cout))
        return *code;
    return MakeCopy(options, std::cout);
} catch (const std::exception& error) {
    std::cerr << "A cópia não foi feita: " << error.what() << "\n";
    return 1;
}

int RunRestaura(const TCopiaOptions& options)
try {
    const auto to = TDatabaseAddress::Parse(options.database);
    if (!options.replace && DatabaseExists(to)) {
        std::cerr << "Já existe um banco de dados em " << to.Text()
                  << ". Para o substituir, repita o comando com --substitui.\n";
        return 1;
    }
    Summarize(CopyContents(TDatabaseAddress::Parse(options.copy), to, options.replace), to.Text(), std::cout);
    return RunVerifica({.database = options.database});
} catch (const std::exception& error) {
    std::cerr << "O banco não foi restaurado: " << error.what() << "\n";
    return 1;
}

} // namespace alinhavo
