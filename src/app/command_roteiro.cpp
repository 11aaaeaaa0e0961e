#include "app/command_roteiro.h"

#include "app/command_demo.h"
#include "app/demo/TDemoFactory.h"
#include "app/screens.h"
#include "platform/database/schema.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/session/roteiro/TSuite.h"

#include <exception>
#include <iostream>
#include <stdexcept>

namespace alinhavo {
namespace {

void FillDemonstration(TSqlDatabase& database)
{
    const TDemoOptions options;
    TDemoFactory factory(database, options.seed, options.today);
    factory.Fill();
    factory.MakeHistory();
    RefreshStatistics(database);
}

std::optional<TDatabaseAddress> Server(const std::string& database)
{
    if (database.empty())
        return std::nullopt;
    auto address = TDatabaseAddress::Parse(database);
    if (address.server != TDatabaseServer::PostgreSql)
        throw std::runtime_error(
            "os roteiros criam seus próprios arquivos Firebird; --banco só nomeia um servidor PostgreSQL.");
    return address;
}

int Play(const TRoteiroOptions& options)
{
    const auto files = roteiro::TSuite::Find({options.files.begin(), options.files.end()});
    roteiro::TDatabaseCopies copies(Server(options.database),
        {{roteiro::TFactory::Empty, FillEmptyDatabase}, {roteiro::TFactory::Demonstration, FillDemonstration}});
    return roteiro::TSuite(copies, RegisterScreens, {.layouts = ALINHAVO_LAYOUTS, .kept = options.reports})
                .Play(files, std::cout)
            == 0
        ? 0
        : 1;
}

} // namespace

int RunRoteiro(const TRoteiroOptions& options)
{
    try {
        return Play(options);
    } catch (const std::exception& error) {
        std::cerr << "Os roteiros não foram executados: " << error.what() << "\n";
        return 1;
    }
}

} // namespace alinhavo
