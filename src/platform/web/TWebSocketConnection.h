#pragma once

#include "platform/web/IClientLink.h"
#include "platform/web/TClientStream.h"
#include "platform/web/THttpAnswer.h"

#include <boost/beast/websocket.hpp>
#include <deque>
#include <memory>
#include <string>

namespace alinhavo {

class TWebSession;

/// A client's connection to its session.
class TWebSocketConnection final : public IClientLink, public std::enable_shared_from_this<TWebSocketConnection> {
public:
    /// Without a session its client is only told why. It does not hold the session, which holds it: else the session's own thread
    /// could be the one that lets go of both.
    TWebSocketConnection(TClientStream stream, std::weak_ptr<TWebSession> session);

    /// Answers the request to become a connection of messages.
    void Accept(const THttpRequest& request, const std::string& why);

    void Send(std::string message) override;
    void Close() override;

private:
    void Dismiss(const std::string& why);
    void Read();
    void Received(boost::beast::error_code error);
    void Queue(std::string message);
    void WriteNext();
    void BeginClosing();

    boost::beast::websocket::stream<TClientStream> stream_;
    std::weak_ptr<TWebSession> session_;
    boost::beast::flat_buffer input_;
    std::deque<std::string> output_; ///< the first is under way
    bool closing_ = false;
};

} // namespace alinhavo
