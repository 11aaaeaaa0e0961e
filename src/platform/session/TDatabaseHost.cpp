#include "platform/session/TDatabaseHost.h"

#include "forms/text.h"
#include "platform/session/TDatabaseWorkplace.h"

namespace alinhavo {

namespace {

constexpr std::string_view ClientSection = "Cliente.";
constexpr std::string_view NoticeKey = "Sessao.Aviso";

struct TAccount {
    TSessionUser user;
    std::string password;
};

std::optional<TAccount> FindAccount(TOrvDatabase& database, std::string_view nameOrCode)
{
    const auto found = database.Open(TStatement(R"(
        SELECT CODIGO, NOME, SENHA, BLOQUEADO FROM {ACESSO_USUARIOS}
         WHERE UPPER(NOME) = ? OR UPPER(CODIGO) = ? ORDER BY CODIGO)",
        UpperCase(nameOrCode), UpperCase(nameOrCode)));
    const auto text = [&](std::size_t column, std::size_t row) { return std::string(found.Column(column).Text(row)); };
    for (std::size_t row = 0; row < found.RowCount(); ++row) {
        if (found.Column(3).Text(row) != "S")
            return TAccount{{text(0, row), text(1, row)}, text(2, row)};
    }
    return std::nullopt;
}

} // namespace

TDatabaseHost::TDatabaseHost(TDatabaseHostOptions options)
    : options_(std::move(options))
    , nobodysPassword_(passwords_.Hash(""))
    , preferencesDatabase_(OpenDatabase(options_.address, options_.database))
    , preferences_(*preferencesDatabase_)
    , users_(OpenDatabase(options_.address, options_.database))
{
}

// Takes as long for a user who does not exist: nobody learns the names.
std::optional<TSessionUser> TDatabaseHost::LogIn(std::string_view nameOrCode, std::string_view password)
{
    std::optional<TAccount> account;
    {
        const std::lock_guard lock(usersMutex_);
        account = FindAccount(*users_, nameOrCode);
    }
    const bool good = passwords_.Matches(account ? account->password : nobodysPassword_, password);
    return good && account ? std::optional(account->user) : std::nullopt;
}

std::unique_ptr<IWorkplace> TDatabaseHost::Open(
    const TSessionUser& user, IEventSource& source, IView& view, TConectados& connected)
{
    auto workplace = std::make_unique<TDatabaseWorkplace>(OpenDatabase(options_.address, options_.database),
        TDatabaseWorkplace::TGround{.preferences = preferences_,
            .configuration = options_.configuration,
            .passwords = passwords_,
            .user = user,
            .company = options_.database.company,
            .guard = guard_,
            .connected = connected,
            .openAside = [this] { return OpenDatabase(options_.address, options_.database); },
            .layouts = options_.layouts},
        source, view, options_.registerScreens);
    workplace->Application().SetNow(options_.today);
    return workplace;
}

TClientSettings TDatabaseHost::Settings(const TSessionUser& user)
{
    return preferences_.ReadAll(user.code, ClientSection);
}

void TDatabaseHost::WriteSettings(const TSessionUser& user, const TClientSettings& settings)
{
    for (const auto& [name, value] : settings) {
        const auto key = std::string(ClientSection) + name;
        if (value.empty())
            preferences_.Remove(user.code, key);
        else
            preferences_.Write(user.code, key, value);
    }
}

void TDatabaseHost::LeaveNotice(const TSessionUser& user, std::string_view text)
{
    preferences_.Write(user.code, NoticeKey, text);
}

std::string TDatabaseHost::TakeNotice(const TSessionUser& user)
{
    const auto notice = preferences_.Read(user.code, NoticeKey);
    if (notice)
        preferences_.Remove(user.code, NoticeKey);
    return notice.value_or("");
}

} // namespace alinhavo
