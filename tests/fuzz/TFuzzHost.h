#pragma once

#include "../platform/session/roteiro/TPlayedScreens.h"
#include "forms/TApplication.h"
#include "platform/session/ISessionHost.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace alinhavo {

/// A screen of each kind of control, and nothing behind it.
class TFuzzWorkplace final : public IWorkplace {
public:
    TFuzzWorkplace(IEventSource& source, IView& view)
        : application_(source, &view)
    {
        application_.RegisterForm("TfmTela", [](TApplication& app) { return std::make_unique<TfmTela>(app); });
        application_.RegisterForm("TfmDetalhe", [](TApplication& app) { return std::make_unique<TfmDetalhe>(app); });
        application_.LoadForm("TfmTela").Show();
    }

    TApplication& Application() override { return application_; }
    const std::vector<TMenuEntry>& Menu() const override { return menu_; }
    TDateTime PendingSince() const override { return {}; }
    void Cancel() override { }

private:
    TApplication application_;
    std::vector<TMenuEntry> menu_ = {{"Testes", "Tela", "TfmTela"}};
};

/// Lets everybody in.
class TFuzzHost final : public ISessionHost {
public:
    std::optional<TSessionUser> LogIn(std::string_view name, std::string_view) override
    {
        return TSessionUser{std::string(name), std::string(name)};
    }
    std::unique_ptr<IWorkplace> Open(const TSessionUser&, IEventSource& source, IView& view, TConectados&) override
    {
        return std::make_unique<TFuzzWorkplace>(source, view);
    }
    TClientSettings Settings(const TSessionUser&) override { return {}; }
    void WriteSettings(const TSessionUser&, const TClientSettings&) override { }
    void LeaveNotice(const TSessionUser&, std::string_view) override { }
    std::string TakeNotice(const TSessionUser&) override { return {}; }
};

} // namespace alinhavo
