#include "platform/services/TLoginGuard.h"

#include "forms/text.h"

#include <algorithm>

namespace alinhavo {

namespace {

constexpr int FreeFailures = 2;
constexpr int MostDoublings = 10;
constexpr TLoginGuard::TDuration Memory = std::chrono::minutes(15);

std::string KeyOf(std::string_view user, std::string_view address)
{
    return UpperCase(user) + "\n" + std::string(address);
}

} // namespace

TLoginGuard::TDuration TLoginGuard::Begin(std::string_view user, std::string_view address, TTime now)
{
    return Try(user, address, now, Longest);
}

TLoginGuard::TDuration TLoginGuard::BeginAtOnce(std::string_view user, std::string_view address, TTime now)
{
    return Try(user, address, now, TDuration{});
}

TLoginGuard::TDuration TLoginGuard::Try(std::string_view user, std::string_view address, TTime now, TDuration patience)
{
    const std::lock_guard lock(mutex_);
    Forget(now);
    const auto found = failures_.find(KeyOf(user, address));
    if (found == failures_.end())
        return {};
    auto& failures = found->second;
    const auto wait = std::max(failures.next - now, TDuration{});
    if (wait <= patience)
        failures.next = now + wait + Penalty(failures);
    return wait;
}

std::string TLoginGuard::TooMany(TDuration wait)
{
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(wait).count();
    return "Muitas tentativas com senha errada. Espere " + std::to_string(seconds)
        + (seconds == 1 ? " segundo" : " segundos") + " e tente de novo.";
}

void TLoginGuard::Failed(std::string_view user, std::string_view address, TTime now)
{
    const std::lock_guard lock(mutex_);
    auto& failures = failures_[KeyOf(user, address)];
    ++failures.count;
    failures.last = now;
    failures.next = std::max(failures.next, now + Penalty(failures));
}

void TLoginGuard::Succeeded(std::string_view user, std::string_view address)
{
    const std::lock_guard lock(mutex_);
    failures_.erase(KeyOf(user, address));
}

void TLoginGuard::Forget(TTime now)
{
    std::erase_if(failures_, [now](const auto& entry) { return entry.second.last + Memory < now; });
}

TLoginGuard::TDuration TLoginGuard::Penalty(const TFailures& failures) const
{
    if (failures.count < FreeFailures)
        return {};
    return std::min(first_ * (1 << std::min(failures.count - FreeFailures, MostDoublings)), Longest);
}

} // namespace alinhavo
