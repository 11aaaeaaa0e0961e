#pragma once

#include "platform/web/TClientStream.h"
#include "platform/web/THttpAnswer.h"

#include <memory>
#include <optional>

namespace alinhavo {

class TSessionRegistry;
class TStaticFiles;
class TWebApi;

/// A browser's connection: it asks for files, and then becomes a connection of messages.
class THttpConnection final : public std::enable_shared_from_this<THttpConnection> {
public:
    /// What it refers to outlives it.
    THttpConnection(TClientStream stream, const TStaticFiles& files, TWebApi& api, TSessionRegistry& sessions);

    void Read();

private:
    void HeaderReceived(boost::beast::error_code error);
    void RefuseSize();
    void Received(boost::beast::error_code error);
    void AskApi(const THttpRequest& request);
    void BecomeMessages(const THttpRequest& request);
    void Answer(THttpResponse response);

    TClientStream stream_;
    std::string address_; ///< of the client
    const TStaticFiles& files_;
    TWebApi& api_;
    TSessionRegistry& sessions_;
    boost::beast::flat_buffer input_;
    std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> parser_;
};

} // namespace alinhavo
