// Serves the example screens to browsers until its input ends: exemplo_servidor FOLDER [PORT]

#include "client/TfmControles.h"
#include "client/TfmFolhas.h"
#include "client/TfmLeitura.h"
#include "example/TfmExemplo.h"
#include "platform/database/schema.h"
#include "platform/web/TWebServer.h"
#include "sewing/TSewingApplication.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <mutex>
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

template <typename TScreen>
std::unique_ptr<TForm> Make(TApplication& application)
{
    return std::make_unique<TScreen>(application);
}

/// The example screens, all open from the beginning.
class TExampleWorkplace final : public IWorkplace {
public:
    TExampleWorkplace(IEventSource& source, IView& view, const TDatabaseAddress& sewing)
        : application_(source, &view, sewing)
    {
        application_.RegisterForm("TfmExemplo", Make<TfmExemplo>);
        application_.RegisterForm("TfmControles", Make<TfmControles>);
        application_.RegisterForm("TfmLeitura", Make<TfmLeitura>);
        application_.RegisterForm("TfmFolhas", Make<TfmFolhas>);
        application_.OpenGrid();
        application_.LoadForm("TfmControles").Show();
        application_.LoadForm("TfmLeitura").Show();
        application_.LoadForm("TfmExemplo").Show();
    }

    TApplication& Application() override { return application_; }
    const std::vector<TMenuEntry>& Menu() const override { return menu_; }
    TDateTime PendingSince() const override { return {}; }
    void Cancel() override { }

private:
    TSewingApplication application_;
    std::vector<TMenuEntry> menu_ = {{"Exemplos", "Tingimento de Botões", "TfmExemplo"},
        {"Exemplos", "Leitura de Código de Barras", "TfmLeitura"}, {"Exemplos", "Folhas", "TfmFolhas"}};
};

/// Anybody comes in with the password "demo".
class TExampleHost final : public ISessionHost {
public:
    explicit TExampleHost(TDatabaseAddress sewing)
        : sewing_(std::move(sewing))
    {
    }
    std::optional<TSessionUser> LogIn(std::string_view name, std::string_view password) override
    {
        if (password != "demo")
            return std::nullopt;
        return TSessionUser{std::string(name), std::string(name)};
    }
    std::unique_ptr<IWorkplace> Open(const TSessionUser&, IEventSource& source, IView& view, TConectados&) override
    {
        return std::make_unique<TExampleWorkplace>(source, view, sewing_);
    }
    TClientSettings Settings(const TSessionUser& user) override
    {
        const std::lock_guard lock(mutex_);
        return settings_[user.code];
    }
    void WriteSettings(const TSessionUser& user, const TClientSettings& settings) override
    {
        const std::lock_guard lock(mutex_);
        for (const auto& [name, value] : settings)
            settings_[user.code][name] = value;
    }
    void LeaveNotice(const TSessionUser& user, std::string_view text) override
    {
        const std::lock_guard lock(mutex_);
        notices_[user.code] = text;
    }
    std::string TakeNotice(const TSessionUser& user) override
    {
        const std::lock_guard lock(mutex_);
        return std::exchange(notices_[user.code], {});
    }

private:
    TDatabaseAddress sewing_;
    std::mutex mutex_;
    std::map<std::string, TClientSettings> settings_;
    std::map<std::string, std::string> notices_;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "exemplo_servidor PASTA_DO_CLIENTE [PORTA]\n";
        return EXIT_FAILURE;
    }
    try {
        TWebOptions options;
        options.clientFolder = argv[1];
        options.port = argc > 2 ? static_cast<std::uint16_t>(std::atoi(argv[2])) : 8080;
        const TSewingDatabase sewing;
        TExampleHost host(sewing.Address());
        TWebServer server(options, host);
        std::cout << "http://127.0.0.1:" << server.Port() << '/' << std::endl;
        for (std::string line; std::getline(std::cin, line);) { }
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
