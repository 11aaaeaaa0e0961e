#pragma once

#include "platform/report/TPdfPrinter.h"
#include "platform/services/TLoginGuard.h"
#include "platform/services/TSessionUser.h"
#include "platform/web/THttpAnswer.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/thread_pool.hpp>
#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>

namespace alinhavo {

class ISessionHost;
class IShownReport;
class TApplication;
class TSessionRegistry;
class TWebSession;

/// What a client asks for beside its session's messages: coming in and going out, its settings.
class TWebApi {
public:
    /// Called once, from any thread.
    using TReply = std::function<void(THttpResponse)>;

    struct TOptions {
        TLoginGuard::TDuration firstPenalty; ///< of the first wrong password too many
        std::string_view pdfCommand;
        bool encrypted = false; ///< the connections are
    };

    /// What it refers to outlives it.
    TWebApi(boost::asio::io_context& context, ISessionHost& host, TSessionRegistry& sessions, const TOptions& options);
    /// Waits for the password that is being looked at and the file that is being read.
    ~TWebApi();
    TWebApi(const TWebApi&) = delete;
    TWebApi& operator=(const TWebApi&) = delete;

    /// The path is one of this; otherwise it may be a file's.
    static bool Knows(std::string_view path);
    /// The request brings a file, which may be larger than another body.
    static bool TakesFile(const THttpRequest& request);
    void Answer(const THttpRequest& request, const std::string& address, TReply reply);

private:
    struct TCall {
        THttpRequest request;
        std::string address;
        TReply reply;
        std::string secret; ///< of the login; empty with a route that is open
        TSessionUser user;

        void Give(boost::beast::http::status status, const nlohmann::json& answer) const;
        void Refuse(boost::beast::http::status status, std::string_view text) const;
    };
    struct TRoute;

    static std::span<const TRoute> Routes();
    void WhoIs(const TCall& call);
    void ComeIn(const TCall& call);
    void LookAtPassword(const TCall& call, const std::string& user, const std::string& password);
    void GoOut(const TCall& call);
    void GiveSettings(const TCall& call);
    void TakeSettings(const TCall& call);
    void TakeFile(const TCall& call);
    void GiveFile(const TCall& call);
    void GiveReport(const TCall& call);
    void SendReport(const TCall& call);
    static void OfReport(const std::shared_ptr<TWebSession>& session, const std::string& token, const TCall& call,
        const std::function<void(IShownReport&)>& work);
    void GiveGrid(const TCall& call);
    static void GiveGridOf(const TApplication* application, const TCall& call);
    std::shared_ptr<TWebSession> SessionOf(const TCall& call) const;
    nlohmann::json Welcome(const TSessionUser& user) const;

    boost::asio::io_context& context_;
    ISessionHost& host_;
    TSessionRegistry& sessions_;
    const bool encrypted_;
    const TPdfPrinter pdf_;
    TLoginGuard guard_;
    boost::asio::thread_pool files_{1}; ///< a slow disk holds up no connection
    boost::asio::thread_pool prints_{1}; ///< one PDF at a time, which may take long and holds up nothing else
    boost::asio::thread_pool passwords_{1}; ///< one password at a time: looking at one takes all of a processor
};

} // namespace alinhavo
