#include "platform/session/TDatabaseWorkplace.h"

#include "forms/TApplication.h"
#include "platform/database/OpenDatabase.h"
#include "platform/services/TOutbox.h"
#include "platform/session/clock.h"
#include "platform/session/TShownReport.h"

#include <chrono>

namespace alinhavo {

namespace {

std::unique_ptr<TSqlDatabase> OpenOther(const std::string& address)
{
    return OpenDatabase(TDatabaseAddress::Parse(address));
}

} // namespace

TDatabaseWorkplace::TDatabaseWorkplace(std::unique_ptr<TSqlDatabase> database, const TGround& ground,
    IEventSource& source, IView& view, const std::function<void(TApplication&)>& registerScreens)
    : ground_(ground)
    , database_(std::move(database))
    , reports_({.layouts = {ground.configuration.SharedRoot() / "Layout", ground.layouts},
          .sharedRoot = ground.configuration.SharedRoot(),
          .show = [this](const TFinishedReport& report, TForm& screen) { Show(report, screen); }})
    , session_(source, &view,
          TSessionSetup{
              .database = *database_,
              .preferences = ground.preferences,
              .configuration = ground.configuration,
              .user = ground.user,
              .company = ground.company,
              .passwords = ground.passwords,
              .openDatabase = OpenOther,
              .reports = &reports_,
              .connected = &ground.connected,
              .guard = &ground.guard,
          })
{
    registerScreens(session_);
    menu_ = ReadMenu(*database_, session_, ground.user.code);
}

/// Until the user has read it. What its template asks for in vain stands beside it.
void TDatabaseWorkplace::Show(const TFinishedReport& report, TForm& screen)
{
    TShownReport shown(report, [this](const auto& write) { Post(write); });
    TDialog viewer{.kind = TDialog::TKind::Report, .title = report.title, .report = &shown};
    for (const auto& name : report.unknownNames)
        viewer.text
            += (viewer.text.empty() ? "O modelo " + report.layout + " usa nomes que ninguém conhece: " : ", ") + name;
    screen.Application().ShowDialog(viewer);
}

/// By a connection of its own: what a screen has pending stays pending.
void TDatabaseWorkplace::Post(const std::function<void(TOrvEmail&)>& write) const
{
    const auto database = ground_.openAside();
    TOutbox outbox(*database, ground_.user.code);
    write(outbox);
    database->CommitRetaining();
}

void TDatabaseWorkplace::Cancel()
{
    database_->Cancel();
    reports_.Cancel();
}

TDateTime TDatabaseWorkplace::PendingSince() const
{
    if (!database_->Pending())
        return {};
    const auto age = std::chrono::steady_clock::now() - database_->PendingSince();
    return TDateTime::FromSeconds(ClockNow().Seconds() - std::chrono::duration_cast<std::chrono::seconds>(age).count());
}

std::vector<TMenuEntry> ReadMenu(TOrvDatabase& database, const TApplication& application, std::string_view userCode)
{
    const auto rows = database.Open(TStatement(R"(
        SELECT M.NIVEL, M.DESCRICAO, COALESCE(M.NOME_FORM, '') AS TELA, COALESCE(A.CONSULTA, '') AS CONSULTA
          FROM {ACESSO_MENU} M LEFT JOIN {ACESSO} A ON A.LOCAL = M.NIVEL AND A.USUARIO = ?
         ORDER BY M.NIVEL)",
        userCode));
    std::vector<TMenuEntry> menu;
    std::string heading;
    std::string group;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const std::string level(rows.Column(0).Text(row));
        const std::string caption(rows.Column(1).Text(row));
        const std::string screen(rows.Column(2).Text(row));
        if (screen.empty()) {
            heading = level + ".";
            group = caption;
        } else if (rows.Column(3).Text(row) == "Sim" && application.KnowsForm(screen)) {
            menu.push_back({level.starts_with(heading) ? group : std::string(), caption, screen});
        }
    }
    return menu;
}

} // namespace alinhavo
