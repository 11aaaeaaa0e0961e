#pragma once

#include "forms/TUserEvent.h"
#include "platform/services/TSessionUser.h"
#include "platform/session/IWorkplace.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace alinhavo {

class IView;
class TConectados;

/// A user's own settings of a client, by name; each value is a text that means something to the client alone.
using TClientSettings = std::map<std::string, std::string>;

/// Where users come in, and what each of their sessions works with. Any thread may call it.
class ISessionHost {
public:
    static constexpr std::size_t MaxSettingName = 100; ///< bytes
    static constexpr std::size_t MaxSetting = 8000; ///< bytes

    virtual ~ISessionHost() = default;

    /// The user of that name or code when the password is his and he is not blocked. Slow, on purpose.
    virtual std::optional<TSessionUser> LogIn(std::string_view nameOrCode, std::string_view password) = 0;
    /// Called on the new session's thread. What it throws ends the session, told to its user.
    virtual std::unique_ptr<IWorkplace> Open(
        const TSessionUser& user, IEventSource& source, IView& view, TConectados& connected)
        = 0;

    virtual TClientSettings Settings(const TSessionUser& user) = 0;
    /// Writes the given ones; an empty value removes its name.
    virtual void WriteSettings(const TSessionUser& user, const TClientSettings& settings) = 0;

    /// A text that the user is to see when he comes in again; TakeNotice gives it once.
    virtual void LeaveNotice(const TSessionUser& user, std::string_view text) = 0;
    virtual std::string TakeNotice(const TSessionUser& user) = 0;
};

} // namespace alinhavo
