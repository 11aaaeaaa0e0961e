#include "platform/session/TSessionThread.h"

#include <stdexcept>
#include <utility>

namespace alinhavo {

TSessionThread::TSessionThread(const TMaker& maker)
    : application_(maker(*this))
    , thread_(&TSessionThread::Run, this)
{
    AwaitTurn(TTurn::Driver);
}

TSessionThread::~TSessionThread()
{
    if (!ended_)
        Send({.kind = TUserEvent::TKind::Terminate});
    thread_.join();
}

std::shared_ptr<const TSessionThread::TOutcome> TSessionThread::Send(TUserEvent event)
{
    if (ended_)
        throw std::logic_error("the session has ended");
    event_ = std::move(event);
    sent_ = std::make_shared<TOutcome>();
    const auto outcome = sent_;
    GiveTurn(TTurn::Application);
    AwaitTurn(TTurn::Driver);
    return outcome;
}

void TSessionThread::Run()
{
    application_->Run();
    ended_ = true;
    GiveTurn(TTurn::Driver);
}

TUserEvent TSessionThread::Next()
{
    GiveTurn(TTurn::Driver);
    AwaitTurn(TTurn::Application);
    handling_.push_back(std::move(sent_));
    return std::move(event_);
}

void TSessionThread::Handled(const TUserEvent&, std::string_view refusal)
{
    handling_.back()->refusal = refusal;
    handling_.back()->done = true;
    handling_.pop_back();
}

void TSessionThread::GiveTurn(TTurn turn)
{
    {
        const std::lock_guard lock(mutex_);
        turn_ = turn;
    }
    turned_.notify_all();
}

void TSessionThread::AwaitTurn(TTurn turn)
{
    std::unique_lock lock(mutex_);
    turned_.wait(lock, [&] { return turn_ == turn; });
}

} // namespace alinhavo
