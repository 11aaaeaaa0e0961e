#include "app/command_servir.h"

#include "app/screens.h"
#include "app/TServerSettings.h"

#include <csignal>
#include <exception>
#include <iostream>

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

void Serve(const TServirOptions& options)
{
    const TEndSignals signals;
    auto settings = TServerSettings::Read(TConfiguration::Load(options.configuration), options);
    settings.host.registerScreens = RegisterScreens;
    settings.host.layouts = ALINHAVO_LAYOUTS;
    if (!DatabaseExists(settings.host.address, settings.host.database))
        throw std::runtime_error("não existe o banco " + settings.host.address.Text() + ".");
    TDatabaseHost host(settings.host);
    TWebServer server(settings.web, host);
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
