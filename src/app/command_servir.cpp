#include "app/command_servir.h"

#include "app/command_copia.h"
#include "app/command_verifica.h"
#include "app/screens.h"
#include "app/TLocalControl.h"
#include "app/TServerSettings.h"

#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>

namespace alinhavo {
namespace {

/// The signals that end the server. Made before its threads, which then leave them to Await.
class TEndSignals {
public:
    TEndSignals()
    {
        sigemptyset(&signals_);
        sigaddset(&signals_, SIGTERM);
        sigaddset(&signals_, SIGINT);
        pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    }
    void Await() const
    {
        int signal = 0;
        sigwait(&signals_, &signal);
    }

private:
    sigset_t signals_{};
};

/// Commands that need the database which this process holds.
int CarryOut(const std::string& database, const TLocalControl::TWords& words, std::ostream& told)
{
    if (words.size() == 2 && words[0] == "copia")
        return MakeCopy({.database = database, .copy = words[1]}, told);
    if (words.size() == 2 && words[0] == "verifica")
        return VerifyHere({.database = database, .company = words[1]}, told, told);
    told << "O servidor não conhece o comando.\n";
    return 2;
}

std::unique_ptr<TLocalControl> ControlOf(const TDatabaseAddress& address)
{
    if (!address.IsEmbedded())
        return nullptr;
    return std::make_unique<TLocalControl>(
        address.path, [path = address.path](const TLocalControl::TWords& words, std::ostream& told) {
            return CarryOut(path, words, told);
        });
}

void Serve(const TServirOptions& options)
{
    const TEndSignals signals;
    auto settings = TServerSettings::Read(TConfiguration::Load(options.configuration), options);
    settings.host.registerScreens = RegisterScreens;
    if (settings.host.layouts.empty())
        settings.host.layouts = ALINHAVO_LAYOUTS;
    if (!std::filesystem::is_directory(settings.host.layouts))
        throw std::runtime_error(
            "[Relatorio] modelos = \"" + settings.host.layouts.string() + "\": não há esta pasta.");
    if (!DatabaseExists(settings.host.address, settings.host.database))
        throw std::runtime_error("não existe o banco " + settings.host.address.Text() + ".");
    TDatabaseHost host(settings.host);
    TWebServer server(settings.web, host);
    const auto control = ControlOf(settings.host.address);
    const char* scheme = settings.web.certificate.certificate.empty() ? "http" : "https";
    std::cout << "Alinhavo em " << scheme << "://" << settings.web.address << ":" << server.Port() << "/\n"
              << "Ctrl+C encerra." << std::endl;
    signals.Await();
    std::cout << "Encerrando: o que não foi gravado é desfeito." << std::endl;
    server.Stop();
}

} // namespace

int RunServir(const TServirOptions& options)
{
    try {
        Serve(options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "O servidor não pôde funcionar: " << error.what() << "\n";
        return 1;
    }
}

} // namespace alinhavo
