#pragma once

#include "bench/carga/TEventTimes.h"
#include "platform/web/TWebSession.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace alinhavo {

/// A client of the protocol at its session, without a network between: what it sends is received at once, and it keeps what it
/// is told. One thread uses it.
class TLoadClient {
public:
    TLoadClient(std::shared_ptr<TWebSession> session, TEventTimes& times);
    /// Goes away; the session goes on.
    ~TLoadClient();
    TLoadClient(const TLoadClient&) = delete;
    TLoadClient& operator=(const TLoadClient&) = delete;

    /// Ends the session; what it did not commit is undone. Nothing else may be asked of the client afterwards.
    void LogOut() { session_->End(""); }

    /// Sends the event and waits until it is carried out. std::runtime_error with what the server says against it.
    void Do(nlohmann::json event, TEventKind kind = TEventKind::Step);
    /// Sends without waiting, as a scanner types.
    void Send(nlohmann::json event, TEventKind kind);
    void Await();

    const std::string& Focus() const { return focus_; }
    bool HasDialog() const { return !dialogs_.empty(); }
    const nlohmann::json& Dialog() const { return dialogs_.back(); }
    nlohmann::json Property(const std::string& control, const std::string& name) const;
    std::string Text(const std::string& control) const;
    /// As it was told; empty when it was not.
    std::string Cell(const std::string& grid, int row, std::string_view column) const;

private:
    /// What the session tells, from its own thread.
    class TLink final : public IClientLink {
    public:
        explicit TLink(TEventTimes& times)
            : times_(times)
        {
        }
        void Sent(std::int64_t number, TEventKind kind, std::string what);
        nlohmann::json Next();
        void Send(std::string message) override;
        void Close() override { }

    private:
        struct TSent {
            std::int64_t number;
            TEventKind kind;
            std::string what;
            std::chrono::steady_clock::time_point at;
        };
        TEventTimes& times_;
        std::mutex mutex_;
        std::condition_variable told_;
        std::deque<TSent> sent_;
        std::deque<std::string> messages_;
    };
    struct TKnown {
        nlohmann::json properties = nlohmann::json::object();
        std::map<int, nlohmann::json> rows = {};
    };

    void Take(const nlohmann::json& message);
    void Note(const nlohmann::json& control);

    std::shared_ptr<TLink> link_;
    std::shared_ptr<TWebSession> session_;
    std::int64_t number_ = 0;
    std::int64_t done_ = -1;
    std::int64_t turn_ = 0;
    std::string focus_;
    nlohmann::json dialogs_ = nlohmann::json::array();
    std::map<std::string, TKnown> controls_;
    std::string refusal_;
};

} // namespace alinhavo
