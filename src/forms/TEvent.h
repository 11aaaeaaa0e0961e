#pragma once

#include <functional>
#include <utility>

namespace alinhavo {

/// Silent abort: unwinds the handlers and shows nothing.
struct EAbort { };
[[noreturn]] inline void Abort() { throw EAbort(); }

/// What a screen hears of its control or table: one handler at most, run in the middle of the work that raises it.
template <typename... TArguments>
class TEvent {
public:
    TEvent() = default;
    TEvent(const TEvent&) = delete;
    TEvent& operator=(const TEvent&) = delete;

    template <typename TOwner>
    void connect(TOwner* owner, void (TOwner::*handler)(TArguments...))
    {
        handler_
            = [owner, handler](TArguments... arguments) { (owner->*handler)(std::forward<TArguments>(arguments)...); };
    }
    void connect(std::function<void(TArguments...)> handler) { handler_ = std::move(handler); }
    void disconnect() { handler_ = nullptr; }
    bool connected() const { return static_cast<bool>(handler_); }

    void operator()(TArguments... arguments) const
    {
        if (handler_ && off_ == 0)
            handler_(std::forward<TArguments>(arguments)...);
    }

private:
    template <typename>
    friend class TEventOff;

    std::function<void(TArguments...)> handler_;
    int off_ = 0;
};

/// The event stays silent while this lives.
template <typename TEventType>
class TEventOff {
public:
    explicit TEventOff(TEventType& event)
        : event_(event)
    {
        ++event_.off_;
    }
    ~TEventOff() { --event_.off_; }
    TEventOff(const TEventOff&) = delete;
    TEventOff& operator=(const TEventOff&) = delete;

private:
    TEventType& event_;
};

} // namespace alinhavo
