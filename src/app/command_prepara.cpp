#include "app/command_prepara.h"

#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/services/TEmptyDatabase.h"

#include <exception>
#include <iostream>

namespace alinhavo {
namespace {

void Create(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    CreateDatabase(address);
    try {
        const auto database = OpenDatabase(address, options);
        MigrateSchema(*database);
        FillEmptyDatabase(*database);
        RefreshStatistics(*database);
    } catch (...) {
        DropDatabase(address);
        throw;
    }
    std::cout << "Banco criado em " << address.Text() << ". Dê agora uma senha ao usuário ADMIN:\n"
              << "  alinhavo senha ADMIN --banco " << address.Text() << "\n";
}

void Update(const TDatabaseAddress& address, const TDatabaseOptions& options)
{
    const auto database = OpenDatabase(address, options);
    const int before = SchemaVersion(*database);
    MigrateSchema(*database);
    RefreshStatistics(*database);
    std::cout << "O banco " << address.Text() << " está na versão " << CurrentSchemaVersion << " (era " << before
              << ").\n";
}

} // namespace

int RunPrepara(const TPreparaOptions& options)
try {
    const auto address = TDatabaseAddress::Parse(options.database);
    const TDatabaseOptions opening{.company = options.company};
    if (DatabaseExists(address, opening))
        Update(address, opening);
    else
        Create(address, opening);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "O banco não foi preparado: " << error.what() << "\n";
    return 1;
}

} // namespace alinhavo
