#include "platform/session/roteiro/TDatabaseWorld.h"

#include "platform/services/TUserSettings.h"
#include "platform/session/roteiro/TPlayedSession.h"
#include "platform/verification/TVerification.h"

#include <stdexcept>
#include <utility>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

/// Where the screens look for the local settings.
constexpr std::string_view settingsSection = "Parametros";
constexpr std::string_view company = "01";

} // namespace

TDatabaseWorld::TDatabaseWorld(TDatabaseCopies& copies, TScreenRegistry registerScreens, TReportFolders reports)
    : copies_(copies)
    , registerScreens_(std::move(registerScreens))
    , reports_(std::move(reports))
{
}

TDatabaseWorld::~TDatabaseWorld()
{
    if (!address_)
        return;
    database_.reset();
    copies_.Drop(*address_);
    std::error_code remains;
    fs::remove_all(folder_, remains);
}

void TDatabaseWorld::Begin(TFactory factory)
{
    address_ = copies_.Make(factory);
    database_ = OpenDatabase(*address_);
    preferences_ = std::make_unique<TPreferences>(*database_);
    folder_ = copies_.Folder()
        / ("arquivos_" + (address_->name.empty() ? fs::path(address_->path).stem().string() : address_->name));
    fs::create_directories(folder_ / "enviados");
    configuration_ = TConfiguration::Parse("[Caminho]\npath = " + folder_.string() + "\n");
}

/// What fails leaves nothing pending for the next line.
void TDatabaseWorld::Commit(const std::function<void()>& write)
{
    try {
        write();
        database_->CommitRetaining();
    } catch (...) {
        database_->RollbackRetaining();
        throw;
    }
}

void TDatabaseWorld::Execute(const std::string& sql)
{
    Commit([&] { database_->ExecText(sql); });
}

/// A remark is what the rules allow.
std::vector<std::string> TDatabaseWorld::Violations()
{
    std::vector<std::string> errors;
    for (const auto& violation : Verify(*database_)) {
        if (violation.severity == TSeverity::Error)
            errors.push_back(
                "[" + std::string(violation.check) + "] " + std::string(violation.text) + ": " + violation.keys);
    }
    return errors;
}

void TDatabaseWorld::SetParameter(const TParameter& parameter)
{
    Commit([&] {
        database_->ExecSQL(
            TStatement("DELETE FROM {PARAMETRO} WHERE GRUPO = ? AND NUMERO = ?", parameter.group, parameter.number));
        database_->ExecSQL(TStatement("INSERT INTO {PARAMETRO} (GRUPO, NUMERO, VALOR) VALUES (?, ?, ?)",
            parameter.group, parameter.number, parameter.value));
    });
}

void TDatabaseWorld::SetSetting(const TSetting& setting)
{
    settings_.push_back(setting);
    for (const auto& user : users_)
        WriteSetting(setting, user);
}

void TDatabaseWorld::WriteSetting(const TSetting& setting, const std::string& user)
{
    TUserSettings(*preferences_, user).Write(settingsSection, setting.name, setting.value);
}

void TDatabaseWorld::SetNow(TDateTime now)
{
    now_ = now;
    database_->SetNow(now);
}

void TDatabaseWorld::SetRfid(const TRfid& rfid)
{
    if (rfid_.IsEmpty() && !users_.empty())
        throw std::logic_error("the first rfid line stands before usuario");
    rfid_.Add(rfid);
}

std::unique_ptr<IPlayedSession> TDatabaseWorld::LogIn(const std::string& name)
{
    auto user = FindUser(*database_, name);
    if (!user)
        throw std::runtime_error("there is no user " + name + ", or he is blocked");
    users_.push_back(user->code);
    for (const auto& setting : settings_)
        WriteSetting(setting, user->code);
    return std::make_unique<TPlayedSession>(OpenDatabase(*address_, {.company = std::string(company)}),
        *std::move(user), std::string(company),
        TPlayedSession::TGround{
            .preferences = *preferences_,
            .configuration = configuration_,
            .passwords = passwords_,
            .rfid = rfid_.IsEmpty() ? nullptr : &rfid_,
            .registerScreens = registerScreens_,
            .now = now_,
            .reports = reports_,
        });
}

fs::path TDatabaseWorld::Upload(const fs::path& file)
{
    auto copy = folder_ / "enviados" / file.filename();
    fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
    return copy;
}

} // namespace alinhavo::roteiro
