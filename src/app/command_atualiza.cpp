#include "app/command_atualiza.h"

#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"

#include <exception>
#include <iostream>
#include <stdexcept>

namespace alinhavo {

int RunAtualiza(const TAtualizaOptions& options)
try {
    const auto address = TDatabaseAddress::Parse(options.database);
    if (!DatabaseExists(address))
        throw std::runtime_error("não existe o banco " + address.Text() + ".");
    const auto database = OpenDatabase(address, {.company = options.company});
    const int before = SchemaVersion(*database);
    MigrateSchema(*database);
    RefreshStatistics(*database);
    std::cout << "O banco " << address.Text() << " está na versão " << CurrentSchemaVersion << " (era " << before
              << ").\n";
    return 0;
} catch (const std::exception& error) {
    std::cerr << "O banco não foi atualizado: " << error.what() << "\n";
    return 1;
}

} // namespace alinhavo
