// Serves the example screens to browsers until its input ends: exemplo_servidor FOLDER [PORT]

#include "client/TfmControles.h"
#include "client/TfmLeitura.h"
#include "example/TfmExemplo.h"
#include "platform/web/TWebServer.h"

#include <cstdlib>
#include <iostream>

namespace {

using namespace alinhavo;

std::unique_ptr<TApplication> MakeApplication(IEventSource& source, IView& view)
{
    auto application = std::make_unique<TApplication>(source, &view);
    application->RegisterForm("TfmExemplo", [](TApplication& app) { return std::make_unique<TfmExemplo>(app); });
    application->RegisterForm("TfmControles", [](TApplication& app) { return std::make_unique<TfmControles>(app); });
    application->RegisterForm("TfmLeitura", [](TApplication& app) { return std::make_unique<TfmLeitura>(app); });
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
        alinhavo::TWebServer server(options, MakeApplication);
        std::cout << "http://127.0.0.1:" << server.Port() << '/' << std::endl;
        for (std::string line; std::getline(std::cin, line);) { }
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
