#include "platform/web/TSessionRegistry.h"

#include <array>
#include <sodium.h>
#include <utility>

namespace alinhavo {

namespace {

std::string RandomText()
{
    std::array<unsigned char, 32> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    std::array<char, bytes.size() * 2 + 1> text{};
    sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
    return text.data();
}

} // namespace

TSessionRegistry::TSessionRegistry(TApplicationMaker maker, std::size_t limit)
    : maker_(std::move(maker))
    , limit_(limit)
{
    if (sodium_init() < 0)
        throw std::runtime_error("libsodium does not start");
}

TSessionRegistry::TEntry TSessionRegistry::FindOrStart(std::string_view token)
{
    const std::lock_guard lock(mutex_);
    if (const auto found = sessions_.find(token); found != sessions_.end() && !found->second->Ended())
        return {found->first, found->second};
    DropEnded();
    if (closed_ || sessions_.size() >= limit_)
        return {};
    // The session's public name is not its token: a client may show the one and never sees the other.
    auto [started, isNew] = sessions_.emplace(RandomText(), std::make_shared<TWebSession>(RandomText(), maker_));
    return {started->first, started->second, isNew};
}

void TSessionRegistry::DropEnded()
{
    std::erase_if(sessions_, [](const auto& entry) { return entry.second->Ended(); });
}

void TSessionRegistry::EndAll()
{
    decltype(sessions_) ending;
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        ending.swap(sessions_);
    }
    for (const auto& [token, session] : ending)
        session->End();
    for (const auto& [token, session] : ending)
        session->Wait();
}

std::size_t TSessionRegistry::Count() const
{
    const std::lock_guard lock(mutex_);
    return sessions_.size();
}

} // namespace alinhavo
