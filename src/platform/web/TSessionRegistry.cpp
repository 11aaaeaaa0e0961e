#include "platform/web/TSessionRegistry.h"

#include "platform/session/clock.h"
#include "platform/web/randomText.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace alinhavo {

namespace {

using TClock = std::chrono::steady_clock;

/// A login that begins no session ends.
constexpr auto TimeToBegin = std::chrono::minutes(10);

} // namespace

TSessionRegistry::TSessionRegistry(ISessionHost& host, const TSessionLimits& limits)
    : host_(host)
    , limits_(limits)
{
}

std::string TSessionRegistry::LogIn(const TSessionUser& user)
{
    const std::lock_guard lock(mutex_);
    return logins_.emplace(RandomText(), TLogin{user, TClock::now(), {}, {}}).first->first;
}

bool TSessionRegistry::LogOut(std::string_view secret, std::string_view name)
{
    const std::lock_guard lock(mutex_);
    const auto found = logins_.find(secret);
    if (found == logins_.end())
        return false;
    auto& login = found->second;
    if (const auto session = login.sessions.find(name); session != login.sessions.end())
        login.sessions.erase(session);
    if (!login.sessions.empty() && Holds(login, TClock::now()))
        return true;
    logins_.erase(found);
    return false;
}

std::optional<TSessionUser> TSessionRegistry::UserOf(std::string_view secret)
{
    const std::lock_guard lock(mutex_);
    const auto* login = FindLogin(secret);
    return login ? std::optional(login->user) : std::nullopt;
}

TSessionRegistry::TFound TSessionRegistry::Take(std::string_view secret, std::string_view wanted)
{
    const std::lock_guard lock(mutex_);
    auto* login = FindLogin(secret);
    if (!login)
        return {nullptr, "É preciso entrar novamente."};
    auto session = wanted == New ? nullptr : FindSession(wanted == Last ? login->last : wanted, login->user);
    if (!session && wanted != New && wanted != Last)
        return {nullptr, "Essa sessão já terminou."};
    if (!session && closed_)
        return {nullptr, "O servidor está sendo encerrado."};
    if (!session && Living() >= limits_.sessions)
        return {nullptr, std::string(TooMany)};
    if (!session) {
        session = std::make_shared<TWebSession>(RandomText(), login->user, host_, *this);
        sessions_.emplace(session->Id(), session);
    }
    login->sessions.insert(session->Id());
    login->last = session->Id();
    return {session};
}

std::shared_ptr<TWebSession> TSessionRegistry::Find(std::string_view secret, std::string_view name)
{
    const std::lock_guard lock(mutex_);
    const auto* login = FindLogin(secret);
    return login ? FindSession(name.empty() ? login->last : name, login->user) : nullptr;
}

std::vector<std::shared_ptr<TWebSession>> TSessionRegistry::SessionsOf(std::string_view userCode) const
{
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<TWebSession>> found;
    for (const auto& [name, session] : sessions_) {
        if (session->User().code == userCode && !session->Ended())
            found.push_back(session);
    }
    return found;
}

bool TSessionRegistry::Full() const
{
    const std::lock_guard lock(mutex_);
    return closed_ || Living() >= limits_.sessions;
}

std::vector<TConectado> TSessionRegistry::Lista() const
{
    const std::lock_guard lock(mutex_);
    std::vector<TConectado> list;
    for (const auto& [name, session] : sessions_) {
        if (!session->Ending())
            list.push_back(session->Note());
    }
    std::ranges::sort(list, {}, [](const TConectado& each) { return std::tie(each.desde, each.usuario, each.id); });
    return list;
}

TDateTime TSessionRegistry::Agora() const { return ClockNow(); }

bool TSessionRegistry::Encerra(std::string_view id, std::string_view motivo)
{
    const std::lock_guard lock(mutex_);
    const auto found = sessions_.find(id);
    if (found == sessions_.end() || found->second->Ending())
        return false;
    found->second->End(motivo);
    return true;
}

void TSessionRegistry::EndIdle(TClock::time_point now)
{
    std::vector<std::shared_ptr<TWebSession>> gone;
    const std::lock_guard lock(mutex_);
    if (limits_.idle > TClock::duration::zero()) {
        for (const auto& [name, session] : sessions_) {
            if (session->LastUse() + limits_.idle < now)
                session->End("A sessão terminou por falta de uso.");
        }
    }
    gone = DropEnded();
    std::erase_if(logins_, [&](const auto& entry) { return !Holds(entry.second, now); });
}

void TSessionRegistry::EndAll(std::string_view why)
{
    decltype(sessions_) ending;
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        ending.swap(sessions_);
        logins_.clear();
    }
    for (const auto& [name, session] : ending)
        session->End(why);
    for (const auto& [name, session] : ending)
        session->Wait();
}

std::size_t TSessionRegistry::Count() const
{
    const std::lock_guard lock(mutex_);
    return Living();
}

TSessionRegistry::TLogin* TSessionRegistry::FindLogin(std::string_view secret)
{
    const auto found = logins_.find(secret);
    if (found == logins_.end() || !Holds(found->second, TClock::now()))
        return nullptr;
    return &found->second;
}

std::shared_ptr<TWebSession> TSessionRegistry::FindSession(std::string_view name, const TSessionUser& user) const
{
    const auto found = sessions_.find(name);
    if (found == sessions_.end() || found->second->Ended() || found->second->User().code != user.code)
        return nullptr;
    return found->second;
}

bool TSessionRegistry::Holds(const TLogin& login, TClock::time_point now) const
{
    if (login.sessions.empty())
        return login.began + TimeToBegin > now;
    return std::ranges::any_of(
        login.sessions, [&](const auto& name) { return FindSession(name, login.user) != nullptr; });
}

std::size_t TSessionRegistry::Living() const
{
    return static_cast<std::size_t>(
        std::ranges::count_if(sessions_, [](const auto& entry) { return !entry.second->Ended(); }));
}

/// The sessions that have ended; their threads are awaited where these are let go of, which must not hold the others up.
std::vector<std::shared_ptr<TWebSession>> TSessionRegistry::DropEnded()
{
    std::vector<std::shared_ptr<TWebSession>> ended;
    for (const auto& [name, session] : sessions_) {
        if (session->Ended())
            ended.push_back(session);
    }
    for (const auto& session : ended)
        sessions_.erase(session->Id());
    return ended;
}

} // namespace alinhavo
