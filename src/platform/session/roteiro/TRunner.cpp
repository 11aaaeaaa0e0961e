#include "platform/session/roteiro/TRunner.h"

#include "platform/session/roteiro/TAnswers.h"
#include "platform/session/roteiro/TChecks.h"
#include "platform/session/roteiro/THands.h"

#include <concepts>
#include <exception>
#include <utility>

namespace alinhavo::roteiro {

std::vector<TFailure> TRunner::Run(const std::vector<TLine>& lines)
{
    try {
        for (const auto& line : lines)
            Play(line);
    } catch (const TStopped&) {
        // What is played after it would only tell of the same failure again.
    }
    sessions_.clear();
    return std::move(failures_);
}

void TRunner::Stop(const TLine& line, EMismatch mismatch)
{
    failures_.push_back({line.place, line.source, std::move(mismatch)});
    throw TStopped{};
}

void TRunner::Play(const TLine& line)
{
    PlayInner(line, [&] { std::visit([&](const auto& step) { PlayStep(line, step); }, line.step); });
}

/// What goes wrong in it is this line's.
void TRunner::PlayInner(const TLine& line, const std::function<void()>& play)
{
    try {
        play();
    } catch (const EMismatch& mismatch) {
        Stop(line, mismatch);
    } catch (const std::exception& error) {
        Stop(line, {"no error", error.what()});
    }
}

template <typename TKind>
void TRunner::PlayStep(const TLine& line, const TKind& step)
{
    if constexpr (std::invocable<THands, const TKind&>)
        Act(line, [&] { THands(Application(), [this](TUserEvent event) { Send(std::move(event)); })(step); });
    else if constexpr (std::invocable<TChecks, const TKind&>)
        PlayCheck(line, step);
    else if constexpr (!std::invocable<TAnswers, const TKind&>)
        Do(step);
}

template <typename TKind>
void TRunner::PlayCheck(const TLine& line, const TKind& check)
{
    try {
        if constexpr (std::same_as<TKind, TExpectMenu>)
            Act(line, [&] {
                THands(Application(), [this](TUserEvent event) {
                    Send(std::move(event));
                }).OpenMenu(check.control, check.column);
            });
        const auto session = sessions_.find(current_);
        TChecks(World(), session == sessions_.end() ? nullptr : session->second.get())(check);
    } catch (const EMismatch& mismatch) {
        failures_.push_back({line.place, line.source, mismatch});
    } catch (const std::exception& error) {
        failures_.push_back({line.place, line.source, {"no error", error.what()}});
    }
}

// Actions and what they raise

void TRunner::Act(const TLine& line, const std::function<void()>& act)
{
    struct TRestore {
        TAction*& slot;
        TAction* outer;
        ~TRestore() { slot = outer; }
    };
    TAction action{line, Session()};
    const TRestore restore{action_, std::exchange(action_, &action)};
    act();
    FinishAction();
}

void TRunner::Send(TUserEvent event)
{
    const auto outcome = action_->session.Thread().Send(std::move(event));
    while (!outcome->done)
        AnswerTop();
    if (!outcome->refusal.empty())
        throw EMismatch{"what a person can do", outcome->refusal};
}

/// The lines in front of the next dialog are played while that dialog waits.
void TRunner::AnswerTop()
{
    auto& action = *action_;
    const auto& inner = action.line.inner;
    while (action.next < inner.size() && !IsDialog(inner[action.next].step))
        Play(inner[action.next++]);
    if (&Session() != &action.session)
        throw EMismatch{"the session whose dialog waits", "session " + current_};
    if (action.next == inner.size())
        throw EMismatch{"no dialog", TStage(Application()).Top()};
    PlayDialog(inner[action.next++]);
}

void TRunner::PlayDialog(const TLine& line)
{
    PlayInner(line, [&] {
        const TAnswers answers(
            world_, Application(), [this](TUserEvent event) { Send(std::move(event)); }, line.place.file);
        std::visit(
            [&](const auto& step) {
                if constexpr (std::invocable<TAnswers, decltype(step)>)
                    answers(step);
            },
            line.step);
        if (std::holds_alternative<TModal>(line.step))
            PlayInModal(line);
    });
}

void TRunner::PlayInModal(const TLine& modal)
{
    auto& session = Session();
    const auto* form = Application().ActiveForm();
    for (const auto& line : modal.inner) {
        const bool acts = IsUserAction(line.step) && &Session() == &session;
        if (acts && Application().ActiveForm() != form)
            Stop(line, {"the modal screen still open", "it is closed"});
        Play(line);
    }
}

void TRunner::FinishAction()
{
    const auto& inner = action_->line.inner;
    while (action_->next < inner.size()) {
        const auto& line = inner[action_->next++];
        if (IsDialog(line.step))
            Stop(line, {line.source, "no dialog"});
        Play(line);
    }
}

// The world around the application

IWorld& TRunner::World()
{
    if (!std::exchange(begun_, true))
        world_.Begin(TFactory::Empty);
    return world_;
}

IPlayedSession& TRunner::Session() const
{
    const auto found = sessions_.find(current_);
    if (found == sessions_.end())
        throw EMismatch{"a user in session " + current_ + " (usuario)", "nobody is logged in"};
    return *found->second;
}

void TRunner::Do(const TDatabase& step)
{
    if (std::exchange(begun_, true))
        throw EMismatch{"the database named before all else", "it is in use already"};
    world_.Begin(step.factory);
}

void TRunner::Do(const TParameter& step) { World().SetParameter(step); }
void TRunner::Do(const TSetting& step) { World().SetSetting(step); }
void TRunner::Do(const TSql& step) { World().Execute(step.statement); }
void TRunner::Do(const TRfid& step) { World().SetRfid(step); }

void TRunner::Do(const TToday& step)
{
    World().SetNow(step.now);
    for (const auto& [name, session] : sessions_)
        session->Thread().Application().SetNow(step.now);
}

/// Whoever was there before logs out.
void TRunner::Do(const TUser& step)
{
    const auto present = sessions_.find(current_);
    if (action_ && present != sessions_.end() && present->second.get() == &action_->session)
        throw EMismatch{"a session without an open dialog", "session " + current_ + " is at work"};
    sessions_.erase(current_);
    sessions_.emplace(current_, World().LogIn(step.name));
}

void TRunner::Do(const TSwitchSession& step) { current_ = step.name; }
void TRunner::Do(const TPlannedFailure& step) { Session().PlanFailure(step); }

} // namespace alinhavo::roteiro
