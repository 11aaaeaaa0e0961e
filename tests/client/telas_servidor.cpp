// Serves the registers of the demonstration factory to browsers until its input ends: telas_servidor FOLDER [PORT]

#include "app/demo/TDemoFactory.h"
#include "master/TfmCadFluxo.h"
#include "master/TfmFacFluxo.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/services/TSessionServices.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/TSession.h"
#include "platform/web/TWebServer.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace alinhavo;

/// A factory of its own, gone when the server ends.
class TFactory {
public:
    TFactory()
    {
        fs::create_directories(folder_);
        CreateDatabase(address_);
        const auto database = OpenDatabase(address_);
        MigrateSchema(*database);
        TDemoFactory(*database, 1, TDateTime::FromDate(2026, 11, 20)).Fill();
    }
    ~TFactory()
    {
        DropDatabase(address_);
        fs::remove_all(folder_);
    }
    TFactory(const TFactory&) = delete;
    TFactory& operator=(const TFactory&) = delete;

    std::unique_ptr<TSqlDatabase> Connect() const { return OpenDatabase(address_, {.company = "01"}); }

private:
    fs::path folder_ = fs::temp_directory_path() / ("alinhavo-telas-" + std::to_string(getpid()));
    TDatabaseAddress address_ = TDatabaseAddress::Parse((folder_ / "telas.fdb").string());
};

/// What a session stands on; a base, so that it outlives the application.
struct TGround {
    std::unique_ptr<TSqlDatabase> database;
    std::unique_ptr<TSqlDatabase> preferences;
    TConfiguration configuration;
    TTrustedPasswords passwords;
    TSessionServices services;

    explicit TGround(const TFactory& factory)
        : database(factory.Connect())
        , preferences(factory.Connect())
        , services({.database = *database,
              .preferences = *preferences,
              .configuration = configuration,
              .user = FindUser(*database, TDemoFactory::Users().front().name).value(),
              .company = "01",
              .passwords = passwords,
              .openDatabase = {}})
    {
    }
};

class TUsersApplication final : private TGround, public TOrvApplication {
public:
    TUsersApplication(const TFactory& factory, IEventSource& source, IView& view)
        : TGround(factory)
        , TOrvApplication(source, services.Services(), &view)
    {
        RegisterForm(TfmCadFluxo::Class, [](TApplication& app) { return std::make_unique<TfmCadFluxo>(app); });
        RegisterForm(TfmFacFluxo::Class, [](TApplication& app) { return std::make_unique<TfmFacFluxo>(app); });
        LoadForm(TfmFacFluxo::Class).Show();
        LoadForm(TfmCadFluxo::Class).Show();
    }
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "telas_servidor PASTA_DO_CLIENTE [PORTA]\n";
        return EXIT_FAILURE;
    }
    try {
        const TFactory factory;
        TWebOptions options;
        options.clientFolder = argv[1];
        options.port = argc > 2 ? static_cast<std::uint16_t>(std::atoi(argv[2])) : 8080;
        TWebServer server(options, [&](IEventSource& source, IView& view) -> std::unique_ptr<TApplication> {
            return std::make_unique<TUsersApplication>(factory, source, view);
        });
        std::cout << "http://127.0.0.1:" << server.Port() << '/' << std::endl;
        for (std::string line; std::getline(std::cin, line);) { }
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
