#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace alinhavo {

/// Slows down whoever guesses passwords. Each pair of a user's name and an address may fail twice; from then on every try waits
/// twice as long as the one before. Tries line up: making many at once does not help. Any thread may use it.
class TLoginGuard {
public:
    using TTime = std::chrono::steady_clock::time_point;
    using TDuration = std::chrono::steady_clock::duration;

    static constexpr TDuration Longest = std::chrono::seconds(30); ///< that a try may wait

    explicit TLoginGuard(TDuration first = std::chrono::seconds(1))
        : first_(first)
    {
    }

    /// How long the try has to wait before its password is looked at. Longer than `Longest`: it is not to be looked at.
    TDuration Begin(std::string_view user, std::string_view address, TTime now);
    /// For a try that does not wait. Zero: its password is looked at, now. Otherwise it is not, and none is for so long.
    TDuration BeginAtOnce(std::string_view user, std::string_view address, TTime now);
    /// What a user is told whose password is not looked at.
    static std::string TooMany(TDuration wait);
    void Failed(std::string_view user, std::string_view address, TTime now);
    void Succeeded(std::string_view user, std::string_view address);

private:
    struct TFailures {
        int count = 0;
        TTime last = {};
        TTime next = {}; ///< when the next try is looked at
    };

    /// What the try waits; one that would wait longer than its patience does not count as one.
    TDuration Try(std::string_view user, std::string_view address, TTime now, TDuration patience);
    void Forget(TTime now);
    TDuration Penalty(const TFailures& failures) const;

    const TDuration first_;
    std::mutex mutex_;
    std::map<std::string, TFailures> failures_;
};

} // namespace alinhavo
