#pragma once

#include "platform/services/TConfiguration.h"
#include "platform/services/TPreferences.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/roteiro/THands.h"
#include "platform/session/TSession.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Somebody who works at a session on the caller's thread: the hands of a roteiro without its checks. He says yes to the
/// questions that he knows.
class TClerk final : private IEventSource {
public:
    using TScreenRegistry = std::function<void(TApplication&)>;

    /// The session's work goes through `database`, which outlives it, the user's preferences included. A question is known
    /// when it contains one of `known`.
    TClerk(TOrvDatabase& database, TSessionUser user, const TScreenRegistry& registerScreens,
        std::vector<std::string_view> known);

    TApplication& Application() { return session_; }

    /// What a person does: a TClick, a TFill and so on. std::runtime_error, with what the screen says, when it refuses or says
    /// anything at all.
    void operator()(const auto& action) { hands_(action); }
    void Send(const TUserEvent& event);

private:
    TUserEvent Next() override;

    TPreferences preferences_;
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    std::vector<std::string_view> known_;
    TSession session_;
    roteiro::THands hands_;
    std::optional<std::string> said_; ///< by a dialog that nobody expects
};

} // namespace alinhavo
