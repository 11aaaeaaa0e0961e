#include "app/TServerSettings.h"

#include "app/command_servir.h"

#include <charconv>
#include <stdexcept>

namespace alinhavo {

namespace {

/// A whole number between the limits.
int Number(const std::string& text, const std::string& key, int least, int most)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
        throw std::runtime_error(key + " = \"" + text + "\": esperado um número de " + std::to_string(least) + " a "
            + std::to_string(most) + ".");
    return number;
}

class TReader {
public:
    explicit TReader(const TConfiguration& configuration)
        : configuration_(configuration)
    {
    }

    std::string Text(const std::string& section, const std::string& key, const std::string& otherwise,
        const std::string& commandLine = {}) const
    {
        return commandLine.empty() ? configuration_.Value(section, key, otherwise) : commandLine;
    }

    int Number(const std::string& section, const std::string& key, int otherwise, int least, int most,
        const std::string& commandLine = {}) const
    {
        return alinhavo::Number(
            Text(section, key, std::to_string(otherwise), commandLine), "[" + section + "] " + key, least, most);
    }

private:
    const TConfiguration& configuration_;
};

} // namespace

TServerSettings TServerSettings::Read(const TConfiguration& configuration, const TServirOptions& options)
{
    const TReader read(configuration);
    TServerSettings settings;

    settings.host.configuration = configuration;
    settings.host.address
        = TDatabaseAddress::Parse(read.Text("Banco", "endereco", "dados/alinhavo.fdb", options.database));
    settings.host.database.company = read.Text("Banco", "empresa", "01");
    settings.host.database.lockWait = std::chrono::seconds(read.Number("Banco", "espera", 5, 1, 600));
    settings.host.database.cachePages = read.Number("Banco", "paginas", 4096, 64, 1'000'000);
    settings.host.layouts = read.Text("Relatorio", "modelos", "");
    settings.host.today = options.today;

    settings.web.address = read.Text("Servidor", "endereco", "127.0.0.1", options.address);
    settings.web.port = static_cast<std::uint16_t>(read.Number("Servidor", "porta", 8080, 0, 65535, options.port));
    settings.web.threads = read.Number("Servidor", "linhas", 2, 1, 64);
    settings.web.pdfCommand = read.Text("Relatorio", "pdf", "chromium");
    settings.web.clientFolder = read.Text("Servidor", "cliente", "client/dist", options.client);
    settings.web.certificate
        = {.certificate = read.Text("Servidor", "certificado", ""), .key = read.Text("Servidor", "chave", "")};
    if (settings.web.certificate.certificate.empty() != settings.web.certificate.key.empty())
        throw std::runtime_error("[Servidor] certificado e chave: um não serve sem o outro.");

    settings.web.limits.sessions = static_cast<std::size_t>(read.Number("Sessao", "limite", 200, 1, 10'000));
    settings.web.limits.idle = std::chrono::minutes(read.Number("Sessao", "inatividade", 120, 0, 100'000));
    return settings;
}

} // namespace alinhavo
