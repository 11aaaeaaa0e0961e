#pragma once

#include "forms/IView.h"
#include "forms/TUserEvent.h"
#include "host/TConectados.h"
#include "platform/session/ISessionHost.h"
#include "platform/web/IClientLink.h"
#include "platform/web/TClientMessage.h"
#include "platform/web/TConnectedSeen.h"
#include "platform/web/TDialogStack.h"
#include "platform/web/TScreenImage.h"
#include "platform/web/TSessionFiles.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace alinhavo {

class IShownReport;
class TApplication;

/// A user's work: one thread with one application, which outlives the connections of its client.
///
/// What the client sends is carried out in its order. A message that was sent before the client could know that the focus, the
/// dialog on top or the text that it types in is another (its `turn` is not the present one) is passed over: so no keystroke
/// reaches a control that it was not meant for.
class TWebSession final : private IEventSource, private IView {
public:
    static constexpr std::size_t MaxWaiting = 1000; ///< messages that a client may send ahead

    /// What it refers to outlives it.
    TWebSession(std::string id, TSessionUser user, ISessionHost& host, TConectados& connected);
    /// Ends it and waits until its thread is done.
    ~TWebSession() override;
    TWebSession(const TWebSession&) = delete;
    TWebSession& operator=(const TWebSession&) = delete;

    // From any thread.
    const std::string& Id() const { return id_; }
    const TSessionUser& User() const { return user_; }
    /// The client that sees the session from now on: it is told everything. The one before is told that it was replaced.
    void Attach(std::shared_ptr<IClientLink> link);
    /// The client went away; the session waits for another.
    void Detach(const IClientLink& link);
    /// A message of this client. One that is not as it should be is answered with an error, and changes nothing.
    void Receive(IClientLink& from, std::string_view text);
    /// Every modal run unwinds, what is not committed is undone and the thread ends; nothing waits for it. The user is told
    /// why: now, or when he comes in again if he is not there or loses work. Empty: he wanted it.
    void End(std::string_view why);
    /// Until its thread is done.
    void Wait();
    bool Ended() const;
    /// Its end was asked for, and may not have come yet.
    bool Ending() const;
    /// When its user last did something.
    std::chrono::steady_clock::time_point LastUse() const;
    TConectado Note() const;
    /// The files that its client may name.
    TSessionFiles& Files() { return files_; }
    /// The work runs on the session's thread when every message received is carried out; without an application when the
    /// session ends before. It throws nothing.
    using TAsked = std::function<void(TApplication*)>;
    void Ask(TAsked work);
    /// That a dialog shows, by its token; null when it is closed. For work that was asked for.
    IShownReport* Report(std::string_view token) const { return dialogs_.Report(token); }

private:
    /// Where a keystroke would go.
    struct TFocus {
        std::int64_t dialog = 0;
        std::string form;
        std::string control;
        std::int64_t row = -1;
        std::string column;
        friend bool operator==(const TFocus&, const TFocus&) = default;
    };

    /// An event that the application has.
    struct TInWork {
        std::int64_t number = 0;
        std::optional<TUserEvent> then = {}; ///< a key was pressed first, this is what it typed
        TFocus focus = {}; ///< where the key was pressed
    };

    void Cancel(const IClientLink& from);
    void Run();

    // On the session's thread, called by its application.
    TUserEvent Next() override;
    void Handled(const TUserEvent& event, std::string_view refusal) override;
    void FormShown(TForm& form) override;
    void FormClosed(TForm& form) override;
    void ControlChanged(TControl& control) override;
    void FocusChanged(TForm& form) override;
    void DialogOpened(TDialog& dialog) override;
    void DialogChanged(TDialog& dialog) override;
    void DialogClosed(TDialog& dialog) override;
    void BusyChanged(bool busy) override;

    /// The next message to carry out; blocks, and tells the client what changed before it does. False when the session ends.
    bool Take(TClientMessage& message);
    bool CarryOut(TClientMessage& message);
    TUserEvent Begin(TUserEvent event, std::int64_t number);
    bool Offers(std::string_view screenClass) const;
    /// The answer names a file that the client brought: the handler gets its path. False when it names anything else.
    bool TakeFile(TUserEvent& event) const;
    void PassOver(std::int64_t number);
    void GiveRows(const TClientMessage& message);
    void OrderRows(const TClientMessage& message);
    void NoteEntered(const TUserEvent& event);
    /// Begins a new turn when what the user types would go elsewhere, or into another text, than the client was told.
    void NoteTurn();
    TFocus FocusNow() const;
    TControl* FocusedControl() const;
    TControl* FindControl(const TUserEvent& event) const;
    void Work();
    void Farewell(std::string told);
    void NoteState();
    void Tell();
    void TellEverything();
    void TellBeginning(nlohmann::json& message);
    void TellStatus(nlohmann::json& message);
    void TellScreens(nlohmann::json& message);
    void TellFocus(nlohmann::json& message);
    void Send(const nlohmann::json& message);
    void Refuse(std::int64_t number, std::string_view why);

    const std::string id_;
    const TSessionUser user_;
    ISessionHost& host_;
    TConnectedSeen connected_;

    // Shared with the threads of the connections.
    mutable std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<TClientMessage> waiting_;
    std::shared_ptr<IClientLink> link_;
    bool attachedAnew_ = false;
    std::int64_t received_ = 0;
    bool ending_ = false;
    std::string endingWhy_;
    bool ended_ = false;
    IWorkplace* workplace_ = nullptr;
    TConectado note_;
    std::deque<TAsked> asked_;
    std::chrono::steady_clock::time_point lastUse_ = std::chrono::steady_clock::now();

    TSessionFiles files_;

    // The session's thread alone.
    TApplication* application_ = nullptr;
    TScreenImage image_{files_};
    TDialogStack dialogs_{files_};
    std::vector<TForm*> shown_; ///< those that the client does not have yet
    std::vector<std::string> closed_;
    std::vector<TControl*> changed_; ///< without repetition, in the order of their first change
    std::set<const TControl*> changedSet_;
    nlohmann::json refused_ = nlohmann::json::array();
    nlohmann::json passed_ = nlohmann::json::array();
    std::deque<std::int64_t> passedLately_; ///< the line may have been cut before the client heard of them
    std::vector<TInWork> handling_; ///< the innermost last
    std::optional<TInWork> following_; ///< what a key typed whose handlers did not swallow it
    std::int64_t done_ = 0;
    std::int64_t doneTold_ = 0;
    std::int64_t turn_ = 1;
    TFocus focus_;
    bool focusTold_ = false;
    std::optional<TDateTime> pendingTold_;

    std::thread thread_;
};

} // namespace alinhavo
