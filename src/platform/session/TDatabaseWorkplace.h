#pragma once

#include "platform/database/TSqlDatabase.h"
#include "platform/report/TReports.h"
#include "platform/session/IWorkplace.h"
#include "platform/session/TSession.h"

#include <filesystem>
#include <functional>

namespace alinhavo {

class TConectados;

/// A user's session over a connection of its own.
class TDatabaseWorkplace final : public IWorkplace {
public:
    /// What it shares with others, and whose it is. What is referred to outlives it.
    struct TGround {
        TPreferences& preferences;
        const TConfiguration& configuration;
        const IPasswords& passwords;
        TSessionUser user;
        std::string company;
        TLoginGuard& guard;
        TConectados& connected;
        std::function<std::unique_ptr<TSqlDatabase>()> openAside; ///< for what is not the work of a screen
        std::filesystem::path layouts; ///< the delivered templates of reports; the factory's own come before them
    };

    TDatabaseWorkplace(std::unique_ptr<TSqlDatabase> database, const TGround& ground, IEventSource& source, IView& view,
        const std::function<void(TApplication&)>& registerScreens);

    TApplication& Application() override { return session_; }
    const std::vector<TMenuEntry>& Menu() const override { return menu_; }
    TDateTime PendingSince() const override;
    void Cancel() override;

private:
    void Show(const TFinishedReport& report, TForm& screen);
    void Post(const std::function<void(TOrvEmail&)>& write) const;

    const TGround ground_;
    std::unique_ptr<TSqlDatabase> database_;
    TReports reports_;
    TSession session_;
    std::vector<TMenuEntry> menu_;
};

/// The entries of the menu (ACESSO_MENU) whose screen the application knows and the user may consult. An entry's group is the
/// heading above it.
std::vector<TMenuEntry> ReadMenu(TOrvDatabase& database, const TApplication& application, std::string_view userCode);

} // namespace alinhavo
