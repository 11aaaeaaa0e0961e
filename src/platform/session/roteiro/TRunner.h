#pragma once

#include "platform/session/roteiro/EMismatch.h"
#include "platform/session/roteiro/IWorld.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace alinhavo::roteiro {

/// A line that did not go as written.
struct TFailure {
    TPlace place;
    std::string source;
    EMismatch mismatch;
};

/// Plays a roteiro: does what its lines say as a person would, and answers what this raises by the lines indented under
/// it. It goes on behind a check that fails, and stops at an action that cannot be done or raises what is not written,
/// since nothing is known of what follows.
class TRunner {
public:
    explicit TRunner(IWorld& world)
        : world_(world)
    {
    }

    /// Empty when all went as written. Once for each runner.
    std::vector<TFailure> Run(const std::vector<TLine>& lines);

private:
    struct TStopped { };
    /// The action under way, and how far the lines under it have come.
    struct TAction {
        const TLine& line;
        IPlayedSession& session;
        std::size_t next = 0;
    };

    void Play(const TLine& line);
    void PlayInner(const TLine& line, const std::function<void()>& play);
    template <typename TKind>
    void PlayStep(const TLine& line, const TKind& step);
    template <typename TKind>
    void PlayCheck(const TLine& line, const TKind& check);
    void Act(const TLine& line, const std::function<void()>& act);
    void Send(TUserEvent event);
    void AnswerTop();
    void PlayDialog(const TLine& line);
    void PlayInModal(const TLine& modal);
    void FinishAction();
    [[noreturn]] void Stop(const TLine& line, EMismatch mismatch);

    void Do(const TDatabase& step);
    void Do(const TParameter& step);
    void Do(const TSetting& step);
    void Do(const TSql& step);
    void Do(const TRfid& step);
    void Do(const TToday& step);
    void Do(const TUser& step);
    void Do(const TSwitchSession& step);
    void Do(const TPlannedFailure& step);

    /// The world of this file; an empty database unless it says otherwise.
    IWorld& World();
    IPlayedSession& Session() const;
    TApplication& Application() const { return Session().Thread().Application(); }

    IWorld& world_;
    bool begun_ = false;
    std::map<std::string, std::unique_ptr<IPlayedSession>> sessions_;
    std::string current_ = "A";
    TAction* action_ = nullptr;
    std::vector<TFailure> failures_;
};

} // namespace alinhavo::roteiro
