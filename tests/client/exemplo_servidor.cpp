// Serves the example screens to browsers until its input ends: exemplo_servidor FOLDER [PORT]

#include "client/TfmControles.h"
#include "client/TfmLeitura.h"
#include "example/TfmExemplo.h"
#include "platform/database/schema.h"
#include "platform/web/TWebServer.h"
#include "sewing/TSewingApplication.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace {

using namespace alinhavo;

constexpr int SewingLines = 6;

/// The database that all sessions work in, gone at the end.
class TSewingDatabase {
public:
    TSewingDatabase()
        : folder_(std::filesystem::temp_directory_path() / ("alinhavo-exemplo-" + std::to_string(getpid())))
        , address_(TDatabaseAddress::Parse((folder_ / "costura.fdb").string()))
    {
        std::filesystem::create_directories(folder_);
        CreateDatabase(address_, {.forcedWrites = false});
        const auto database = OpenDatabase(address_);
        MigrateSchema(*database);
        TSewingApplication::Fill(*database, SewingLines);
    }
    ~TSewingDatabase()
    {
        std::error_code remains;
        std::filesystem::remove_all(folder_, remains);
    }
    TSewingDatabase(const TSewingDatabase&) = delete;
    TSewingDatabase& operator=(const TSewingDatabase&) = delete;

    const TDatabaseAddress& Address() const { return address_; }

private:
    std::filesystem::path folder_;
    TDatabaseAddress address_;
};

std::unique_ptr<TApplication> MakeApplication(IEventSource& source, IView& view, const TDatabaseAddress& sewing)
{
    auto application = std::make_unique<TSewingApplication>(source, &view, sewing);
    application->RegisterForm("TfmExemplo", [](TApplication& app) { return std::make_unique<TfmExemplo>(app); });
    application->RegisterForm("TfmControles", [](TApplication& app) { return std::make_unique<TfmControles>(app); });
    application->RegisterForm("TfmLeitura", [](TApplication& app) { return std::make_unique<TfmLeitura>(app); });
    application->OpenGrid();
    application->LoadForm("TfmControles").Show();
    application->LoadForm("TfmLeitura").Show();
    application->LoadForm("TfmExemplo").Show();
    return application;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "exemplo_servidor PASTA_DO_CLIENTE [PORTA]\n";
        return EXIT_FAILURE;
    }
    try {
        alinhavo::TWebOptions options;
        options.clientFolder = argv[1];
        options.port = argc > 2 ? static_cast<std::uint16_t>(std::atoi(argv[2])) : 8080;
        const TSewingDatabase sewing;
        alinhavo::TWebServer server(options,
            [&](IEventSource& source, IView& view) { return MakeApplication(source, view, sewing.Address()); });
        std::cout << "http://127.0.0.1:" << server.Port() << '/' << std::endl;
        for (std::string line; std::getline(std::cin, line);) { }
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
