#include "app/command_demo.h"

#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"

#include <exception>
#include <iostream>

namespace alinhavo {
namespace {

void PrintSummary(const TDemoSummary& summary, const TDatabaseAddress& address)
{
    const auto count = [](int number) { return FormatDecimal(number, 0); };
    std::cout << "Fábrica de demonstração criada em " << address.Text() << ".\n"
              << "  " << count(summary.products) << " produtos, " << count(summary.sectors) << " setores, "
              << count(summary.flows) << " fluxos, " << count(summary.subcontractors) << " facções\n"
              << "  " << count(summary.salesOrders) << " pedidos, " << count(summary.orders) << " OFs com "
              << count(summary.pieces) << " peças\n"
              << "  " << count(summary.movements) << " movimentos de setor\n"
              << "Usuários, todos com a senha \"" << TDemoFactory::Password << "\":\n";
    for (const TDemoUser& user : TDemoFactory::Users())
        std::cout << "  " << user.name << std::string(8 - user.name.size(), ' ') << user.role << "\n";
}

TDemoSummary FillNewDatabase(const TDatabaseAddress& address, const TDemoOptions& options)
{
    const auto database = OpenDatabase(address);
    MigrateSchema(*database);
    TDemoFactory factory(*database, options.seed, options.today);
    factory.Fill();
    factory.MakeHistory();
    factory.Multiply(options.scale);
    RefreshStatistics(*database);
    return factory.Summary();
}

int Make(const TDemoOptions& options)
{
    const TDatabaseAddress address = TDatabaseAddress::Parse(options.database);
    if (DatabaseExists(address)) {
        std::cerr << "Já existe um banco de dados em " << address.Text() << ".\n";
        return 1;
    }
    // Until it is whole, the database may be lost as well as made anew.
    CreateDatabase(address, {.forcedWrites = false});
    try {
        PrintSummary(FillNewDatabase(address, options), address);
        ForceWrites(address);
    } catch (...) {
        DropDatabase(address);
        throw;
    }
    return 0;
}

} // namespace

int RunDemo(const TDemoOptions& options)
{
    try {
        return Make(options);
    } catch (const std::exception& error) {
        std::cerr << "Não foi possível criar a fábrica de demonstração: " << error.what() << "\n";
        return 1;
    }
}

} // namespace alinhavo
