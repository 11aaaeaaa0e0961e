#pragma once

#include "host/TConectados.h"
#include "platform/web/TWebSession.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace alinhavo {

struct TSessionLimits {
    std::size_t sessions = 200; ///< at once
    std::chrono::steady_clock::duration idle = std::chrono::hours(2); ///< without a message of its user; zero: for ever
};

/// The sessions of a server and the logins that open them. A login is known by the secret in its cookie and ends with the last
/// of its sessions, or when none was begun for a while. Any thread may use it.
class TSessionRegistry final : public TConectados {
public:
    /// The session to take when none is named: the one that the login had last, or a new one.
    static constexpr std::string_view Last = "";
    static constexpr std::string_view New = "nova";
    /// What a user is told when there are as many sessions as there may be.
    static constexpr std::string_view TooMany
        = "O limite de sessões foi atingido. Saia de uma sessão que não usa, ou tente mais tarde.";

    TSessionRegistry(ISessionHost& host, const TSessionLimits& limits);

    /// The secret of a new login.
    std::string LogIn(const TSessionUser& user);
    /// The session ended by its user's wish belongs to the login no more. False when it was the last one: the login ends.
    bool LogOut(std::string_view secret, std::string_view name);
    /// Nothing when the secret opens nothing.
    std::optional<TSessionUser> UserOf(std::string_view secret);

    struct TFound {
        std::shared_ptr<TWebSession> session; ///< null: `why` tells the user
        std::string why = {};
    };
    /// `wanted`: the name of a session of the same user, Last or New.
    TFound Take(std::string_view secret, std::string_view wanted);
    /// A session of the login's user, by its name; the one that the login had last when it is empty. Null when there is none.
    std::shared_ptr<TWebSession> Find(std::string_view secret, std::string_view name);
    std::vector<std::shared_ptr<TWebSession>> SessionsOf(std::string_view userCode) const;
    /// No further session may begin.
    bool Full() const;

    /// The longest at work first.
    std::vector<TConectado> Lista() const override;
    TDateTime Agora() const override;
    bool Encerra(std::string_view id, std::string_view motivo) override;

    /// Ends those that were not used for too long, and lets go of those that have ended.
    void EndIdle(std::chrono::steady_clock::time_point now);
    /// Ends all of them, with a text for their users, and waits for their threads. None starts afterwards.
    void EndAll(std::string_view why);
    std::size_t Count() const;

private:
    struct TLogin {
        TSessionUser user;
        std::chrono::steady_clock::time_point began;
        std::set<std::string, std::less<>> sessions; ///< that it had
        std::string last;
    };

    TLogin* FindLogin(std::string_view secret);
    std::shared_ptr<TWebSession> FindSession(std::string_view name, const TSessionUser& user) const;
    bool Holds(const TLogin& login, std::chrono::steady_clock::time_point now) const;
    std::size_t Living() const;
    std::vector<std::shared_ptr<TWebSession>> DropEnded();

    ISessionHost& host_;
    const TSessionLimits limits_;
    mutable std::mutex mutex_;
    std::map<std::string, TLogin, std::less<>> logins_; ///< by secret
    std::map<std::string, std::shared_ptr<TWebSession>, std::less<>> sessions_; ///< by public name
    bool closed_ = false;
};

} // namespace alinhavo
