#pragma once

#include "forms/TApplication.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace alinhavo {

/// An application on a thread of its own, driven step by step: the driver waits while the application works, and the
/// application while the driver does. So the driver may look at screens and tables whenever it is not in a call of this.
class TSessionThread final : private IEventSource {
public:
    using TMaker = std::function<std::unique_ptr<TApplication>(IEventSource&)>;

    /// What became of an event.
    struct TOutcome {
        bool done = false; ///< false: a dialog or modal screen that it opened is on top
        std::string refusal; ///< once it is done: why a person could not do it, else empty
    };

    /// Returns when the application waits for its first event. What the maker throws is thrown.
    explicit TSessionThread(const TMaker& maker);
    /// Unwinds what is open, and waits for the thread.
    ~TSessionThread() override;
    TSessionThread(const TSessionThread&) = delete;
    TSessionThread& operator=(const TSessionThread&) = delete;

    TApplication& Application() const { return *application_; }
    /// Returns when the application waits again. The outcome is filled in later when it is not done yet. Raises
    /// std::logic_error when the application has ended.
    std::shared_ptr<const TOutcome> Send(TUserEvent event);
    bool Ended() const { return ended_; }

private:
    enum class TTurn { Driver, Application };

    TUserEvent Next() override;
    void Handled(const TUserEvent& event, std::string_view refusal) override;
    void Run();
    void GiveTurn(TTurn turn);
    void AwaitTurn(TTurn turn);

    std::mutex mutex_;
    std::condition_variable turned_;
    TTurn turn_ = TTurn::Application; ///< guarded by the mutex; all else belongs to whose turn it is
    TUserEvent event_;
    std::shared_ptr<TOutcome> sent_;
    std::vector<std::shared_ptr<TOutcome>> handling_; ///< events in work, the innermost last
    bool ended_ = false;
    std::unique_ptr<TApplication> application_;
    std::thread thread_;
};

} // namespace alinhavo
