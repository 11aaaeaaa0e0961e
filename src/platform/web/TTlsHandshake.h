#pragma once

#include "platform/web/TClientStream.h"
#include "platform/web/THttpAnswer.h"

#include <functional>
#include <memory>
#include <optional>

namespace alinhavo {

/// The beginning of an encrypted connection. Who comes without encryption, as a browser does when the address is typed without
/// its "https", is sent to the address that has it, and gets nothing else.
class TTlsHandshake final : public std::enable_shared_from_this<TTlsHandshake> {
public:
    using TReady = std::function<void(TClientStream)>;

    /// The context outlives it. `ready` gets the connection once it is encrypted.
    TTlsHandshake(TClientStream::TTcp stream, boost::asio::ssl::context& context, TReady ready);

    void Begin();

private:
    void ShakeHands();
    void ReadPlain();
    void SendElsewhere();

    std::unique_ptr<TClientStream::TTls> stream_;
    TReady ready_;
    boost::beast::flat_buffer input_;
    std::optional<boost::beast::http::request_parser<boost::beast::http::empty_body>> parser_;
    THttpResponse answer_;
};

} // namespace alinhavo
