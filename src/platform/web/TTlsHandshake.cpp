#include "platform/web/TTlsHandshake.h"

#include <boost/beast/core/detect_ssl.hpp>

namespace alinhavo {

namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace ssl = boost::asio::ssl;

namespace {

constexpr std::chrono::seconds Patience(10);
constexpr std::size_t MaxHeader = 16 * 1024;

} // namespace

TTlsHandshake::TTlsHandshake(TClientStream::TTcp stream, ssl::context& context, TReady ready)
    : stream_(std::make_unique<TClientStream::TTls>(std::move(stream), context))
    , ready_(std::move(ready))
{
}

void TTlsHandshake::Begin()
{
    stream_->next_layer().expires_after(Patience);
    beast::async_detect_ssl(
        stream_->next_layer(), input_, [self = shared_from_this()](beast::error_code error, bool encrypted) {
            if (error)
                return;
            if (encrypted)
                self->ShakeHands();
            else
                self->ReadPlain();
        });
}

void TTlsHandshake::ShakeHands()
{
    stream_->async_handshake(
        ssl::stream_base::server, input_.data(), [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (!error)
                self->ready_(TClientStream(std::move(self->stream_)));
        });
}

void TTlsHandshake::ReadPlain()
{
    parser_.emplace();
    parser_->header_limit(MaxHeader);
    http::async_read_header(
        stream_->next_layer(), input_, *parser_, [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (!error)
                self->SendElsewhere();
        });
}

// Only what reads: a password that was sent in the clear must not come again as if nothing had happened.
void TTlsHandshake::SendElsewhere()
{
    THttpRequest request(parser_->get().base());
    request.keep_alive(false);
    const std::string host(request[http::field::host]);
    const bool reads = request.method() == http::verb::get || request.method() == http::verb::head;
    if (!reads || host.empty()) {
        answer_ = AnswerText(request, http::status::forbidden, "Este servidor só atende por https.");
    } else {
        answer_ = AnswerText(request, http::status::permanent_redirect, "Este servidor atende por https.");
        answer_.set(http::field::location, "https://" + host + std::string(request.target()));
    }
    http::async_write(
        stream_->next_layer(), answer_, [self = shared_from_this()](beast::error_code error, std::size_t) {
            self->stream_->next_layer().socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, error);
        });
}

} // namespace alinhavo
