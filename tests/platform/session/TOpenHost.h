#pragma once

#include "forms/TApplication.h"
#include "platform/session/ISessionHost.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace alinhavo {

/// An application with nothing behind it that could be pending.
class TPlainWorkplace final : public IWorkplace {
public:
    explicit TPlainWorkplace(std::unique_ptr<TApplication> application, std::vector<TMenuEntry> menu = {})
        : application_(std::move(application))
        , menu_(std::move(menu))
    {
    }
    TApplication& Application() override { return *application_; }
    const std::vector<TMenuEntry>& Menu() const override { return menu_; }
    TDateTime PendingSince() const override { return {}; }
    void Cancel() override { }

private:
    std::unique_ptr<TApplication> application_;
    std::vector<TMenuEntry> menu_;
};

/// Lets everybody in, opens the workplace that it is told to, and keeps nothing.
class TOpenHost final : public ISessionHost {
public:
    using TMaker = std::function<std::unique_ptr<IWorkplace>(IEventSource& source, IView& view)>;

    explicit TOpenHost(TMaker maker)
        : maker_(std::move(maker))
    {
    }
    std::optional<TSessionUser> LogIn(std::string_view name, std::string_view) override
    {
        return TSessionUser{std::string(name), std::string(name)};
    }
    std::unique_ptr<IWorkplace> Open(const TSessionUser&, IEventSource& source, IView& view, TConectados&) override
    {
        return maker_(source, view);
    }
    TClientSettings Settings(const TSessionUser&) override { return {}; }
    void WriteSettings(const TSessionUser&, const TClientSettings&) override { }
    void LeaveNotice(const TSessionUser&, std::string_view) override { }
    std::string TakeNotice(const TSessionUser&) override { return {}; }

private:
    TMaker maker_;
};

} // namespace alinhavo
