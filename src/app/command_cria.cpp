#include "app/command_cria.h"

#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/services/TEmptyDatabase.h"

#include <exception>
#include <iostream>
#include <stdexcept>

namespace alinhavo {
namespace {

void Fill(const TDatabaseAddress& address)
{
    const auto database = OpenDatabase(address);
    MigrateSchema(*database);
    FillEmptyDatabase(*database);
}

} // namespace

int RunCria(const TCriaOptions& options)
try {
    const auto address = TDatabaseAddress::Parse(options.database);
    if (DatabaseExists(address))
        throw std::runtime_error("já existe um banco de dados em " + address.Text() + ".");
    CreateDatabase(address);
    try {
        Fill(address);
    } catch (...) {
        DropDatabase(address);
        throw;
    }
    std::cout << "Banco criado em " << address.Text() << ". Dê agora uma senha ao usuário ADMIN:\n"
              << "  alinhavo senha ADMIN --banco " << options.database << "\n";
    return 0;
} catch (const std::exception& error) {
    std::cerr << "O banco não foi criado: " << error.what() << "\n";
    return 1;
}

} // namespace alinhavo
